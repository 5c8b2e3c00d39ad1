# Brings the data of an older shop into a new instance. Read in by kvtk-server.

adopt() {
  [ $# -eq 1 ] && [ -f "$1" ] || die "adopt DUMP: '${1:-}' is no file"
  [ -d "$folder" ] || create
  running >/dev/null || start
  local table place
  for table in teknikservis cari caricihaz cihaz disservis servistip sozlesme callerid; do
    [ -z "$(client -N kvtk -e "SELECT 1 FROM $table LIMIT 1")" ] || die "the table $table holds rows; a dump is taken by a new instance only"
  done
  place=$(mktemp -d "$home/adopted-$(date +%Y%m%d-%H%M%S)-XXXX")
  change_all before-adopt take_over "$1" "$place" || die "the dump could not be taken over; the data is as it was before. What was read of it is told in $place"
  rm -f "$folder/put-back"
  record_copies
  python3 -B "$here/adopt" tell "$place" <"$place/answers"
  rm -f "$place"/{answers,columns} "$place"/dump.*
}

# Reads the dump into tables of their own and moves from there what fits.
take_over() {
  client -e "DROP DATABASE IF EXISTS kvtk_adopt; CREATE DATABASE kvtk_adopt CHARACTER SET latin5 COLLATE latin5_turkish_ci" &&
    client -N -e "SELECT TABLE_NAME, COLUMN_NAME, COLUMN_TYPE FROM information_schema.COLUMNS WHERE TABLE_SCHEMA = 'kvtk'
      ORDER BY TABLE_NAME, ORDINAL_POSITION" >"$2/columns" &&
    python3 -B "$here/adopt" read "$2/columns" "$1" "$2" | in_data mariadb --default-character-set=latin5 -N kvtk_adopt >"$2/answers" &&
    client -e "DROP DATABASE kvtk_adopt"
}

# Files that the older program kept beside itself.
adopt-files() {
  [ $# -eq 1 ] && [ -d "$1" ] || die "adopt-files FOLDER: '${1:-}' is no folder"
  mkdir -p "$home/program"
  python3 -B "$here/adopt/files.py" "$1" "$home/program" "$home/files-before-$(date +%Y%m%d-%H%M%S)"
}
