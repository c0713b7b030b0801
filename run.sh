#!/usr/bin/env bash
# Builds the editor and opens it on a fresh copy of the demo installation.
# Without a display it draws the window into a PNG file and says where.
#   ./run.sh          in English
#   ./run.sh de       with the catalogue Zentab.de.txt; also zh_CN
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh

need "${build_packages[@]}" "${window_packages[@]}"
build release

# Playing never touches the checkout: installation, registry and settings are scratch copies. The
# installation gets the simulated instruments.
scratch=$(mktemp -d "${TMPDIR:-/tmp}/zentab-demo.XXXXXX")
cp -r examples/installation "$scratch/installation"
cp build/release/modules/*.so "$scratch/installation"
if [ $# -gt 0 ] && [ -f "catalogues/Zentab.$1.txt" ]; then
  cp "catalogues/Zentab.$1.txt" "$scratch/installation/Zentab2.txt"
  shift
fi
mkdir "$scratch/registry" "$scratch/settings"
printf '[HKEY_LOCAL_MACHINE\\SOFTWARE\\HALDOR\\MIRAXWIN]\nMIRAX=%s\n' "$scratch/installation" \
  >"$scratch/registry/registry.ini"
export ZENTAB_REGISTRY_DIR="$scratch/registry" ZENTAB_SETTINGS_DIR="$scratch/settings"

editor=$PWD/build/release/bin/Zentab
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  echo "The demo installation is $scratch/installation"
  exec "$editor" "$@"
fi
picture="$scratch/Zentab.png"
# The offscreen platform warns of what it lacks, which is nothing that a picture needs.
QT_LOGGING_RULES="*.warning=false" QT_QPA_PLATFORM=offscreen "$editor" --screenshot "$picture" "$@"
echo "There is no display; the window is drawn in $picture"
