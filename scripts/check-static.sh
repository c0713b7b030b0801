#!/usr/bin/env bash
# Static analysis of all code: clang-tidy with the checks of .clang-tidy, and cppcheck. Fails on any
# finding. What has passed is not looked at again until something about it changes.
#   scripts/check-static.sh           everything
#   scripts/check-static.sh FILE...   clang-tidy for these files only
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need "${build_packages[@]}" "${test_packages[@]}" "${window_packages[@]}" "${bench_packages[@]}" \
  "${peer_packages[@]}" "${static_packages[@]}"

# The tests of the windows include what Qt's generator makes of them; else the arguments of the
# compiler are enough.
cmake --preset dev >/dev/null
cmake --build --preset dev --target autogen -- --quiet
cmake --preset bench >/dev/null
for preset in dev bench; do
  mkdir -p "build/static/$preset"
  # What only GCC takes, the headers that it has precompiled, and what makes the C library's headers
  # show functions that nobody calls by name.
  sed -E 's/ (-Og|-fno-gnu-unique|-fpch-preprocess|-Winvalid-pch|-include [^ ]*cmake_pch\.hxx)//g' \
    "build/$preset/compile_commands.json" >"build/static/$preset/compile_commands.json"
done

# Headers of the libraries, precompiled for the files that include them; scripts/tidy-file.sh chooses.
precompile() { # NAME TARGET HEADER...
  local arguments to=build/static/$1
  # As the target's own precompiled headers are made.
  arguments=$(sed -n "s|^ *\"command\": \"[^ ]* \(.* -x c++-header\) .*/$2\.dir/.*|\1|p" \
    build/static/dev/compile_commands.json)
  printf '#include <%s>\n' "${@:3}" >"$to.h"
  # shellcheck disable=SC2086 # the options are words
  clang++ -w $arguments -fpch-instantiate-templates "$to.h" -o "$to.pch"
}
precompile chart zentab_qt_headers qcustomplot.h &
precompile window zentab_qt_headers qwidget.h &
precompile googletest zentab_googletest_headers gtest/gtest.h &
precompile files zentab_standard_headers filesystem functional &
precompile functional zentab_standard_headers functional string vector &
precompile texts zentab_standard_headers string string_view vector &
wait

# With it clang-tidy takes half of the time, and finds the same in the project's files.
module=build/static/tidy_scope.so
if [ ! "$module" -nt scripts/tidy_scope.cpp ]; then
  c++ -std=c++17 -O1 -shared -fPIC -fno-rtti -isystem /usr/lib/llvm-14/include \
    scripts/tidy_scope.cpp -o "$module"
fi

{
  clang-tidy --version
  git ls-files -z '*.clang-tidy' | xargs -0 cat
  cat scripts/tidy_scope.cpp
} >build/static/same

tidy() { # PRESET FILE...
  local preset=$1 file files=()
  shift
  for file in "$@"; do
    # What belongs to another system is not compiled here.
    grep -qF "\"$PWD/$file\"" "build/static/$preset/compile_commands.json" && files+=("$file")
  done
  [ ${#files[@]} -eq 0 ] && return 0
  stage "clang-tidy, ${#files[@]} files of $preset"
  printf '%s\0' "${files[@]}" |
    xargs -0 -n1 -P"$(nproc)" scripts/tidy-file.sh "build/static/$preset"
}

failed=0
if [ $# -gt 0 ]; then
  tidy dev "$@" || failed=1
else
  mapfile -t files < <(git ls-files 'src/*.cpp' 'simulator/*.cpp' 'tools/*.cpp' 'tests/*.cpp')
  tidy dev "${files[@]}" || failed=1
  mapfile -t files < <(git ls-files 'bench/*.cpp')
  tidy bench "${files[@]}" || failed=1
  stage cppcheck
  cache=${XDG_CACHE_HOME:-$HOME/.cache}/zentab/cppcheck
  mkdir -p "$cache"
  cppcheck -j2 --quiet --cppcheck-build-dir="$cache" --std=c++20 --language=c++ --library=qt,googletest \
    --enable=warning,performance,portability,style --inline-suppr \
    --suppressions-list=scripts/cppcheck-suppressions.txt --error-exitcode=1 \
    -D'Q_EMIT=' -I src -I src/mathparser/include -I . src simulator tools bench tests || failed=1
fi
exit "$failed"
