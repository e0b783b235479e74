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

# Completes what follows words[1] from its line of the usage: words in their places, and options with
# the word for their value behind "=".
_topicsmith_arguments() {
    local part parts name options=() places=() place=0 pending=
    read -ra parts <<<"$1"
    for part in "${parts[@]}"; do
        name=${part//[\[\]]/}
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

# The lines of the help of program $1 that begin with $2 and its name, without both; what is told about
# them stands behind three blanks.
_topicsmith_usage() {
    "$1" --help 2>/dev/null | sed -n "s/^$2${1##*/} //p" | sed 's/   .*//'
}

_topicsmith() {
    local cur prev words cword split usage
    _init_completion -s || return
    usage=$(_topicsmith_usage "$1" "" | grep '^--')
    if [[ $cword -gt 1 && ${words[1]} == -* ]]; then
        _topicsmith_arguments "$(sed -n "s/^${words[1]//[^a-z-]/} //p" <<<"$usage")"
    elif [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "--help --version $(sed 's/ .*//' <<<"$usage")" -- "$cur")
    else
        _filedir '@(tsp|chm)'
    fi
}

_topicsmith_batch() {
    local cur prev words cword split usage
    _init_completion -s || return
    usage=$(_topicsmith_usage "$1" "  ")
    if [ "$cword" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "$(sed '/^--/s/ | / /; /^[^-]/s/ .*//' <<<"$usage")" -- "$cur")
    else
        _topicsmith_arguments "$(sed -n "s/^${words[1]//[^a-z-]/} //p" <<<"$usage")"
    fi
}

_topicsmith_hhc() {
    local cur prev words cword
    _init_completion || return
    _filedir hhp
}

complete -F _topicsmith topicsmith
complete -F _topicsmith_batch topicsmith-batch
complete -F _topicsmith_hhc topicsmith-hhc
