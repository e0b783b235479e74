# Completion of commands, options and files for topicsmith, topicsmith-batch and topicsmith-hhc. Commands
# and options are those that the program's own help names, so that none is missing here.
# shellcheck shell=bash

# What may stand for a word of the usage, such as PROJECT.tsp, HELP.chm|HELP.hhp, FOLDER or 1|2.
_topicsmith_word() {
    local choice choices
    IFS='|' read -ra choices <<<"$1"
    for choice in "${choices[@]}"; do
        case $choice in
            *.*) _filedir "${choice##*.}" ;;
            FILE) _filedir ;;
            FOLDER) _filedir -d ;;
            *[A-Z]*) ;; # a text, which nobody can guess
            *) mapfile -t -O ${#COMPREPLY[@]} COMPREPLY < <(compgen -W "$choice" -- "$cur") ;;
        esac
    done
}

_topicsmith() {
    local cur prev words cword split
    _init_completion -s || return
    case ${1##*/} in
        topicsmith)
            [[ $cur != -* ]] || mapfile -t COMPREPLY < <(compgen -W "--help --version" -- "$cur")
            [[ $cur == -* ]] || _filedir '@(tsp|chm)'
            ;;
        topicsmith-hhc) _filedir hhp ;;
    esac
}

_topicsmith_batch() {
    local cur prev words cword split usage line
    _init_completion -s || return
    usage=$("$1" --help 2>/dev/null | sed -n 's/^  topicsmith-batch //p')
    if [ "$cword" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "$(sed '/^--/s/ | / /; /^[^-]/s/ .*//' <<<"$usage")" -- "$cur")
        return
    fi
    line=$(sed -n "s/^${words[1]//[^a-z-]/} //p" <<<"$usage")

    # The options, each with the word for its value behind "=", and the files in their places.
    local part parts options=() places=() place=0 pending=
    read -ra parts <<<"$line"
    for part in "${parts[@]}"; do
        local name=${part//[\[\]]/}
        name=${name%...}
        if [[ -n $pending ]]; then
            options+=("$pending=$name")
            pending=
        elif [[ $part == '[--'*']' ]]; then
            options+=("$name")
        elif [[ $part == '[--'* ]]; then
            pending=$name
        elif [[ $part == '|' ]]; then
            place=0
        else
            places[place]+=${places[place]:+|}$name
            [[ $part == *... ]] || ((++place))
        fi
    done

    local option
    for option in "${options[@]}"; do
        if [[ $option == "$prev="* ]]; then
            _topicsmith_word "${option#*=}"
            return
        fi
    done
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "${options[*]%%=*}" -- "$cur")
        return
    fi
    place=0
    local i
    for ((i = 2; i < cword; ++i)); do
        case " ${options[*]} " in
            *" ${words[i]}="*) ((++i)) ;; # its value is no word
            *) [[ ${words[i]} == --* ]] || ((++place)) ;;
        esac
    done
    _topicsmith_word "${places[place]}"
}

complete -F _topicsmith topicsmith topicsmith-hhc
complete -F _topicsmith_batch topicsmith-batch
