#!/bin/sh
# Builds SDL 1.2 for Windows, once, from Debian's source package: packaging/windows-sdl.sh. The result is
# in build/windows-deps/sdl: bin/SDL.dll, headers and import libraries, and in share/licenses/SDL
# what its licence asks for. Its exact source, tarball and patches, stays in build/windows-deps/source.
set -eu
cd "$(dirname "$0")/.."
. packaging/common.sh

package=libsdl1.2
tarball=libsdl1.2_1.2.15+dfsg2.orig.tar.gz
patches=libsdl1.2_1.2.15+dfsg2-8.debian.tar.xz
tarball_sum=ec4d5ea4714b92f840aafcf8c759cf7914827f632e19f42b18ba6f6489f0f5e9
patches_sum=f1e294c33ad395f3b0dc473ff33b84405ac7fc465e3c9d2a25fee576a96e9fc7
# Without the redirection a program started from the desktop leaves stdout.txt beside itself, where
# a player may not write. Joysticks and CD drives are left in: a library without them refuses to
# start when everything is requested. They need nothing but winmm, which sound needs anyway.
options="--build=x86_64-linux-gnu --host=x86_64-w64-mingw32 --disable-static
    --disable-stdio-redirect"
flags=-O2

deps=$PWD/build/windows-deps
source=$deps/source
prefix=$deps/sdl
log=$deps/sdl.log

# shellcheck disable=SC2116,SC2086 # one line of all words
recipe=$(echo $tarball_sum $patches_sum $options $flags "$prefix")
! is_made "$prefix" "$recipe" || exit 0

build_sdl() {
    made=$deps/sdl-made
    rm -rf "$deps/sdl-source" "$deps/sdl-build" "$made"
    dpkg-source --no-check -x "$source"/libsdl1.2_*.dsc "$deps/sdl-source"
    mkdir -p "$deps/sdl-build"
    cd "$deps/sdl-build"
    # shellcheck disable=SC2086 # a list of options
    CFLAGS=$flags ../sdl-source/configure $options --prefix="$prefix"
    make -j "$(nproc)"
    make install-hdrs install-lib install-bin DESTDIR="$made"
    x86_64-w64-mingw32-strip "$made$prefix/bin/SDL.dll"
    mkdir -p "$made$prefix/share/licenses/SDL"
    cp ../sdl-source/COPYING "$made$prefix/share/licenses/SDL"
    printf '%s\n' "$recipe" >"$made$prefix/recipe"
    cd "$deps"
    rm -rf "$prefix"
    mv "$made$prefix" "$prefix"
    rm -rf sdl-source sdl-build sdl-made libsdl1.2_*
}

need_source SDL "$deps" $package $tarball_sum $tarball $patches_sum $patches
say "Building SDL for Windows"
quietly "$log" build_sdl
