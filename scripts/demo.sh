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
if [ -z "$DISPLAY" ] && [ -z "$WAYLAND_DISPLAY" ]; then
  echo "Nessun display: avvio sotto xvfb-run (installare xvfb se manca)."
  exec xvfb-run -a "$build/app/tavolet" 'C:\Libretti\ESEMPIO.DAT'
fi
exec "$build/app/tavolet" 'C:\Libretti\ESEMPIO.DAT'
