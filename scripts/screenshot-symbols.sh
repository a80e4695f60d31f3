#!/usr/bin/env bash
# Refreshes the pictures of docs/sheets.md from the real program: on a private display
# Mervak makes a sheet from a word list ("Làmina de paraules...") and opens the symbol
# picker on its first Area; both dialogs are grabbed. The sheet of the same words,
# rendered by mervak-cli, is docs/sheet-from-words.png.
#   scripts/screenshot-symbols.sh [BUILD_DIR]      (default build/release)
# Needs Xvfb, openbox, xdotool and imagemagick (import), and the symbol library.
. "$(dirname "$0")/shots-common.sh"
printf '[Mervak]\r\nIDIOMA=CATALA\r\n' >"$work/home/MERVAK.INI"

"$build/bin/mervak" --home "$work/home" &
mervak=$!

main=$(window '^Mervak - ')
xdotool windowsize --sync "$main" 940 720 windowfocus --sync "$main"
settle

# Làmina > Làmina de paraules: from the Fitxers menu four menus to the right, its "p".
xdotool key alt+f Right Right Right Right p
words=$(window '^Làmina de paraules$')
settle
xdotool type --delay 20 "gos gat vaca cavall ovella porc poma"
xdotool key Tab Tab Tab Tab Tab space
settle
import -window "$words" docs/screenshot-word-sheet.png
xdotool key ctrl+Return
settle

# The first Area, and its symbol from the library.
xdotool windowfocus --sync "$main" key ctrl+Right ctrl+b
picker=$(window '^Símbols$')
settle
import -window "$picker" docs/screenshot-symbol-picker.png
xdotool key Escape
(cd "$work" && "$OLDPWD/$build/bin/mervak-cli" --home "$work/home" sheet --words \
  "gos gat vaca cavall ovella porc poma" --rows 2 --columns 3 --nav -o animals.mvw &&
  "$OLDPWD/$build/bin/mervak-cli" --home "$work/home" render animals.mvw --page 1 \
    -o "$OLDPWD/docs/sheet-from-words.png" --dpi 60)
echo "Refreshed docs/screenshot-word-sheet.png, docs/screenshot-symbol-picker.png and docs/sheet-from-words.png"
