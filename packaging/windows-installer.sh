#!/bin/sh
# Makes the Windows installer of what the ZIP holds: packaging/windows-installer.sh PACKAGES, the
# folder of the ZIP, into which the installer comes too.
set -eu
cd "$(dirname "$0")/.."
. packaging/common.sh

packages=$(realpath "$1")
zip=$(echo "$packages"/wingtally-*-windows-*.zip)
name=$(basename "$zip" .zip)
version=${name#wingtally-}
version=${version%%-*}
work=$packages/installer
rm -rf "$work"
mkdir -p "$work"
(cd "$work" && cmake -E tar xf "$zip")

# list_removals FOLDER: the commands that remove exactly these files, inner folders first.
# shellcheck disable=SC2016 # a word of the installer's
list_removals() {
    (cd "$1" && find . -type f | LC_ALL=C sort | sed 's|^\./|Delete "$INSTDIR/|')
    (cd "$1" && find . -mindepth 1 -type d | LC_ALL=C sort -r | sed 's|^\./|RMDir "$INSTDIR/|')
}
list_removals "$work/$name" | sed 's|/|\\|g; s|$|"|' >"$work/removals.nsh"

makensis -V2 -WX -INPUTCHARSET UTF8 "-DVERSION=$version" "-DFILES=$work/$name" "-DREMOVALS=$work/removals.nsh" \
    "-DRESULT=$packages/wingtally-$version-setup.exe" "$PWD/packaging/wingtally.nsi"
rm -rf "$work"
