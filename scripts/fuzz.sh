#!/usr/bin/env bash
# make fuzz: builds the libFuzzer programs of fuzz/ with clang in build-fuzz and runs each for
# FUZZ_S seconds (default 60), from the seeds in tests/dati and the registry's real files.
# Stops at the first finding: the input is saved in fuzz/regressioni/<target>/, where make test
# replays it. FUZZ_BERSAGLI="cxf dxf" runs only those.
set -e
cd "$(dirname "$0")/.."
RADICE=$PWD
COSTRUZIONE=${COSTRUZIONE:-build-fuzz}
FUZZ_S=${FUZZ_S:-60}
JOBS=${JOBS:-2}
REALI=${TAVOLET_DATI_REALI:-$RADICE/../shared/data/real}

bash scripts/dipendenze.sh fuzz
CC=clang CXX=clang++ cmake -S fuzz -B "$COSTRUZIONE" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$COSTRUZIONE" -j "$JOBS"

# The seeds of each target (fuzz/semi.txt).
semi() {
  sed -n "s/^$1://p" fuzz/semi.txt | sed "s|REALI/|$REALI/|g"
}

bersagli=${FUZZ_BERSAGLI:-$(cd fuzz/bersagli && ls *.cpp | sed 's/\.cpp$//')}
for b in $bersagli; do
  corpus="$COSTRUZIONE/corpus/$b"
  semi_b="$COSTRUZIONE/semi/$b"
  mkdir -p "$corpus" "$semi_b" "fuzz/regressioni/$b"
  for f in $(semi "$b"); do [ -f "$f" ] && cp -f "$f" "$semi_b/" || true; done
  echo "== $b: $FUZZ_S s"
  if ! "$COSTRUZIONE/fuzz_$b" -max_total_time="$FUZZ_S" -timeout=20 -rss_limit_mb=2560 \
    -max_len=262144 -print_final_stats=1 -artifact_prefix="fuzz/regressioni/$b/" \
    "$corpus" "$semi_b" "fuzz/regressioni/$b" 2>"$COSTRUZIONE/$b.log"; then
    tail -n 40 "$COSTRUZIONE/$b.log"
    echo "make fuzz: $b ha trovato un input che lo fa cadere, salvato in fuzz/regressioni/$b/" >&2
    exit 1
  fi
  grep -E "stat::number_of_executed_units|stat::new_units_added" "$COSTRUZIONE/$b.log" || true
done
