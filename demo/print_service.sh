# A print service of its own in a folder, with one queue that prints nothing and keeps what it gets: print_service FOLDER QUEUE sets print_pid
# and CUPS_SERVER.
print_service() {
  local folder=$1
  mkdir -p "$folder"/{spool,tmp,cache,state,root}
  printf '%s\n' "Listen $folder/sock" 'PreserveJobFiles Yes' 'DirtyCleanInterval 0' '<Location />' 'Order allow,deny' 'Allow all' '</Location>' \
    '<Policy default>' '<Limit All>' 'Order allow,deny' 'Allow all' '</Limit>' '</Policy>' >"$folder/cupsd.conf"
  printf '%s\n' 'FileDevice Yes' "ServerRoot $folder/root" "RequestRoot $folder/spool" "CacheDir $folder/cache" \
    "StateDir $folder/state" "TempDir $folder/tmp" "AccessLog $folder/access" "ErrorLog $folder/error" "PageLog $folder/page" \
    >"$folder/cups-files.conf"
  /usr/sbin/cupsd -f -c "$folder/cupsd.conf" -s "$folder/cups-files.conf" &
  print_pid=$!
  export CUPS_SERVER=$folder/sock
  local attempt
  for attempt in {1..50}; do
    lpadmin -p "$2" -E -v file:/dev/null -m raw 2>/dev/null && break
    sleep 0.1
  done
  lpadmin -d "$2"
}
