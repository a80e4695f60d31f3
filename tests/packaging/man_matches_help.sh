#!/usr/bin/env bash
# Every option that a program's --help names is described in its man page.
#   man_matches_help.sh BIN_DIR MAN_SOURCE_DIR
set -euo pipefail
bin=$1
man=$2
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
status=0
for program in mervak mervak-cli mervak-tablet-sim; do
  options=$(MERVAK_HOME="$home" "$bin/$program" --help |
    grep -oE -- '(^|[][ ,(|])--?[a-zA-Z][a-zA-Z-]*' | sed 's/^[][ ,(|]//' | sort -u)
  [ -n "$options" ] || { echo "$program: --help names no option" >&2; exit 1; }
  for option in $options; do
    if ! grep -qF -- "*$option*" "$man/$program.1.scd"; then
      echo "$program: $option is in --help but not in its man page" >&2
      status=1
    fi
  done
done
exit $status
