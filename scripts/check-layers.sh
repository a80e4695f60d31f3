#!/usr/bin/env bash
# Fails when a layer includes a layer above it, when anything outside app/
# includes app/, or when logic includes Qt Widgets, Qt Gui or X11 headers.
# The build already stops a library from including what it does not link; this
# check also guards what each layer may link.
set -euo pipefail
cd "$(dirname "$0")/.."

# The folders each layer may include from (its own first).
declare -A allowed=(
  [platform]="platform"
  [platform/qt]="platform/qt platform"
  [platform/x11]="platform/x11 platform"
  [platform/audio]="platform/audio platform"
  [platform/wayland]="platform/wayland platform"
  [platform/portal]="platform/portal platform"
  [platform/backends]="platform/backends platform/x11 platform/wayland platform/portal platform"
  [template]="template platform"
  [action]="action platform"
  [action/dryrun]="action/dryrun action platform"
  [devices]="devices platform"
  [session]="session action template platform"
  [dispatch]="dispatch session action devices tracker template platform"
  [tracker]="tracker platform"
  [sheet]="sheet template platform"
  [openboard]="openboard sheet template platform"
  [scanning]="scanning dispatch session action devices tracker template platform"
  [editor]="editor session sheet template platform"
  [editor/widgets]="editor/widgets editor session sheet action template platform"
)
# Logic runs headless: Qt Core (and the serial port) only, no X11.
logic="platform template action action/dryrun devices session dispatch tracker scanning editor"

qt_headers=$(dirname "$(find /usr/include -maxdepth 3 -type d -name QtCore -path '*qt6*' | head -n 1)")
failures=0
checked=0

fail() {
  echo "layers: $1" >&2
  failures=$((failures + 1))
}

check_project_includes() {
  local folder=$1 file dir
  for file in src/"$folder"/*.h src/"$folder"/*.cpp; do
    [ -e "$file" ] || continue
    while read -r dir; do
      checked=$((checked + 1))
      [[ " ${allowed[$folder]} " == *" $dir "* ]] || fail "$file includes $dir/, above its layer"
    done < <(sed -n 's|^#include "\(.*\)/[^/]*"$|\1|p' "$file")
  done
}

check_system_includes() {
  local folder=$1 file header
  for file in src/"$folder"/*.h src/"$folder"/*.cpp; do
    [ -e "$file" ] || continue
    while read -r header; do
      checked=$((checked + 1))
      case "$header" in
      X11/* | xcb/*) fail "$file includes <$header>: X11 in logic" ;;
      Qt*/*) [[ "$header" == QtCore/* || "$header" == QtSerialPort/* ]] ||
        fail "$file includes <$header>: not Qt Core" ;;
      Q*) [ -e "$qt_headers/QtCore/$header" ] || [ -e "$qt_headers/QtSerialPort/$header" ] ||
        fail "$file includes <$header>: not Qt Core" ;;
      esac
    done < <(sed -n 's|^#include <\(.*\)>$|\1|p' "$file")
  done
}

for folder in "${!allowed[@]}"; do
  [ -d "src/$folder" ] && check_project_includes "$folder"
done
for folder in $logic; do
  [ -d "src/$folder" ] && check_system_includes "$folder"
done
while read -r file; do
  fail "$file includes app/: nothing outside the application may"
done < <(grep -rl '^#include "app/' src tools --include='*.h' --include='*.cpp' | grep -v '^src/app/' || true)

if [ "$failures" -gt 0 ]; then
  echo "layers: $failures violations" >&2
  exit 1
fi
echo "layers: ok ($checked includes checked)"
