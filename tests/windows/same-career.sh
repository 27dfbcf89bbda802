#!/bin/sh
# The Linux and the Windows program make the same files, byte for byte, of the same seed and the same
# flights: tests/windows/same-career.sh LINUX-BUILD WINDOWS-BUILD. Run it with
# packaging/with-wine.sh.
set -eu
linux=$1
windows=$2
results=$windows/same-career

# career FOLDER SEED PROGRAM...: some flights of one career, and what is left of them in FOLDER.
career() {
    folder=$results/$1
    seed=$2
    shift 2
    mkdir -p "$folder/sim/data/Missions"
    printf '[KEY = system]\n\tmission_text_log = 1\n[END]\n' >"$folder/sim/data/startup.cfg"
    "$@" --seed "$seed" --rof "$folder/sim" --user "$folder/user" --data "$windows/run" \
        new "$service" 1916 3 mission fly report until 19160601 squadron aces mission save \
        >"$folder/said" 2>"$folder/complaints" </dev/null ||
        { cat "$folder/complaints" >&2; exit 1; }
    # The saved file's path is named in each system's way.
    tr -d '\r' <"$folder/said" | grep -v '^Saved ' >"$folder/said-alike"
    rm "$folder/said"
}

rm -rf "$results"
seed=0
for service in french english german; do
    seed=$((seed + 7))
    career "linux/$service" "$seed" "$linux/bin/wingtally-career"
    career "windows/$service" "$seed" wine64 "$windows/bin/wingtally-career.exe"
done
diff -rq "$results/linux" "$results/windows"
files=$(find "$results/linux" -type f | wc -l)
[ "$files" -gt 50 ] || { echo "only $files files came of it" >&2; exit 1; }
echo "Linux and Windows: $files files, the same bytes"
