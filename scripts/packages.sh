# Sourced by run.sh, test.sh and the other scripts here: the Debian packages the project needs, how
# they get installed, and how a build and its stages are run.

# need PACKAGE...: installs those that are missing; says plainly which they are when it cannot.
need() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0

  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    as_root=(sudo)
    # Without a terminal nobody could type sudo's password.
    [ -t 0 ] || as_root=(sudo -n)
  fi
  if ! command -v apt-get >/dev/null ||
    { [ "$(id -u)" -ne 0 ] && { ! command -v sudo >/dev/null || ! "${as_root[@]}" true; }; }; then
    echo "These packages are missing and cannot be installed from here: ${missing[*]}" >&2
    echo "As root on Debian 12: apt-get install --no-install-recommends ${missing[*]}" >&2
    return 1
  fi
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" apt-get update -qq &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null || {
    echo "Installing failed; what is missing: ${missing[*]}" >&2
    return 1
  }
}

build_packages=(g++ cmake ninja-build ccache libutfcpp-dev libcli11-dev nlohmann-json3-dev
  libboost-math-dev)
window_packages=(qt6-base-dev qt6-svg-dev librsvg2-bin libgl-dev libqcustomplot-dev
  libqcustomplot2.1-qt6 libharfbuzz-dev fonts-dejavu-core fonts-noto-cjk qt6-translations-l10n)
test_packages=(libgtest-dev poppler-utils)
windows_packages=(g++-mingw-w64-x86-64 g++-mingw-w64-i686 wine64)
windows_package_packages=(dpkg-dev nsis zip xvfb xauth xdotool imagemagick fonts-wine)
static_packages=(clang clang-tidy cppcheck libclang-14-dev)
fuzz_packages=(clang libclang-rt-dev llvm)
fault_packages=(acl attr)
bench_packages=(libbenchmark-dev)
peer_packages=(libmuparser-dev)
docs_packages=(doxygen)

# build PRESET: configures once (again in a checkout that was moved), then builds what changed.
build() {
  grep -qsx "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "build/$1/CMakeCache.txt" &&
    [ -f "build/$1/build.ninja" ] || cmake --fresh --preset "$1" >/dev/null || return 1
  cmake --build --preset "$1" -- --quiet
}

# stage NAME: a heading, with the minutes and seconds since the script began.
stage() {
  printf '== %s (at %d:%02d)\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}
