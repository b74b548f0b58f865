#!/bin/sh
# A PostgreSQL server of the tests' own: postgres.sh start|stop FILE. Its socket's folder is written to FILE; nothing
# listens on a network and nothing outlives "stop".
set -eu
file=$2

as_owner() {
    if [ "$(id -u)" -eq 0 ]; then setpriv --reuid=postgres --regid=postgres --clear-groups -- "$@"; else "$@"; fi
}

stop_server() {
    [ -s "$file" ] || return 0
    folder=$(cat "$file")
    rm -f "$file"
    if [ -s "$folder/data/postmaster.pid" ]; then
        pid=$(head -n 1 "$folder/data/postmaster.pid")
        as_owner kill -INT "$pid" 2>/dev/null || true
        while kill -0 "$pid" 2>/dev/null; do sleep 0.05; done
    fi
    case $folder in */dorvalist-pg.*) rm -rf "$folder" ;; esac
}

stop_server
[ "$1" = start ] || exit 0
programs=$(pg_config --bindir)
[ -x "$programs/initdb" ] || programs=$(ls -d /usr/lib/postgresql/15/bin)
folder=$(mktemp -d "${TMPDIR:-/tmp}/dorvalist-pg.XXXXXX")
chmod 755 "$folder"
[ "$(id -u)" -ne 0 ] || chown postgres "$folder"
cd "$folder"
# An order of letters that isn't that of bytes shows every place that forgot to say which it means.
as_owner "$programs/initdb" -D "$folder/data" -U postgres -A trust -E UTF8 --locale=C.UTF-8 \
    --locale-provider=icu --icu-locale=el -N >"$folder/initdb.log"
as_owner "$programs/pg_ctl" -D "$folder/data" -w -s -l "$folder/server.log" start -o "-c listen_addresses='' \
    -c unix_socket_directories='$folder' -c fsync=off -c full_page_writes=off -c max_connections=60 \
    -c shared_buffers=64MB -c autovacuum=off -c deadlock_timeout=200ms"
printf %s "$folder" >"$file"
