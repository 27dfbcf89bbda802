#!/bin/sh
# One cycle of a career in the window of the Windows program, by pointer; its simulator is in the
# registry and nowhere else. Then some switches are turned there and in the Linux program, and both
# have to save the same bytes. tests/windows/cycle.sh LINUX-BUILD WINDOWS-BUILD, to be run with
# packaging/with-wine.sh.
set -eu
linux=$(cd "$1" && pwd)
build=$(cd "$2" && pwd)
results=$build/cycle
simulator=$results/simulator
uninstall='HKLM\SOFTWARE\Wow6432Node\Microsoft\Windows\CurrentVersion\Uninstall'
key=$uninstall'\{1101370E-0BBC-4939-8037-2AED92A5C15C}_is1'
roaming=$(echo "$WINEPREFIX"/drive_c/users/*/AppData/Roaming)
user=$roaming/Wingtally
log=$user/wingtally.log
preferences=$user/prefs.dat
export LIBGL_ALWAYS_SOFTWARE=1 SDL_AUDIODRIVER=dummy

program=
standin=
stop() {
    for process in $program $standin; do
        kill "$process" 2>/dev/null || true
    done
    wine64 reg delete "$key" /f >/dev/null 2>&1 </dev/null || true
}
trap stop EXIT

fail() {
    echo "cycle: $*; the log's end:" >&2
    tail -n 15 "$log" >&2 || true
    exit 1
}

# says WORDS: waits until the log has them in a line after those that were seen before.
seen=0
says() {
    for _ in $(seq 600); do
        line=$(tail -n +$((seen + 1)) "$log" 2>/dev/null | tr -d '\r' | grep -n -m 1 "$1" | cut -d: -f1)
        if [ -n "$line" ]; then
            seen=$((seen + line))
            return 0
        fi
        kill -0 "$program" 2>/dev/null || fail "the program ended before it said: $1"
        sleep 0.1
    done
    fail "it never said: $1"
}

point() { timeout 5 xdotool mousemove --window "$window" "$1" "$2"; }

# The sleep lets the program look first.
click() {
    point "$1" "$2"
    sleep 0.3
    timeout 5 xdotool click 1
}

# press X Y SCREEN: a click, and the screen that it leads to.
press() {
    click "$1" "$2"
    says "$3: onEntered"
}

# start COMMAND...: the program, up to its first screen.
start() {
    seen=0
    "$@" &
    program=$!
    says "MenuMain: onEntered"
    window=$(timeout 5 xdotool search --name '^Wingtally$' | head -n 1)
}

# quits: by the button of the main menu.
quits() {
    click 132 730
    wait "$program" || fail "its exit code was $?"
    program=
}

windows_program() { exec wine64 "$build/bin/wingtally.exe" >/dev/null 2>&1 </dev/null; }
linux_program() { cd "$results" && XDG_DATA_HOME=$results/linux exec "$linux/bin/wingtally" >"$log" </dev/null; }

# turn X Y KEY: a click on a switch, and the preference that it saves.
turn() {
    click "$1" "$2"
    for _ in $(seq 100); do
        grep -qas "$3" "$preferences" && return 0
        sleep 0.1
    done
    fail "$3 was not saved"
}

turn_switches() {
    press 780 421 MenuConfiguration
    turn 336 460 soundOn
    press 336 163 MenuConfigurationMaps
    turn 848 497 mapChannel
    press 132 730 MenuConfiguration
    press 336 245 MenuConfigurationPlanes1
    turn 336 200 dh2
    press 132 730 MenuConfiguration
    press 132 730 MenuMain
}

rm -rf "$results" "$user"
mkdir -p "$results"
wine64 "$build/bin/wingtally-standin.exe" "$simulator" >/dev/null 2>&1 </dev/null
backslashed=$(printf '%s' "$simulator" | tr / '\134') # octal for the backslash
wine64 reg add "$key" /v InstallLocation /t REG_SZ /d "Z:$backslashed\\" /f >/dev/null 2>&1 </dev/null
wine64 "$build/bin/wingtally-standin.exe" "$simulator" --watch --seed 3 >"$results/standin" 2>&1 </dev/null &
standin=$!
cd "$build/run"
start windows_program
press 780 265 MenuNewService
press 250 234 MenuNewYear
press 152 214 MenuEnlist
press 842 730 MenuNewCareer
press 842 730 MenuGameMain
press 842 181 MenuGameStartMission
press 752 730 MenuGameFinishMission
point 500 400
says "MenuGameCombatReport: onEntered"
press 842 730 MenuGameMain
press 182 730 MenuMain
turn_switches
quits
[ -f "$simulator/data/Missions/WingtallyMission.Mission" ] || fail "there is no mission in the simulator's folder"
[ -f "$user/Saves/savegame_v03.wty" ] || fail "no career was saved"
words=$(grep -c . "$log")

printf 'rof.directory = %s\n' "$simulator" >"$results/wtysettings.ini"
log=$results/linux.log
preferences=$results/linux/Wingtally/prefs.dat
: >"$log"
start linux_program
turn_switches
quits
cmp "$user/prefs.dat" "$preferences" || fail "the two programs save different switches"
echo "A cycle by pointer: $words lines of log; the switches are saved as on Linux"
