#!/usr/bin/env bash
# Fetches the symbol library: OpenMoji's pictures (colour and black) and the CLDR names
# and keywords in Catalan and Spanish, at the exact versions of symbol-packages.txt.
# Each tarball must match the integrity committed there; only what Mervak reads is
# unpacked, into a cache folder outside the source tree that CMake installs as
# share/mervak/symbols. Safe to run again: a complete folder is left as it is.
#   scripts/fetch-symbols.sh            fetch when missing, print nothing else
#   scripts/fetch-symbols.sh --folder   print the folder, fetch nothing
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
cache=${MERVAK_SYMBOLS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/mervak}

declare -A version integrity
while read -r name ver sri; do
  [[ -z $name || $name == \#* ]] && continue
  version[$name]=$ver
  integrity[$name]=$sri
done <"$here/symbol-packages.txt"

folder="$cache/symbols-openmoji-${version[openmoji]}-cldr-${version[cldr-annotations-full]}"
if [ "${1:-}" = --folder ]; then
  echo "$folder"
  exit 0
fi
[ -f "$folder/complete" ] && exit 0

# Debian's npm conflicts with a Node.js that brings its own npm: install it only when
# there is no npm at all.
if ! command -v npm >/dev/null; then
  sudo_cmd=()
  [ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
  "${sudo_cmd[@]}" apt-get update -q
  DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -q --no-install-recommends npm
fi

mkdir -p "$cache"
work=$(mktemp -d "$cache/.fetch.XXXXXX")
trap 'rm -rf "$work"' EXIT

# fetch NAME: the package's tarball in $work, refused unless its integrity matches.
fetch() {
  local name=$1 tarball actual
  tarball=$(cd "$work" && npm pack --silent "$name@${version[$name]}" | tail -n 1)
  actual=$(node -e 'const fs = require("fs"), crypto = require("crypto");
    const digest = crypto.createHash("sha512").update(fs.readFileSync(process.argv[1]));
    process.stdout.write("sha512-" + digest.digest("base64"));' "$work/$tarball")
  if [ "$actual" != "${integrity[$name]}" ]; then
    echo "fetch-symbols: $name@${version[$name]} does not match its committed integrity" >&2
    exit 1
  fi
  echo "$work/$tarball"
}

openmoji=$(fetch openmoji)
cldr=$(fetch cldr-annotations-full)
mkdir -p "$work/out/openmoji" "$work/out/cldr" "$work/unpacked"
tar -xzf "$openmoji" -C "$work/unpacked" package/color/svg package/black/svg \
  package/data/openmoji.json package/LICENSE.txt
mv "$work/unpacked/package/color/svg" "$work/out/openmoji/color"
mv "$work/unpacked/package/black/svg" "$work/out/openmoji/black"
mv "$work/unpacked/package/data/openmoji.json" "$work/unpacked/package/LICENSE.txt" \
  "$work/out/openmoji/"
rm -rf "$work/unpacked" && mkdir "$work/unpacked"
tar -xzf "$cldr" -C "$work/unpacked" package/annotations/ca/annotations.json \
  package/annotations/es/annotations.json package/LICENSE
mv "$work/unpacked/package/annotations/ca" "$work/unpacked/package/annotations/es" \
  "$work/unpacked/package/LICENSE" "$work/out/cldr/"
chmod -R a+rX "$work/out"
touch "$work/out/complete"
rm -rf "$folder"
mv "$work/out" "$folder"
echo "fetch-symbols: the symbol library is in $folder"
