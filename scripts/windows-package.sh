#!/usr/bin/env bash
# Makes the packages for Windows: a zip file and an installer of the whole program.
#   scripts/windows-package.sh [32|64]...          both unless one is named
# What it needs is installed, Qt built once (scripts/windows-libraries.sh: an hour on a small
# machine), the program built and tested under Wine. The packages lie in build/windows-packages; one
# commit gives the same bytes again. ZENTAB_WINDOWS_TESTS=no leaves the tests out.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/wine.sh

need "${build_packages[@]}" "${window_packages[@]}" "${test_packages[@]}" \
  "${windows_packages[@]}" "${windows_package_packages[@]}"

packages=$PWD/build/windows-packages
version=$(sed -n 's/^project(Zentab VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null ||
  date -d "$(dpkg-parsechangelog -l packaging/debian/changelog -S Date)" +%s)
export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C.UTF-8

# stage_files PRESET CPU FOLDER: what an installation holds.
stage_files() {
  local from=build/$1 to=$3 file
  rm -rf "$to"
  mkdir -p "$to/instruments" "$to/licences" "$to/translations"
  cp "$from/bin/Zentab.exe" "$from/bin/zentab-cli.exe" catalogues/Zentab.txt "$to"
  cp "$from"/modules/*.DLL "$to/instruments"
  "$2-w64-mingw32-strip" "$to"/*.exe "$to"/instruments/*.DLL
  cp -r catalogues "$to/catalogues"
  cp -r examples/installation "$to/demo"
  cp -r docs/guide "$to/guide"
  cp "$from"/bin/translations/* "$to/translations"
  cp LICENSE "$to/licences/Zentab.txt"
  cp "$ZENTAB_WINDOWS_LIBRARIES"/licences/* "$to/licences"
  for file in gcc-mingw-w64-base mingw-w64-common libutfcpp-dev libcli11-dev nlohmann-json3-dev \
    libboost1.74-dev qt6-translations-l10n; do
    cp "$(readlink -f "/usr/share/doc/$file/copyright")" "$to/licences/$file.txt"
  done
  find "$to" -type d -exec chmod 755 {} + -o -type f -exec chmod 644 {} +
  find "$to" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
}

# The installer's list of FOLDER, in an order that no file system decides.
install_list() {
  (cd "$1" && find . -type f -printf '%P\n' | sort) | while read -r file; do
    folder=$(dirname "/$file")
    echo "SetOutPath \"\$INSTDIR${folder//\//\\}\""
    echo "File \"$1/$file\""
  done
}

# The uninstaller's list of FOLDER: files, then folders, the innermost first. What its user may have
# changed goes only as it came.
uninstall_list() {
  (cd "$1" && find . -type f -printf '%P\n' | sort) | while read -r file; do
    case $file in
      demo/*.dat | demo/*.txt | catalogues/* | Zentab.txt)
        echo "!insertmacro REMOVE_IF_AS_IT_CAME \"$1/$file\" \"${file//\//\\}\""
        ;;
      *) echo "!insertmacro REMOVE_FILE \"${file//\//\\}\"" ;;
    esac
  done
  (cd "$1" && find . -mindepth 1 -depth -type d -printf '%P\n') | while read -r folder; do
    echo "!insertmacro REMOVE_FOLDER \"${folder//\//\\}\""
  done
}

# pack BITS STAGE: the zip file and the installer.
pack() {
  local name=zentab-$version-win$1
  rm -f "$packages/$name".*
  (cd "$(dirname "$2")" &&
    find "$(basename "$2")" | sort | zip -q -X -9 -@ "$packages/$name.zip")
  install_list "$2" >"$2.install.nsh"
  uninstall_list "$2" >"$2.uninstall.nsh"
  makensis -V2 -NOCD -DVERSION="$version" -DBITS="$1" -DLIST="$2" -DOUTPUT="$packages/$name.exe" \
    packaging/windows/zentab.nsi
}

# The windows are shown on a screen of Xvfb, in a Windows made anew.
test_program() { # BITS PRESET
  use_wine "$1" "$PWD/build/$2/wine"
  on_screen ctest --preset "$2"
}

make_package() { # BITS CPU PRESET
  local stage_folder=$packages/zentab-$version-win$1
  ZENTAB_WINDOWS_LIBRARIES=$(scripts/windows-libraries.sh "$2" | tee >(cat >&2) | tail -n 1)
  export ZENTAB_WINDOWS_LIBRARIES
  stage "$3"
  [ "$1" = 64 ] || scripts/wine32.sh --make
  build "$3"
  [ "${ZENTAB_WINDOWS_TESTS:-yes}" = no ] || test_program "$1" "$3"
  stage "package for $1 bits"
  mkdir -p "$packages"
  stage_files "$3" "$2" "$stage_folder"
  pack "$1" "$stage_folder"
  scripts/check-windows-session.sh "$stage_folder" "$1"
  scripts/check-windows-installer.sh "$packages/zentab-$version-win$1.exe" "$1"
}

[ $# -gt 0 ] || set -- 64 32
for bits in "$@"; do
  case $bits in
    64) make_package 64 x86_64 windows-gui ;;
    32) make_package 32 i686 windows32-gui ;;
    *)
      sed -n '2,6s/^# \{0,1\}//p' "$0" >&2
      exit 2
      ;;
  esac
done
(cd "$packages" && sha256sum zentab-"$version"-win*.zip zentab-"$version"-win*.exe)
