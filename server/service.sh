# The server as a service of the computer. Read in by kvtk-server.

unit=torvane-server.service

# systemctl for the units of whoever runs this: the system's for root, else the user's own.
units() { if [ "$(id -u)" -eq 0 ]; then systemctl "$@"; else systemctl --user "$@"; fi; }

unit_file() {
  if [ "$(id -u)" -eq 0 ]; then echo "/etc/systemd/system/$unit"; else echo "${XDG_CONFIG_HOME:-$HOME/.config}/systemd/user/$unit"; fi
}

# Those of the variables that are set, as lines of a unit; a value of several lines becomes one.
environment_of() {
  local name value
  for name in "$@"; do
    value=${!name:-}
    value=${value//\\/\\\\}
    value=${value//\"/\\\"}
    [ -z "$value" ] || echo "Environment=\"$name=$(tr -s '\n ' ' ' <<<"${value//%/%%}" | sed 's/ $//')\""
  done
}

service() {
  case ${1-} in install | remove) [ $# -eq 1 ] || die "service install | remove" ;; *) die "service install | remove" ;; esac
  command -v systemctl >/dev/null && units show-environment >/dev/null 2>&1 ||
    die "there is no systemd at work here; start the server at boot by whatever does so: kvtk-server start"
  local file wanted=default.target
  file=$(unit_file)
  if [ "$1" = remove ]; then
    [ -e "$file" ] || die "no service is installed"
    units disable --now $unit
    rm -f "$file"
    units daemon-reload
    return
  fi
  need_instance
  [ "$(id -u)" -ne 0 ] || wanted=multi-user.target
  mkdir -p "$(dirname "$file")"
  cat >"$file" <<UNIT
[Unit]
Description=Torvane Teknik Servis Takip, database server
After=network-online.target
Wants=network-online.target

[Service]
Environment="KVTK_HOME=$home"
$(environment_of KVTK_BIND KVTK_DAILY KVTK_SERVER_OPTIONS)
ExecStart="$here/kvtk-server" serve
ExecStop="$here/kvtk-server" stop
Restart=on-failure
RestartSec=2
TimeoutStartSec=infinity
TimeoutStopSec=180
KillMode=mixed

[Install]
WantedBy=$wanted
UNIT
  units daemon-reload
  stop
  units enable --now $unit
  # Without it the user's services start only when the user logs in.
  [ "$(id -u)" -eq 0 ] || [ -e "/var/lib/systemd/linger/$user" ] || loginctl enable-linger ||
    die "the service runs, but starts only when $user logs in; for its start with the computer: sudo loginctl enable-linger $user"
  echo "the server starts with the computer; $file"
}

# Runs the server for as long as it lives and sees to its daily copies. Ends in failure when it did not end by itself.
serve() {
  serving=yes
  take_turn
  if ! running >/dev/null; then
    wait_for_network
    start
  fi
  while running >/dev/null; do
    exec 9>&-
    keep
    # Another command's keeper may see to the copies of the server that it has started.
    running >/dev/null && continue
    [ ! -e "$folder/mariadb.pid" ] || die "the server died; $folder/error.log tells why"
    # Who has stopped it may be starting it anew, such as an upgrade.
    take_turn
  done
}

# At the computer's start its address in the shop's network may come later than this.
wait_for_network() {
  [ -n "$(served_network)" ] || return 0
  local second
  for second in $(seq 60); do
    [ -z "$(address_in "$(served_network)")" ] || return 0
    sleep 1
  done
  echo "kvtk-server: this computer has no address in its network, whose computers cannot connect" >&2
}
