# Completion of salerpt in bash: commands, report classes, dialogs, options, formats, files. packaging/check holds
# it against salerpt --help.

_salerpt_words() {
  COMPREPLY=($(compgen -W "$1" -- "$cur"))
}

_salerpt_any_file() {
  local IFS=$'\n'
  COMPREPLY=($(compgen -f -- "$cur"))
  compopt -o filenames 2>/dev/null
}

# Folders, and files of the patterns given: _salerpt_files '*.csv' '*.csv.gz'.
_salerpt_files() {
  local IFS=$'\n' pattern
  COMPREPLY=($(compgen -d -- "$cur"))
  for pattern; do
    COMPREPLY+=($(compgen -f -X "!$pattern" -- "$cur"))
  done
  compopt -o filenames 2>/dev/null
}

# A column of the list of report classes: 1 the classes, 4 their dialogs.
_salerpt_reports() {
  _salerpt_words "$("${COMP_WORDS[0]}" reports 2>/dev/null | awk -F ' *[|] *' -v column="$1" 'NR > 2 {print $column}')"
}

_salerpt() {
  local cur=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    _salerpt_words "init import reports show drill plans log sql request dialog info --help"
    return
  fi
  # --format=csv comes as three words.
  [ "$cur" = = ] && cur=
  [ "$previous" = = ] && previous=${COMP_WORDS[COMP_CWORD - 2]}

  case $previous in
    --db) _salerpt_files '*.db'; return ;;
    --filter) _salerpt_files '*.json'; return ;;
    --out) _salerpt_any_file; return ;;
    --format)
      case $command in
        show | drill) _salerpt_words "table csv json html xlsx" ;;
        *) _salerpt_words "table csv json" ;;
      esac
      return ;;
    --key) _salerpt_words "123"; return ;;
    --shift) _salerpt_words "0 1"; return ;;
    --seed | --lines | --plan | --save-plan | --row) return ;;
  esac

  local options=--help
  case $command in
    init) options+=" --seed --lines" ;;
    show) options+=" --db --filter --plan --auto --save-plan --format --out --progress" ;;
    drill) options+=" --row --db --filter --plan --auto --save-plan --format --out --progress" ;;
    plans | log | sql) options+=" --db --format" ;;
    info) options+=" --db --key --shift" ;;
  esac
  case $cur in
    -*) _salerpt_words "$options"; return ;;
  esac

  case $command:$COMP_CWORD in
    show:2 | drill:2 | request:2 | plans:2) _salerpt_reports 1 ;;
    dialog:2) _salerpt_reports 4 ;;
    request:3 | dialog:3 | info:*) _salerpt_files '*.json' ;;
    init:2 | import:2) _salerpt_files '*.db' ;;
    import:3) _salerpt_files '*.csv' '*.csv.gz' ;;
    sql:*) _salerpt_any_file ;;
  esac
}

complete -F _salerpt salerpt
