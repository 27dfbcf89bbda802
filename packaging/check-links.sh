#!/bin/sh
# Fails if a link in Markdown documents leads nowhere: packaging/check-links.sh DOCUMENT.... It looks
# at links to files beside them and to headings; those into the web it leaves alone.
set -eu

# The names under which a document's headings can be reached.
anchors() {
    sed -n 's/^##* //p' "$1" | tr '[:upper:]' '[:lower:]' | sed 's/[^a-z0-9 _-]//g; s/ /-/g'
}

status=0
for document in "$@"; do
    [ -f "$document" ] || { echo "$document isn't there" >&2; exit 1; }
    # A link may be broken between two lines.
    for link in $(tr '\n' ' ' <"$document" | grep -o '](\([^() ]*\))' | sed 's/^](//; s/)$//'); do
        case "$link" in *://*) continue ;; esac
        file=${link%%#*}
        target=$document
        [ -z "$file" ] || target=$(dirname "$document")/$file
        if [ ! -e "$target" ]; then
            echo "$document: $link isn't there" >&2
            status=1
        elif [ "$link" != "$file" ] && ! anchors "$target" | grep -qxF -e "${link#*#}"; then
            echo "$document: no heading for $link" >&2
            status=1
        fi
    done
done
exit $status
