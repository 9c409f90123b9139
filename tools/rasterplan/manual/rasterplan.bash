# Completion of rasterplan for bash: commands, the options of each, the forms of --paths, and files by their endings.
# shellcheck shell=bash

_rasterplan() {
    COMPREPLY=()
    local word=${COMP_WORDS[COMP_CWORD]} earlier option="" ended=""
    local -a given=() # the command and its files so far
    for earlier in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if [[ $earlier == "=" ]]; then
            continue # bash takes --paths=relative for three words
        elif [[ -n $option ]]; then
            option=""
        elif [[ -z $ended && $earlier == -- ]]; then
            ended=yes
        elif [[ -n $ended || $earlier != -* ]]; then
            given+=("$earlier")
        elif [[ $earlier == --@(paths|origin|x-axis|y-axis|angle-tolerance|distance-tolerance) ]]; then
            option=$earlier
        fi
    done
    [[ $word != "=" ]] || word=""

    local warnings="--quiet --verbose --strict" drawing="--paths --collect --view"
    local plane="--origin --x-axis --y-axis --angle-tolerance --distance-tolerance"
    local options="" endings=""
    case ${given[0]:-} in
    3d) options="$drawing $warnings" endings="json dxf" ;;
    2d) options="$drawing $plane $warnings" endings="json dxf" ;;
    plane) options="--json $warnings" endings="json" ;;
    corners) options=$warnings endings="json" ;;
    view) options="--embed $warnings" endings="dxf html" ;;
    check) options="--json" endings="dxf" ;;
    "") options="--version" ;;
    esac

    local words=""
    if [[ $option == --paths ]]; then
        words="relative absolute as-given"
    elif [[ -n $option ]]; then
        return # a number
    elif [[ -z $ended && $word == -* ]]; then
        words="--help $options"
    elif [[ ${#given[@]} == 0 || ${#given[@]} == 1 && ${given[0]} == help ]]; then
        words="3d 2d plane corners view check"
        [[ ${#given[@]} != 0 ]] || words+=" help"
    fi
    if [[ -n $words ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
        return
    fi

    read -ra endings <<<"$endings"
    local ending=${endings[${#given[@]} - 1]:-}
    [[ -n $ending ]] || return
    compopt -o filenames # folders get a slash, blanks a backslash
    mapfile -t COMPREPLY < <(
        shopt -s nocasematch
        compgen -d -- "$word"
        compgen -f -X "!*.$ending" -- "$word"
    )
}

complete -F _rasterplan rasterplan
