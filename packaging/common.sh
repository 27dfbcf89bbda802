# What ./play, ./check, ./package and the scripts of packaging share. Source it from the top of the
# tree, with set -eu.
# shellcheck shell=sh disable=SC2034 # the variables are for the scripts that source it

say() { printf '%s\n' "$*"; }
fail() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# need_packages PACKAGE...: installs the Debian packages that are missing; silent if there are none.
need_packages() {
    command -v dpkg-query >/dev/null 2>&1 || return 0 # another system: its owner knows better
    missing=
    for package in "$@"; do
        case "$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null)" in
            *" installed") ;;
            *) missing="$missing $package" ;;
        esac
    done
    [ -n "$missing" ] || return 0
    if [ "$(id -u)" -eq 0 ]; then
        as_root=
    elif command -v sudo >/dev/null 2>&1; then
        as_root=sudo
    else
        fail "these packages are missing; have them installed by: apt-get install$missing"
    fi
    say "Installing$missing"
    mkdir -p build
    # shellcheck disable=SC2086 # lists of words
    { $as_root apt-get update -qq &&
        $as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get install -qq -y --no-install-recommends $missing; } >build/packages.log 2>&1 ||
        { tail -n 20 build/packages.log >&2; fail "apt-get could not install$missing"; }
}

# quietly LOG COMMAND...: the command's output goes to the log, and is shown only if the command
# fails. A function ends at its first failure, which it would not do in front of "||".
quietly() {
    log=$1
    shift
    mkdir -p "$(dirname "$log")"
    set +e
    (set -e && "$@") >"$log" 2>&1
    status=$?
    set -e
    if [ $status -ne 0 ]; then
        tail -n 40 "$log" >&2
        fail "failed: $* (all of it is in $log)"
    fi
}

# What building needs, and what testing needs in addition.
build_packages="g++ make cmake libsdl1.2-dev libgl-dev libstb-dev libcli11-dev libsqlite3-dev
    libxxhash-dev nlohmann-json3-dev libkainjow-mustache-dev"
test_packages="clang libclang-rt-14-dev clang-format clang-tidy shellcheck git python3 libgtest-dev
    libbenchmark-dev xvfb xauth libgl1-mesa-dri tidy"

# For Windows: the compiler, the tools for SDL's source, and what runs the programs here.
windows_packages="g++-mingw-w64-x86-64-posix cmake make g++ dpkg-dev libstb-dev libcli11-dev tcl
    libxxhash-dev nlohmann-json3-dev libkainjow-mustache-dev"
wine_packages="wine wine64 googletest libgl1 libgl1-mesa-dri xvfb xauth xdotool locales"

# is_source_whole FOLDER TARBALL-SUM TARBALL PATCHES-SUM PATCHES: whether both are there and match their
# checksums.
is_source_whole() {
    (cd "$1" && printf '%s  %s\n' "$2" "$3" "$4" "$5" | sha256sum --check --status) 2>/dev/null
}

# fetch_source FOLDER PACKAGE: Debian's source package into FOLDER/source, from the mirror that the
# machine uses, without changing its configuration.
fetch_source() {
    lists=$1/apt
    package=$2
    rm -rf "$lists"
    mkdir -p "$lists/parts" "$lists/lists/partial" "$1/source"
    : >"$lists/sources.list"
    if [ -f /etc/apt/sources.list.d/debian.sources ]; then
        sed 's/^Types:.*/Types: deb-src/' /etc/apt/sources.list.d/debian.sources >"$lists/parts/debian.sources"
    else
        sed -n 's/^deb /deb-src /p' /etc/apt/sources.list >"$lists/sources.list"
    fi
    cd "$1/source"
    set -- -qq -o "Dir::Etc::sourcelist=$lists/sources.list" -o "Dir::Etc::sourceparts=$lists/parts" \
        -o "Dir::State::lists=$lists/lists" -o "Dir::Cache=$lists" -o APT::Sandbox::User=root
    apt-get "$@" update
    apt-get "$@" --download-only source "$package"
    rm -rf "$lists"
}

# need_source NAME FOLDER PACKAGE TARBALL-SUM TARBALL PATCHES-SUM PATCHES: the source package is in
# FOLDER/source afterwards, fetched if it isn't there already. Messages call it NAME; uses $log.
need_source() {
    name=$1
    folder=$2
    source_package=$3
    shift 3
    ! is_source_whole "$folder/source" "$@" || return 0
    say "Fetching the source of $name"
    mkdir -p "$folder"
    quietly "$log" fetch_source "$folder" "$source_package"
    is_source_whole "$folder/source" "$@" ||
        fail "the source of $name in $folder/source isn't the one this script was written for"
}

# is_made FOLDER RECIPE: whether FOLDER holds the result of exactly that recipe. Another source, other flags
# or a moved tree mean another result.
is_made() {
    [ -f "$1/recipe" ] && [ "$(cat "$1/recipe")" = "$2" ]
}

# Whether all of that is installed.
can_check_windows() {
    for file in x86_64-w64-mingw32-g++-posix dpkg-source xvfb-run xdotool /usr/lib/wine/wine64; do
        command -v $file >/dev/null 2>&1 || return 1
    done
    [ -d /usr/src/googletest ] && [ -e /usr/share/i18n/locales/en_GB ] # with-wine.sh's locale
}

# build PRESET [OPTION...]: configures and builds.
build() {
    preset=$1
    shift
    quietly "build/$preset-configure.log" cmake --preset "$preset"
    quietly "build/$preset-build.log" cmake --build --preset "$preset" --parallel "$(nproc)" "$@"
}
