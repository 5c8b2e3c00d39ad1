# What a shop lives with, measured. Read in by bench/run, which has set root, scratch and cores; its other suites' instance is
# left alone, as these want a server with every core.
#   shop          daily_backup_100k_s, restore_100k_s, adopt_100k_s (all with the commands' own proofs), doctor_1m_s
#                 backup_save_delay_ms: by how much the slowest save meanwhile took longer than saves do (median)
#   workstations  ten programs, each a slip or a search every two seconds, for five minutes, on 1,000,000 slips and 20,000 customers
#   cluster       ten programs on three Galera nodes save the same and different slips; one node is killed in the middle and comes back.
#                 cluster_refused: saves that failed and were tried again, of which the programs' logs must tell; lost, half, broken
#                 (the screen lost what was typed) and differing must be 0

shop_address=127.0.0.49
tool=$root/server/kvtk-server
worker=$root/build/release/bench/kvtk-bench-workstation

# A figure that could not be taken ends the run.
say_figure() {
  [[ $2 =~ ^-?[0-9][0-9.e+-]*$ ]] || { echo "bench/run: no figure $1" >&2; exit 1; }
  printf '%s %.3f %s\n' "$@"
}

# Runs a command and prints its seconds under a name.
timed() {
  local begin=$EPOCHREALTIME
  "${@:2}" >>"$scratch/said" 2>&1 || { tail -3 "$scratch/said" >&2; echo "bench/run: failed: ${*:2}" >&2; exit 1; }
  say_figure "$1" "$(awk "BEGIN {print $EPOCHREALTIME - $begin}")" s
}

shop_instance() {
  export KVTK_HOME=$scratch/shop KVTK_BIND=$shop_address KVTK_COMPUTER_NAME=$shop_address
  taskset -pc "$cores" $$ >/dev/null
  "$tool" create
  "$tool" start
  "$tool" sample 100000
}

# Starts a program in a folder of its own: workstation NUMBER SERVER SECONDS PAUSE WORK SHARED. Its lines go to NUMBER.lines; it waits for "go".
workstation() {
  local place=$scratch/work/$1
  mkdir -p "$place"
  (cd "$place" && KVTK_COMPUTER_NAME=$2 KVTK_SETTINGS=$place/settings.ini KVTK_PROGRAM=$place/kvtk exec "$worker" "$1" "${@:3}" "$scratch/work/go" \
    >>"$place.lines" 2>>"$place.errors") &
}

# Programs are ready when each has read what it reads once.
go() {
  sleep "$1"
  touch "$scratch/work/go"
}

# The value below which that share of the times of the lines given stands: percentile SHARE WORK…
percentile() { cat "$scratch"/work/*.lines | grep -E "^done ($2) " | cut -d' ' -f3 | sort -n | awk -v p="$1" '{v[NR] = $1} END {n = int(NR * p + 0.999); print v[n < 1 ? 1 : n]}'; }
lines() { cat "$scratch"/work/*.lines | grep -cE "^($1) " || true; }

# Saves that were told as done, and are not what the slips hold now; of slips that one program alone saves. The statements go to
# the command given.
lost_saves() {
  {
    echo "CREATE TEMPORARY TABLE told (TS_NO VARCHAR(15) PRIMARY KEY, TOKEN VARCHAR(80), PARTS INT) CHARSET=latin5 COLLATE=latin5_turkish_ci;"
    cat "$scratch"/work/*.lines | awk '$1 == "done" && ($2 == "new" || $2 == "own") {print "REPLACE INTO told VALUES (\x27" $4 "\x27, \x27" $5 "\x27, " ($2 == "new" ? 2 : 0) ");"}'
    echo "SELECT COUNT(*) FROM told LEFT JOIN teknikservis t USING (TS_NO) LEFT JOIN notlar ON SF_TS_ID = TS_ID
      WHERE NOT (TS_ACIKLAMA <=> TOKEN AND SF_NOT <=> TOKEN) OR PARTS > (SELECT COUNT(*) FROM malzeme WHERE TS_NO_REF = TS_ID AND MZ_PARCA_ADI = TOKEN);"
  } | "$@"
}

shop_100k() {
  local daily=$KVTK_HOME/server/copies/daily name kind alone delay=0
  timed daily_backup_100k_s nice "$tool" daily
  name=$(basename "$daily"/*)
  timed restore_100k_s "$tool" restore "$name" --yes
  for kind in alone meanwhile; do
    rm -rf "$scratch/work"
    workstation 1 $shop_address 15 100 own,new 0
    go 4
    [ $kind = alone ] || for _ in 1 2 3 4 5 6 7 8; do
      rm "$daily"/*
      nice "$tool" daily
      kill -0 $! 2>/dev/null || break
    done
    wait $!
    if [ $kind = alone ]; then
      alone="$(percentile 0.5 own) $(percentile 0.5 new)"
    else
      delay=$(awk -v alone="$alone" -v own="$(percentile 1 own)" -v new="$(percentile 1 new)" \
        'BEGIN {split(alone, a, " "); o = own - a[1]; n = new - a[2]; print (o > n ? o : n)}')
    fi
  done
  say_figure backup_save_delay_ms "$delay" ms
  python3 "$root/tests/server/old_dumps.py" big 100000 >"$scratch/old.sql"
  KVTK_HOME=$scratch/adopted KVTK_BIND=127.0.0.50 timed adopt_100k_s "$tool" adopt "$scratch/old.sql"
  KVTK_HOME=$scratch/adopted "$tool" stop
  rm -rf "$scratch/adopted" "$scratch/old.sql"
}

shop_1m() {
  # Findings are no failure here: of so many slips some have two blanks too many.
  timed doctor_1m_s sh -c '"$0" doctor || [ $? -eq 1 ]' "$tool"
}

# Keeps the newest customers, as many as a shop of this size has.
keep_customers() {
  "$tool" sql <<<"DELETE FROM sozlesme; DELETE FROM caricihaz;
    DELETE cari FROM cari JOIN (SELECT MAX(CA_ID) - 20000 AS OLDEST FROM cari) newest ON CA_ID <= OLDEST; ANALYZE TABLE cari" >/dev/null
}

workstations() {
  local i deadlocks memory
  keep_customers
  rm -rf "$scratch/work"
  for i in 1 2 3 4 5 6 7 8 9 10; do workstation $i $shop_address "${KVTK_BENCH_SECONDS:-300}" 2000 new,list,own,search 0; done
  go 20
  wait
  deadlocks=$("$tool" sql -N <<<"SHOW GLOBAL STATUS LIKE 'Innodb_deadlocks'" | cut -f2)
  memory=$(awk '$1 == "VmHWM:" {print $2 / 1024}' "/proc/$(cat "$KVTK_HOME/server/mariadb.pid")/status")
  say_figure save_p99_ms "$(percentile 0.99 'new|own')" ms
  say_figure day_list_p99_ms "$(percentile 0.99 list)" ms
  say_figure search_p99_ms "$(percentile 0.99 search)" ms
  say_figure workstation_saves "$(lines 'done (new|own)')" saves
  say_figure workstation_numbers_taken "$(lines taken)" numbers
  say_figure workstation_refused "$(lines 'refused|broken|gone')" saves
  say_figure workstation_deadlocks "$deadlocks" deadlocks
  say_figure workstation_lost_saves "$(lost_saves "$tool" sql -N)" saves
  say_figure server_rss_mb "$memory" MB
}

# The command of one of the cluster's nodes. The tool that brings a node's data along does not work for root.
node() {
  local own=127.0.0.6$1 more="${3:-}"
  local options="--wsrep-on=ON --wsrep-provider=/usr/lib/galera/libgalera_smm.so --wsrep-cluster-name=torvane
    --wsrep-cluster-address=gcomm://127.0.0.61,127.0.0.62,127.0.0.63 --wsrep-node-address=$own --wsrep-node-name=node$1
    --wsrep-provider-options=gmcast.listen_addr=tcp://$own:4567;ist.recv_addr=$own:4568 --wsrep-sst-receive-address=$own:4444
    --wsrep-sst-method=rsync --binlog-format=ROW --innodb-autoinc-lock-mode=2"
  [ "$2" != create ] || options=""
  local as=()
  [ "$(id -u)" -ne 0 ] || as=(setpriv --reuid nobody --regid nogroup --clear-groups)
  PATH=$scratch/sst/usr/bin:$PATH KVTK_HOME=$scratch/node$1 KVTK_BIND=$own KVTK_SERVER_OPTIONS="${options//$'\n'/ } $more" \
    "${as[@]}" "$tool" "$2"
}

# Makes three nodes that hold one database, with some slips in it.
make_cluster() {
  local n
  "$root/install-packages" galera-4 rsync >&2
  # The package with the scripts would start a server of its own.
  mkdir "$scratch/sst"
  (cd "$scratch/sst" && apt-get download -qq mariadb-server 2>/dev/null && dpkg-deb -x mariadb-server_*.deb .) >&2
  chmod 711 "$scratch"
  taskset -pc "$cores" $$ >/dev/null
  for n in 1 2 3; do
    mkdir "$scratch/node$n"
    [ "$(id -u)" -ne 0 ] || chown nobody:nogroup "$scratch/node$n"
    node $n create
  done
  node 1 start --wsrep-new-cluster
  KVTK_HOME=$scratch/node1 "$tool" sample 5000
  node 2 start
  node 3 start
}

# What the tables of a node hold, as one text.
node_content() {
  local tables
  tables=$(node 1 sql <<<"SELECT GROUP_CONCAT(TABLE_NAME) AS '' FROM information_schema.TABLES WHERE TABLE_SCHEMA = 'kvtk'" | tail -1)
  node "$1" sql <<<"SET SESSION wsrep_sync_wait = 15; SELECT COUNT(*) FROM teknikservis; CHECKSUM TABLE $tables"
}

node_status() { node "$1" sql <<<"SHOW GLOBAL STATUS LIKE '$2'" | awk 'NR == 2 {print $2}'; }

cluster() {
  local i n differ=0 conflicts=0 begin first
  make_cluster
  rm -rf "$scratch/work"
  for i in 1 2 3 4 5 6 7 8 9 10; do workstation $i 127.0.0.6$((1 + i % 3)) 60 300 new,own,shared 4; done
  go 20
  sleep 20
  kill -9 "$(cat "$scratch/node3/server/mariadb.pid")"
  sleep 10
  # Who worked there opens the program anew, on another server.
  for i in 2 5 8; do workstation $((10 + i)) 127.0.0.61 25 300 new,own,shared 4; done
  begin=$EPOCHREALTIME
  node 3 start
  say_figure cluster_return_s "$(awk "BEGIN {print $EPOCHREALTIME - $begin}")" s
  wait
  for n in 1 2 3; do conflicts=$((conflicts + $(node_status $n wsrep_local_cert_failures) + $(node_status $n wsrep_local_bf_aborts))); done
  first=$(node_content 1)
  for n in 2 3; do [ "$(node_content $n)" = "$first" ] || differ=$((differ + 1)); done
  say_figure cluster_saves "$(lines 'done')" saves
  say_figure cluster_longest_save_ms "$(percentile 1 'new|own|shared')" ms
  say_figure cluster_conflicts "$conflicts" conflicts
  say_figure cluster_refused "$(lines refused)" saves
  say_figure cluster_refused_unlogged "$(($(lines 'refused|gone') - $(cat "$scratch"/work/*/kvtk.log | grep -c -- '->')))" saves
  say_figure cluster_numbers_taken "$(lines taken)" numbers
  say_figure cluster_broken_screens "$(lines broken)" screens
  say_figure cluster_lost_saves "$(lost_saves node 1 sql | tail -1)" saves
  say_figure cluster_half_saves "$(node 1 sql <<<"SELECT COUNT(*) FROM teknikservis JOIN notlar ON SF_TS_ID = TS_ID
    WHERE TS_ACIKLAMA LIKE 'P%-%' AND NOT SF_NOT <=> TS_ACIKLAMA" | tail -1)" saves
  say_figure cluster_nodes_differing "$differ" nodes
  for n in 1 2 3; do node $n stop; done
}
