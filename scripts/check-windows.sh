#!/usr/bin/env bash
# Cross-compiles everything but the windows, with the simulated instruments, for Windows: for
# 64 bits and for 32 bits, where a test set's modules live. The tests run under Wine, those for 32
# bits where scripts/wine32.sh --make has made a Wine for them. Makes and tries the packages of the
# whole program where scripts/windows-libraries.sh has built what their windows need.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need "${build_packages[@]}" "${test_packages[@]}" "${windows_packages[@]}"

for preset in windows windows32; do
  stage "$preset"
  build "$preset"
done

# The names that the test-set suite binds must be those of a 32-bit module on both systems.
check_exports() { # MODULE NAME...
  local module=$1 listed name
  shift
  for preset in windows windows32; do
    listed=$(x86_64-w64-mingw32-objdump -p "build/$preset/modules/$module")
    for name in "$@"; do
      grep -q "\] $name\$" <<<"$listed" || {
        echo "build/$preset/modules/$module does not export $name" >&2
        return 1
      }
    done
  done
}
check_exports CURR_API.DLL _CURRENT__openFiles@4 _CURRENT__getIstartUp@0 \
  _CURRENT__closeFiles@0 _CURRENT__setRefgraph@8
check_exports VOLT_API.DLL _VOLTAGE__openFiles@4 _VOLTAGE__getUstartUp@0 \
  _VOLTAGE__closeFiles@0 _VOLTAGE__setRefgraph@8

# Registries of their own, made anew, and no windows: the tests show none.
rm -rf build/wine build/wine32
unset DISPLAY WAYLAND_DISPLAY
ctest --preset windows
if scripts/wine32.sh --find; then
  ctest --preset windows32
else
  echo "The 32-bit tests are compiled and not run: scripts/wine32.sh --make makes a Wine for them."
fi

# The whole program, where its libraries have been built.
for row in 64:x86_64 32:i686; do
  if ! scripts/windows-libraries.sh --find "${row#*:}" >/dev/null; then
    echo "The windows for ${row%:*} bits are not built: scripts/windows-package.sh ${row%:*} does it" \
      "with all they need."
  elif [ "${row%:*}" = 32 ] && ! scripts/wine32.sh --find; then
    echo "The windows for 32 bits are not built: there is no Wine for their tests."
  else
    scripts/windows-package.sh "${row%:*}"
  fi
done
