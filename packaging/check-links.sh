#!/bin/sh
# Fails if a link in Markdown documents leads nowhere: packaging/check-links.sh DOCUMENT.... It
# looks at links to files beside them and to headings; it ignores links to the web.
set -eu

# The anchors of a document's headings.
anchors() {
    sed -n 's/^##* //p' "$1" | tr '[:upper:]' '[:lower:]' | sed 's/[^a-z0-9 _-]//g; s/ /-/g'
}

# The targets of a document's links, which may be split between two lines and have a title.
links() {
    tr '\n' ' ' <"$1" | grep -o '\](\([^()]*\))' | sed 's/^](//; s/)$//; s/^ *//; s/ .*//; s/^<//; s/>$//'
    sed -n 's/^\[[^]]*\]: *\([^ ]*\).*/\1/p' "$1"
}

status=0
for document in "$@"; do
    [ -f "$document" ] || { echo "$document isn't there" >&2; exit 1; }
    for link in $(links "$document"); do
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
