#!/usr/bin/env bash
# Builds everything and runs every test.
#   ./test.sh             the development build
#   ./test.sh asan        the same under AddressSanitizer and UndefinedBehaviorSanitizer
#   ./test.sh no-gui      what lies outside widgets/, without Qt
#   ./test.sh format      whether clang-format would change anything
#   ./test.sh static      clang-tidy and cppcheck
#   ./test.sh fuzz        every fuzz target for FUZZ_RUNS executions (1,000,000 unless set)
#   ./test.sh fuzz-short  every fuzz target for ten seconds
#   ./test.sh faults [KILLS [SECONDS]]   kills in the middle of a change, 1000 on the disk and as
#                         many in memory; a full device and two users in one folder (as root); a
#                         slow share; ten walks of 5 * KILLS random keys in the window; competing
#                         processes, for 60 s
#   ./test.sh load        the window on a library of 1,000,000 entries, and hostile expressions,
#                         each beside its limit
#   ./test.sh speed       every benchmark beside its yardstick, as one table; writes docs/speed.md
#   ./test.sh mutants [N [SEED [OPTION...]]]   makes N small faults (60), one at a time, and tells which
#                         of them no test catches; see scripts/mutants.py --help
#   ./test.sh all         the first five, files joined in the builds, the short fuzzing, static, and
#                         whether the benchmarks build, hardened, and the evaluator's documentation
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh

check_format() {
  need clang-format
  find src simulator tests bench fuzz tools -name '*.cpp' -o -name '*.h' |
    xargs clang-format --dry-run -Werror
}

run() { # PRESET [HEADING]
  need "${build_packages[@]}" "${test_packages[@]}"
  [ "$1" = no-gui ] || need "${window_packages[@]}"
  stage "${2:-$1}"
  build "$1"
  # More than there are cores: many wait, for a timer or for a program that they started.
  in_memory ctest --preset "$1" -j "$((2 * $(nproc)))"
}

# in_memory COMMAND...: with temporary files in memory where there is such a place, which is left
# empty. Small files are written by the thousand.
in_memory() (
  TMPDIR=$(mktemp -d "$([ -w /dev/shm ] && echo /dev/shm || echo /tmp)/zentab-XXXXXX")
  export TMPDIR
  trap 'rm -rf "$TMPDIR"' EXIT
  "$@"
)

# Each fuzz target with the longest input it gets, in bytes.
fuzz_targets=(table_lines=1024 catalogue=2048 result_reader=2048 time_test_import=2048
  reference_graph=2048 clipboard_text=512 expression=256 settings_files=1024
  delimited_text=1024 library_json=2048)

# fuzz LIMIT: runs all targets, each in a folder of its own below build/fuzz/found. New inputs, the
# log, an input at fault and whatever else a target leaves stay there.
fuzz() {
  need "${build_packages[@]}" "${fuzz_packages[@]}"
  stage "fuzz $1"
  build fuzz
  in_memory fuzz_each "$1"
}

fuzz_each() {
  # Each target has a core of its own.
  export limit=$1
  export -f fuzz_one
  printf '%s\0' "${fuzz_targets[@]}" | xargs -0 -n1 -P"$(nproc)" bash -c 'fuzz_one "$@"' fuzz_one
}

fuzz_one() { # TARGET=LENGTH
  local target=${1%=*} found corpus program options
  found=$PWD/build/fuzz/found/$target corpus=$PWD/build/fuzz/corpus/$target
  program=$PWD/build/fuzz/bin/$target
  options=("$limit" -seed=1 -max_len="${1#*=}" -timeout=10 -rss_limit_mb=2048
    -print_final_stats=1 -artifact_prefix="$found/")
  [ ! -f "$corpus.dict" ] || options+=(-dict="$corpus.dict")
  rm -rf "$found"
  mkdir -p "$found/inputs"
  if (cd "$found" && "$program" "${options[@]}" inputs "$corpus") >"$found/log" 2>&1; then
    printf '%-18s%s\n' "$target" "$(sed -n 's/^Done //p' "$found/log")"
  else
    printf '%-18sat fault: see %s\n' "$target" "$found"
    return 1
  fi
}

faults() {
  local kills=${1:-1000} seconds=${2:-60} bin=build/no-gui/bin skipped=0
  need "${build_packages[@]}" "${test_packages[@]}"
  build no-gui
  stage "kills, with files on the disk"
  "$bin/kill_harness" "$kills"
  if [ -d /dev/shm ]; then
    stage "kills, with files in memory"
    TMPDIR=/dev/shm "$bin/kill_harness" "$kills"
  fi
  stage "full device"
  "$bin/full_disk_harness" || { skipped=$? && [ "$skipped" -eq 77 ]; }
  stage "two users in one folder"
  [ "$(id -u)" -ne 0 ] || need "${fault_packages[@]}"
  tests/faults/shared_folder.sh "$bin" || { skipped=$? && [ "$skipped" -eq 77 ]; }
  stage "a share that is slow, and one that stalls"
  need "${window_packages[@]}"
  build dev
  QT_LOGGING_RULES="*.warning=false" QT_QPA_PLATFORM=offscreen build/dev/bin/slow_share_harness 100 20 100
  stage "processes that compete"
  "$bin/writers_harness" "$seconds" 2
  "$bin/writers_harness" "$((seconds / 3))" 4
  stage "random keys in the window"
  # The offscreen platform warns of what it lacks, which is nothing that counts here.
  QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES="*.warning=false" build/dev/bin/key_walk "$((5 * kills))" 10
}

load() {
  need "${build_packages[@]}" "${window_packages[@]}" "${bench_packages[@]}"
  build bench
  stage "a library of 1,000,000 entries"
  # The offscreen platform warns of what it lacks, which is nothing that counts here.
  QT_LOGGING_RULES="*.warning=false" build/bench/bin/load_bench
  stage "hostile expressions"
  build/bench/bin/hostile_bench
}

speed() {
  need "${build_packages[@]}" "${window_packages[@]}" "${bench_packages[@]}"
  # The table says so where it is missing.
  need "${peer_packages[@]}" || true
  build bench
  scripts/speed.py build/bench docs/speed.md
}

case "${1:-dev}" in
  dev | asan | no-gui) run "${1:-dev}" ;;
  format) check_format ;;
  static) scripts/check-static.sh ;;
  fuzz) fuzz -runs="${FUZZ_RUNS:-1000000}" ;;
  fuzz-short) fuzz -max_total_time=10 ;;
  all)
    check_format
    scripts/check-static.sh
    need "${docs_packages[@]}"
    # In one folder: what needs no Qt is the same with it.
    cmake --fresh --preset check -DZENTAB_GUI=OFF >/dev/null
    run check "without Qt"
    cmake --build --preset check --target evaluator_docs
    cmake --preset check -DZENTAB_GUI=ON >/dev/null
    run check "with the windows"
    run asan
    fuzz -max_total_time=10
    need "${bench_packages[@]}" "${peer_packages[@]}"
    stage bench
    build bench
    scripts/check-hardening.sh bench
    ;;
  faults) faults "${@:2}" ;;
  load) load ;;
  speed) speed ;;
  mutants)
    need "${build_packages[@]}" "${test_packages[@]}" "${window_packages[@]}"
    scripts/mutants.py "${@:2}"
    ;;
  *)
    sed -n '2,20s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac
