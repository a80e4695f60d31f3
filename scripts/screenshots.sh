#!/usr/bin/env bash
# Refreshes the pictures in docs/ and in the teacher's guide (docs/guia/) from the
# real program: Mervak opens the demo Template on a private display, without a
# tablet, and its main window, virtual tablet and properties dialog are grabbed
# as a person would see them; then once more in Spanish.
#   scripts/screenshots.sh [BUILD_DIR]      (default build/release)
# Needs Xvfb, openbox, xdotool and imagemagick (import).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/release}

if [ "${MERVAK_SHOTS_NESTED:-}" != 1 ]; then
  exec env MERVAK_SHOTS_NESTED=1 scripts/with-display.sh "$0" "$@"
fi

work=$(mktemp -d /tmp/mervak-shots.XXXXXX)
export XDG_RUNTIME_DIR="$work"
mkdir -p "$work/home"
printf '[Mervak]\r\nIDIOMA=CATALA\r\n' >"$work/home/MERVAK.INI"
cp data/demo/demo.mvw data/demo/demo.png "$work/"

mkdir -p docs/guia
"$build/bin/mervak" --home "$work/home" "$work/demo.mvw" &
mervak=$!
trap 'kill "$mervak" 2>/dev/null || true; rm -rf "$work"' EXIT

# Waits for a window whose title matches, and prints its id.
window() { timeout 20 xdotool search --sync --onlyvisible --name "$1" | head -n 1; }
# Lets the program repaint before a grab.
settle() { sleep 1; }

main=$(window '^Mervak - ')
xdotool windowsize --sync "$main" 940 720 windowfocus --sync "$main"
# The device search ends and the status bar says what to do without a tablet.
sleep 2
import -window "$main" docs/guia/inici.png

xdotool key F12
tablet=$(window '^Tauleta virtual - ')
settle
import -window "$tablet" docs/guia/tauleta-virtual.png
xdotool windowfocus --sync "$main" key F12
settle
# The first Area selected, in drawing mode, so that its handles show.
xdotool key ctrl+Right ctrl+d
settle
import -window "$main" docs/screenshot-editor.png
cp docs/screenshot-editor.png docs/guia/editor.png

# Plantilla > Dades inicials: from the Fitxers menu (Alt+F) three menus to the
# right, its first entry.
xdotool key alt+f Right Right Right Return
properties=$(window '^Dades Inicials$')
settle
import -window "$properties" docs/screenshot-properties.png
cp docs/screenshot-properties.png docs/guia/dades-inicials.png
xdotool key Escape
kill "$mervak"
wait "$mervak" 2>/dev/null || true

# The start once more, in Spanish, for the Spanish guide.
printf '[Mervak]\r\nIDIOMA=ESPAÑOL\r\n' >"$work/home/MERVAK.INI"
"$build/bin/mervak" --home "$work/home" "$work/demo.mvw" &
mervak=$!
main=$(window '^Mervak - ')
xdotool windowsize --sync "$main" 940 720 windowfocus --sync "$main"
sleep 2
import -window "$main" docs/guia/inici.es.png
echo "Refreshed docs/screenshot-editor.png, docs/screenshot-properties.png and docs/guia/"
