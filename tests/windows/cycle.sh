#!/bin/sh
# Plays the Windows program in its window. Twice, by pointer and by keys, it starts with an empty player
# folder, chooses the stand-in and plays up to the first report. Then it plays a cycle with a simulator
# that only the registry names. Finally it flips switches here and in the Linux program: both must save the
# same bytes. Usage: tests/windows/cycle.sh LINUX-BUILD WINDOWS-BUILD, run with packaging/with-wine.sh.
# With ImageMagick installed it saves a picture of each screen in WINDOWS-BUILD/cycle.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
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

# says WORDS: waits until the log has them in a line after those seen before.
seen=0
says() {
    for _ in $(seq 600); do
        line=$(tail -n +$((seen + 1)) "$log" 2>/dev/null | tr -d '\r' | grep -n -m 1 "$1" || true)
        if [ -n "$line" ]; then
            seen=$((seen + ${line%%:*}))
            said=${line#*:}
            return 0
        fi
        kill -0 "$program" 2>/dev/null || fail "the program ended before it said: $1"
        sleep 0.1
    done
    fail "it never said: $1"
}

# enters [SCREEN]: waits for a screen, or for any, and keeps its picture. Sets $screen.
pictures=0
enters() {
    says "${1:-Menu[A-Z][A-Za-z0-9]*}: onEntered"
    screen=$(echo "$said" | sed 's/: onEntered.*//; s/.*[^A-Za-z0-9]//')
    pictures=$((pictures + 1))
    ! command -v import >/dev/null 2>&1 || {
        sleep 1 # the plates slide in
        import -window root "$results/$(printf %03d $pictures)-$screen.png"
    }
}

# point X Y: in pixels of the design, 1024 by 768, which fills the window.
point() {
    eval "$(timeout 5 xdotool getwindowgeometry --shell "$window" | grep '^WIDTH\|^HEIGHT')"
    timeout 5 xdotool mousemove --window "$window" $(($1 * WIDTH / 1024)) $(($2 * HEIGHT / 768))
}

# place LAYOUT ELEMENT
place() { python3 "$here/place.py" "$build/run/Layouts" "$1" "$2"; }

# click X Y. The sleep lets the program look first.
click() {
    point "$1" "$2"
    sleep 0.3
    timeout 5 xdotool click 1
}

# press LAYOUT ELEMENT [SCREEN]: a click, and the screen that it leads to.
press() {
    # shellcheck disable=SC2046 # two numbers
    click $(place "$1" "$2")
    enters "${3-}"
}

# type_keys KEY...: the program looks at them once a frame.
type_keys() {
    for one in "$@"; do
        sleep 0.2
        timeout 5 xdotool key "$one"
    done
}

# start COMMAND SCREEN: the program, up to its first screen.
start() {
    seen=0
    rm -f "$log"
    "$1" &
    program=$!
    enters "$2"
    window=$(timeout 5 xdotool search --name '^Wingtally$' | head -n 1)
    timeout 5 xdotool windowfocus "$window"
    point 5 5 # not on a plate; without the pointer the program doesn't look for a report
    sleep 1   # until Wine has noticed
}

# ends: after the press of the plate that ends the program.
ends() {
    wait "$program" || fail "its exit code was $?"
    program=
}
quits() {
    # shellcheck disable=SC2046 # two numbers
    click $(place main menuBack)
    ends
}

windows_program() { exec wine64 "$build/bin/wingtally.exe" >/dev/null 2>&1 </dev/null; }
linux_program() { cd "$results" && XDG_DATA_HOME=$results/linux exec "$linux/bin/wingtally" >"$log" </dev/null; }

# fly LAYOUT: from the office's next mission to the office again, and to the main menu.
fly_by_pointer() {
    press hub menuButton1 MenuGameStartMission
    press orders menuButton4 MenuGameFinishMission
    point 500 400
    enters MenuGameCombatReport
    press report where MenuGameWhere
    press where menuBack MenuGameCombatReport
    press report menuButton1
    while [ "$screen" != MenuGameMain ]; do
        case $screen in
            MenuGameAdvance) press advance menuButton1 ;;
            MenuGameDiary) press diary menuButton1 ;;
            MenuGameCitation) press citation menuButton1 ;;
            MenuGameFallen) press fallen menuButton1 ;;
            MenuGameWarOver | *) fail "the report led to $screen" ;;
        esac
    done
    [ -f "$user/Saves/savegame_v03.wty" ] || fail "no career was saved"
    press hub menuBack MenuMain
}

begin_by_pointer() {
    press main careers MenuCareers
    press careers another MenuNewService
    press service menuButton1 MenuNewYear
    press year menuButton1 MenuEnlist
    press enlist menuButton1 MenuNewCareer
    press summary menuButton4 MenuGameMain
}

# By keys: Shift and Tab go to the last plate, the one that leads on. On the first page that is the
# stand-in, or "Use This One" if Wine's drive Z: has a simulator.
go_by_keys() {
    goal=$1
    shift
    type_keys "$@"
    enters "$goal"
}
first_start_by_keys() {
    go_by_keys MenuMain shift+Tab Left Left Right Return
    go_by_keys MenuCareers Return
    go_by_keys MenuNewService Return
    go_by_keys MenuNewYear Tab Return
    go_by_keys MenuEnlist Tab Return
    go_by_keys MenuNewCareer shift+Tab Return
    go_by_keys MenuGameMain shift+Tab Return
    go_by_keys MenuGameStartMission Tab Return
    go_by_keys MenuGameFinishMission Return
    enters MenuGameCombatReport
    go_by_keys "" shift+Tab Return
    while [ "$screen" != MenuGameMain ]; do
        case $screen in
            MenuGameCitation | MenuGameFallen) go_by_keys "" Return ;; # the plate has the focus
            *) go_by_keys "" shift+Tab Return ;;
        esac
    done
    go_by_keys MenuMain Escape
    type_keys Escape
    ends
}

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
    press main menuButton3 MenuConfiguration
    # shellcheck disable=SC2046 # two numbers each
    turn $(place settings sound) soundOn
    press settings menuButton1 MenuConfigurationMaps
    # shellcheck disable=SC2046
    turn $(place maps menuButton2) mapChannel
    press maps menuBack MenuConfiguration
    press settings menuButton2 MenuConfigurationPlanes1
    turn 288 218 dh2 # the first switch of planes_plates.inc
    press planes menuBack MenuConfiguration
    press settings menuBack MenuMain
}

rm -rf "$results" "$user"
mkdir -p "$results"
cd "$build/run"

for by in pointer keys; do
    rm -rf "$user"
    start windows_program MenuSimulator
    if [ $by = keys ]; then
        first_start_by_keys
    else
        press simulator standin MenuMain
        begin_by_pointer
        fly_by_pointer
        quits
    fi
    [ -f "$user/Saves/record.db" ] || fail "there is no record of the career"
    echo "First start by $by done, $pictures screens so far"
done

rm -rf "$user"
wine64 "$build/bin/wingtally-standin.exe" "$simulator" >/dev/null 2>&1 </dev/null
backslashed=$(printf '%s' "$simulator" | tr / '\134') # octal for the backslash
wine64 reg add "$key" /v InstallLocation /t REG_SZ /d "Z:$backslashed\\" /f >/dev/null 2>&1 </dev/null
wine64 "$build/bin/wingtally-standin.exe" "$simulator" --watch --seed 3 >"$results/standin" 2>&1 </dev/null &
standin=$!
start windows_program MenuMain
begin_by_pointer
fly_by_pointer
turn_switches
quits
[ -f "$simulator/data/Missions/WingtallyMission.Mission" ] || fail "there is no mission in the simulator's folder"
words=$(grep -c . "$log")

printf 'rof.directory = %s\n' "$simulator" >"$results/wtysettings.ini"
log=$results/linux.log
preferences=$results/linux/Wingtally/prefs.dat
: >"$log"
start linux_program MenuMain
turn_switches
quits
cmp "$user/prefs.dat" "$preferences" || fail "the two programs save different switches"
echo "A cycle by pointer: $words lines of log; the switches are saved as on Linux"
