#!/bin/sh
# Demo double of the helper Ponticello, for `make run` on a machine without Pregeo: it answers
# the list of acts and the export of an act from the files kept in ponticello/ beside it.
# A real installation maps nothing and runs Ponticello.exe itself.
qui="$(cd "$(dirname "$0")" && pwd)"
utente="${USER:-${LOGNAME:-utente}}"
doc="${TAVOLET_RADICE:-$qui}/drive_c/users/$utente/Documents"
case "$1" in
ELENCO_LIBRETTI)
    mkdir -p "$doc/TEMP"
    cp "$qui/ponticello/ELENCO_LIBRETTI.txt" "$doc/TEMP/ELENCO_LIBRETTI.txt" ;;
ESPORTA_TUTTO)
    mkdir -p "$doc/Tavolet/TEMP"
    # An act the demo does not know leaves the files of the last one, as the helper does.
    [ -d "$qui/ponticello/$2" ] && cp "$qui/ponticello/$2/"*.txt "$doc/Tavolet/TEMP/" ;;
esac
exit 0
