#!/usr/bin/env bash
# The installed game: the install passes the desktop validators; the .deb passes lintian, is offered by
# GLib for the pictures it opens without taking them over, and unpacked into a scratch root starts from its
# menu entry under Xvfb, seeds the player's library and writes nothing beside itself.
set -euo pipefail
build=$1
work=$(mktemp -d "${TMPDIR:-/tmp}/installed-XXXXXX")
pids=()
trap 'for p in "${pids[@]}"; do kill "$p" 2>/dev/null || true; done; rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
# Runs the command every tenth of a second, for up to ten seconds, until it succeeds.
waitfor() { for _ in $(seq 100); do "$@" >/dev/null 2>&1 && return; sleep 0.1; done; return 1; }

DESTDIR=$work/stage cmake --install "$build" --prefix /usr >/dev/null
share=$work/stage/usr/share
# Only the package keeps the program in games/, as Debian does; a plain install puts it on every system's path.
[ -x "$work/stage/usr/bin/varno" ] && [ ! -e "$work/stage/usr/games" ] || fail "the plain install's program"
desktop-file-validate "$share/applications/org.varno.varno.desktop"
appstreamcli validate --no-net "$share/metainfo/org.varno.varno.metainfo.xml"
for size in 16 24 32 48 64 128 256; do
    png=$share/icons/hicolor/${size}x${size}/apps/org.varno.varno.png
    [ "$(file -b "$png" | grep -o "$size x $size")" = "$size x $size" ] || fail "icon $png"
done
[ -s "$share/icons/hicolor/scalable/apps/org.varno.varno.svg" ] || fail "scalable icon"

(cd "$build" && cpack -G DEB -B "$work/pkg" >/dev/null)
deb=$(ls "$work"/pkg/varno_*.deb)
# Every package it depends on is one this machine has.
for dep in $(dpkg-deb -f "$deb" Depends | tr ',' '\n' | sed 's/(.*)//; s/|.*//'); do
    dpkg-query -W -f='${Status}\n' "$dep" | grep -q "install ok installed" || fail "dependency $dep"
done
lintian --fail-on error,warning "$deb" || fail "lintian"
dpkg-deb -x "$deb" "$work/root"
[ -z "$(find "$work/root" -name '*mimeapps.list' -o -name defaults.list)" ] || fail "the game made a default"

# "Open With": GLib offers an entry for a type only when its program is on the path.
entry=$work/root/usr/share/applications/org.varno.varno.desktop
update-desktop-database "$(dirname "$entry")"
for type in image/jpeg image/gif image/bmp; do
    env -i PATH="$work/root/usr/games:$PATH" HOME="$work/home" XDG_DATA_DIRS="$work/root/usr/share" LC_ALL=C \
        gio mime "$type" | sed -n '/^Registered/,/^[^\t]/p' | grep -qx $'\torg.varno.varno.desktop' ||
        fail "not offered for $type"
done
# Without -noreset the server resets whenever its last client leaves (a query, the first game), and a
# game that connects during the reset finds no server.
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$work/display" 2>"$work/xvfb.log" &
pids+=($!)
waitfor test -s "$work/display" || true
mkdir -p "$work/home"
export DISPLAY=":$(cat "$work/display")"
# The game is started only once the server answers: a start that finds no server is not the game's fault.
waitfor xdotool getdisplaygeometry || fail "Xvfb on $DISPLAY does not answer: $(cat "$work/xvfb.log")"
# Started as a menu starts it: GLib reads the entry and finds its program on the scratch root's path.
start() {
    env -i PATH="$work/root/usr/games:$PATH" HOME="$work/home" DISPLAY="$DISPLAY" QT_QPA_PLATFORM=xcb LC_ALL=C \
        gio launch "$entry" "$@"
    waitfor xdotool search --onlyvisible --class varno || fail "no window; Xvfb said: $(cat "$work/xvfb.log")"
    game=$(xdotool search --onlyvisible --class varno getwindowpid)
    pids+=($game)
}
lib=$work/home/.local/share/varno/varno/lib
start
[ "$(ls "$lib")" = "$(ls "$work/root/usr/share/varno/lib")" ] || fail "library not seeded: $(ls "$lib")"
[ "$(ls -A "$work/root/usr/games")" = "varno" ] || fail "files beside the program: $(ls -A "$work/root/usr/games")"
# A starter picture the player deleted does not come back at the next start.
kill "$game"
waitfor test ! -e "/proc/$game" || true
gone=$(ls "$lib" | head -n 1)
rm "$lib/$gone"
# "Open With" hands the game the file, which it opens as Open Image would: this one it refuses.
echo "not a picture" >"$work/Not a picture.jpg"
start "$work/Not a picture.jpg"
[ ! -e "$lib/$gone" ] || fail "$gone came back"
waitfor xdotool search --onlyvisible --name "^Open - ERROR$" || fail "the file from Open With was not opened"
echo "1 passed, 0 failed"
