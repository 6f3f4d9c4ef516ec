# Completions of deploymgr for bash. The program itself knows what may come next.

_deploymgr() {
  local current=${COMP_WORDS[COMP_CWORD]} kind="" line value
  local -a words=("${COMP_WORDS[@]:1:COMP_CWORD}")
  COMPREPLY=()
  while IFS= read -r line; do
    if [[ -z $kind ]]; then
      kind=$line
      continue
    fi
    value=${line%%$'\t'*}
    # Inside of quotes the shell closes what was opened; outside, what it would split is quoted.
    [[ $current == [\"\']* ]] || printf -v value %q "$value"
    COMPREPLY+=("$value")
  done < <("$1" __complete bash "${words[@]}" 2>/dev/null)

  [[ $current == = ]] && current=
  case $kind in
    files) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
    directories) mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
    projects)
      mapfile -t COMPREPLY < <(
        compgen -d -- "$current"
        compgen -f -- "$current" | grep -E '\.([^./]*proj|sln)$' | grep -v '\.deployproj$'
      )
      ;;
    *) return ;;
  esac
  compopt -o filenames 2>/dev/null
}

complete -F _deploymgr deploymgr
