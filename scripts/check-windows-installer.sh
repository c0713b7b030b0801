#!/usr/bin/env bash
# Tries an installer under Wine, in silence: install, start, keep what the user changed, uninstall.
#   scripts/check-windows-installer.sh INSTALLER 32|64
set -Eeuo pipefail
cd "$(dirname "$0")/.."
installer=$(realpath "$1")
bits=$2
. scripts/wine.sh
view=/reg:$bits

# A Windows of its own: nothing is left of it.
scratch=$(mktemp -d "$PWD/build/installer-XXXXXX")
# Wine itself ends some seconds after the last program.
clean_up() {
  [ -z "${keep:-}" ] || return 0
  rm -rf "$scratch" 2>/dev/null || { sleep 5 && rm -rf "$scratch"; }
}
trap clean_up EXIT
use_wine "$bits" "$scratch/wine"
run() { "${wine[@]}" "$@" 2>>"$scratch/wine.log"; }
fail() {
  echo "$(basename "$installer"): $*" >&2
  keep=1
  exit 1
}
trap 'tail -n 5 "$scratch/wine.log" >&2' ERR
# How a path here is called in Windows.
named() { printf 'Z:%s' "${1//\//\\}"; }
listed() { (cd "$1" && find . | sort); }
uninstall_key='Software\Microsoft\Windows\CurrentVersion\Uninstall\Zentab'

# The suite's folder, with files of its own: where the installer goes, for all users.
suite="$scratch/Prüf suite"
mkdir -p "$suite/demo"
echo curves >"$suite/relayTables.dat"
echo texts >"$suite/Zentab1.txt"
listed "$suite" >"$scratch/before"
run reg add 'HKLM\SOFTWARE\HALDOR\MIRAXWIN' /v MIRAX /d "$(named "$suite")" /reg:32 >/dev/null
run reg add 'HKCU\Software\Zentab\Settings' /v TableName /d 'C:\own.dat' >/dev/null
run reg add 'HKLM\Software\Classes\.dat' /ve /d Other.File "$view" >/dev/null
run "$installer" /S /AllUsers /Associate
for file in Zentab.exe zentab-cli.exe Zentab.txt demo/relayTables.dat licences/Zentab.txt \
  catalogues/Zentab.de.txt instruments/CURR_API.DLL; do
  [ -f "$suite/$file" ] || fail "$file is not installed"
done
run reg query "HKLM\\$uninstall_key" /v UninstallString "$view" >/dev/null ||
  fail "there is no way to uninstall it"
run reg query 'HKLM\Software\Classes\.dat' "$view" | grep -q Zentab.Table ||
  fail "*.dat does not open with it"
run "$suite/zentab-cli.exe" list "$(named "$suite/demo/relayTables.dat")" >/dev/null ||
  fail "the program does not start"
links() { find "$WINEPREFIX/drive_c" -iname Zentab.lnk; }
[ -n "$(links)" ] || fail "there is no entry in the Start menu"

# A second time over it, as an update does, then away; what somebody has changed stays.
run "$installer" /S /AllUsers /Associate
echo own >>"$suite/demo/relayTables.dat"
echo own >"$suite/Zentab.txt"
uninstall() { # FOLDER WHO: Windows goes on in a copy of the program, which removes it at the end
  run "$1/Uninstall-Zentab.exe" "/$2" /S
  for _ in $(seq 300); do
    [ -e "$1/Uninstall-Zentab.exe" ] || return 0
    sleep 0.2
  done
  fail "it does not uninstall"
}
uninstall "$suite" AllUsers
{ cat "$scratch/before" && printf './%s\n' Zentab.txt demo/relayTables.dat; } | sort |
  diff - <(listed "$suite") || fail "this is what it leaves"
[ "$(cat "$suite/relayTables.dat" "$suite/Zentab1.txt")" = "$(printf 'curves\ntexts')" ] ||
  fail "files of the user are not the same"
run reg query 'HKCU\Software\Zentab\Settings' /v TableName >/dev/null || fail "settings are lost"
! run reg query "HKLM\\$uninstall_key" "$view" >/dev/null 2>&1 || fail "it is still listed"
run reg query 'HKLM\Software\Classes\.dat' "$view" | grep -q Other.File ||
  fail "*.dat does not open with what it opened with"
[ -z "$(links)" ] || fail "it is still in the Start menu"

# For one user, in a folder that was asked for; without blanks, as the option takes no quotes.
own="$scratch/Büro"
run "$installer" /S /CurrentUser /NoStartMenu "/D=$(named "$own")"
[ -f "$own/Zentab.exe" ] || fail "it is not where it was asked to be"
run reg query "HKCU\\$uninstall_key" /v InstallLocation >/dev/null || fail "it is not listed"
[ -z "$(links)" ] || fail "it is in the Start menu unasked"
! run reg query 'HKCU\Software\Classes\.dat' >/dev/null 2>&1 || fail "*.dat was taken unasked"
uninstall "$own" CurrentUser
sleep 1
[ ! -d "$own" ] || fail "$own is left"
echo "$(basename "$installer"): installs, starts and leaves what is the user's"
