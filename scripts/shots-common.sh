# Sourced first by the screenshot scripts, with their arguments: runs the calling
# script again on a private display with a window manager, then gives it `build`
# (its first argument, build/release by default), a work folder with an empty home
# that goes at the end along with the Mervak started as $mervak, and the helpers
# below.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/release}

if [ "${MERVAK_SHOTS_NESTED:-}" != 1 ]; then
  exec env MERVAK_SHOTS_NESTED=1 scripts/with-display.sh "$0" "$@"
fi

work=$(mktemp -d /tmp/mervak-shots.XXXXXX)
export XDG_RUNTIME_DIR="$work"
mkdir -p "$work/home"
mervak=
trap 'kill "$mervak" 2>/dev/null || true; rm -rf "$work"' EXIT

# Waits for a window whose title matches, and prints its id.
window() { timeout 20 xdotool search --sync --onlyvisible --name "$1" | head -n 1; }
# Lets the program repaint before a grab.
settle() { sleep 1; }
