#!/usr/bin/env bash
# The bash completion: completion_test.sh COMPLETION
# Each case gives the words of a command line, the last one being completed, and what comes of it.
set -uo pipefail

completion=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
touch alt.t9t ALT.PBO neu.csv anrufe.t9a kontakte.vcf handy.pbb kosten.geb norvik.ini brief.txt "mit blank.t9t"
mkdir ordner.x

# shellcheck source=/dev/null
source "$completion" || exit 1
failures=0

expect() {
    local expected=$1 found
    shift
    COMP_WORDS=(norvik-konverter "$@")
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    _norvik_konverter
    found=$(printf '%s\n' ${COMPREPLY[@]+"${COMPREPLY[@]}"} | LC_ALL=C sort | paste -sd'|')
    if [ "$found" != "$expected" ]; then
        printf 'FAILED: %s\n  expected: %s\n  found:    %s\n' "$*" "$expected" "$found"
        failures=$((failures + 1))
    fi
}

# Options.
expect '--ueberschreiben|--unsortiert' --u
expect '--help|--hilfe' --h
expect '--AddRegionCode' --A
expect '--null-hinzu|--null-weg' --null
expect '--verluste|--version|--von' a.t9t --v
expect '' --falsch

# A folder behind "~", as bash gives it.
# shellcheck disable=SC2088  # as bash hands it over
HOME=$folder expect '~/ordner.x' '~/or'

# Values, also behind "=", which bash makes a word of its own. Which formats there are, the tests of
# the help know.
expect '193|195' --von 19
expect 'csv' --von cs
expect 'gebuehren' --nach ge
expect 'auto|utf-8|windows-1252' --zeichensatz ''
expect 'utf-8' --zeichensatz = u
expect 'simsurf' --nach = s
expect 'pdf' --nach p
expect 'a4|a5' --papier a
expect '1|2|3' --spalten ''
expect '193|195' --von = 19
expect 'norvik.ini|ordner.x' --ini =
expect 'norvik.ini|ordner.x' --ini ''
expect '' --msn ''
expect '' --ausschliessen al

# The codes are quoted, unless the user has begun to quote.
expect "'##'|'*'|'**'|i" --null-weg ''
expect "'##'" --null-weg '#'
expect "'*'|'**'" --null-weg = '*'
expect '*|**' --null-weg "'*"
expect '##' --null-weg '"#'
expect "'##'" --null-weg '\\#'
expect '' --preis ''

# The source, then the target.
expect 'ALT.PBO|alt.t9t|anrufe.t9a|kontakte.vcf|mit blank.t9t|neu.csv|ordner.x' ''
expect 'mit blank.t9t' mit
expect 'ALT.PBO|alt.t9t|handy.pbb|kontakte.vcf|kosten.geb|mit blank.t9t|neu.csv|ordner.x' alt.t9t ''
expect 'kontakte.vcf|kosten.geb' --unsortiert alt.t9t --ueberschreiben k
expect 'neu.csv' --zeichensatz auto n
expect 'handy.pbb' a.t9t b.t9t --zusammen h
expect 'neu.csv' --zusammen = n
expect 'alt.t9t|anrufe.t9a' --zusammen neu.t9t x.csv a
expect 'anrufe.t9a' --ini norvik.ini --msn = 5 an
expect 'brief.txt' --von csv b
expect '' b
expect 'brief.txt' --nach = 195 alt.t9t b
expect 'alt.t9t' --nach csv alt

# Behind "--" there are no options.
expect '' -- --u
expect 'alt.t9t' -- al
expect 'kontakte.vcf|kosten.geb' -- alt.t9t k

# It is bound to the program's name.
if [ "$(complete -p norvik-konverter)" != 'complete -F _norvik_konverter norvik-konverter' ]; then
    echo "FAILED: complete -p"
    failures=$((failures + 1))
fi
[ "$failures" -eq 0 ]
