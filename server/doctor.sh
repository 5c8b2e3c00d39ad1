# Looks whether all is well with an instance. Read in by kvtk-server.

# Free bytes under which a disk is told.
bytes_wanted=$((1 << 30))

# Makes the tables as they should be beside the real ones and compares; gives the findings as doctor.sql tells. What a check needs and
# is not there is a finding itself, so that the check is passed over.
examine_data() {
  local step file
  client -e "DROP DATABASE IF EXISTS kvtk_doctor; CREATE DATABASE kvtk_doctor CHARACTER SET latin5 COLLATE latin5_turkish_ci"
  file=$(steps)
  while read -r step; do
    { echo "SET SESSION sql_mode = 'NO_ENGINE_SUBSTITUTION';"; cat "$step"; } | client kvtk_doctor
  done <<<"$file"
  client -N --force <"$here/doctor.sql" 2>"$folder/doctor.log" | tr '\t' '\037'
  if grep -q '^ERROR' "$folder/doctor.log"; then
    printf '%s\037checks could not be made: what they need is missing\037\037see above, and run doctor once more; the rest stands in %s\037\n' \
      "$(grep -c '^ERROR' "$folder/doctor.log")" "$folder/doctor.log"
  fi
}

# What is not in the tables: version, disk, copies.
examine_instance() {
  local own newest free latest place
  tell() { printf '%s\037%s\037\037%s\037\n' "$@"; }
  own=$(data_version)
  newest=$(newest_version)
  [ "$own" -ge "$newest" ] || tell 1 "the tables have the form $own, the program's is $newest" "kvtk-server upgrade"
  [ "$own" -le "$newest" ] || tell 1 "the tables belong to a newer program" "install the program of the other workstations here"
  free=$(df --output=avail -B1 -- "$folder" | tail -1)
  [ "$free" -ge $bytes_wanted ] || tell 1 "there are $(numfmt --to=iec "$free") free on the disk of $folder" "make room; without it nothing is saved"
  latest=$(client -N -e "SELECT IF(COALESCE(LAST_COPY, SINCE) < NOW() - INTERVAL 3 DAY, 'OLD', COALESCE(FAILURE, '')) FROM kvtk.backup_state" 2>/dev/null) || latest=""
  case $latest in
    OLD) tell 1 "the newest daily copy is older than three days" "kvtk-server daily tells what stands in its way" ;;
    SECOND) tell 1 "the last daily copy is not in the second place" "plug it in, or kvtk-server second-place off" ;;
    ROOM | COPY) tell 1 "the last daily copy failed" "kvtk-server daily tells what stands in its way" ;;
  esac
  place=$(second_place)
  [ -z "$place" ] || [ -e "$place/$marker" ] || [ "$latest" = SECOND ] || tell 1 "the second place $place is not there" "plug it in, or kvtk-server second-place off"
}

# Does what loses nothing, for the findings of the standard input.
repair_findings() {
  local number what example advice repair triggers=""
  while IFS=$'\037' read -r number what example advice repair; do
    case $repair in
      "") ;;
      TRIGGERS)
        [ -z "$triggers" ] || continue
        triggers=done
        in_data mariadb-dump --no-data --no-create-info --skip-comments --triggers --add-drop-trigger kvtk_doctor | client kvtk ||
          echo "kvtk-server: the triggers could not be made" >&2 ;;
      *) client kvtk -e "SET SESSION sql_mode = 'NO_ENGINE_SUBSTITUTION'; $repair" || echo "kvtk-server: not repaired: $what" >&2 ;;
    esac
  done
}

doctor() {
  [ "${1---repair}" = --repair ] && [ $# -le 1 ] || die "doctor [--repair]"
  need_running
  local before=0 count=0 copy number what example advice repair
  work=$(mktemp -d "$home/doctor.XXXXXX")
  trap 'client -e "DROP DATABASE IF EXISTS kvtk_doctor"; rm -rf "$work"' EXIT
  { examine_instance; examine_data; } >"$work/found"
  if [ $# -eq 1 ] && grep -q $'\037[^\037]\\+$' "$work/found"; then
    before=$(wc -l <"$work/found")
    copy=$(new_copy before-repair)
    copy_to "$copy"
    echo "the data as it was before is in $copy"
    repair_findings <"$work/found"
    { examine_instance; examine_data; } >"$work/found"
  fi
  while IFS=$'\037' read -r number what example advice repair; do
    count=$((count + 1))
    [ "$number" = 1 ] && [ -z "$example" ] && number="" || number="$number "
    echo "$number$what${example:+ ($example)}: $advice"
  done <"$work/found"
  [ "$before" -le "$count" ] || echo "$((before - count)) repaired"
  echo "$count findings"
  [ "$count" -eq 0 ]
}
