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
      overview | show | get | html | report | mif | json | bios | list | check | save)
        command=$word
        break
        ;;
    esac
  done
  COMPREPLY=()
  case $previous in
    --image | --images-from | -o | --output)
      _kestrel_files "$current"
      return
      ;;
    --format)
      mapfile -t COMPREPLY < <(compgen -W 'auto memory dump rsmb raw' -- "$current")
      return
      ;;
    --type)
      mapfile -t COMPREPLY < <(compgen -W 'bios system baseboard chassis processor memory cache connector slot' -- "$current")
      return
      ;;
    --smbios-version | --handle)
      return
      ;;
  esac
  local keywords='
    bios-vendor bios-version bios-release-date bios-revision firmware-revision
    system-manufacturer system-product-name system-version system-serial-number system-uuid
    system-sku-number system-family baseboard-manufacturer baseboard-product-name
    baseboard-version baseboard-serial-number baseboard-asset-tag chassis-manufacturer
    chassis-type chassis-version chassis-serial-number chassis-asset-tag processor-family
    processor-manufacturer processor-version processor-frequency'
  local source='--image --format --smbios-version --sample --help'
  case $command in
    '') words='overview show get html report mif json bios list check save --help --version' ;;
    report) words="--exact -o --output $source" ;;
    mif | html) words="-o --output $source" ;;
    show) words="--type --handle -o --output $source" ;;
    json) words="--type --overview --lines --images-from -o --output $source" ;;
    check) words="--lines --images-from $source" ;;
    get) words="$keywords $source" ;;
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
