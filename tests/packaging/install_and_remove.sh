#!/usr/bin/env bash
# Builds the Debian package, installs it on this machine, starts the installed
# programs, checks the file types, removes the package and checks that nothing
# is left. Prints the package's sizes and the time from install to a window.
#   install_and_remove.sh BUILD_DIR   (run inside scripts/with-display.sh, as root)
set -euo pipefail
build=$1
skip() { echo "skipped: $*"; exit 77; }
[ "$(id -u)" -eq 0 ] || skip "installing a package needs root"
for tool in cpack apt-get dpkg xdg-mime xdotool lintian; do
  command -v "$tool" >/dev/null || skip "$tool is missing"
done
if dpkg-query -W -f='${Status}' mervak 2>/dev/null | grep -q "install ok installed"; then
  skip "a mervak package is already installed here"
fi

work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; apt-get remove -y -q mervak >/dev/null 2>&1 || true; rm -rf "$work"' EXIT
(cd "$build" && cpack -G DEB -B "$work/package" >/dev/null)
deb=$(ls "$work"/package/mervak_*.deb)
lintian --fail-on error,warning "$deb"

apt="apt-get -y -q -o DPkg::Lock::Timeout=300"
started=$(date +%s.%N)
$apt install "$deb" >"$work/apt.log"
export HOME="$work/user" XDG_CONFIG_HOME="$work/user/.config" XDG_DATA_HOME="$work/user/.local/share"
mkdir -p "$HOME"
mervak --home "$work/home" 2>"$work/mervak.log" &
for _ in $(seq 200); do
  xdotool search --name "^Mervak" >/dev/null 2>&1 && break
  sleep 0.05
done
xdotool search --name "^Mervak" >/dev/null || { cat "$work/mervak.log"; echo "no window" >&2; exit 1; }
ready=$(date +%s.%N)
kill %1

mervak-cli --version | grep -q "^mervak-cli "
for guide in guia.md guia.es.md guia/inici.png; do
  [ -f "/usr/share/mervak/ajuda/$guide" ] || { echo "the guide's $guide is not installed" >&2; exit 1; }
done
cp "$build/share/mervak/demo/demo.mvw" "$work/sheet.mvw"
type=$(xdg-mime query filetype "$work/sheet.mvw")
[ "$type" = application/x-mervak-template ] || { echo "file type: $type" >&2; exit 1; }
handler=$(xdg-mime query default application/x-mervak-template)
[ "$handler" = cat.mervak.mervak.desktop ] || { echo "default: $handler" >&2; exit 1; }

files=$(dpkg -L mervak | while read -r path; do [ -f "$path" ] && echo "$path"; done)
$apt purge mervak >>"$work/apt.log"
left=$(for path in $files; do [ -e "$path" ] && echo "$path"; done || true)
[ -z "$left" ] || { echo "left behind: $left" >&2; exit 1; }

echo "package size: $(stat -c %s "$deb") bytes"
echo "installed size: $(dpkg-deb -f "$deb" Installed-Size) KiB"
echo "apt install to a window: $(awk "BEGIN { printf \"%.2f\", $ready - $started }") s"
