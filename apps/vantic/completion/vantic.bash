# Completion of vantic in bash. The program itself computes the candidates.
_vantic() {
    local line
    COMPREPLY=()
    while IFS=$'\t' read -r line _; do
        if [ "$line" = :files ]; then
            # No candidates: bash completes names of files.
            compopt -o default
            COMPREPLY=()
            return
        fi
        COMPREPLY+=("$(printf '%q' "$line")")
    done < <("${COMP_WORDS[0]}" complete -- "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
}
complete -F _vantic vantic
