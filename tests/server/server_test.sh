#!/usr/bin/env bash
# The private instance through its own command: server_test.sh KVTK-SERVER. Each case is a function; a failed check ends it.
# KVTK_ONLY names the cases to run, when not all are wanted; most need "create" before them.
set -uo pipefail
server=$1
: "${KVTK_ACCOUNT_TOOL:?the built kvtk-account}"
# Loopback addresses of this run alone, so that several work beside each other: numbered neighbours of its database's.
own_address() { awk -F. -v number="$1" '{ print $1 "." $2 + number "." $3 "." $4 }' <<<"${KVTK_TEST_SERVER:-127.0.0.42}"; }
address=$(own_address 10)
elsewhere=$(own_address 11)
scratch=$(mktemp -d)
export KVTK_HOME=$scratch/home KVTK_BIND=$address KVTK_DAILY=off
folder=$KVTK_HOME/server
trap '"$server" stop; rm -rf "$scratch"' EXIT

fail() { echo "    $*" >&2; exit 1; }
sql() { "$server" sql -N; }
equal() { [ "$1" = "$2" ] || fail "expected '$2', got '$1'"; }
# Runs a command that has to be refused with these words.
refused() {
  local words=$1
  shift
  if "$@" >"$scratch/said" 2>&1 </dev/null; then fail "not refused: $*"; fi
  grep -qF -- "$words" "$scratch/said" || fail "refused with other words: $(cat "$scratch/said")"
}
# All data as one number, but for the moments at which rows were written.
fingerprint() {
  rm -f "$scratch/fingerprint.sql"
  "$server" backup "$scratch/fingerprint.sql" || return 1
  sed -E "/^--/d; s/'[0-9-]{10} [0-9:]{8}\.[0-9]{6}'/NOW/g" "$scratch/fingerprint.sql" | cksum
}
# Slips with two parts each, every slip one transaction, until the server is gone.
write_slips() {
  local i
  for i in $(seq 100000); do
    echo "START TRANSACTION; INSERT INTO teknikservis (TS_NO) VALUES ('$1$i'); SET @slip = LAST_INSERT_ID();
      INSERT INTO malzeme (TS_NO_REF) VALUES (@slip); INSERT INTO malzeme (TS_NO_REF) VALUES (@slip); COMMIT; SELECT '$1$i';"
  done | "$server" sql 2>/dev/null
}
wait_for_slips() {
  local i
  for i in $(seq 600); do [ "$(wc -l <"$1")" -gt 100 ] && return; sleep 0.1; done
  fail "the writer does not get on"
}
broken_slips() {
  sql <<<"SELECT COUNT(*) FROM teknikservis WHERE 2 <> (SELECT COUNT(*) FROM malzeme WHERE TS_NO_REF = TS_ID) OR
    1 <> (SELECT COUNT(*) FROM notlar WHERE SF_TS_ID = TS_ID)"
}
# Connects as the program does, with what the login form's presets become.
login() {
  local file=$scratch/login.cnf
  printf '[client]\nuser=QUEND\npassword="%s"\n' "$(printf 'quend\n%s\n' "$1" | "$KVTK_ACCOUNT_TOOL" x | sed -n "s/.*IDENTIFIED BY '\(.*\)';/\1/p")" >"$file"
  mariadb --defaults-file="$file" --host="$address" --port=3313 --protocol=tcp ${3:-} kvtk -N -e "$2"
}

case_create() {
  refused "there is no instance" "$server" start
  "$server" create || fail "create"
  "$server" start || fail "start"
  refused "there is an instance in" "$server" create
  equal "$(sql <<<"SELECT (SELECT COUNT(*) FROM sirket) * 10 + (SELECT COUNT(*) FROM doviz)")" 11
  equal "$(sql <<<"SELECT GROUP_CONCAT(TABLE_NAME ORDER BY 1) FROM information_schema.TABLES WHERE TABLE_SCHEMA = 'kvtk'
    AND ENGINE = 'InnoDB' AND TABLE_COLLATION = 'latin5_turkish_ci'")" \
    backup_state,callerid,cari,caricihaz,cihaz,disservis,doviz,foto,malzeme,notlar,schema_version,servistip,sirket,sozlesme,teknikservis
}

case_listens_on_its_addresses_only() {
  equal "$(ss -ltnH | awk '$4 ~ /:3313$/ && $4 !~ /^127\./' | wc -l)" 0
  equal "$(ss -ltnH | awk -v own="$address:3313" '$4 == own' | wc -l)" 1
  "$server" stop
  local everywhere
  for everywhere in 0.0.0.0 '*' :: 0; do refused "no address to listen on" env KVTK_BIND="$everywhere" "$server" start; done
  "$server" start
}

case_second_instance_is_refused() {
  refused "a server is already running on $folder" "$server" start
  "$server" status >/dev/null || fail "the first one suffered"
}

case_accounts() {
  equal "$(login quend "SELECT COUNT(*) FROM sirket")" 1
  equal "$(login QuEnD "SELECT COUNT(*) FROM sirket")" 1
  refused "Access denied" login other "SELECT 1"
  refused "denied" login quend "CREATE TABLE x (a INT)"
  refused "denied" login quend "SELECT * FROM mysql.global_priv"
  equal "$(sql <<<"SELECT GROUP_CONCAT(Host ORDER BY 1) FROM mysql.user WHERE User = 'QUEND'")" 127.0.0.1,$address
  printf "O'Neil \\\\\nğı\n" | "$server" account >/dev/null || fail "account"
  equal "$(sql <<<"SELECT DISTINCT User FROM mysql.user WHERE User LIKE 'O%'")" "O'NEIL \\\\"
  refused "empty" "$server" account
}

# Connects as a user with the password that the database is to know.
login_as() {
  printf '[client]\nuser=%s\npassword="%s"\n' "$1" "$2" >"$scratch/user.cnf"
  mariadb --defaults-file="$scratch/user.cnf" --host="$address" --port=3313 --protocol=tcp --default-character-set=latin5 kvtk -N -e "$3"
}

case_users() {
  # What is typed at the login is in capitals and loses its Turkish letters, the fixed ending comes behind it.
  printf 'gizli şifre\n' | "$server" user "ayşe.ı-1" >"$scratch/said" 2>&1 || fail "user: $(cat "$scratch/said")"
  equal "$(cat "$scratch/said")" ""
  equal "$(login_as AYSE.I-1 'GIZLI SIFRE@Kp-7H4n' "SELECT COUNT(*), @@character_set_client FROM sirket")" "1	latin5"
  equal "$(sql <<<"SELECT GROUP_CONCAT(Host, plugin ORDER BY 1) FROM mysql.user WHERE User = 'AYSE.I-1'")" \
    127.0.0.1mysql_native_password,${address}mysql_native_password
  refused "denied" login_as AYSE.I-1 'GIZLI SIFRE@Kp-7H4n' "DROP TABLE sirket"
  echo iki | "$server" user AYŞE.I-1 || fail "a second password"
  equal "$(login_as AYSE.I-1 'IKI@Kp-7H4n' "SELECT 1")" 1
  refused "Access denied" login_as AYSE.I-1 'GIZLI SIFRE@Kp-7H4n' "SELECT 1"
  # On a terminal the password is asked for twice, unseen; each word waits for its question.
  local words word
  for words in "üç üç" "bir iki"; do
    : >"$scratch/said"
    for word in $words; do
      until tail -n 1 "$scratch/said" | grep -q ': $'; do sleep 0.05; done
      sleep 0.2
      echo "$word"
      sleep 0.2
    done | script -qfec "'$server' user ayşe.ı-1" /dev/null >"$scratch/said"
    equal "$?" "$([ "$words" = "üç üç" ] && echo 0 || echo 1)"
    grep -qE 'üç|bir|iki' "$scratch/said" && fail "the password is seen: $(cat "$scratch/said")"
  done
  equal "$(login_as AYSE.I-1 'UC@Kp-7H4n' "SELECT 1")" 1
  local accounts name
  echo x | "$server" user "$(printf 'a%.0s' {1..15})" || fail "the longest name"
  accounts=$(sql <<<"SELECT COUNT(*) FROM mysql.user")
  for name in "a b" "O'Neil" 'a\b' 'x";' %  "$(printf 'a\nb')" ж; do
    refused "a user's name has letters" sh -c 'echo x | "$0" user "$1"' "$server" "$name"
  done
  refused "15 letters at most" sh -c 'echo x | "$0" user "$1"' "$server" "$(printf 'a%.0s' {1..16})"
  refused "15 letters at most" sh -c 'printf "$1\nx\n" | "$0" account' "$server" "$(printf 'a%.0s' {1..16})"
  refused "master account" sh -c 'echo x | "$0" user Quend' "$server"
  refused "user NAME" "$server" user
  refused "user NAME" "$server" user ""
  refused "empty" "$server" user ali
  equal "$(sql <<<"SELECT COUNT(*) FROM mysql.user")" "$accounts"
}

case_accounts_follow_the_address() {
  "$server" stop
  KVTK_BIND=$elsewhere "$server" start || fail "start elsewhere"
  equal "$(sql <<<"SELECT GROUP_CONCAT(Host ORDER BY 1) FROM mysql.db WHERE User = 'QUEND'")" 127.0.0.1,$elsewhere
  "$server" stop
  "$server" start
  equal "$(login quend "SELECT 1")" 1
}

case_network() {
  mkdir "$scratch/bin"
  printf '#!/bin/sh\n[ "$1" = -I ] && echo 10.9.8.7 || echo localhost\n' >"$scratch/bin/hostname"
  chmod +x "$scratch/bin/hostname"
  export KVTK_HOME=$scratch/second KVTK_BIND=$elsewhere PATH=$scratch/bin:$PATH
  refused "is no network" "$server" create --network 10.9.8
  refused "is no network" "$server" create --network 10.9.8.0/33
  refused "no address in the network" "$server" create --network 10.9.9.0/24
  [ ! -e "$KVTK_HOME/server" ] || fail "a refused create leaves something"
  "$server" create --network 10.9.8.7/24 && "$server" start || fail "create --network"
  equal "$(sql <<<"SELECT GROUP_CONCAT(Host ORDER BY 1) FROM mysql.user WHERE User = 'QUEND'")" 10.9.8.0/255.255.255.0,127.0.0.1,$elsewhere
  # What goes over the line is encrypted, by the same certificate after the next start; only its owner reads the key.
  address=$elsewhere
  local print
  print=$("$server" fingerprint)
  [[ $(login quend "SHOW STATUS LIKE 'Ssl_cipher'" --ssl) == Ssl_cipher*TLS_* ]] || fail "not encrypted"
  equal "$(stat -c %a "$KVTK_HOME/server/tls/key.pem")" 600
  "$server" stop
  "$server" start
  equal "$(openssl s_client -starttls mysql -connect $address:3313 </dev/null 2>/dev/null | openssl x509 -noout -fingerprint -sha1 | cut -d= -f2)" "$print"
  # It can be taken back, and given to an instance that is there.
  "$server" network off >/dev/null
  equal "$("$server" network)$(sql <<<"SELECT COUNT(*) FROM mysql.db WHERE Host LIKE '10.%'")" 0
  refused "no address in the network" "$server" network 10.9.9.0/24
  "$server" network 10.9.8.0/24 >/dev/null
  equal "$("$server" network)$(sql <<<"SELECT COUNT(*) FROM mysql.db WHERE Host LIKE '10.%'")" 10.9.8.0/255.255.255.01
  "$server" stop
}

case_slips_take_their_rows_along() {
  trap '"$server" sql <<<"DELETE FROM teknikservis"' EXIT
  "$server" sql <<'SQL' >/dev/null || fail "statements"
INSERT INTO teknikservis (TS_NO, TS_TURU, TS_DISSERVIS_CIKIS, TS_DISSERVIS_TESLIM_SURE) VALUES ('1', 'DIŞ SERVİSTE', CURDATE() - INTERVAL 9 DAY, 5);
UPDATE NOTLAR SET SF_NOT = 'ŞÇ' WHERE SF_TS_ID = LAST_INSERT_ID();
INSERT INTO teknikservis (TS_NO, TS_TURU, TS_DISSERVIS_TESLIM_SURE) VALUES ('2', 'DIŞ SERVİSTE', 5);
UPDATE teknikservis SET TS_DISSERVIS_CIKIS = CURDATE() - INTERVAL 7 DAY WHERE TS_NO = '2';
INSERT INTO teknikservis (TS_NO, TS_TURU, TS_DISSERVIS_CIKIS, TS_DISSERVIS_GIRIS, TS_DISSERVIS_TESLIM_SURE)
  VALUES ('3', 'DIŞ SERVİSTE', CURDATE() - INTERVAL 9 DAY, CURDATE(), 5);
INSERT INTO malzeme (TS_NO_REF) SELECT TS_ID FROM teknikservis;
INSERT INTO foto (FT_TS_ID) SELECT TS_ID FROM teknikservis;
SQL
  equal "$(sql <<<"SELECT TS_NO, SF_NOT FROM teknikservis JOIN notlar ON SF_TS_ID = TS_ID WHERE SF_NOT IS NOT NULL")" "1	ŞÇ"
  equal "$(sql <<<'SELECT GROUP_CONCAT(TS_NO ORDER BY DATE_ADD(TS_DISSERVIS_CIKIS, INTERVAL TS_DISSERVIS_TESLIM_SURE DAY)) FROM teknikservis
    WHERE TS_TURU = "DIŞ SERVİSTE" AND TS_DISSERVIS_TESLIM_SURE <> 0 AND TS_DISSERVIS_GIRIS = "0000-00-00" AND
    DATE_ADD(TS_DISSERVIS_CIKIS, INTERVAL TS_DISSERVIS_TESLIM_SURE DAY) < CURDATE()')" 1,2
  equal "$(sql <<<"DELETE FROM teknikservis WHERE TS_NO < '3'; SELECT (SELECT COUNT(*) FROM malzeme) * 100 +
    (SELECT COUNT(*) FROM foto) * 10 + (SELECT COUNT(*) FROM notlar)")" 111
}

case_killed_in_mid_write() {
  write_slips K >"$scratch/written" &
  local writer=$!
  wait_for_slips "$scratch/written"
  kill -9 "$(cat "$folder/mariadb.pid")"
  wait $writer
  "$server" status >/dev/null && fail "a killed server counts as running"
  "$server" start || fail "start after a kill"
  equal "$(broken_slips)" 0
  local last
  last=$(grep '^K' "$scratch/written" | tail -1)
  equal "$(sql <<<"SELECT COUNT(*) FROM teknikservis WHERE TS_NO = '$last'")" 1
}

case_backup_while_writing() {
  write_slips B >"$scratch/written" &
  local writer=$!
  wait_for_slips "$scratch/written"
  "$server" backup "$scratch/live.sql" || fail "backup"
  "$server" stop
  wait $writer
  "$server" start
  local all
  all=$(sql <<<"SELECT COUNT(*) FROM teknikservis")
  "$server" restore "$scratch/live.sql" --yes >/dev/null || fail "restore"
  equal "$(broken_slips)" 0
  [ "$(sql <<<"SELECT COUNT(*) FROM teknikservis")" -lt "$all" ] || fail "nothing was written after the backup"
  equal "$(stat -c %a "$scratch/live.sql")" 600
  "$server" sql <<<"DELETE FROM teknikservis"
}

case_sample_is_repeatable_and_a_backup_whole() {
  "$server" backup "$scratch/empty.sql" && "$server" sample 1000 || fail "sample"
  local first
  first=$(fingerprint)
  "$server" backup "$scratch/full.sql"
  equal "$(sql <<<"SELECT CONCAT_WS('-', MIN(TS_NO + 0), MAX(TS_NO + 0), COUNT(*)) FROM teknikservis")" 100-1099-1000
  equal "$(sql <<<"SELECT COUNT(*) FROM (SELECT CA_CEP FROM cari GROUP BY 1 HAVING COUNT(*) > 1) twice")" 0
  "$server" restore "$scratch/empty.sql" --yes >/dev/null || fail "restore of the empty one"
  equal "$(sql <<<"SELECT COUNT(*) FROM teknikservis")" 0
  "$server" sample 1000
  equal "$(fingerprint)" "$first"
  "$server" sample 10
  equal "$(sql <<<"SELECT MAX(TS_NO + 0) FROM teknikservis")" 1109
  "$server" restore "$scratch/full.sql" --yes >/dev/null || fail "restore of the full one"
  "$server" backup "$scratch/again.sql"
  diff <(sed '$d' "$scratch/full.sql") <(sed '$d' "$scratch/again.sql") >"$scratch/difference" || fail "$(head -c 500 "$scratch/difference")"
}

case_restore_asks_and_puts_back() {
  local before
  before=$(fingerprint)
  refused "nothing was changed" "$server" restore "$scratch/empty.sql"
  head -c 3000 "$scratch/full.sql" >"$scratch/cut.sql"
  refused "no complete backup" "$server" restore "$scratch/cut.sql" --yes
  printf 'CREATE TABLE sirket (a INT);\nNONSENSE;\n-- Dump completed\n' >"$scratch/damaged.sql"
  refused "the data is as it was before" "$server" restore "$scratch/damaged.sql" --yes
  printf 'CREATE TABLE sirket (a INT);\n-- Dump completed\n' >"$scratch/foreign.sql"
  refused "the data is as it was before" "$server" restore "$scratch/foreign.sql" --yes
  equal "$(fingerprint)" "$before"
  refused "cannot be written to" "$server" backup "$scratch/nowhere/x.sql"
  echo yes | "$server" restore "$scratch/empty.sql" >/dev/null || fail "restore after yes"
  equal "$(sql <<<"SELECT COUNT(*) FROM teknikservis")" 0
}

case_devices_are_imported() {
  trap '"$server" sql <<<"DELETE FROM cihaz"' EXIT
  "$server" sql <<<"DELETE FROM cihaz"
  local file=$scratch/devices.csv
  catalogue() { sql <<<"SELECT GROUP_CONCAT(CONCAT_WS('/', C_AD, IFNULL(C_TURU, '~'), IFNULL(C_MARKA, '~'), IFNULL(C_URETICI, '~')) ORDER BY C_ID) FROM cihaz"; }
  # Spreadsheets on Turkish computers save the Windows code page with semicolons; others UTF-8 with commas.
  printf 'Cihaz Adı;ÜRETİCİ KODU;cihaz marka\r\nçamaşır makinesi;wm-1;ışık\r\n"kutu; ""büyük""";;\r\n' | iconv -f UTF-8 -t WINDOWS-1254 >"$file"
  equal "$("$server" import-devices "$file")" "2 added, 0 changed, 0 unchanged"
  equal "$("$server" import-devices "$file")" "0 added, 0 changed, 2 unchanged"
  printf '\xef\xbb\xbfC_MARKA,C_AD,C_TURU\nIşık,Çamaşır Makinesi,beyaz eşya\n,ütü,\n' >"$file"
  equal "$("$server" import-devices "$file")" "1 added, 1 changed, 0 unchanged"
  equal "$(catalogue)" 'ÇAMAŞIR MAKİNESİ/BEYAZ EŞYA/IŞIK/WM-1,KUTU; "BÜYÜK"/~/~/~,ÜTÜ/~/~/~'
  { printf 'sep=,\nC_AD,C_MARKA,renk\n,x\nfırın,a\n"iki\nsatır",\nkedi 汉\nFIRIN,A\nfırın,b,mavi,4\nfırın,b,mavi\n'
    printf '%0101d\n' 0; printf 'ocak,"açık\nson\n'; } >"$file"
  "$server" import-devices "$file" >"$scratch/said" 2>"$scratch/refused"
  equal $? 3
  equal "$(cat "$scratch/said")" "2 added, 0 changed, 0 unchanged"
  equal "$(cut -d: -f1 "$scratch/refused" | paste -sd,)" "the column renk is not known and left out,line 3,line 5,line 7,line 8,line 9,line 11,line 12"
  grep -q 'line 8: the same name and make stand in line 4 already' "$scratch/refused" || fail "$(cat "$scratch/refused")"
  printf 'RENK\nmavi\n' >"$file"
  refused "does not name the column CİHAZ ADI" "$server" import-devices "$file"
  printf 'C_AD\n\0x\n' >"$file"
  refused "is no text" "$server" import-devices "$file"
  refused "is no file" "$server" import-devices "$scratch/nowhere.csv"
  equal "$(catalogue | tr , '\n' | wc -l)" 5
  [ -z "$(find "$KVTK_HOME" -name 'import.*')" ] || fail "files are left behind"
}

case_customers_with_devices_or_contracts_stay() {
  "$server" sql <<<"INSERT INTO cari (CA_ID, CA_AD) VALUES (1, 'A'), (2, 'B'), (3, 'C');
    INSERT INTO caricihaz (CH_CA_ID) VALUES (1); INSERT INTO sozlesme (SOZ_CA_ID_REF) VALUES (2)" || fail "rows"
  refused "foreign key" "$server" sql -e "DELETE FROM cari WHERE CA_ID = 1"
  refused "foreign key" "$server" sql -e "DELETE FROM cari WHERE CA_ID = 2"
  equal "$(sql <<<"DELETE FROM cari WHERE CA_ID = 3; SELECT COUNT(*) FROM cari")" 2
  "$server" sql <<<"DELETE FROM caricihaz; DELETE FROM sozlesme; DELETE FROM cari"
}

# Everything that the tables are made of, but for the moments at which they were made.
shape() {
  sql <<<"SELECT TABLE_NAME, ORDINAL_POSITION, COLUMN_NAME, COLUMN_DEFAULT, IS_NULLABLE, COLUMN_TYPE, COLLATION_NAME, COLUMN_KEY, EXTRA
      FROM information_schema.COLUMNS WHERE TABLE_SCHEMA = 'kvtk' ORDER BY 1, 2;
    SELECT TABLE_NAME, INDEX_NAME, SEQ_IN_INDEX, COLUMN_NAME, NON_UNIQUE FROM information_schema.STATISTICS WHERE TABLE_SCHEMA = 'kvtk' ORDER BY 1, 2, 3;
    SELECT TABLE_NAME, CONSTRAINT_NAME, REFERENCED_TABLE_NAME, UPDATE_RULE, DELETE_RULE FROM information_schema.REFERENTIAL_CONSTRAINTS
      WHERE CONSTRAINT_SCHEMA = 'kvtk' ORDER BY 1, 2;
    SELECT TABLE_NAME, CONSTRAINT_NAME, CHECK_CLAUSE FROM information_schema.CHECK_CONSTRAINTS WHERE CONSTRAINT_SCHEMA = 'kvtk' ORDER BY 1, 2;
    SELECT TRIGGER_NAME, EVENT_MANIPULATION, ACTION_TIMING, EVENT_OBJECT_TABLE, ACTION_STATEMENT, DEFINER, SQL_MODE
      FROM information_schema.TRIGGERS WHERE TRIGGER_SCHEMA = 'kvtk' ORDER BY 1"
}
# An instance of the first program, which counted no versions, with data that later tables refuse.
first_instance() {
  mkdir -p "$scratch/first"
  cp "$server" "$(dirname "$server")"/*.sh "$scratch/first/"
  mkdir -p "$scratch/first/schema"
  cp "$(dirname "$server")"/schema/0001-* "$scratch/first/schema/"
  "$scratch/first/kvtk-server" create && "$scratch/first/kvtk-server" start || fail "an instance of the first program"
  sql <<<"DROP TABLE schema_version; INSERT INTO cari (CA_ID, CA_AD) VALUES (1, 'IŞIK'); INSERT INTO disservis (DS_AD) VALUES ('A'), ('');
    INSERT INTO caricihaz (CH_CA_ID, CH_SERI) VALUES (1, 'S1'), (7, 'S2'); INSERT INTO sozlesme (SOZ_NO, SOZ_CA_ID_REF) VALUES ('1', 8), ('2', 1);
    INSERT INTO teknikservis (TS_ID, TS_NO, TS_DISSERVIS_CIKIS) VALUES (5, '100', '2024-02-03'); UPDATE notlar SET SF_NOT = 'not'"
}

case_older_tables_are_brought_up_to_date() {
  local fresh copy
  fresh=$(shape)
  export KVTK_HOME=$scratch/old KVTK_BIND=$elsewhere
  trap '"$server" stop' EXIT
  first_instance
  # A newer program starts: once while the old one's server still runs, once as after an interrupted middle.
  "$server" upgrade >"$scratch/said" || fail "upgrade: $(cat "$scratch/said")"
  copy=$(sed -n 's/.*the data as it was before is in //p' "$scratch/said")
  equal "$(shape)" "$fresh"
  equal "$(sql <<<"SELECT GROUP_CONCAT(CONCAT(CH_SERI, IFNULL(CH_CA_ID, '-'))), (SELECT GROUP_CONCAT(IFNULL(SOZ_CA_ID_REF, '-')) FROM sozlesme),
    (SELECT GROUP_CONCAT(DS_AD) FROM disservis), (SELECT CONCAT(TS_DISSERVIS_GIRIS, SF_NOT) FROM teknikservis JOIN notlar ON SF_TS_ID = TS_ID)
    FROM caricihaz")" "S11,S2-	-,1	A,ADSIZ FİRMA 2	0000-00-00not"
  equal "$("$server" upgrade)$("$server" stop)$("$server" start)" ""
  # What has been through parts of the step before versions were counted ends up the same; so does a copy that is restored.
  "$server" sql <<<"DROP TABLE schema_version; ALTER TABLE sozlesme DROP FOREIGN KEY sozlesme_cari; DROP TRIGGER teknikservis_sil"
  "$server" stop
  "$server" start | grep -q "up to date" || fail "nothing is told"
  equal "$(shape)" "$fresh"
  "$server" restore "$copy" --yes >/dev/null || fail "restore of an older copy"
  equal "$(shape)" "$fresh"
  # A left-over note under the next slip's key does not stand in its way.
  equal "$(sql <<<"INSERT INTO notlar VALUES (6, 'eski'); INSERT INTO teknikservis (TS_NO) VALUES ('101');
    SELECT TS_ID, SF_NOT FROM teknikservis JOIN notlar ON SF_TS_ID = TS_ID WHERE TS_NO = '101'")" "6	NULL"
}

case_interrupted_or_failing_steps_are_taken_back() {
  export KVTK_HOME=$scratch/steps KVTK_BIND=$elsewhere
  "$server" create
  mkdir "$scratch/next"
  cp -r "$server" "$(dirname "$server")"/{*.sh,schema} "$scratch/next/"
  local next=$scratch/next/kvtk-server step starter
  trap '"$scratch/next/kvtk-server" stop' EXIT
  step=$scratch/next/schema/$(printf '%04d' $(($(ls "$scratch/next/schema" | wc -l) + 1)))-next.sql
  local change="UPDATE sirket SET SIRKET_ADI = CONCAT(SIRKET_ADI, 'x'); ALTER TABLE sirket ADD NEW INT;"
  echo "$change NONSENSE;" >"$step"
  refused "the data is as it was before" "$next" start
  refused "not running" sh -c '"$0" status >&2' "$next"
  echo "$change SELECT SLEEP(60);" >"$step"
  setsid "$next" start >/dev/null 2>&1 &
  starter=$!
  for _ in $(seq 200); do
    sleep 0.1
    [ "$("$server" sql -N 2>/dev/null <<<"SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE INFO LIKE 'SELECT SLEEP%'")" = 1 ] && break
  done
  kill -9 -- -$starter "$(cat "$KVTK_HOME/server/mariadb.pid")"
  wait $starter 2>/dev/null
  echo "$change" >"$step"
  "$next" start >/dev/null || fail "start after a kill"
  equal "$(sql <<<"SELECT CONCAT(SIRKET_ADI, COUNT(NEW)) FROM sirket")" x0
  [ ! -e "$KVTK_HOME/server/put-back" ] || fail "it would be taken back once more"
  "$next" stop
  refused "newer program" "$server" start
  cp "$step" "$scratch/next/schema/0002-twice.sql"
  refused "was expected" "$next" start
  rm "$scratch/next/schema/0002-twice.sql"
}

case_copies_are_never_overwritten() {
  local i before
  "$server" backup "$scratch/once.sql"
  refused "no copy is ever overwritten" "$server" backup "$scratch/once.sql"
  before=$("$server" backups | wc -l)
  for i in 1 2 3; do "$server" sql <<<"UPDATE sirket SET SIRKET_WEB = '$i'" && "$server" restore "$scratch/once.sql" --yes >/dev/null & wait; done
  equal "$("$server" backups | wc -l)" $((before + 3))
  equal "$("$server" backups | head -3 | awk -v at="$folder/copies/" '{print at $1}' | xargs zgrep -ho "'[123]')" | sort | paste -sd,)" "'1'),'2'),'3')"
}

# Days in the names of the daily copies of a folder, joined.
days_in() { ls "$1" | sed -n 's/^kvtk-\(.*\)\.sql\.gz$/\1/p' | paste -sd' '; }
recorded() { sql <<<"SELECT CONCAT_WS(' ', DATE(LAST_COPY) = CURDATE(), FAILURE) FROM backup_state"; }

case_daily_copies() {
  local daily=$folder/copies/daily today stick=$scratch/stick i before after
  today=kvtk-$(date +%F).sql.gz
  "$server" sql <<<"UPDATE sirket SET SIRKET_WEB = 'BUGÜN'; UPDATE backup_state SET LAST_COPY = NULL"
  # What a program that ends well leaves out, a copy that lacks its end, and one that lacks a table.
  mkdir -p "$scratch/dump" "$scratch/full"
  printf '#!/bin/sh\necho "CREATE TABLE x"; echo "-- Dump completed"\n' >"$scratch/dump/mariadb-dump"
  printf '#!/bin/sh\necho Avail; echo 1000\n' >"$scratch/full/df"
  chmod +x "$scratch"/{dump/mariadb-dump,full/df}
  refused "is not complete" env PATH="$scratch/dump:$PATH" "$server" daily
  equal "$(recorded)" COPY
  refused "no room in $daily" env PATH="$scratch/full:$PATH" "$server" daily
  equal "$(recorded)" ROOM
  equal "$(ls -A "$daily")" ""
  # Of days long past the first ones of twelve months stay, of the newest days fourteen.
  for i in $(seq 0 19) 40 41 70 100 130 160 190 220 250 280 310 340 370 400 430; do
    before="$(date -d "2020-03-31 -$i days" +%F) ${before:-}"
    : >"$daily/kvtk-${before%% *}.sql.gz"
  done
  : >"$daily/kvtk-2019-01-01.sql.gz.eigen"
  "$server" daily || fail "daily"
  equal "$(recorded)" 1
  equal "$(stat -c %a "$daily/$today")" 600
  equal "$(days_in "$daily" | wc -w)" 25
  equal "$(days_in "$daily" | cut -d' ' -f1-2,9-13)" "2019-05-26 2019-06-25 2020-01-21 2020-02-19 2020-03-12 2020-03-19 2020-03-20"
  [ -e "$daily/kvtk-2019-01-01.sql.gz.eigen" ] || fail "a file of the shop's own is gone"
  # It is not made twice, and a name of the list brings it back.
  before=$(stat -c %i-%Y "$daily/$today")
  "$server" sql <<<"UPDATE sirket SET SIRKET_WEB = 'SONRA'"
  "$server" daily || fail "daily once more"
  equal "$(stat -c %i-%Y "$daily/$today")" "$before"
  [[ $("$server" backups | head -1 | tr -s ' ') =~ ^$today\ 0\ minutes\ [0-9.]+K$ ]] || fail "$("$server" backups)"
  refused "neither a file nor a copy" "$server" restore kvtk-2001-01-01.sql.gz --yes
  "$server" restore "$today" --yes >/dev/null || fail "restore by name"
  equal "$(sql <<<"SELECT SIRKET_WEB FROM sirket")" BUGÜN
  equal "$(recorded)" 1
  # The second place: plugged in, pulled out, with somebody else's file of the same name.
  mkdir "$stick"
  "$server" second-place "$stick" && "$server" daily || fail "second place"
  cmp "$daily/$today" "$stick/$today" || fail "the second copy"
  equal "$("$server" backups | grep -c "$today")" 1
  mv "$stick" "$stick.away"
  mkdir "$stick"
  refused "is not there" "$server" daily
  equal "$(recorded)" "1 SECOND"
  equal "$(ls -A "$stick")" ""
  rmdir "$stick"
  mv "$stick.away" "$stick"
  echo other >"$stick/$today"
  refused "is another copy" "$server" daily
  equal "$(cat "$stick/$today")" other
  "$server" second-place off && "$server" daily || fail "without a second place"
  # A running server sees to it by itself, and nothing of that stays when it ends.
  rm "$daily/$today"
  "$server" stop
  KVTK_DAILY=on "$server" start
  for i in $(seq 600); do [ -e "$daily/$today" ] && break; sleep 0.1; done
  zcat "$daily/$today" | tail -1 | grep -q "Dump completed" || fail "no copy by itself: $(cat "$folder/daily.log")"
  before=$(cat "$folder/keeper.pid")
  "$server" stop
  for i in $(seq 100); do grep -qs keep "/proc/$before/cmdline" || break; sleep 0.1; done
  grep -qs keep "/proc/$before/cmdline" && fail "the keeper lives on"
  "$server" start
  rm -r "$folder/copies/daily"
}

# Three ages of one shop's data, each with all the dirt: what comes of them is the same.
case_older_shops_are_adopted() {
  local age kind number kinds dumps
  dumps=$(dirname "${BASH_SOURCE[0]}")/old_dumps.py
  kinds="another's in case:1 cut pictures:1 no calendar:1 another one's serial:1 empty telephone:3 firms without:1 further rows:1 lines of slips:1
    notes of slips:1 pictures of slips:1 cannot be read:1 customers who are gone:2 stand twice, taken:1 under a new key:1 service types:2
    overdue list:1 slips with another:1 more than one note:1 too long:2 no clock:1 blanks around:2 contracts with another:1"
  export KVTK_BIND=$elsewhere
  trap '"$server" stop' EXIT
  for age in 4.1 5.0 8.0; do
    export KVTK_HOME=$scratch/adopt$age
    python3 "$dumps" small $age >"$scratch/$age.sql"
    [ $age != 5.0 ] || { gzip "$scratch/$age.sql" && mv "$scratch/$age.sql.gz" "$scratch/$age.sql"; }
    "$server" adopt "$scratch/$age.sql" >"$scratch/said$age" || fail "adopt $age"
    while IFS=: read -r kind number; do
      equal "$kind $(grep -F -- "$kind" "$scratch/said$age" | head -1 | cut -d' ' -f1)" "$kind $number"
    done < <(sed 's/:\([0-9]\) */:\1\n/g' <<<"${kinds//$'\n'/ }" | sed 's/^ *//; /^$/d')
    equal "$(ls "$KVTK_HOME"/adopted-*/pictures | paste -sd,)" gone-99-4.jpg,unreadable-0.bin
    sql <<<"DELETE FROM cari WHERE CA_ID = 9; ALTER TABLE cari AUTO_INCREMENT = 4; UPDATE backup_state SET SINCE = 0, LAST_COPY = NULL"
    "$server" backup "$scratch/adopted$age.sql"
    [ $age = 8.0 ] || "$server" stop
  done
  for age in 5.0 8.0; do
    diff -a <(sed -E '/^--/d; s/[0-9-]{10} [0-9:]{8}\.[0-9]{6}//g' "$scratch/adopted4.1.sql") \
      <(sed -E '/^--/d; s/[0-9-]{10} [0-9:]{8}\.[0-9]{6}//g' "$scratch/adopted$age.sql") >"$scratch/difference" || fail "$(head -c 500 "$scratch/difference")"
  done
  grep -q "1 texts with characters" "$scratch/said8.0" && grep -q "5 values of columns" "$scratch/said8.0" || fail "$(cat "$scratch/said8.0")"
  equal "$(sql <<<"SELECT CONCAT_WS('|', HEX(CA_AD), CA_TEL, REPLACE(CA_ADRES, CHAR(13), 'CR')) FROM cari WHERE CA_ID = 1")" \
    "414CDD209149DE494B9220962080|tırnak ' ters \\\\ satırCR\\nsonu"
  equal "$(sql <<<"SELECT GROUP_CONCAT(CONCAT_WS(' ', TS_ID, TS_NO, TS_TARIH, TS_DISSERVIS_GIRIS) ORDER BY TS_ID) FROM teknikservis")" \
    "5 100 2009-05-04 0000-00-00,6 100/6 2009-05-04,7 101,8 102 2009-05-04"
  equal "$(sql <<<"SELECT CONCAT_WS('|', HEX(SF_NOT), MZ_ADET, MZ_TUTAR, LENGTH(FT_RESIM)) FROM notlar JOIN malzeme ON TS_NO_REF = SF_TS_ID JOIN foto ON FT_TS_ID = SF_TS_ID")" \
    "626972696E63690D0A696B696E63690A93736174FD7294|1.5000|1234567.8912|21"
  refused "holds rows" "$server" adopt "$scratch/8.0.sql"
  sql <<<"DELETE FROM caricihaz; DELETE FROM sozlesme; DELETE FROM cari; DELETE FROM teknikservis; DELETE FROM disservis; DELETE FROM servistip;
    DELETE FROM callerid"
  echo "SELECT 1" >"$scratch/no.sql"
  refused "the data is as it was before" "$server" adopt "$scratch/no.sql"
  head -c "$(grep -abo "'102'" "$scratch/8.0.sql" | cut -d: -f1)" "$scratch/8.0.sql" >"$scratch/cut.sql"
  "$server" adopt "$scratch/cut.sql" >"$scratch/said" && grep -q "1 what could not be read" "$scratch/said" || fail "a cut dump: $(cat "$scratch/said")"
  equal "$(sql <<<"SELECT GROUP_CONCAT(TS_NO ORDER BY TS_ID) FROM teknikservis")" 100,100/6,101
}

case_older_files_are_adopted() {
  local old=$scratch/Eski program=$KVTK_HOME/program
  mkdir -p "$old/RAPOR/Barkod" "$old/other" "$program/rapor"
  printf '[Smtp]\r\nad=ĞİŞ\r\n' | iconv -t WINDOWS-1254 >"$old/SMTP.INI"
  printf '[Sms]\r\nad=ışık\r\n' | iconv -t UTF-16 >"$old/Sms.ini"
  echo own >"$program/rapor/1.fr3"
  echo shop | tee "$old/RAPOR/1.FR3" >"$old/RAPOR/Barkod/Etiket.fr3"
  echo x | tee "$old/islemrenk.dat" "$old/RAPOR/thumbs.db" >"$old/other/Sms.ini"
  "$server" adopt-files "$old" >"$scratch/said" || fail "adopt-files"
  grep -q "^4 files taken, 0 were the same already, 2 left out" "$scratch/said" || fail "$(cat "$scratch/said")"
  equal "$(cat "$program"/{Smtp,Sms}.ini | tr -d '\r' | paste -sd,)" "[Smtp],ad=ĞİŞ,[Sms],ad=ışık"
  equal "$(cat "$program"/rapor/{1,barkod/etiket}.fr3 "$KVTK_HOME"/files-before-*/rapor/1.fr3 | paste -sd,)" shop,shop,own
  "$server" adopt-files "$old" >"$scratch/said" || fail "adopt-files once more"
  grep -q "^0 files taken, 4 were the same" "$scratch/said" || fail "not the same"
  refused "no file of the program" "$server" adopt-files "$old/RAPOR"
}

case_doctor() {
  "$server" sql <<<"UPDATE backup_state SET SINCE = NOW(), LAST_COPY = NULL, FAILURE = NULL"
  equal "$("$server" doctor)" "0 findings"
  "$server" sql <<'SQL' || fail "dirt"
ALTER TABLE teknikservis DROP INDEX TS_C_SERINO, DROP TS_OZELKOD;
ALTER TABLE caricihaz DROP FOREIGN KEY caricihaz_cari;
ALTER TABLE notlar DROP PRIMARY KEY;
DROP TRIGGER teknikservis_disarida_degis;
DROP TABLE callerid;
CREATE TRIGGER foreign_one AFTER INSERT ON cihaz FOR EACH ROW SET @x = 1;
INSERT INTO cari (CA_ID, CA_AD, CA_TEL) VALUES (1, 'A B', ''), (2, 'A  B', '1');
INSERT INTO caricihaz (CH_CA_ID, CH_SERI) VALUES (77, 'S1');
INSERT INTO teknikservis (TS_ID, TS_NO, TS_TURU, TS_TARIH) VALUES (1, '100', 'ARIZA KABUL', '2024-01-02'), (2, ' 100', 'NE', '2024-00-00'), (3, ' 101', 'TAMAMLANDI', '2024-01-02');
INSERT INTO teknikservis (TS_ID, TS_NO, TS_TURU, TS_TARIH, TS_USER, TS_USER_TIME) VALUES (4, '104', 'ARIZA KABUL', '2024-01-02', 'ALİ', NOW() - INTERVAL 2 HOUR);
INSERT INTO teknikservis (TS_ID, TS_NO, TS_TURU, TS_TARIH, TS_DISSERVIS_CIKIS) VALUES (5, '105', 'ARIZA KABUL', '2024-01-02', '2024-01-03');
UPDATE teknikservis SET TS_DISSERVIS_GIRIS = NULL WHERE TS_ID = 5;
DELETE FROM notlar WHERE SF_TS_ID = 4;
INSERT INTO notlar VALUES (88, 'kimsenin'), (89, '');
INSERT INTO malzeme (TS_NO_REF, MZ_PARCA_ADI) VALUES (90, 'FAN');
DELETE FROM sirket;
SQL
  "$server" doctor >"$scratch/said" && fail "all well"
  equal "$(tail -1 "$scratch/said")" "21 findings"
  "$server" doctor --repair >"$scratch/said" 2>&1 && fail "nothing left"
  local words
  for words in "trigger foreign_one" "1 lines of slips" "1 notes of slips" "1 slips in a status" "1 slips without a date" '1 slips whose number is .*" 100"' \
    "1 customers whose name" "1 saves of this week by ALİ .*-120 minutes"; do grep -q "$words" "$scratch/said" || fail "$words: $(cat "$scratch/said")"; done
  equal "$(tail -2 "$scratch/said" | paste -sd,)" "13 repaired,8 findings"
  equal "$(sql <<<"SELECT CONCAT_WS(' ', (SELECT GROUP_CONCAT(TS_NO ORDER BY TS_ID) FROM teknikservis), (SELECT COUNT(*) FROM notlar), (SELECT COUNT(*) FROM cari WHERE CA_TEL IS NULL),
    (SELECT TS_DISSERVIS_GIRIS FROM teknikservis WHERE TS_ID = 5), (SELECT COUNT(*) FROM callerid), (SELECT COUNT(TS_OZELKOD) FROM teknikservis))")" "100, 100,101,104,105 6 1 0000-00-00 0 0"
  "$server" sql <<<"DROP TRIGGER foreign_one; DELETE FROM malzeme; DELETE FROM notlar WHERE SF_TS_ID > 5; DELETE FROM teknikservis; DELETE FROM caricihaz; DELETE FROM cari"
  equal "$("$server" doctor)" "0 findings"
  refused "doctor [--repair]" "$server" doctor --all
}

case_service() {
  mkdir "$scratch/systemd"
  printf '#!/bin/sh\nexit 1\n' >"$scratch/systemd/systemctl"
  printf '#!/bin/sh\n[ "$1" = -u ] && echo 1000 || echo shop\n' | tee "$scratch/systemd/id" >"$scratch/systemd/loginctl"
  chmod +x "$scratch"/systemd/*
  export KVTK_HOME=$scratch/boot KVTK_BIND=$elsewhere HOME=$scratch XDG_CONFIG_HOME=
  "$server" create
  trap '"$server" stop' EXIT
  refused "no systemd at work" env PATH="$scratch/systemd:$PATH" "$server" service install
  printf '#!/bin/sh\necho "$*" >>"$HOME/called"\n' >"$scratch/systemd/systemctl"
  KVTK_SERVER_OPTIONS=$'--a=1\n  --b="2%"' PATH="$scratch/systemd:$PATH" "$server" service install >/dev/null || fail "install"
  local unit=$scratch/.config/systemd/user/torvane-server.service
  grep -qx "Environment=\"KVTK_HOME=$KVTK_HOME\"" "$unit" && grep -qx "ExecStart=\"$server\" serve" "$unit" &&
    grep -qFx 'Environment="KVTK_SERVER_OPTIONS=--a=1 --b=\"2%%\""' "$unit" || fail "$(cat "$unit")"
  PATH="$scratch/systemd:$PATH" "$server" service remove || fail "remove"
  equal "$(grep -v show "$scratch/called" | cut -d' ' -f2- | paste -sd,)" \
    "daemon-reload,enable --now torvane-server.service,disable --now torvane-server.service,daemon-reload"
  [ ! -e "$unit" ] || fail "the unit is left"
  # What the unit runs ends in failure when the server was killed, even one that another command has started anew meanwhile, and
  # well when it was stopped.
  local end
  for end in 1 0; do
    "$server" serve 2>/dev/null &
    for _ in $(seq 100); do "$server" sql -e "SELECT 1" >/dev/null 2>&1 && break; sleep 0.1; done
    "$server" network off >/dev/null
    sleep 1
    kill -0 $! || fail "it has ended with the first server"
    if [ $end = 1 ]; then kill -9 "$(cat "$KVTK_HOME/server/mariadb.pid")"; else "$server" stop; fi
    wait $!
    equal $? $end
  done
}

case_eight_at_once() {
  local i
  for i in 1 2 3 4 5 6 7 8; do
    (export KVTK_HOME=$scratch/eight$i KVTK_BIND=$(own_address $((11 + i))); "$server" create && "$server" start && "$server" sql -N >"$scratch/eight$i.said" \
      <<<"CREATE TEMPORARY TABLE t (a INT); INSERT INTO t SELECT seq FROM seq_1_to_1000; SELECT COUNT(*) FROM t") >"$scratch/eight$i.errors" 2>&1 &
  done
  wait
  local came=0
  for i in 1 2 3 4 5 6 7 8; do
    [ "$(cat "$scratch/eight$i.said")" = 1000 ] && came=$((came + 1)) || cat "$scratch/eight$i.errors"
    KVTK_HOME=$scratch/eight$i "$server" stop
  done
  equal $came 8
}

tests=0
failures=0
for name in ${KVTK_ONLY:-create listens_on_its_addresses_only second_instance_is_refused accounts users accounts_follow_the_address network \
  slips_take_their_rows_along killed_in_mid_write backup_while_writing sample_is_repeatable_and_a_backup_whole \
  restore_asks_and_puts_back devices_are_imported customers_with_devices_or_contracts_stay \
  older_tables_are_brought_up_to_date interrupted_or_failing_steps_are_taken_back copies_are_never_overwritten daily_copies older_shops_are_adopted older_files_are_adopted doctor service eight_at_once}; do
  tests=$((tests + 1))
  if ("case_$name"); then echo "ok      $name"; else echo "FAILED  $name"; failures=$((failures + 1)); fi
done
# Counted together with the other programs' cases.
[[ ${GTEST_OUTPUT:-} != xml:*/ ]] || echo "<testsuites tests=\"$tests\" failures=\"$failures\"/>" >"${GTEST_OUTPUT#xml:}server_test.xml"
[ $failures -eq 0 ]
