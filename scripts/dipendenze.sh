#!/usr/bin/env bash
# Installs with apt-get the Debian packages that the build and the tests need, when missing.
set -e
pacchetti=(build-essential cmake qt6-base-dev qt6-base-dev-tools libgl1-mesa-dev zlib1g-dev
  libminizip-dev libgtest-dev libgmock-dev libbenchmark-dev clang-format unzip fonts-dejavu-core
  qt6-translations-l10n qt6-image-formats-plugins)
# GeoPackage and GeoJSON are written through GDAL (gis/).
pacchetti+=(libgdal-dev)
# The programs that check what leaves Tavolet as a user meets it: DXF, HTML, PDF readers.
if [ "$1" != "run" ]; then
  pacchetti+=(python3-ezdxf gdal-bin chromium poppler-utils qpdf)
fi
# make coverage adds gcovr; make fuzz adds clang's libFuzzer.
[ "$1" = "coverage" ] && pacchetti+=(gcovr)
[ "$1" = "fuzz" ] && pacchetti+=(clang libfuzzer-14-dev)
# Without a display, make run opens the program under a virtual X server.
if [ "$1" = "run" ] && [ -z "$DISPLAY" ] && [ -z "$WAYLAND_DISPLAY" ]; then
  pacchetti+=(xvfb xauth)
fi
mancanti=()
for p in "${pacchetti[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || mancanti+=("$p")
done
[ ${#mancanti[@]} -eq 0 ] && exit 0
echo "Installo: ${mancanti[*]}"
SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${mancanti[@]}"
