# Copies of all data: by hand, before everything is changed, and by themselves every day. Read in by kvtk-server.

# Days and months whose copies are kept; a month's copy is its first one.
days_kept=14
months_kept=12
# What stays free on a disk beside a copy.
bytes_left_free=$((64 << 20))
# Seconds between two looks at whether today's copy is there.
pause=600
# Lies in the second place, so that the empty folder of a stick that is not plugged in is not taken for it.
marker=.torvane-yedek

# Where a copy's place was named; nothing when there is no second one.
second_place() { cat "$folder/second-place" 2>/dev/null || true; }

# A free name for a copy, after what it is made for and the moment.
new_copy() {
  local name number="" file
  mkdir -p "$folder/copies"
  name=$folder/copies/$1-$(date +%Y%m%d-%H%M%S)
  file=$name.sql.gz
  while [ -e "$file" ]; do
    number=$((number + 1))
    file=$name-$number.sql.gz
  done
  echo "$file"
}

# Text of a copy, packed or not.
unpacked() { gzip -cdf <"$1"; }
packed_for() { if [[ $1 == *.gz ]]; then gzip -1; else cat; fi; }

# Whether a copy's text comes whole to its end; with a number, whether it holds as many tables.
whole_backup() {
  local marks
  marks=$(unpacked "$1" 2>/dev/null | LC_ALL=C grep -aoE '^(CREATE TABLE|-- Dump completed)') || return 1
  [[ $marks == *"-- Dump completed" ]] && [ "${2:-}" = "${2:+$(grep -c TABLE <<<"$marks")}" ]
}

# Whether a disk has room for a number of bytes more.
has_room() {
  local free
  free=$(df --output=avail -B1 -- "$1" | tail -1) && [ "$free" -ge $(($2 + bytes_left_free)) ]
}

# Most bytes that a copy with that name can come to: pictures take two letters a byte, and packing halves what it finds.
bytes_of_copy() {
  local stored
  stored=$(client -N -e "SELECT CAST(SUM(DATA_LENGTH) AS UNSIGNED) FROM information_schema.TABLES WHERE TABLE_SCHEMA = 'kvtk'")
  if [[ $1 == *.gz ]]; then echo "$stored"; else echo $((stored * 2)); fi
}

# Puts a copy of all data into a file that is not there yet; packed when its name ends so.
copy_to() {
  [ ! -e "$1" ] || die "$1 is there already, and no copy is ever overwritten"
  local parent tables
  parent=$(dirname "$1")
  [ ! -d "$parent" ] || has_room "$parent" "$(bytes_of_copy "$1")" || die "there is no room in $parent for a copy"
  (
    unfinished=$(mktemp "$parent/.kvtk-backup.XXXXXX") || die "$parent cannot be written to"
    trap 'rm -f "$unfinished"' EXIT
    in_data mariadb-dump --default-character-set=latin5 --single-transaction --quick --routines --triggers --hex-blob kvtk |
      packed_for "$1" >"$unfinished" || die "the backup failed"
    tables=$(client -N -e "SELECT COUNT(*) FROM information_schema.TABLES WHERE TABLE_SCHEMA = 'kvtk'") ||
      die "the backup cannot be proven"
    whole_backup "$unfinished" "$tables" || die "the backup is not complete"
    put_in_place "$unfinished" "$1"
  ) || exit 1
}

# Gives a finished file its name, which nothing else has.
put_in_place() {
  sync "$1"
  mv -n "$1" "$2"
  [ ! -e "$1" ] || die "$2 is there already, and no copy is ever overwritten"
}

backup() {
  [ $# -le 1 ] && [ ! -d "${1-x}" ] && [ "${1-x}" ] || die "backup [FILE]"
  need_running
  local copy=${1:-$(new_copy backup)}
  copy_to "$copy"
  [ $# -eq 1 ] || echo "$copy"
}

# Folders that copies lie in.
copy_folders() {
  local place
  for place in "$folder" "$folder/copies" "$folder/copies/daily" "$(second_place)"; do [ ! -d "$place" ] || echo "$place"; done
}

# The listed copies as lines of moment, size and file, the newest first. The same day's copy in the second place is no other one.
listed_copies() {
  local place
  while read -r place; do
    find "$place" -maxdepth 1 -type f \( -name '*-20*.sql' -o -name '*-20*.sql.gz' \) -printf '%T@ %s %p\n'
  done < <(copy_folders) | sort -rn | awk '{name = $0; sub(/.*\//, "", name)} !seen[name]++'
}

age() {
  local seconds=$1
  if [ "$seconds" -lt 7200 ]; then echo "$((seconds / 60)) minutes"; elif [ "$seconds" -lt 172800 ]; then echo "$((seconds / 3600)) hours"
  else echo "$((seconds / 86400)) days"; fi
}

backups() {
  local moment size file now
  now=$(date +%s)
  while read -r moment size file; do
    printf '%-44s %11s %8s\n' "${file##*/}" "$(age $((now - ${moment%.*})))" "$(numfmt --to=iec "$size")"
  done < <(listed_copies)
}

# The file that restore was given, or the copy of that name in the list.
copy_named() {
  if [ -f "$1" ] || [[ $1 == */* ]]; then
    echo "$1"
  else
    listed_copies | cut -d' ' -f3- | awk -v name="/$1" 'substr($0, length($0) - length(name) + 1) == name {print; exit}'
  fi
}

# Takes away the daily copies of a folder that are neither of the newest days nor the first of the newest months.
thin() {
  local all
  all=$(cd "$1" && find . -maxdepth 1 -type f -name 'kvtk-20??-??-??.sql.gz' -printf '%P\n' | sort)
  { tail -n $days_kept <<<"$all"; awk -F- '!seen[$2 $3]++' <<<"$all" | tail -n $months_kept; } | sort -u | comm -13 - <(echo "$all") |
    while read -r name; do rm -f "$1/${name:?}"; done
}

second-place() {
  [ $# -le 1 ] || die "second-place [FOLDER | off]"
  need_instance
  case ${1-} in
    "") [ -z "$(second_place)" ] || second_place ;;
    off) rm -f "$folder/second-place" ;;
    *)
      [ -d "$1" ] || die "'$1' is no folder"
      touch "$1/$marker" || die "$1 cannot be written to"
      realpath "$1" >"$folder/second-place" ;;
  esac
}

# Brings a daily copy to the second place. What lies there under its name already is compared, not written to. Wants a shell of
# its own, at whose end what is unfinished goes.
copy_to_second_place() {
  local place name=${1##*/}
  place=$(second_place)
  [ -e "$place/$marker" ] || die "the second place $place is not there"
  if [ -e "$place/$name" ]; then
    cmp -s "$1" "$place/$name" || die "$place/$name is another copy than $1"
    return
  fi
  rm -f "$place"/.kvtk-backup.??????
  has_room "$place" "$(stat -c %s "$1")" || die "there is no room in the second place $place"
  unfinished=$(mktemp "$place/.kvtk-backup.XXXXXX")
  trap 'rm -f "$unfinished"' EXIT
  cp "$1" "$unfinished"
  sync "$unfinished"
  cmp -s "$1" "$unfinished" || die "$place does not give back what was written"
  put_in_place "$unfinished" "$place/$name"
  thin "$place"
}

# Makes today's copy unless it is there, in both places. What fails is written where the programs look at their login.
daily() {
  need_running
  local place=$folder/copies/daily copy failure=""
  mkdir -p "$place"
  exec 7>"$folder/copies.lock"
  flock -w 600 7 || die "another copy is under way"
  copy=$place/kvtk-$(date +%F).sql.gz
  if [ ! -e "$copy" ]; then
    rm -f "$place"/.kvtk-backup.??????
    if ! has_room "$place" "$(bytes_of_copy "$copy")"; then
      echo "kvtk-server: there is no room in $place for a copy" >&2
      failure=ROOM
    elif (copy_to "$copy"); then
      thin "$place"
    else
      failure=COPY
    fi
  fi
  [ -n "$failure" ] || [ -z "$(second_place)" ] || (copy_to_second_place "$copy") || failure=SECOND
  record_copies "$failure"
  [ -z "$failure" ]
}

# Tells the programs when the newest daily copy was made, and what stood in the way of the last try: ROOM, COPY, SECOND or nothing.
record_copies() {
  local newest
  mkdir -p "$folder/copies/daily"
  newest=$(find "$folder/copies/daily" -name 'kvtk-*.sql.gz' -printf '%TY-%Tm-%Td %TH:%TM:%.2TS\n' | sort | tail -1)
  client kvtk -e "UPDATE backup_state SET LAST_COPY = NULLIF('$newest', ''), FAILURE = NULLIF('${1:-}', '')"
}

# Sees to the daily copies for as long as the server of this moment runs.
keep() {
  local server
  server=$(running) || return 0
  exec 8>"$folder/keeper.lock"
  flock -w 60 8 || return 0
  echo $$ >"$folder/keeper.pid"
  cd /
  while [ "$(running)" = "$server" ]; do
    # Work at the screens goes before.
    [ "${KVTK_DAILY:-}" = off ] || (renice -n 10 $BASHPID >/dev/null; daily) >"$folder/daily.log" 2>&1 8>&- || true
    timeout --foreground $pause tail -s 2 --pid="$server" -f /dev/null 8>&- || true
  done
}

start_keeper() {
  [ "${KVTK_DAILY:-}" != off ] && [ -z "${serving:-}" ] || return 0
  setsid "$here/kvtk-server" keep </dev/null >/dev/null 2>&1 9>&- &
}

# Ends the keeper with the copy that it is making.
end_keeper() {
  local number
  { read -r number <"$folder/keeper.pid"; } 2>/dev/null || return 0
  rm -f "$folder/keeper.pid"
  [[ $({ tr '\0' ' ' <"/proc/$number/cmdline"; } 2>/dev/null) == *"kvtk-server keep "* ]] || return 0
  kill -- "-$number" 2>/dev/null || true
}
