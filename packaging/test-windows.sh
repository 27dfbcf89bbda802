#!/bin/sh
# Installs the Windows packages and runs their programs from there: packaging/with-wine.sh
# packaging/test-windows.sh PACKAGES RUN, with the folder of the packages and the staged run folder
# of the build that they were made from.
set -eu
cd "$(dirname "$0")/.."
. packaging/common.sh

packages=$(realpath "$1")
run=$(realpath "$2")
work=$packages/test-windows
rm -rf "$work"
mkdir -p "$work/zip"

zip=$(echo "$packages"/wingtally-*-windows-*.zip)
setup=$(echo "$packages"/wingtally-*-setup.exe)
user=$WINEPREFIX/drive_c/users/$(id -un)
installed=$user/AppData/Local/Programs/Wingtally
careers=$user/AppData/Roaming/Wingtally
shortcut="$user/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Wingtally.lnk"
entry='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Wingtally'

# windows SECONDS PROGRAM...: runs it so that no process of it holds our output open or waits for
# our input.
windows() {
    seconds=$1
    shift
    SDL_AUDIODRIVER=dummy LIBGL_ALWAYS_SOFTWARE=1 timeout -k 2 "$seconds" wine64 "$@" </dev/null
}
list() { (cd "$1" && find . -type f | LC_ALL=C sort); }
same() { diff -r "$1" "$2" || fail "$3"; }

# The staged data, the programs, SDL and the licences of everything in them: nothing more or less.
expected() {
    (cd "$run" && find . -type f ! -name .staged ! -path './Data/Custom/*')
    for program in wingtally wingtally-career wingtally-standin wingtally-datacheck wingtally-menucheck; do
        echo "./$program.exe"
    done
    echo ./SDL.dll
    for licence in CLI11 README SDL Wingtally mingw-w64 nlohmann-json stb xxHash; do
        echo "./Licenses/$licence.txt"
    done
    echo ./README.md
    for document in manual rules standin data-files history menu-scripts; do
        echo "./docs/$document.md"
    done
    [ ! -d docs/pictures ] || find docs/pictures -type f | sed 's|^|./|'
}

check_files() {
    expected | LC_ALL=C sort >"$work/expected"
    list "$1" >"$work/found"
    diff "$work/expected" "$work/found" || fail "$1 doesn't hold what it should"
    (cd "$run" && find . -mindepth 1 -maxdepth 1 -type d) | while read -r folder; do
        diff -r --exclude=Custom "$run/$folder" "$1/$folder" || fail "$folder isn't what was staged"
    done
    for font in "Routed Gothic" "Courier Prime" "Old Standard" "Linux Libertine" "SIL OPEN FONT LICENSE"; do
        grep -q "$font" "$1/Fonts/LICENSE-OFL.txt" || fail "the licence of $font is missing"
    done
    grep -q "LESSER GENERAL PUBLIC LICENSE" "$1/Licenses/SDL.txt" || fail "the licence of SDL is missing"
    grep -q "Sean Barrett" "$1/Licenses/stb.txt" || fail "the licence of stb is missing"
    grep -q "University of Cincinnati" "$1/Licenses/CLI11.txt" || fail "the licence of CLI11 is missing"
    packaging/check-links.sh "$1/README.md" "$1"/docs/*.md
}

# check_programs FOLDER: a whole cycle on the command line, then the window.
check_programs() {
    rm -rf "$careers"
    home=$work/home
    rm -rf "$home"
    mkdir -p "$home"
    cd "$home"
    simulator=Z:$(echo "$home/simulator" | sed 's|/|\\|g')
    windows 60 "$1/wingtally-standin.exe" --quiet "$simulator" >standin.log
    windows 300 "$1/wingtally-career.exe" --rof "$simulator" --seed 7 \
        new english 1917 4 mission fly report save load status >cycle.txt
    [ -s "$careers/Saves/savegame_v03.wty" ] || fail "the career wasn't saved"
    windows 120 "$1/wingtally-datacheck.exe" >check.txt
    windows 120 "$1/wingtally-menucheck.exe" >>check.txt
    check_window "$1"
    cd "$OLDPWD"
}

# start_window FOLDER: starts it like the shortcut, with the program's folder as working folder.
start_window() {
    printf 'rof.directory=%s\r\n' "$simulator" >"$1/wtysettings.ini"
    log=$careers/wingtally.log
    rm -f "$log"
    (cd "$1" && windows 300 wingtally.exe >/dev/null 2>&1) &
    window=$!
    tries=0
    until grep -q "MenuMain: onEntered" "$log" 2>/dev/null || [ $((tries += 1)) -gt 60 ]; do
        sleep 1
    done
    grep -q "MenuMain: onEntered" "$log" || fail "no main menu; see $log"
}

stop_window() {
    wine64 taskkill /f /im wingtally.exe >/dev/null 2>&1 </dev/null || true
    wait $window || true
}

check_window() {
    start_window "$1"
    sleep 2
    stop_window
    ! grep -q '^!!\|MenuNotification.*onEntered' "$log" || fail "troubles; see $log"
    rm "$1/wtysettings.ini"
}

remove_old() {
    wine64 reg delete "$entry" /f >/dev/null 2>&1 </dev/null || true
    rm -rf "$installed" "$shortcut" "$WINEPREFIX/drive_c/Flights"
}

check_installed() {
    windows 300 "$setup" /S >/dev/null 2>&1 || fail "the installer failed"
    mkdir -p "$work/installed"
    cp -R "$installed/." "$work/installed"
    rm "$work/installed/Uninstall.exe"
    same "$work/installed" "$unpacked" "the installer doesn't install what the ZIP holds"
    wine64 reg query "$entry" </dev/null >"$work/entry" 2>/dev/null || fail "no entry among the programs"
    grep -q 'DisplayName.*Wingtally' "$work/entry" || fail "no name among the programs"
    # The shortcut holds its target and its working folder, which differ in what follows.
    strings -el "$shortcut" | grep -q 'Programs\\Wingtally$' || fail "the shortcut's working folder isn't the program's"
}

# gives_up PROGRAM...: checks that it ends with the exit code for "I can't now".
gives_up() {
    code=0
    windows 120 "$@" >/dev/null 2>&1 || code=$?
    [ $code -eq 2 ] || fail "$* should have given up: exit code $code"
}

# A running program can't be replaced: all of it stays as it was.
check_in_use() {
    start_window "$installed"
    cp -R "$installed" "$work/before"
    gives_up "$setup" /S
    gives_up "$setup" /S '/D=C:\Flights\Wingtally'
    # With slashes it would end with the same exit code before it does anything.
    gives_up "$installed/Uninstall.exe" /S "_?=C:$(echo "${installed#*/drive_c}" | sed 's|/|\\|g')"
    kill -0 $window 2>/dev/null || fail "Wingtally ended before the installers did"
    stop_window
    same "$work/before" "$installed" "an installation in use was changed"
    [ ! -e "$WINEPREFIX/drive_c/Flights" ] || fail "something was installed beside a running Wingtally"
    [ -s "$shortcut" ] || fail "the shortcut of an installation in use is gone"
    wine64 reg query "$entry" >/dev/null 2>&1 </dev/null || fail "the entry of an installation in use is gone"
    rm "$installed/wtysettings.ini"
}

# A later version goes over an earlier one, and the player's own files stay.
check_again() {
    mkdir -p "$installed/Data/Custom/Pilots"
    echo "date=19180601 until=19181111 action=transfer unit=501011" >"$installed/Data/Custom/Pilots/Erich Sommer.txt"
    echo "rof.directory=C:\\Games" >"$installed/wtysettings.ini"
    windows 300 "$setup" /S >/dev/null 2>&1 || fail "the installer failed over an installation"
    for file in "$installed/wtysettings.ini" "$installed/wingtally.exe" "$shortcut"; do
        [ -s "$file" ] || fail "after the second installation there is no $file"
    done
}

# only_own FOLDER: checks that it holds only what check_again put there.
only_own() {
    list "$1" >"$work/left"
    printf '%s\n' "./Data/Custom/Pilots/Erich Sommer.txt" ./wtysettings.ini | diff - "$work/left" ||
        fail "in $1 was left or taken what shouldn't"
}

# An update into another folder leaves no second installation, and the player's own files come along.
# Older ones lie there already, and somebody else's uninstaller, which isn't to be run: this one would
# fail.
check_moved() {
    target=$WINEPREFIX/drive_c/Flights/Wingtally
    mkdir -p "$target/Data/Custom/Pilots"
    echo old >"$target/wtysettings.ini"
    echo old >"$target/Data/Custom/Pilots/Old.txt"
    cp "$unpacked/wingtally-menucheck.exe" "$target/Uninstall.exe"
    windows 300 "$setup" /S '/D=C:\Flights\Wingtally' >/dev/null 2>&1 || fail "the installer failed in another folder"
    only_own "$installed"
    for file in wtysettings.ini Data/Custom; do
        same "$installed/$file" "$target/$file" "$file didn't come along"
    done
    grep -q old "$target/wtysettings.ini.bak" || fail "older settings weren't kept"
    [ "$(list "$target/Data/Custom.bak")" = ./Pilots/Old.txt ] || fail "older pilots weren't kept"
    rm -r "$target/wtysettings.ini.bak" "$target/Data/Custom.bak"
    rm -rf "$installed"
    installed=$target
    for file in wingtally.exe Uninstall.exe; do
        [ -s "$installed/$file" ] || fail "in the new folder there is no $file"
    done
    wine64 reg query "$entry" /v InstallLocation </dev/null 2>/dev/null | grep -qF 'C:\Flights\Wingtally' ||
        fail "the entry names the old folder"
}

check_uninstalled() {
    windows 300 "$installed/Uninstall.exe" /S >/dev/null 2>&1 || fail "the uninstaller failed"
    tries=0 # it works on in a copy of itself, and its entry is the last that goes
    while wine64 reg query "$entry" >/dev/null 2>&1 </dev/null; do
        [ $((tries += 1)) -le 60 ] || fail "the uninstaller left its entry"
        sleep 1
    done
    only_own "$installed"
    [ ! -e "$shortcut" ] || fail "the uninstaller left the shortcut"
    [ -s "$careers/Saves/savegame_v03.wty" ] || fail "the uninstaller took the career"
}

# A file that can't be written: what isn't whole doesn't count as installed.
check_unwritable() {
    mkdir -p "$WINEPREFIX/drive_c/Flights/Wingtally/README.md"
    gives_up "$setup" /S '/D=C:\Flights\Wingtally'
    ! wine64 reg query "$entry" >/dev/null 2>&1 </dev/null || fail "half an installation has an entry"
}

say "ZIP: unpacked, running from there"
(cd "$work/zip" && cmake -E tar xf "$zip")
unpacked=$(echo "$work"/zip/*)
check_files "$unpacked"
check_programs "$unpacked"
say "Installer: installed, running from there, in use, installed again and elsewhere, uninstalled"
remove_old
check_installed
check_programs "$installed"
check_in_use
check_again
check_moved
check_uninstalled
remove_old
check_unwritable
remove_old
rm -rf "$careers" "$work"
