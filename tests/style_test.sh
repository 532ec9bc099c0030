#!/usr/bin/env bash
# Checks that the sources are formatted, the linter is content, and the scripts are sound.
# Argument: the kind of check (format, tidy, tidy_windows, shell).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

sources() {
  find include src drivers tools tests fuzz bench -name "$1" -print0
}

# Runs a linter; what it says matters only if it fails.
lint() {
  local log
  log=$("$@" 2>&1) || {
    grep -vE '^clang-tidy|warnings? generated|^$' <<<"$log"
    return 1
  }
}

case $1 in
  format) { sources '*.h'; sources '*.c'; sources '*.cpp'; } | xargs -0 clang-format --dry-run --Werror ;;
  tidy)
    lint cmake --preset lint
    # With the analyzer's own limit of 225,000 steps in a function, the linter takes four times as long.
    steps=(-extra-arg={-Xclang,-analyzer-config,-Xclang,max-nodes=10000})
    lint run-clang-tidy -quiet -p build/lint -checks=-bugprone-suspicious-include "${steps[@]}" \
      'UnifiedSource.cpp$'
    ;;
  tidy_windows)
    # What is for Windows only; GCC says where the headers of the standard library are.
    unit=build/lint_windows/UnifiedSource.cpp
    mkdir -p "${unit%/*}"
    headers=$(x86_64-w64-mingw32-g++ -print-file-name=include/c++)
    printf '#include "%s"\n' "$PWD"/src/{api/module,firmware/access_driver,platform/*}.cpp \
      "$PWD"/{tools/kestrel/machine_windows,tests/windows/sample_memory}.cpp >"$unit"
    lint clang-tidy --quiet -checks=-bugprone-suspicious-include "$unit" src/runtime/*.cpp -- \
      --target=x86_64-w64-mingw32 -std=c++20 -I. -Iinclude -Isrc \
      -isystem "$headers" -isystem "$headers/x86_64-w64-mingw32"
    ;;
  shell) { printf '%s\0' run test completions/kestrel.bash .ci/run scripts/build-preset scripts/make-page-picture scripts/require-packages scripts/runs-32-bit-programs; sources '*.sh'; } | xargs -0 shellcheck -x -P tests ;;
esac
