#!/usr/bin/env bash
# Draws the pictures of docs/guide anew, light and dark: a walk through the guide's tasks by keys,
# as a test makes it, with the program's own window and dialogs. Needs no display.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need "${build_packages[@]}" "${window_packages[@]}" "${test_packages[@]}" pngquant
cmake --preset dev >/dev/null
cmake --build --preset dev --target guide_walk_test

drawn=$(mktemp -d "${TMPDIR:-/tmp}/zentab-guide.XXXXXX")
trap 'rm -rf "$drawn"' EXIT
for colours in light dark; do
  # The offscreen platform warns of what it lacks, which is nothing that a picture needs.
  ZENTAB_GUIDE_PICTURES="$drawn" ZENTAB_GUIDE_COLOURS=$colours QT_QPA_PLATFORM=offscreen \
    QT_LOGGING_RULES="*.warning=false" build/dev/bin/guide_walk_test -silent
done
pngquant --strip --force --ext .png --speed 1 64 "$drawn"/*.png
mkdir -p docs/guide/pictures
rm -f docs/guide/pictures/*.png
cp "$drawn"/*.png docs/guide/pictures
ls -l docs/guide/pictures
