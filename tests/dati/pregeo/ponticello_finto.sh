#!/bin/sh
# Scripted double of the helper Ponticello for the tests. Arguments: the documents folder on
# the host, the folder of the prepared answers, the program's name as the mapping gives it,
# then the helper's own command. Every call is logged in the documents folder.
doc="$1"; risposte="$2"; nome="$3"; shift 3
mkdir -p "$doc"
echo "$nome $*" >> "$doc/ponticello.log"
case "$1" in
ELENCO_LIBRETTI)
    mkdir -p "$doc/TEMP"
    cp "$risposte/ELENCO_LIBRETTI.txt" "$doc/TEMP/ELENCO_LIBRETTI.txt" ;;
ESPORTA_TUTTO)
    [ -d "$risposte/$2" ] || exit 3
    mkdir -p "$doc/Tavolet/TEMP"
    cp "$risposte/$2/"*.txt "$doc/Tavolet/TEMP/" ;;
esac
exit 0
