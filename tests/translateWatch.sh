#!/bin/sh
# usage: translateWatch.sh PROGRAM SOURCES DIRECTORY
# Runs the example translate with --watch on a copy of its files in DIRECTORY, translates what was left out in
# one of them, and shows what the program has written.
program=$1
sources=$2
directory=$3

rm -rf "$directory"
mkdir -p "$directory" || exit 1
cp "$sources"/*.tr "$sources"/*.txt "$directory" || exit 1
touch -d @1000000000 "$directory"/*.tr

output=$directory/output
: > "$output"
"$program" --watch=2 "$directory" > "$output" 2>&1 &
watcher=$!
trap 'kill $watcher 2> /dev/null' EXIT

# Waits at most 20 seconds for so many lines that begin with a text; each round makes the file newer by a second
# once it has been changed.
round=0
await() {
    while [ "$(grep -c "^$2" "$output")" -lt "$1" ] && [ $round -lt 400 ]; do
        [ "$1" = 1 ] || touch -d @$((1000000001 + round)) "$directory/fr.tr"
        round=$((round + 1))
        sleep 0.05
    done
}

await 1 Watching
echo '"The archive opens again at %hour% o'"'"'clock." = "Les archives rouvrent à %hour% heures."' >> "$directory/fr.tr"
# The first of the two changes may be seen when the time is new and the line is not there yet; the second is later.
await 3 Français
[ $round -lt 400 ] && wait $watcher
status=$?
cat "$output"
echo "status $status"
