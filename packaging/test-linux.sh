#!/bin/sh
# Installs the Linux packages into clean folders and runs their programs from there:
# packaging/test-linux.sh PACKAGES RUN, with the folder of the packages and the staged run folder of
# the build that they were made from.
set -eu
cd "$(dirname "$0")/.."
. packaging/common.sh

top=$PWD
packages=$(realpath "$1")
run=$(realpath "$2")
work=$packages/test-linux
rm -rf "$work"
mkdir -p "$work"

# alone PREFIX COMMAND...: runs it for a player who has installed only this package.
alone() {
    prefix=$1
    shift
    env -i HOME="$home" PATH="$prefix/bin:/usr/bin:/bin" \
        LC_ALL=C LIBGL_ALWAYS_SOFTWARE=1 SDL_AUDIODRIVER=dummy "$@"
}

# Exactly the staged files, byte for byte: no stamp, nothing of the player's.
check_data() {
    data=$1/share/wingtally
    diff -r --exclude=.staged --exclude=Custom "$run" "$data" || fail "$data isn't what was staged"
    for own in .staged Data/Custom; do
        [ ! -e "$data/$own" ] || fail "$data holds $own, which isn't delivered"
    done
}

# Every program has its page, and the page every option that the program has.
check_pages() {
    for program in "$1"/bin/*; do
        page=$1/share/man/man1/$(basename "$program").1.gz
        gzip -dc "$page" | sed 's/\\-/-/g' >"$work/page" || fail "no page for $program"
        said=$(LC_ALL=C.UTF-8 MANWIDTH=100 man --warnings -E UTF-8 -l "$page" 2>&1 >/dev/null)
        [ -z "$said" ] || fail "$page: $said"
        [ "$(basename "$program")" != wingtally ] || continue # takes no options
        for option in $(alone "$1" "$program" --help | grep -o -- '--[a-z][a-z-]*' | sort -u); do
            grep -q -e "$option" "$work/page" || fail "$page says nothing of $option"
        done
    done
}

check_desktop_entry() {
    entry=$1/share/applications/wingtally.desktop
    desktop-file-validate "$entry"
    [ -x "$1/bin/$(sed -n 's/^Exec=//p' "$entry")" ] || fail "$entry starts what isn't there"
    [ -s "$1/share/icons/hicolor/256x256/apps/$(sed -n 's/^Icon=//p' "$entry").png" ] ||
        fail "$entry names an icon that isn't there"
}

# A whole cycle on the command line, from a folder of the player's.
check_cycle() {
    alone "$1" wingtally-standin --quiet "$home/simulator"
    alone "$1" wingtally-career --rof "$home/simulator" --seed 7 \
        new english 1917 4 mission fly report save load status >cycle.txt
    [ -s "$home/.local/share/Wingtally/Saves/savegame_v03.wty" ] || fail "$1: the career wasn't saved"
    alone "$1" wingtally-datacheck
    alone "$1" wingtally-menucheck
}

# The window comes up, with the simulator that wtysettings.ini names.
check_window() {
    echo "rof.directory=$home/simulator" >wtysettings.ini
    : >window.log
    # shellcheck disable=SC2016 # the inner shell's words
    alone "$1" xvfb-run -a -s "-screen 0 1280x1024x24" sh -c '
        wingtally >window.log 2>&1 &
        program=$!
        tries=0
        until grep -q "MenuMain: onEntered" window.log || [ $((tries += 1)) -gt 60 ]; do sleep 1; done
        sleep 2
        kill $program && wait $program' || true
    grep -q 'MenuMain: onEntered' window.log || fail "$1: no main menu; see $PWD/window.log"
    ! grep -q '^!!\|MenuNotification.*onEntered' window.log || fail "$1: troubles; see $PWD/window.log"
}

# check_installed NAME PREFIX
check_installed() {
    say "$1: installed into a clean folder, running from there"
    home=$work/home-$1
    mkdir -p "$home"
    touch "$work/before"
    cd "$home"
    check_data "$2"
    "$top/packaging/check-links.sh" "$2/share/doc/wingtally/README.md" "$2"/share/doc/wingtally/docs/*.md
    check_pages "$2"
    check_desktop_entry "$2"
    check_cycle "$2"
    check_window "$2"
    written=$(find "$2" -newer "$work/before" -type f)
    [ -z "$written" ] || fail "$1: written into the installation: $written"
    cd "$OLDPWD"
}

tgz=$(echo "$packages"/wingtally-*-linux-*.tar.gz)
deb=$(echo "$packages"/wingtally_*.deb)

say "lintian"
lintian --fail-on error --allow-root "$deb" || fail "lintian found errors"
depends=$(dpkg-deb -f "$deb" Depends)
for library in libgl1 libsdl1.2debian libstdc++6; do
    case "$depends" in *"$library"*) ;; *) fail "$deb doesn't depend on $library" ;; esac
done

mkdir "$work/deb" "$work/any folder"
dpkg-deb -x "$deb" "$work/deb"
gzip -dc "$work/deb/usr/share/doc/wingtally/changelog.gz" | head -n 1 |
    grep -qF "($(dpkg-deb -f "$deb" Version))" || fail "packaging/changelog has another version"
check_installed deb "$work/deb/usr"
tar -xzf "$tgz" -C "$work/any folder"
check_installed tgz "$(echo "$work/any folder"/*)"
rm -rf "$work"
