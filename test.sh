#!/usr/bin/env bash
# Builds everything and runs every test.
#   ./test.sh            the development build
#   ./test.sh asan       the same under AddressSanitizer and UndefinedBehaviorSanitizer
#   ./test.sh no-gui     what lies outside widgets/, without Qt
#   ./test.sh static     clang-tidy and cppcheck
#   ./test.sh all        all of these, the format check, and whether the benchmarks build
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

case "${1:-dev}" in
  dev | asan | no-gui) run "${1:-dev}" ;;
  static) scripts/check-static.sh ;;
  all)
    check_format
    scripts/check-static.sh
    for preset in dev no-gui asan; do run "$preset"; done
    need "${bench_packages[@]}"
    build bench
    ;;
  *)
    sed -n '2,7s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac
