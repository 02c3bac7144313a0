#!/usr/bin/env bash
# The line coverage of each folder of the program, from the counters of a --coverage build.
# gcov runs in the folder's own build directory, where its objects were compiled, so that
# relative source paths (a compiler cache with a base directory writes them) resolve as well;
# each folder counts its own files, headers included.
set -e
cd "$(dirname "$0")/.."
COSTRUZIONE=${1:-build-cov}
JOBS=${2:-2}
for cartella in */; do
  cartella=${cartella%/}
  case "$cartella" in tests | fuzz | bench | demo | docs | scripts | build*) continue ;; esac
  [ -d "$COSTRUZIONE/$cartella" ] || continue
  gcovr -r . --object-directory "$COSTRUZIONE/$cartella" -f "$cartella/" -j "$JOBS" \
    --json-summary -o "$COSTRUZIONE/copertura-$cartella.json" "$COSTRUZIONE/$cartella" \
    2>/dev/null
done
python3 scripts/copertura.py "$COSTRUZIONE"/copertura-*.json
