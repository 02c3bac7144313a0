#!/usr/bin/env python3
"""Prints gcovr's line coverage (its JSON summaries) added up per folder of the program."""
import json
import sys
from collections import defaultdict

righe = defaultdict(lambda: [0, 0])
file_visti = []
for nome in sys.argv[1:]:
    with open(nome, encoding="utf-8") as f:
        file_visti += json.load(f)["files"]
for file in file_visti:
    cartella = file["filename"].split("/")[0] if "/" in file["filename"] else "."
    righe[cartella][0] += file["line_covered"]
    righe[cartella][1] += file["line_total"]
print(f"{'cartella':<16}{'righe':>8}{'eseguite':>10}{'copertura':>11}")
coperte = totali = 0
for cartella in sorted(righe):
    c, t = righe[cartella]
    coperte, totali = coperte + c, totali + t
    print(f"{cartella:<16}{t:>8}{c:>10}{100.0 * c / max(t, 1):>10.1f}%")
print(f"{'TOTALE':<16}{totali:>8}{coperte:>10}{100.0 * coperte / max(totali, 1):>10.1f}%")
