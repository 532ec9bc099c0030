#!/usr/bin/env bash
# Checks that the sources are formatted, the linter is content, and the scripts are sound.
# Arguments: the kind of check (format, tidy, shell) and, for tidy, the build folder.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

sources() {
  find include src drivers tools tests fuzz bench -name "$1" -print0
}

case $1 in
  format) { sources '*.h'; sources '*.c'; sources '*.cpp'; } | xargs -0 clang-format --dry-run --Werror ;;
  tidy) scripts/lint.py "$2" ;;
  shell) { printf '%s\0' run test completions/kestrel.bash .ci/run scripts/build-preset scripts/require-packages scripts/runs-32-bit-programs; sources '*.sh'; } | xargs -0 shellcheck -x -P tests ;;
esac
