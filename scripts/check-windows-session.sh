#!/usr/bin/env bash
# Works through a session in the editor for Windows under Wine, by keys, in a suite's folder with
# the simulated instruments: the instrument is chosen, so that its module is loaded, the time test
# imported, the curve stored and set as the reference graph. What the log says is compared.
#   scripts/check-windows-session.sh FOLDER 32|64 [PICTURE]    FOLDER as the package has it
set -Eeuo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/wine.sh
need "${windows_package_packages[@]}"
program=$(realpath "$1") bits=$2 picture=${3:-}
is_on_screen || {
  on_screen "$0" "$@"
  exit
}

scratch=$(mktemp -d "$PWD/build/session-XXXXXX")
clean_up() { rm -rf "$scratch" 2>/dev/null || { sleep 5 && rm -rf "$scratch"; }; }
trap clean_up EXIT
fail() {
  echo "The session for $bits bits: $*" >&2
  [ ! -f "$suite/Zentab.log" ] || cat "$suite/Zentab.log" >&2
  exit 1
}

use_wine "$bits" "$scratch/wine"
suite="$scratch/Prüf suite"
cp -r "$program/demo" "$suite"
cp "$program"/instruments/*.DLL "$suite"
# The button has no letter of its own in English.
printf 'The session.\nF1.COMMAND5.TEXT {Set GRH I (&9)}\n' >"$suite/Zentab2.txt"
cp "$suite/relayTables.dat" "$scratch/before.dat"
"${wine[@]}" reg add 'HKLM\SOFTWARE\HALDOR\MIRAXWIN' /v MIRAX /d "Z:${suite//\//\\}" /reg:32 \
  >/dev/null 2>&1
"${wine[@]}" "$program/Zentab.exe" 2>"$scratch/wine.log" &
editor=$!
window=$(timeout 120 xdotool search --sync --onlyvisible --name 'Relay curve' | tail -n 1) ||
  fail "no window opens: $(tail -n 3 "$scratch/wine.log")"
xdotool windowfocus --sync "$window" 2>/dev/null || true

# logs TEXT: waits for it.
logs() {
  for _ in $(seq 150); do
    ! grep -qsF "$1" "$suite/Zentab.log" || return 0
    sleep 0.2
  done
  fail "nothing is said of '$1'"
}
press() { xdotool key --delay 80 "$@" && sleep 0.5; }
logs Started
sleep 1
press alt+c
logs 'pickup = 1'
press alt+p
logs 'Import time test'
sleep 1
press ctrl+n
xdotool type --delay 60 'From the test'
press Return
sleep 1
press alt+9
logs SetRefgraph
sleep 1
[ -z "$picture" ] || import -window "$window" "$picture"
press ctrl+q
wait "$editor" || fail "it ends with an error"

# The clock left out.
sed -E 's/\r$//; s/^[0-9]{8} //; s/[0-9]{2}:[0-9]{2}/TIME/' "$suite/Zentab.log" >"$scratch/log"
diff -u - "$scratch/log" >&2 <<'END' || fail "the log is another one"
TIME Started
 TIME Current selected 
 TIME Close request 
 TIME Open Current 1
 TIME I pickup = 1
 TIME Import time test 
 TIME I Writing 25 lines from IEC SI TMS 0.05 absolute values
 TIME SetRefgraph 1
 Unloading... 
 TIME Close request 
 TIME Current is Open 
 TIME Close Current 1
 TIME Exit
END
cmp "$scratch/before.dat" "$suite/relayTables.dat.bak" || fail "the backup is another one"
head -c "$(wc -c <"$scratch/before.dat")" "$suite/relayTables.dat" |
  cmp - "$scratch/before.dat" || fail "the library is another one"
tail -n 1 "$suite/relayTables.dat" | grep -q '^{"From the test"	(0.9;60)(1.021;60).*(20;0.4554) 001}' ||
  fail "the curve is not stored"
cmp "$suite/data/currtmp.grh" "$suite/data/current/reference.grh" ||
  fail "the module has no reference graph"
echo "The session for $bits bits: module loaded, test imported, curve stored, reference graph set"
