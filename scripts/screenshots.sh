#!/usr/bin/env bash
# Refreshes the pictures in docs/ and in the teacher's guide (docs/guia/) from the
# real program: Mervak opens a composed sheet on a private display, without a
# tablet, and its main window, virtual tablet and properties dialog are grabbed
# as a person would see them; then once more in Spanish.
#   scripts/screenshots.sh [BUILD_DIR]      (default build/release)
# Needs Xvfb, openbox, xdotool and imagemagick (import).
. "$(dirname "$0")/shots-common.sh"
# A composed sheet for the editor: six cells in reading order, each with its
# symbol (OpenMoji, from the setup's download when it is there), a word and a
# word-class colour, made through mervak-cli as a script would.
sheet="$work/paraules.mvw"
{
  printf ' 2 \r\n 0 \r\n\r\n 6 \r\n""\r\n 0 \r\n""\r\n""\r\n""\r\n""\r\n"Paraules"\r\n'
  printf ' 1 \r\n-1 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n'
  for area in "4 62 40 114 jo" "42 62 78 114 menjar" "80 62 116 114 gos" \
    "4 6 40 58 gat" "42 6 78 58 content" "80 6 116 58 gràcies"; do
    set -- $area
    printf ' %s \r\n %s \r\n %s \r\n %s \r\n 1 \r\n""\r\n"{|Llegir %s}%s "\r\n 0 \r\n' \
      "$1" "$2" "$3" "$4" "$5" "$5"
  done
} | iconv -f UTF-8 -t WINDOWS-1252 >"$sheet"
symbols=$(ls -d "$HOME"/.cache/mervak/symbols-*/openmoji/color 2>/dev/null | tail -n 1 || true)
n=0
for cell in "1F9D2 #FFEB3B" "1F374 #8BC34A" "1F415 #FFB74D" "1F408 #FFB74D" "1F600 #64B5F6" \
  "1F64F #F48FB1"; do
  set -- $cell
  n=$((n + 1))
  picture=()
  if [ -n "$symbols" ]; then
    cp "$symbols/$1.svg" "$work/$1.svg"
    picture=(--picture "$work/$1.svg")
  fi
  "$build/bin/mervak-cli" cell "$sheet" --page 1 --area "$n" "${picture[@]}" --colour "$2"
done

mkdir -p docs/guia
# shoot INI_LANGUAGE SUFFIX FILES_KEY: grabs every picture of the guide with Mervak
# speaking that language, into docs/guia/NAME.SUFFIX.png ("" for Catalan); FILES_KEY
# is the accelerator of the first menu in that language.
shoot() {
  local ini=$1 suffix=$2 files_key=$3
  printf '[Mervak]\r\nIDIOMA=%s\r\n' "$ini" >"$work/home/MERVAK.INI"
  "$build/bin/mervak" --home "$work/home" "$sheet" &
  mervak=$!
  local main tablet properties words
  main=$(window '^Mervak - ')
  xdotool windowsize --sync "$main" 940 720 windowfocus --sync "$main"
  # The device search ends and the status bar says what to do without a tablet.
  sleep 2
  import -window "$main" "docs/guia/inici$suffix.png"

  # The virtual tablet shows only the sheet: one picture serves both guides.
  if [ -z "$suffix" ]; then
    xdotool key F12
    tablet=$(window '^Tauleta virtual')
    settle
    import -window "$tablet" docs/guia/tauleta-virtual.png
    xdotool windowfocus --sync "$main" key F12
    settle
  fi
  # The first Area selected, in drawing mode, so that its handles show.
  xdotool key ctrl+Right ctrl+d
  settle
  import -window "$main" "docs/guia/editor$suffix.png"

  # Plantilla > Dades inicials: from the first menu three menus to the right, its
  # first entry.
  xdotool key "alt+$files_key" Right Right Right Return
  properties=$(window '^(Dades Inicials|Datos Iniciales)$')
  settle
  import -window "$properties" "docs/guia/dades-inicials$suffix.png"
  xdotool key Escape
  settle

  # Làmina > Làmina de paraules: the last entry of the menu under Alt+L, with a few
  # words.
  xdotool windowfocus --sync "$main" key alt+l Up Return
  words=$(window 'mina de pa')
  settle
  xdotool type --delay 20 "gos gat vaca cavall ovella porc"
  settle
  import -window "$words" "docs/guia/paraules$suffix.png"
  xdotool key Escape
  kill "$mervak"
  wait "$mervak" 2>/dev/null || true
}

shoot CATALA "" f
cp docs/guia/editor.png docs/screenshot-editor.png
cp docs/guia/dades-inicials.png docs/screenshot-properties.png
shoot ESPAÑOL .es a
echo "Refreshed docs/screenshot-editor.png, docs/screenshot-properties.png and docs/guia/"
