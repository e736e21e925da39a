#!/bin/sh
# withServer.sh SERVER CLIENT [ARGUMENT...] runs SERVER --bind and CLIENT --connect with the server's address, ends the
# server, and shows what came of it. With STOPPED set the server sleeps while the client runs.
log=$(mktemp)
server=$1
client=$2
shift 2
"$server" --bind 127.0.0.1:0 >"$log" 2>&1 &
pid=$!
until grep -q '^listening on ' "$log" || ! kill -0 $pid; do sleep 0.02; done
[ -z "${STOPPED:-}" ] || kill -STOP $pid
"$client" --connect "$(sed -n 's/^listening on //p' "$log")" "$@" 2>&1
echo "client status $?"
[ -z "${STOPPED:-}" ] || kill -CONT $pid
kill -TERM $pid
wait $pid
echo "server status $?"
sed 's/^/server: /' "$log"
rm "$log"
