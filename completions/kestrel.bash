# Completion of kestrel(1) for bash.

_kestrel_files() {
  # Fails outside of a completion, where there is nothing to tell readline.
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_kestrel() {
  local current=$2 previous=$3 command='' words='' word
  # Where readline splits --image=FILE, the sign is a word by itself.
  if [[ ${COMP_WORDS[COMP_CWORD]} == '=' ]]; then
    current=''
  elif [[ $previous == '=' ]]; then
    previous=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case $word in
      report | mif | json | bios | list | check | save)
        command=$word
        break
        ;;
    esac
  done
  COMPREPLY=()
  case $previous in
    --image | -o | --output)
      _kestrel_files "$current"
      return
      ;;
    --format)
      mapfile -t COMPREPLY < <(compgen -W 'auto memory dump rsmb raw' -- "$current")
      return
      ;;
    --smbios-version | --type)
      return
      ;;
  esac
  local source='--image --format --smbios-version --sample --help'
  case $command in
    '') words='report mif json bios list check save --help --version' ;;
    report) words="--exact -o --output $source" ;;
    mif) words="-o --output $source" ;;
    json) words="--type -o --output $source" ;;
    save)
      if [[ $current != -* ]]; then
        _kestrel_files "$current"
        return
      fi
      words='--force --help'
      ;;
    *) words=$source ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

complete -F _kestrel kestrel
