# Sourced by what tries the Windows programs: a screen, and one Wine for each number of bits.

# on_screen COMMAND...: on which anyone may draw, as what runs in another root has no key to it.
on_screen() { ZENTAB_SCREEN=yes xvfb-run -a -s "-screen 0 1600x1200x24 -ac" "$@"; }
is_on_screen() { [ -n "${ZENTAB_SCREEN:-}" ]; }

# use_wine 32|64 FOLDER: sets `wine`, the command, and makes a new Windows in FOLDER, which must lie
# in this checkout.
use_wine() {
  wine=(/usr/lib/wine/wine64)
  [ "$1" = 64 ] || wine=("$PWD/scripts/wine32.sh")
  # Without the parts for .NET and for web pages, about which it would ask.
  export WINEPREFIX=$2 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
  rm -rf "$WINEPREFIX"
  "${wine[@]}" wineboot --init >/dev/null 2>&1
  # No window manager is there, for which each window would wait.
  "${wine[@]}" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N >/dev/null 2>&1
  # The fonts that windows are laid out for; Wine has them, but does not count them as installed.
  cp /usr/share/wine/fonts/{tahoma*,marlett}.ttf "$WINEPREFIX/drive_c/windows/Fonts"
  # Its desktop has the display that it was started with.
  "${wine[@]}" wineboot --kill >/dev/null 2>&1
}
