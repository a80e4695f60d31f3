#!/usr/bin/env bash
# Installs every Debian package Mervak needs to build, run and test. Safe to run again.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config clang-format clang clang-tidy
  qt6-base-dev qt6-base-dev-tools qt6-serialport-dev qt6-multimedia-dev qt6-translations-l10n
  libgl-dev libxkbcommon-dev
  libx11-dev libxtst-dev libevdev-dev
  libespeak-ng-dev espeak-ng-data libfluidsynth-dev timgm6mb-soundfont libpulse-dev
  libopencv-core-dev libopencv-imgproc-dev libv4l-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  xvfb xauth openbox xterm x11-utils x11-apps x11-xkb-utils xdotool socat imagemagick
  sox espeak-ng pulseaudio poppler-utils
  fonts-dejavu-core
  scdoc librsvg2-bin lintian desktop-file-utils appstream xdg-utils shared-mime-info libxml2-utils
  libfile-mimeinfo-perl
  ccache qt6-svg-dev libzip-dev fonts-sil-andika tesseract-ocr tesseract-ocr-cat tesseract-ocr-spa
  libclang-rt-14-dev
  libwayland-dev wayland-protocols sway foot wtype dbus
  xwayland jq
)

# The symbol library comes from npm, at exact versions checked against committed integrities.
"$(dirname "$0")/fetch-symbols.sh"

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -eq 0 ]; then
  echo "setup: every package is already installed"
  exit 0
fi

sudo_cmd=()
[ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -q
"${sudo_cmd[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
