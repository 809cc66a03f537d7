# What may stand at the cursor is asked of vantro itself. Where it knows nothing, file names are offered.
_vantro() {
  local current=${COMP_WORDS[COMP_CWORD]} candidate
  # A name with spaces is typed with backslashes or within quotes.
  local words=("${COMP_WORDS[@]:1:COMP_CWORD}")
  words[-1]=${current//[\\\"\']/}
  COMPREPLY=()
  while IFS=$'\t' read -r candidate _; do
    COMPREPLY+=("$(printf %q "$candidate")")
  done < <("${COMP_WORDS[0]}" complete -- "${words[@]}" 2>/dev/null)
}
complete -o bashdefault -o default -F _vantro vantro
