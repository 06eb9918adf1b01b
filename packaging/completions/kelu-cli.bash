# Completion of kelu-cli for bash; the effects are asked of the program itself. SPDX-License-Identifier: MIT
_kelu_cli() {
    local word=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]}
    local IFS=$'\n'
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "$(printf '%s\n' effects apply convert gif-info replay registry bench help)" -- "$word")
    elif [ "$COMP_CWORD" -eq 2 ] && { [ "$command" = apply ] || [ "$command" = bench ]; }; then
        mapfile -t COMPREPLY < <(compgen -W "$(kelu-cli effects --names 2>/dev/null)" -- "$word" | sed 's/[ &]/\\&/g')
    elif [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(kelu-cli "$command" --help 2>/dev/null | grep -oE -- '--[a-z0-9-]+' | sort -u)" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        compopt -o filenames
    fi
}
complete -F _kelu_cli kelu-cli
