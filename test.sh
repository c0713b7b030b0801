#!/usr/bin/env bash
# Builds everything and runs every test.
#   ./test.sh            the development build
#   ./test.sh asan       the same under AddressSanitizer and UndefinedBehaviorSanitizer
#   ./test.sh no-gui     what lies outside widgets/, without Qt
#   ./test.sh all        all three, the format check, and whether the benchmarks build
#   ./test.sh faults [KILLS [SECONDS]]   kills in the middle of a change, 1000 on the disk and as many
#                        in memory; a full device (as root); processes that compete, for 60 s
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh

check_format() {
  need clang-format
  find src simulator tests bench tools -name '*.cpp' -o -name '*.h' | xargs clang-format --dry-run -Werror
}

run() {
  need "${build_packages[@]}" "${test_packages[@]}"
  [ "$1" = no-gui ] || need "${window_packages[@]}"
  echo "== $1"
  build "$1"
  ctest --preset "$1" -j "$(nproc)"
}

faults() {
  local kills=${1:-1000} seconds=${2:-60} bin=build/no-gui/bin skipped=0
  need "${build_packages[@]}" "${test_packages[@]}"
  build no-gui
  echo "== kills, with files on the disk"
  "$bin/kill_harness" "$kills"
  if [ -d /dev/shm ]; then
    echo "== kills, with files in memory"
    TMPDIR=/dev/shm "$bin/kill_harness" "$kills"
  fi
  echo "== full device"
  "$bin/full_disk_harness" || { skipped=$? && [ "$skipped" -eq 77 ]; }
  echo "== processes that compete"
  "$bin/writers_harness" "$seconds" 2
  "$bin/writers_harness" "$((seconds / 3))" 4
}

case "${1:-dev}" in
  dev | asan | no-gui) run "${1:-dev}" ;;
  all)
    check_format
    for preset in dev no-gui asan; do run "$preset"; done
    need "${bench_packages[@]}"
    build bench
    ;;
  faults) faults "${@:2}" ;;
  *)
    sed -n '2,8s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac
