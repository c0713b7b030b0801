#!/usr/bin/env bash
# Whether the programs and modules of a release build have what cmake/Hardening.cmake asks for.
#   scripts/check-hardening.sh [PRESET]   release unless bench is given, which must have been built
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/${1:-release}
failed=0

expect() { # WHAT PATTERN TEXT
  grep -qE "$2" <<<"$3" && return 0
  echo "$file: $1 is missing" >&2
  failed=1
}

for file in "$build"/bin/Zentab "$build"/bin/zentab-cli "$build"/modules/*_API.so; do
  header=$(LC_ALL=C readelf --wide --file-header --program-headers --dynamic "$file")
  symbols=$(LC_ALL=C readelf --wide --dyn-syms "$file")
  expect "an address chosen at the start" '^ *Type: +DYN' "$header"
  expect "memory that is read-only after the start" 'GNU_RELRO' "$header"
  expect "immediate binding" 'BIND_NOW|FLAGS_1.* NOW' "$header"
  expect "a stack without code" 'GNU_STACK.* RW ' "$header"
  expect "the guard of the stack" '__stack_chk_fail' "$symbols"
  expect "the library's own checks" '__glibcxx_assert_fail' "$symbols"
done

# Checked copies leave no trace where there is nothing to check: the commands tell.
for option in -D_FORTIFY_SOURCE=2 -fstack-protector-strong -D_GLIBCXX_ASSERTIONS; do
  without=$(grep '"command":' "$build/compile_commands.json" | grep -cvF -- " $option " || true)
  [ "$without" -eq 0 ] && continue
  echo "$build: $without files are compiled without $option" >&2
  failed=1
done
exit "$failed"
