#!/usr/bin/env bash
# Opens Tavolet on a writable copy of demo/, made once outside the source tree.
set -e
build="$1"
demo="$2"
sorgente="$(cd "$(dirname "$0")/.." && pwd)/demo"
if [ ! -d "$demo" ]; then
  mkdir -p "$demo"
  cp -a "$sorgente/." "$demo/"
  echo "Copia di demo/ in $demo"
fi
export TAVOLET_RADICE="$demo"
# The helper Ponticello of the demo: a small script mapped in the user's settings, once.
[ -f "$demo/ponticello_demo.sh" ] || cp -a "$sorgente/ponticello_demo.sh" "$sorgente/ponticello" "$demo/"
impostazioni="${XDG_CONFIG_HOME:-$HOME/.config}/Tavolet/Tavolet.conf"
if ! grep -q '^\[PROGRAMMI_ESTERNI\]' "$impostazioni" 2>/dev/null; then
  mkdir -p "$(dirname "$impostazioni")"
  { echo; echo '[PROGRAMMI_ESTERNI]'
    for p in PONTICELLO.EXE PONTICELLO.EXE2 PONTICELLO2.EXE; do
      echo "$p=/bin/sh $demo/ponticello_demo.sh"
    done; } >> "$impostazioni"
fi
if [ -z "$DISPLAY" ] && [ -z "$WAYLAND_DISPLAY" ]; then
  echo "Nessun display: avvio sotto xvfb-run (installare xvfb se manca)."
  exec xvfb-run -a "$build/app/tavolet" 'C:\Libretti\ESEMPIO.DAT'
fi
exec "$build/app/tavolet" 'C:\Libretti\ESEMPIO.DAT'
