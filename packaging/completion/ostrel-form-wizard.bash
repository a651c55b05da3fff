# bash completion for ostrel-form-wizard and ostrel-form-wizard-desktop             -*- shell-script -*-

_ostrel_form_wizard_words() {
  mapfile -t COMPREPLY < <(compgen -W "$1" -- "$cur")
}

# The value of an option that stands before the cursor, with a leading ~ resolved.
_ostrel_form_wizard_given() {
  local i value
  for ((i = 1; i < cword; i++)); do
    case ${words[i]} in
      "$1") value=${words[i + 1]} ;;
      "$1"=*) value=${words[i]#*=} ;;
    esac
  done
  [[ ${value-} != "~"/* ]] || value=$HOME${value#"~"}
  printf '%s' "${value-}"
}

# A listing of the dictionary that was named, such as its classes: a line a row, with tabs between the columns.
_ostrel_form_wizard_rows() {
  local dictionary system
  dictionary=$(_ostrel_form_wizard_given --dictionary)
  system=$(_ostrel_form_wizard_given --system)
  [[ -f $dictionary ]] || return 0
  [[ $1 == systems || -z $system ]] || set -- "$@" --system "$system"
  ostrel-form-wizard "$@" --dictionary "$dictionary" 2>/dev/null
}

_ostrel_form_wizard_list() {
  _ostrel_form_wizard_rows "$@" | cut -f 1
}

# The paths that a word can become: properties of the class, or those of one object in it that the word begins with.
_ostrel_form_wizard_paths() {
  # path, kind
  _ostrel_form_wizard_rows properties --class "$1" | awk -F '\t' -v word="$2" '$2 == "object" { $1 = $1 "." }
    $1 != word && ($1 !~ /\../ || word ~ /\./) { print $1 }'
}

# English and the languages whose satellites stand beside the program; the links are those of their regions.
_ostrel_form_wizard_languages() {
  local library
  echo ENU
  for library in "$(dirname "$(readlink -f "$(command -v "${words[0]}")")")"/OstrelFormWizard???.dll; do
    [[ -f $library && ! -L $library ]] || continue
    library=${library##*/OstrelFormWizard}
    echo "${library%.dll}"
  done
}

# The forms of the project that was named, and those of them that are kept.
_ostrel_form_wizard_forms() {
  local project
  project=$(_ostrel_form_wizard_given --project)
  [[ ! -f $project ]] || sed -n 's/\r$//; s/^Form=\(.*[\\]\)\{0,1\}\(.*\)\.[Ff][Rr][Mm]$/\2/p' "$project"
}
_ostrel_form_wizard_kept() {
  local project file
  project=$(_ostrel_form_wizard_given --project)
  for file in "${project%.*}".forms/*.json; do
    [[ ! -f $file ]] || basename "$file" .json
  done
}

# Completes the value of the option $prev; fails when that is no option with a value.
_ostrel_form_wizard_value() {
  local IFS=$' \t\n'
  case $prev in
    --project) _filedir vbp ;;
    --dictionary | --journal | --descriptions-from) _filedir ;;
    --toolbox) _filedir '@(ini|vbp)' ;;
    --profile) _filedir ini ;;
    --language) _ostrel_form_wizard_words "$(_ostrel_form_wizard_languages)" ;;
    --code-page) _ostrel_form_wizard_words '874 932 936 949 950 1250 1251 1252 1253 1254 1255 1256 1257 1258 65001' ;;
    --system)
      IFS=$'\n'
      _ostrel_form_wizard_words "$(_ostrel_form_wizard_list systems)"
      ;;
    --class)
      local all=()
      [[ $command == generate ]] || all=(--all)
      _ostrel_form_wizard_words "$(_ostrel_form_wizard_list classes "${all[@]}")"
      ;;
    --fields)
      local class chosen=''
      class=$(_ostrel_form_wizard_given --class)
      [[ $cur != *,* ]] || chosen=${cur%,*},
      [[ -z $class ]] || mapfile -t COMPREPLY < <(compgen -P "$chosen" \
        -W "$(_ostrel_form_wizard_paths "$class" "${cur##*,}")" -- "${cur##*,}")
      compopt -o nospace
      ;;
    --set)
      [[ $cur == *=* ]] || mapfile -t COMPREPLY < <(compgen -S = -W 'Bold Button CollectionRows Columns FormSizable
        ImageRows LabelAlignLeft Menu MultilineRows New Save Search SearchClear SearchNew SearchPredicates SearchSort
        Statusbar Toolbar' -- "$cur")
      compopt -o nospace
      ;;
    *) return 1 ;;
  esac
}

_ostrel_form_wizard() {
  local cur prev words cword split
  _init_completion -s || return

  local command='' i
  for ((i = 1; i < cword; i++)); do
    case ${words[i]} in
      generate | keep | status | update | undo | wizard | systems | classes | properties | queries | dictionary | compare | merge | lint | render | doctor)
        command=${words[i]}
        break
        ;;
    esac
  done

  if [[ -z $command ]]; then
    _ostrel_form_wizard_words '--help --version generate keep status update undo wizard systems classes properties queries
      dictionary compare merge lint render doctor'
    return
  fi
  if [[ $command == dictionary ]]; then
    if ((cword == i + 1)); then
      _ostrel_form_wizard_words '--help import export diff'
    elif [[ $prev == --project ]]; then
      _filedir vbp
    elif [[ $cur == -?* && ${words[i + 1]} == diff ]]; then
      _ostrel_form_wizard_words '--help --project --json --quiet'
    elif [[ $cur == -?* ]]; then
      _ostrel_form_wizard_words '--help --force --quiet --verbose'
    elif [[ ${words[i + 1]} == import && $cword -eq $((i + 2)) || ${words[i + 1]} == export && $cword -eq $((i + 3)) ]]; then
      _filedir json
    else
      _filedir
    fi
    return
  fi

  _ostrel_form_wizard_value && return
  $split && return
  case $command in
    compare)
      if [[ $cur == -* ]]; then
        _ostrel_form_wizard_words '--help --code-page --json'
      else
        _filedir '@(frm|bas|cls|ctl|pag|dob|vbp)'
      fi
      ;;
    merge)
      if [[ $prev == --style ]]; then
        _ostrel_form_wizard_words 'merge diff3 zdiff3'
      elif [[ $prev == --conflicts ]]; then
        _ostrel_form_wizard_words 'marks mine theirs'
      elif [[ $cur == -* ]]; then
        _ostrel_form_wizard_words '--help --output --style --conflicts --marker-size --path --code-page'
      else
        _filedir '@(frm|bas|cls|ctl|pag|dob|vbp)'
      fi
      ;;
    lint)
      if [[ $cur == -* ]]; then
        _ostrel_form_wizard_words '--help --project --all --code-page --json'
      else
        _filedir '@(frm|bas|cls|ctl|pag|dob|vbp)'
      fi
      ;;
    render)
      if [[ $cur == -* ]]; then
        _ostrel_form_wizard_words '--help --code-page'
      else
        _filedir '@(frm|png|svg)'
      fi
      ;;
    generate)
      if [[ $cur == -* ]]; then
        _ostrel_form_wizard_words '--help --project --dictionary --system --class --fields --set --code-page --toolbox
          --allow-incomplete --profile --language --descriptions-from --keep --dry-run --diff --check --journal --force --json
          --quiet --verbose'
      else
        _filedir json
      fi
      ;;
    keep)
      if [[ $cur == -* ]]; then
        _ostrel_form_wizard_words '--help --project --dictionary --code-page --dry-run --diff --quiet'
      elif [[ $prev == *.json ]]; then
        _ostrel_form_wizard_words "$(_ostrel_form_wizard_forms)"
      else
        _filedir json
      fi
      ;;
    status)
      if [[ $cur == -* ]]; then
        _ostrel_form_wizard_words '--help --project --dictionary --code-page --json'
      else
        _ostrel_form_wizard_words "$(_ostrel_form_wizard_kept)"
      fi
      ;;
    update)
      if [[ $prev == --conflicts ]]; then
        _ostrel_form_wizard_words 'marks mine theirs'
      elif [[ $cur == -* ]]; then
        _ostrel_form_wizard_words '--help --project --dictionary --code-page --dry-run --diff --conflicts --resolve
          --skip-conflicts --json --quiet'
      elif [[ $prev != --resolve ]]; then
        _ostrel_form_wizard_words "$(_ostrel_form_wizard_kept)"
      fi
      ;;
    wizard)
      _ostrel_form_wizard_words '--help --project --dictionary --code-page --toolbox --profile --language'
      ;;
    undo) _ostrel_form_wizard_words '--help --project --dry-run --diff --json --quiet' ;;
    doctor) _ostrel_form_wizard_words '--help --fix --strict --json' ;;
    systems) _ostrel_form_wizard_words '--help --dictionary --json' ;;
    classes) _ostrel_form_wizard_words '--help --dictionary --json --system --all' ;;
    properties) _ostrel_form_wizard_words '--help --dictionary --json --system --class --all --description' ;;
    queries) _ostrel_form_wizard_words '--help --dictionary --json --system --class' ;;
  esac
}

_ostrel_form_wizard_desktop() {
  local cur prev words cword split command=''
  _init_completion -s || return

  case $prev in
    --render)
      _filedir frm
      return
      ;;
    --system | --class | --fields | --set | --project | --journal | --descriptions-from) ;; # not options of this program
    *)
      _ostrel_form_wizard_value && return
      $split && return
      ;;
  esac
  if ((cword > 2)) && [[ ${words[cword - 2]} == --render ]]; then
    _filedir '@(png|svg)'
  elif [[ $cur == -* ]]; then
    _ostrel_form_wizard_words '--help --version --dictionary --profile --language --code-page --toolbox --wizard --render'
  else
    _filedir vbp
  fi
}

complete -F _ostrel_form_wizard ostrel-form-wizard
complete -F _ostrel_form_wizard_desktop ostrel-form-wizard-desktop
