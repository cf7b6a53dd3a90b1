#!/usr/bin/env bash
# The translations are in step with the game's texts: lupdate, run over the sources into copies of the
# .ts files, finds no text without a finished translation and no translation of a text the game lost.
# usage: translations.sh LUPDATE SOURCE_DIR TS_FILE... -- LUPDATE_ARGS...
set -euo pipefail
lupdate=$1 src=$2
shift 2
ts=()
while [ "$1" != "--" ]; do ts+=("$1"); shift; done
shift
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
for file in "${ts[@]}"; do
    copy="$work/$(basename "$file")"
    cp "$file" "$copy"
    (cd "$src" && "$lupdate" "$@" -ts "$copy") >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
    # lupdate's warnings (a tr() it cannot place) come before its "Updating" line.
    if grep -v -e '^Scanning' -e '^Updating' -e '^ *Found' -e '^ *Kept' "$work/log"; then
        status=1
    fi
    left=$(grep -B3 -e 'type="unfinished"' -e 'type="vanished"' -e 'type="obsolete"' "$copy" | sed -n 's/.*<source>\(.*\)<\/source>.*/\1/p' || true)
    if [ -n "$left" ]; then
        echo "$(basename "$file"): texts without a finished translation, or translations of texts gone:"
        echo "$left" | sed 's/^/    /'
        status=1
    fi
done
[ $status -eq 0 ] || echo "Bring them up to date with 'make translations', then translate what it marks unfinished."
exit $status
