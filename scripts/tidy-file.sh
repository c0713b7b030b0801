#!/usr/bin/env bash
# scripts/tidy-file.sh BUILD FILE: clang-tidy for one file, by the compile commands in the folder
# BUILD, unless all that it would see has passed before: the preprocessed text with its comments and
# macros, the commands, and what build/static/same has for all files. Only what passed is remembered,
# by the name of an empty file outside the checkout.
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

preprocess() {
  local command arguments
  while read -r command; do
    # By the shell's rules, as the build does.
    eval "arguments=($command)"
    clang++ "${arguments[@]:1}" -w -E -C -dD -o -
  done < <(commands)
}

seen() {
  cat build/static/same
  echo "${tidy[@]}" "$file"
  commands
  cat "$file" "$text"
}

# The first of the precompiled headers that the file includes anyway, all of them: what it fails to
# include must be missed.
precompiled() {
  local name header
  # The headers see that a release build is optimized.
  [ "$build" = build/static/bench ] && return
  for name in chart window googletest files functional texts; do
    # Position-independent code, as the windows are made of, can only use its like.
    [[ $name != [cw]* && "$(commands)" = *" -fPIC "* ]] && continue
    while read -r header; do
      grep -qE "^# [0-9]+ \"[^\"]*/$header\" 1" "$text" || continue 2
    done < <(sed 's/.*<\(.*\)>/\1/' "build/static/$name.h")
    printf -- '--extra-arg=%s\n' -include-pch "$PWD/build/static/$name.pch"
    return
  done
}

begun=$(date +%s.%N)
mkdir -p "$cache"
text=$(mktemp "$cache/text-XXXXXX")
trap 'rm -f "$text"' EXIT
preprocess >"$text"
# The same in every checkout.
key=$(seen | sed "s|$PWD|.|g" | sha256sum)
key=$cache/${key%% *}
if [ -e "$key" ]; then
  touch "$key"
  exit 0
fi
mapfile -t precompiled < <(precompiled)
"${tidy[@]}" "${precompiled[@]}" -p "$build" "$file" 2> >(grep -v 'warnings\? generated' >&2)
# Nobody knows which state of a file was passed when one has been edited meanwhile.
if [ -z "$(find . -path ./build -prune -o -newermt "@$begun" -name '*.[hc]*' -print -quit)" ]; then
  : >"$key"
fi
