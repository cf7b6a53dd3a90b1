#!/usr/bin/env bash
# Installs what `make bench` needs beyond the build, only what is missing: the two peer puzzles whose
# start-up is measured beside the game, and the session bus they expect.
set -euo pipefail
pkgs=(sgt-puzzles gnome-taquin dbus-daemon xvfb libjpeg-turbo-progs)
missing=()
for p in "${pkgs[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
