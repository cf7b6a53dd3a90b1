#!/usr/bin/env bash
# Installs what the build, the tests and the benchmarks need on a Debian machine, only what is missing.
set -euo pipefail
pkgs=(cmake g++ make qt6-base-dev qt6-svg-dev qt6-image-formats-plugins libqt6svg6 libxcb1-dev
      xvfb xauth xdotool x11-utils libjpeg-turbo-progs libjpeg-dev clang-format)
# The help document's font (metric twin of Arial), and a small window manager and its remote control
# for the real-window tests (minimise, closing, a second start).
pkgs+=(fonts-liberation openbox wmctrl)
# Qt's translation tools, which keep the game's translations in step and compile them, and Qt's own
# translations of its dialogs and buttons.
pkgs+=(qt6-l10n-tools qt6-translations-l10n)
# Qt's Wayland plugin and a compositor to run it under: the real-window tests play the game on Wayland too.
pkgs+=(qt6-wayland weston)
# A session bus, the thumbnailer service on it (what other programs make of the thumbnail cache, beside
# GLib's gio below), and the accessibility bus with its registry: the real-window test reads the game as a
# screen reader does, through AT-SPI.
pkgs+=(dbus-daemon tumbler at-spi2-core)
# The install's validators and the .deb package's library dependencies.
pkgs+=(desktop-file-utils appstream dpkg-dev file)
# The manual page, written from the program's --help at build time; Debian's checker of the .deb; and
# GLib's gio, which shows what the desktop offers to open a picture with.
pkgs+=(help2man lintian libglib2.0-bin)
# `make bench` (setup-deps.sh bench): the two peer puzzles whose start-up is measured beside the game, and
# the session bus they expect.
[ "${1:-}" = bench ] && pkgs+=(sgt-puzzles gnome-taquin dbus-daemon)
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
