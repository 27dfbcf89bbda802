#!/bin/sh
# Builds SQLite for Windows, once, from Debian's source package: packaging/windows-sqlite.sh. The result
# is in build/windows-deps/sqlite: the header and a static library. Its exact source stays in
# build/windows-deps/sqlite-debian.
set -eu
cd "$(dirname "$0")/.."
. packaging/common.sh

package=sqlite3
tarball=sqlite3_3.40.1.orig.tar.xz
patches=sqlite3_3.40.1-2+deb12u2.debian.tar.xz
tarball_sum=aaa776260ab4dc976db34aa7891819484c8676b5b2783123ebc6301e2ca5d655
patches_sum=0843bc12e4364076477935ce313a6d0796fd899a989ff18ebb6545540e10e4ca
# The program's one thread uses it, loads no extensions and counts no memory.
flags="-O2 -DSQLITE_THREADSAFE=0 -DSQLITE_OMIT_LOAD_EXTENSION -DSQLITE_DEFAULT_MEMSTATUS=0"

deps=$PWD/build/windows-deps
origin=$deps/sqlite-debian
source=$origin/source
prefix=$deps/sqlite
log=$deps/sqlite.log

# shellcheck disable=SC2116,SC2086 # one line of all words
recipe=$(echo $tarball_sum $patches_sum $flags "$prefix")
! is_made "$prefix" "$recipe" || exit 0

build_sqlite() {
    made=$deps/sqlite-made
    rm -rf "$deps/sqlite-source" "$made"
    dpkg-source --no-check -x "$source"/${package}_*.dsc "$deps/sqlite-source"
    cd "$deps/sqlite-source"
    # The sources become one file, which this machine's own compiler and Tcl make.
    ./configure --disable-tcl --disable-readline --disable-load-extension
    make sqlite3.c
    mkdir -p "$made/include" "$made/lib"
    # shellcheck disable=SC2086 # a list of options
    x86_64-w64-mingw32-gcc-posix $flags -c sqlite3.c -o sqlite3.o
    x86_64-w64-mingw32-ar rcs "$made/lib/libsqlite3.a" sqlite3.o
    cp sqlite3.h "$made/include"
    printf '%s\n' "$recipe" >"$made/recipe"
    cd "$deps"
    rm -rf "$prefix"
    mv "$made" "$prefix"
    rm -rf sqlite-source sqlite3_*
}

need_source SQLite "$origin" $package $tarball_sum $tarball $patches_sum $patches
say "Building SQLite for Windows"
quietly "$log" build_sqlite
