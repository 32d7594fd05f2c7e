# Completion of velquist-cli for bash.

_velquist_cli() {
  local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command='' word
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case $word in
    show | compare | list | check | export | convert | gearing | sheet)
      command=$word
      break
      ;;
    esac
  done
  local options='--json --year --chassis --formula --units --program-directory --help --version'
  COMPREPLY=()
  case $before in
  --year) mapfile -t COMPREPLY < <(compgen -W '1965 1966 1967 1969 GT' -- "$current") ;;
  --formula) mapfile -t COMPREPLY < <(compgen -W '1 2 3' -- "$current") ;;
  --units) mapfile -t COMPREPLY < <(compgen -W 'english metric' -- "$current") ;;
  --chassis) ;;
  *)
    if [[ -z $command && $current != -* ]]; then
      mapfile -t COMPREPLY < <(
        compgen -W 'show compare list check export convert gearing sheet' -- "$current"
      )
      return
    fi
    case $command in
    list) options+=' --csv' ;;
    export) options+=' --to --force' ;;
    sheet) options+=' --to --force --reference' ;;
    convert) options+=' --short --long --to --force' ;;
    esac
    if [[ $current == -* ]]; then
      mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    else
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$current")
    fi
    ;;
  esac
}
complete -F _velquist_cli velquist-cli
