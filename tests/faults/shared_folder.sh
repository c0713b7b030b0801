#!/usr/bin/env bash
# shared_folder.sh BIN [CHANGES]: two users, one group, file creation masks that fit nobody, and one
# folder: each makes CHANGES (40) changes of one library by BIN/zentab-cli, at the same time. Then
# every entry must be there, and group, mode, access list and attributes must be as before. It goes
# on with what a colleague's change must not break, or must refuse. It takes root, to be both users,
# and says so when it is skipped (exit code 77).
set -euo pipefail
bin=$(cd "$1" && pwd) changes=${2:-40}

if [ "$(id -u)" -ne 0 ]; then
  echo "skipped: only root can be two users"
  exit 77
fi
for tool in setpriv setfacl setfattr; do
  command -v "$tool" >/dev/null || {
    echo "skipped: $tool is missing (packages acl and attr)"
    exit 77
  }
done

# Numbers that belong to nobody; daemon is a user whose groups the system knows.
alice=64101 bob=64102 engineers=64200
faults=0
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
chmod 755 "$folder"
cp "$bin/zentab-cli" "$folder/zentab-cli"
printf '5\t6\n' >"$folder/point"

fault() {
  echo "FAULT: $*"
  faults=$((faults + 1))
}

# as USER UMASK COMMAND...: each has a group of his own beside the common one.
as() {
  (umask "$2" && cd "$share" &&
    exec setpriv --reuid="$1" --regid="$1" --groups="$engineers" --inh-caps=-all -- "${@:3}")
}
cli() { as "$1" "$2" "$folder/zentab-cli" "${@:3}" <"$folder/point"; }

new_share() { # MODE OF THE FOLDER
  rm -rf "$share"
  mkdir "$share"
  chown "root:$engineers" "$share"
  chmod "$1" "$share"
}

new_library() { # OWNER:GROUP MODE
  rm -f "$library"
  printf '{"A"\t(1;2) 001}\r\n{"B"\t(3;4) 001}\r\n' >"$library"
  setfacl -b "$library" # what the folder handed down
  chown "$1" "$library"
  chmod "$2" "$library"
}

# All that decides who may do what, and the attributes; the owner is whoever wrote last.
access() {
  stat -c '%g %a' "$1"
  getfacl -cnp "$1"
  getfattr -d --absolute-names "$1" | tail -n +2
}

expect_kept() { # FORMER-ACCESS WHAT
  [ "$(access "$library")" = "$1" ] || fault "$2: the access is another one: $(access "$library")"
}

# One user's day: entries come, change and go; every fourth stays away.
day() { # USER UMASK NAME
  local number
  for number in $(seq "$changes"); do
    cli "$1" "$2" add lib.dat "$3-$number" || echo "$3: add $number failed"
    cli "$1" "$2" update lib.dat "$3-$number" --ms || echo "$3: update $number failed"
    [ $((number % 4)) -ne 0 ] || cli "$1" "$2" remove lib.dat "$3-$number" ||
      echo "$3: remove $number failed"
  done
}

work_together() { # WHAT
  local before expected
  before=$(access "$library")
  day $alice 077 alice >"$folder/alice.log" 2>&1 &
  day $bob 002 bob >"$folder/bob.log" 2>&1
  wait $!
  [ ! -s "$folder/alice.log" ] || fault "$1: $(cat "$folder/alice.log")"
  [ ! -s "$folder/bob.log" ] || fault "$1: $(cat "$folder/bob.log")"
  expected=$(
    printf '%s\n' A B
    for number in $(seq "$changes"); do
      [ $((number % 4)) -eq 0 ] || printf '%s\n' "alice-$number" "bob-$number"
    done | sort
  )
  [ "$(cli $alice 077 list lib.dat | sort)" = "$(sort <<<"$expected")" ] ||
    fault "$1: the entries are not those that were stored"
  expect_kept "$before" "$1"
  [ "$(ls "$share")" = lib.dat ] || fault "$1: left behind: $(ls "$share")"
  echo "  $1: $((2 * changes)) entries added, as many updated, a quarter removed"
}

refused() { # WHAT REASON: bob's change, which must leave everything as it is
  local before state
  before=$(access "$library") state=$(stat -c '%u %h %i' "$library" && cat "$library")
  if cli $bob 002 update lib.dat A 2>"$folder/err"; then
    fault "$1: not refused"
  fi
  grep -qi "$2" "$folder/err" || fault "$1: the reason is: $(cat "$folder/err")"
  expect_kept "$before" "$1"
  [ "$(stat -c '%u %h %i' "$library" && cat "$library")" = "$state" ] || fault "$1: not as before"
  [ ! -e "$library.new" ] || fault "$1: a new file was left behind"
  echo "  $1: refused, \"$2\""
}

# What a crash of an older program leaves, under a mask that lets nobody else in. Only after a
# minute, which nothing can set back, does it count as such.
share=$folder/left library=$folder/left/lib.dat
new_share 0775
new_library $alice:$engineers 0660
as $alice 077 touch lib.dat.lock
left_at=$SECONDS
cli $bob 002 update lib.dat A 2>"$folder/err" && fault "a fresh lock was taken away"
grep -qi "someone else is writing" "$folder/err" || fault "the reason is: $(cat "$folder/err")"

share=$folder/share library=$folder/share/lib.dat
new_share 0775
new_library $alice:$engineers 0660
work_together "a file of the group"

new_library $alice:$engineers 0640
setfacl -m u:$bob:rw,u:$alice:rw,u:64109:r "$library"
work_together "a file with an access list"

new_library $alice:$engineers 0660
setfattr -n user.plant -v "Substation 7" "$library"
work_together "a file with attributes"

new_share 0775
setfacl -d -m u:64109:rwx,g::rx,o::rx "$share"
new_library $alice:$engineers 0660
work_together "a folder that hands down an access list"

new_share 2775
new_library $alice:$engineers 0660
work_together "a folder that hands down its group"

new_share 0775
new_library $alice:$engineers 0660
ln "$library" "$share/other.dat"
refused "a hard link" "hard links"
rm "$share/other.dat"

new_library $alice:64201 0666
setfacl -m u:$bob:rw,g::r "$library"
refused "a group that bob does not belong to" "group would lose"

new_library daemon:$engineers 0660
refused "an owner who does not belong to the group" "owner would lose"

new_library daemon:$engineers 0600
setfacl -m u:$bob:rw "$library"
refused "an owner whom the access list does not name" "owner would lose"

new_library $alice:64201 0666
cli $bob 002 update lib.dat A || fault "a file that everyone may write was refused"

# The lock from the beginning, and one that somebody holds.
share=$folder/left library=$folder/left/lib.dat
sleep $((left_at + 62 - SECONDS > 0 ? left_at + 62 - SECONDS : 0))
as $alice 077 flock lib.dat.lock sleep 2 &
sleep 0.5
cli $bob 002 update lib.dat A 2>/dev/null || fault "a lock of nobody keeps others out"
wait $!
cli $alice 077 update lib.dat A || fault "the next change was refused"
[ "$(ls "$share")" = lib.dat ] || fault "left behind: $(ls "$share")"
echo "  a lock that a crash left under umask 077: waited for while it is held, gone afterwards"

[ "$faults" -eq 0 ] && echo passed || {
  echo "$faults faults"
  exit 1
}
