#!/bin/sh
# The Linux and the Windows program make the same files, byte for byte, from the same seed: a career of each
# service with the same flights, and a whole war. tests/windows/same-career.sh LINUX-BUILD WINDOWS-BUILD, to
# be run with packaging/with-wine.sh.
set -eu
linux=$1
windows=$2
results=$windows/same-career

# career FOLDER SEED PROGRAM...: a career of $service by the commands $led, and what is left of it in FOLDER.
career() {
    folder=$results/$1
    seed=$2
    shift 2
    mkdir -p "$folder/sim/data/Missions"
    printf '[KEY = system]\n\tmission_text_log = 1\n[END]\n' >"$folder/sim/data/startup.cfg"
    # shellcheck disable=SC2086 # words
    "$@" --seed "$seed" --rof "$folder/sim" --user "$folder/user" --data "$windows/run" \
        new "$service" $led >"$folder/said" 2>"$folder/complaints" </dev/null ||
        { cat "$folder/complaints" >&2; exit 1; }
    # The saved file's path is named in each system's way.
    tr -d '\r' <"$folder/said" | grep -v '^Saved ' >"$folder/said-alike"
    rm "$folder/said"
    # Records are compared by their rows: the free space in a SQLite page holds whatever was there. Each has
    # its own folder of the simulator.
    python3 -c 'import sqlite3, sys
record = sqlite3.connect(sys.argv[1])
record.execute("UPDATE orders SET folder = NULL")
print(*record.iterdump(), sep="\n")' "$folder/user/Saves/record.db" >"$folder/record.sql"
    rm "$folder/user/Saves/record.db"
}

rm -rf "$results"
led="1916 3 mission fly report until 19160601 squadron aces mission save"
seed=0
for service in french english german; do
    seed=$((seed + 7))
    career "linux/$service" "$seed" "$linux/bin/wingtally-career"
    career "windows/$service" "$seed" wine64 "$windows/bin/wingtally-career.exe"
done
led="1915 12 until 19181111 status save"
career linux/war 28 "$linux/bin/wingtally-career"
career windows/war 28 wine64 "$windows/bin/wingtally-career.exe"
diff -rq "$results/linux" "$results/windows"
files=$(find "$results/linux" -type f | wc -l)
[ "$files" -gt 50 ] || { echo "only $files files came of it" >&2; exit 1; }
echo "Linux and Windows: $files files, the same bytes"
