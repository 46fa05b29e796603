# Completion of @program@ for bash.
@function@() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    # The shell takes --option=value for three words.
    [[ $current != = ]] || current=
    [[ $previous != = ]] || previous=${COMP_WORDS[COMP_CWORD - 2]}
    COMPREPLY=()
    case $previous in
@bash_values@    esac
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '@options@' -- "$current")
    else
        mapfile -t COMPREPLY < <(@bash_operands@)
    fi
}
complete -o filenames -F @function@ @program@
