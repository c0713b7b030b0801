#!/usr/bin/env bash
# scripts/tidy-file.sh BUILD FILE: clang-tidy for one file, by the compile commands in the folder
# BUILD, unless all that it would see has passed before: the preprocessed text with its comments and
# macros, the commands, the configuration and the version. Only what passed is remembered, by the
# name of an empty file outside the checkout.
set -euo pipefail
build=$1 file=$2
cache=${XDG_CACHE_HOME:-$HOME/.cache}/zentab/clang-tidy
# With the module that keeps it to the project's own declarations.
tidy=(clang-tidy --load=build/static/tidy_scope.so --checks=zentab-project-scope --quiet
  --extra-arg=-Wno-unknown-warning-option)

# The file's commands (one for each target that it belongs to), freed from the file format's escapes.
commands() {
  grep -B1 -F "\"file\": \"$PWD/$file\"" "$build/compile_commands.json" |
    sed -n 's/^ *"command": "\(.*\)",$/\1/p' | sed 's/\\\(.\)/\1/g'
}

preprocessed() {
  local command arguments
  while read -r command; do
    # By the shell's rules, as the build does.
    eval "arguments=($command)"
    clang++ "${arguments[@]:1}" -w -E -C -dD -o -
  done < <(commands)
}

seen() {
  clang-tidy --version
  git ls-files -z '*.clang-tidy' | xargs -0 cat
  cat scripts/tidy_scope.cpp
  echo "${tidy[@]}" "$file"
  commands
  cat "$file"
  preprocessed
}

# The same in every checkout.
key() {
  local sum
  sum=$(seen | sed "s|$PWD|.|g" | sha256sum)
  echo "${sum%% *}"
}

key=$(key)
if [ -e "$cache/$key" ]; then
  touch "$cache/$key"
  exit 0
fi
"${tidy[@]}" -p "$build" "$file" 2> >(grep -v 'warnings\? generated' >&2)
# Nobody knows which of its states was passed when it has been edited meanwhile.
[ "$key" = "$(key)" ] || exit 0
mkdir -p "$cache"
: >"$cache/$key"
