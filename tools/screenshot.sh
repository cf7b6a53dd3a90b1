#!/usr/bin/env bash
# Photographs the real game in play for the README: a private X server of the window's own size, the
# built program started on a starter picture, "Scramble Tyles" pressed and a few tiles slid with the
# arrow keys, then the screen saved. Usage: screenshot.sh BUILD_DIR PNG
set -euo pipefail
build=$(cd "$1" && pwd)
out=$2
work=$(mktemp -d)
trap 'kill $game $xvfb 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$work"' EXIT

# The game's folder, runtime and cache folders are scratch ones: nothing of the player's is read or
# written, and a game the player has running is not asked to come forward instead.
cp "$build/bin/varno" "$work/"
mkdir -p "$work/lib" "$work/run" "$work/cache"
chmod 700 "$work/run"
cp "$build/bin/lib/VX_harbour.jpg" "$work/harbour.jpg"
export XDG_RUNTIME_DIR=$work/run XDG_CACHE_HOME=$work/cache LANGUAGE=en LC_ALL=C.UTF-8

display=:$((90 + RANDOM % 100))
Xvfb "$display" -screen 0 806x606x24 -nolisten tcp &
xvfb=$!
export DISPLAY=$display
for _ in $(seq 50); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done

"$work/varno" "$work/harbour.jpg" &
game=$!
xdotool search --sync --onlyvisible --class varno >/dev/null
sleep 2 # the picture loads and its frame grows
# The window fills the screen exactly, so screen and window coordinates agree; the command bar's
# "Scramble Tyles" stands 192 pixels into the bar, which starts at 224.
xdotool mousemove 427 12 click 1
sleep 1
xdotool mousemove 400 560
for key in Left Up Up Right Down Left Left Up Right; do
    xdotool key "$key"
    sleep 0.1
done
sleep 0.5
"$build/bin/grabscreen" "$out"
echo "Saved $out"
