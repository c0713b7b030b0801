#!/usr/bin/env bash
# Builds what the editor's windows need on Windows from Debian's own sources, once: Qt, HarfBuzz,
# QCustomPlot and the writer of SVG pictures, all static. It stays in a folder of its own below
# ${XDG_CACHE_HOME:-~/.cache}/zentab/windows-libraries, named by versions and options. An interrupted
# build goes on where it stopped.
#   scripts/windows-libraries.sh CPU           x86_64 or i686; the last line printed is the folder
#   scripts/windows-libraries.sh --find CPU    the same without building; fails when it is not there
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

find_only=false
[ "${1:-}" != --find ] || { find_only=true && shift; }
cpu=${1:-}
[ "$cpu" = x86_64 ] || [ "$cpu" = i686 ] || {
  sed -n '2,7s/^# \{0,1\}//p' "$0" >&2
  exit 2
}
$find_only || need "${build_packages[@]}" "${window_packages[@]}" "${windows_packages[@]}" dpkg-dev

cache=${XDG_CACHE_HOME:-$HOME/.cache}/zentab/windows-libraries
mirror=${ZENTAB_DEBIAN_MIRROR:-http://deb.debian.org}
definitions=packaging/windows/libraries

version_of() { dpkg-query -W -f='${source:Version}' "$1" 2>/dev/null || echo none; }
# Qt's tools of this system take part in its build, so both have one version.
qt_version=$(version_of qt6-base-dev)
harfbuzz_version=$(version_of libharfbuzz-dev)
plot_version=$(version_of libqcustomplot-dev)
# Of the SVG module the writer alone is built, which needs nothing of the version of Qt.
svg_version=5.15.8-3

# The same on every machine: it gets into the libraries.
prefix=/zentab-windows-libraries
common=(-G Ninja -DZENTAB_WINDOWS_CPU="$cpu" -Dwine=OFF -DCMAKE_BUILD_TYPE=Release
  -DCMAKE_INSTALL_PREFIX=$prefix -DBUILD_SHARED_LIBS=OFF)
# Direct2D stays on: without it the font database of DirectWrite is not linked.
qt_options=(-DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF
  -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake
  -DFEATURE_sql=OFF -DFEATURE_network=OFF -DFEATURE_dbus=OFF -DFEATURE_opengl=OFF
  -DINPUT_opengl=no -DFEATURE_vulkan=OFF -DFEATURE_concurrent=OFF -DFEATURE_xml=OFF
  -DFEATURE_tabletevent=OFF -DFEATURE_pkg_config=OFF -DFEATURE_glib=OFF -DFEATURE_icu=OFF
  -DFEATURE_zstd=OFF -DFEATURE_system_zlib=OFF -DINPUT_harfbuzz=system -DINPUT_libpng=qt
  -DINPUT_libjpeg=qt -DINPUT_freetype=qt -DINPUT_pcre=qt -DINPUT_doubleconversion=qt)

key=$qt_version-$cpu-$({
  echo "$harfbuzz_version $plot_version $svg_version ${common[*]} ${qt_options[*]}"
  cat "$definitions"/*/*
} | sha256sum | cut -c 1-12)
done_folder=$cache/$key
if [ -d "$done_folder" ]; then
  echo "$done_folder"
  exit
elif $find_only; then
  exit 1
fi

work=$cache/building-$key
mkdir -p "$work" "$cache/sources"
# Qt refuses to be built where a link leads.
work=$(realpath "$work")
exec 9>"$work/lock"
flock 9

# Debian's list of sources beside the system's own lists, which stay as they are.
apt=$cache/apt
apt_options=(-o Dir::Etc::SourceList="$apt/sources.list" -o Dir::Etc::SourceParts=/dev/null
  -o Dir::State::Lists="$apt/lists" -o Dir::Cache="$apt/cache" -o APT::Sandbox::User=root -qq)
list_sources() {
  [ ! -f "$apt/listed" ] || return 0
  mkdir -p "$apt/lists/partial" "$apt/cache/archives/partial"
  local signed='[signed-by=/usr/share/keyrings/debian-archive-keyring.gpg]'
  printf 'deb-src %s\n' "$signed $mirror/debian bookworm main" \
    "$signed $mirror/debian bookworm-updates main" \
    "$signed $mirror/debian-security bookworm-security main" >"$apt/sources.list"
  apt-get "${apt_options[@]}" update
  touch "$apt/listed"
}

# source_of NAME VERSION: fetched and patched, in the folder $cache/sources/NAME-VERSION.
source_of() {
  local target=$cache/sources/$1-$2 fetched
  [ ! -d "$target" ] || return 0
  list_sources
  fetched=$(mktemp -d "$work/source.XXXXXX")
  (cd "$fetched" && apt-get "${apt_options[@]}" source "$1=$2" >apt.log 2>&1) || {
    cat "$fetched/apt.log" >&2
    rm -f "$apt/listed"
    return 1
  }
  mv "$fetched"/*/ "$target"
  rm -rf "$fetched"
}
source_of qt6-base "$qt_version"
source_of harfbuzz "$harfbuzz_version"
source_of qcustomplot "$plot_version"
source_of qtsvg-opensource-src "$svg_version"
sources=$cache/sources

# What is dated in a library is dated alike.
SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l "$sources/qt6-base-$qt_version/debian/changelog" \
  -S Timestamp)
export SOURCE_DATE_EPOCH QT_RCC_SOURCE_DATE_OVERRIDE=$SOURCE_DATE_EPOCH

# built NAME FOLDER OPTION...: configures, builds and installs below $work.
built() {
  local name=$1 folder=$2 flags="-ffile-prefix-map=$sources=. -ffile-prefix-map=$work=."
  shift 2
  [ ! -f "$work/$name.done" ] || return 0
  stage "$name for $cpu"
  cmake -S "$folder" -B "$work/$name" "${common[@]}" --toolchain "$PWD/cmake/mingw.cmake" \
    -DZENTAB_WINDOWS_LIBRARIES="$work$prefix" -DCMAKE_C_FLAGS="$flags" \
    -DCMAKE_CXX_FLAGS="$flags" "$@" >"$work/$name.log" 2>&1 &&
    cmake --build "$work/$name" >>"$work/$name.log" 2>&1 &&
    DESTDIR=$work cmake --install "$work/$name" >>"$work/$name.log" || {
    tail -n 30 "$work/$name.log" >&2
    return 1
  }
  touch "$work/$name.done"
}
built harfbuzz "$PWD/$definitions/harfbuzz" -DSOURCE="$sources/harfbuzz-$harfbuzz_version"
built qt "$sources/qt6-base-$qt_version" "${qt_options[@]}"
built charts "$PWD/$definitions/charts" -DQT_HOST_PATH=/usr \
  -DPLOT="$sources/qcustomplot-$plot_version" -DSVG="$sources/qtsvg-opensource-src-$svg_version"

licences=$work$prefix/licences
mkdir -p "$licences"
for name in qt6-base-"$qt_version" harfbuzz-"$harfbuzz_version" qcustomplot-"$plot_version" \
  qtsvg-opensource-src-"$svg_version"; do
  cp "$sources/$name/debian/copyright" "$licences/$name.txt"
done
mv "$work$prefix" "$done_folder"
rm -rf "$work"
echo "$done_folder"
