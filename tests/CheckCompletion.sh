#!/usr/bin/env bash
# CheckCompletion.sh PROGRAM_FOLDER PACKAGING SCRATCH: every command and option that the batch program's
# own help names is completed and stands in its manual page, and files are completed by their endings.
# shellcheck disable=SC1091
PATH=$1:$PATH LC_ALL=C.UTF-8
packaging=$2
. /usr/share/bash-completion/bash_completion
. "$packaging/topicsmith.bash"
rm -rf "$3" && mkdir -p "$3/folder" && cd "$3" || exit 1
touch a.tsp B.TSP "ä ö.tsp" a.hhp a.chm a.vbp words.txt s

# offered WORD... CURRENT: what is offered for the last word, sorted, with "|" between. "=" is a word.
offered() {
    COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMP_LINE="$*" COMPREPLY=()
    COMP_LINE=${COMP_LINE// = /=}
    COMP_POINT=${#COMP_LINE}
    "_${1//-/_}" "$1" "${@: -1}" "${*: -2:1}" 2>/dev/null
    printf '%s\n' "${COMPREPLY[@]}" | sort -u | paste -sd '|'
}

failures=0
fail() {
    echo "$*"
    failures=$((failures + 1))
}
expect() { # EXPECTED WORD... CURRENT
    local expected=$1 found
    shift
    found=$(offered "$@")
    [ "$found" = "$expected" ] || fail "$*: '$found' instead of '$expected'"
}

manual_of() { sed 's/\\fR\|\\fP//g; s/\\-/-/g' "$packaging/$1.1"; }
manual=$(manual_of topicsmith-batch)
named() { # what the manual page has to name, and whose entry begins with $1
    sed -n "/^\.B[IR]* \"\?$1[ \"]/,/^\.TP/p" <<<"$manual" | grep -q -e "$2" ||
        fail "$1: the manual page does not name $2"
}

commands=0
while read -r command usage; do
    [[ $command != --* ]] || continue
    commands=$((commands + 1))
    expect "$command" topicsmith-batch "$command"
    named "$command" .
    for option in $(grep -o -e '--[a-z-]*' <<<"$usage"); do
        [[ "|$(offered topicsmith-batch "$command" a.tsp --)|" == *"|$option|"* ]] ||
            expect "... $option ..." topicsmith-batch "$command" a.tsp --
        named "$command" "$option"
    done
done < <(topicsmith-batch --help | sed -n 's/^  topicsmith-batch //p')
[ $commands -gt 0 ] || exit 1

for option in --help --version $(topicsmith --help | sed -n 's/^topicsmith \(--[a-z-]*\).*/\1/p'); do
    expect "$option" topicsmith "$option"
    manual_of topicsmith | grep -q -e "$option" || fail "the manual page does not name $option"
done

expect "--help|--version" topicsmith-batch --
expect "find" topicsmith-batch "fi"
expect "B.TSP|a.tsp|folder|ä ö.tsp" topicsmith-batch check ""
expect "folder" topicsmith-batch check a.tsp --output ""
expect "B.TSP|a.hhp|a.tsp|folder|ä ö.tsp" topicsmith-batch compile ""
expect "a.chm|folder" topicsmith-batch compile --jobs 2 --strict a.tsp ""
expect "a.vbp" topicsmith-batch import-vb a.tsp a
expect "words.txt" topicsmith-batch spell a.tsp --words w
expect "1|2" topicsmith-batch convert a.tsp b.tsp --format ""
expect "2" topicsmith-batch convert a.tsp b.tsp --format = 2
expect "" topicsmith-batch find a.tsp ""
expect "B.TSP|a.chm|a.tsp|folder|ä ö.tsp" topicsmith ""
expect "--help" topicsmith --h
expect "a.hhp" topicsmith-hhc a
exit $((failures > 0))
