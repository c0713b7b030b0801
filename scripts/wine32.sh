#!/usr/bin/env bash
# Runs a 32-bit Windows program under Wine, which Debian's 64-bit systems have for 64-bit programs
# alone: in a small 32-bit Debian of its own, where this checkout lies in its usual place. It is made
# once, in ${ZENTAB_WINE32_ROOT:-${XDG_CACHE_HOME:-~/.cache}/zentab/wine32}, and takes root.
#   scripts/wine32.sh --make              makes it, unless it is there
#   scripts/wine32.sh --find              fails when it is not there
#   scripts/wine32.sh PROGRAM ARG...      with WINEPREFIX and DISPLAY as they are set
set -euo pipefail
checkout=$(cd "$(dirname "$0")/.." && pwd)
root=${ZENTAB_WINE32_ROOT:-${XDG_CACHE_HOME:-$HOME/.cache}/zentab/wine32}
[ $# -gt 0 ] || {
  sed -n '2,7s/^# \{0,1\}//p' "$0" >&2
  exit 2
}

# Mounts of its own, which end with the command. CALL... runs in the root then.
in_root() {
  unshare --mount --fork bash -euc '
    root=$1 checkout=$2 folder=$3
    shift 3
    mkdir -p "$root$checkout" "$root/tmp/.X11-unix"
    mount --bind "$checkout" "$root$checkout"
    mount --bind /proc "$root/proc"
    mount --rbind /dev "$root/dev"
    [ ! -d /tmp/.X11-unix ] || mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"
    exec chroot "$root" /bin/sh -c "cd \"\$0\" && exec \"\$@\"" "$folder" "$@"
  ' in_root "$root" "$checkout" "$@"
}

is_there() { [ "$(id -u)" -eq 0 ] && [ -e "$root/usr/lib/wine/wine" ]; }

make_root() {
  ! is_there || return 0
  [ "$(id -u)" -eq 0 ] || {
    echo "A 32-bit Debian is made and entered by root alone: sudo $0 --make" >&2
    return 1
  }
  (. "$checkout/scripts/packages.sh" && need debootstrap)
  echo "Making a 32-bit Debian for Wine in $root"
  local making=$root.making
  rm -rf "$making"
  debootstrap --arch=i386 --variant=minbase bookworm "$making" \
    "${ZENTAB_DEBIAN_MIRROR:-http://deb.debian.org}/debian" >"$root.log" 2>&1 &&
    chroot "$making" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq \
      --no-install-recommends wine32 wine fonts-dejavu-core >>"$root.log" 2>&1 || {
    tail -n 20 "$root.log" >&2
    return 1
  }
  chroot "$making" apt-get clean
  rm -f "$root.log"
  mv "$making" "$root"
}

case $1 in
  --make) make_root ;;
  --find) is_there ;;
  *)
    is_there || {
      echo "There is no 32-bit Wine in $root, or this is not root: scripts/wine32.sh --make" >&2
      exit 1
    }
    in_root "$PWD" wine "$@"
    ;;
esac
