#!/bin/sh
# Runs a command that starts Windows programs: packaging/with-wine.sh COMMAND... They get a Wine
# prefix in the build tree, one server for all of them, and a display that nobody sees.
set -eu
if [ "${1-}" != --on-display ]; then
    exec xvfb-run -a -s "-screen 0 1280x1024x24 -noreset -nolisten tcp" "$0" --on-display "$@"
fi
shift

export PATH="/usr/lib/wine:$PATH" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe="
export WINEPREFIX="${WINEPREFIX:-$(cd "$(dirname "$0")/.." && pwd)/build/windows/wine}"
# A code page of one byte a character, as players have it. Wine takes it from the locale.
export LOCPATH="$WINEPREFIX.locale" LC_ALL=en_GB.UTF-8
if [ ! -d "$LOCPATH/$LC_ALL" ]; then
    mkdir -p "$LOCPATH"
    localedef -i en_GB -f UTF-8 "$LOCPATH/$LC_ALL"
fi
trap 'wineserver -k >/dev/null 2>&1 || true' EXIT
trap 'exit 130' INT # without these a signal ends the shell and leaves the server
trap 'exit 143' TERM
# Its services would hold the output of whatever started them open, and a reader of it would wait
# for them after each program: they are started here, with none.
wineboot -i >/dev/null 2>&1 </dev/null
wineserver -w
wineserver -p >/dev/null 2>&1 </dev/null
wine64 cmd /c exit >/dev/null 2>&1 </dev/null
status=0
"$@" || status=$?
exit $status
