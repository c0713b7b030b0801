#!/usr/bin/env bash
# Times the start of the editor for Windows to its first painted window under Wine beside that of an
# empty window of the same build, in turn: medians in milliseconds, and their ratio.
#   scripts/windows-start.sh 32|64     after scripts/windows-package.sh 32|64
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/wine.sh
need "${windows_package_packages[@]}"
bin=$PWD/build/windows-gui/bin
[ "$1" = 64 ] || bin=$PWD/build/windows32-gui/bin
[ -f "$bin/bench_editor_window.exe" ] || {
  echo "There is no build in $bin: scripts/windows-package.sh $1 makes it" >&2
  exit 1
}
is_on_screen || {
  on_screen "$0" "$@"
  exit
}
scratch=$(mktemp -d "$PWD/build/start-XXXXXX")
trap 'rm -rf "$scratch"' EXIT
use_wine "$1" "$scratch/wine"

milliseconds() { # PROGRAM
  local begin
  begin=$(date +%s%N)
  "${wine[@]}" "$bin/$1.exe" >/dev/null 2>&1
  echo $((($(date +%s%N) - begin) / 1000000))
}
median() { sort -n "$1" | sed -n 8p; }
milliseconds bench_empty_window >/dev/null
milliseconds bench_editor_window >/dev/null
for _ in $(seq 15); do
  milliseconds bench_empty_window >>"$scratch/empty"
  milliseconds bench_editor_window >>"$scratch/editor"
done
empty=$(median "$scratch/empty") editor=$(median "$scratch/editor")
echo "$1 bits: empty window $empty ms, editor $editor ms, ratio $(awk "BEGIN { printf \"%.2f\", $editor / $empty }")"
"${wine[@]}" wineboot --kill >/dev/null 2>&1 || true
