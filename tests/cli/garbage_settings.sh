#!/usr/bin/env bash
# A settings file full of garbage is moved aside, not lost, and Ravlin starts with its defaults.
set -euo pipefail
sandbox="$1"
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
head -c 4096 /dev/urandom > "$dir/de.vexa.Ravlin.plist"
cp "$dir/de.vexa.Ravlin.plist" "$dir/original"
"$sandbox" --script - --defaults "$dir/de.vexa.Ravlin.plist" 2> "$dir/log" <<'SCRIPT'
start
expect /preferences/rehideInterval == 15
expect /preferences/tileStyle == "dashboard"
expect /defaults/rehideInterval absent
prefs set autoRehide false
SCRIPT
aside=("$dir"/de.vexa.Ravlin.plist.corrupt-*)
[[ -f "${aside[0]}" ]] || { echo "the garbage was not moved aside"; ls "$dir"; exit 1; }
cmp -s "${aside[0]}" "$dir/original" || { echo "the moved file differs from the garbage"; exit 1; }
grep -q "moved to" "$dir/log" || { echo "no warning was logged"; cat "$dir/log"; exit 1; }
grep -q "<key>autoRehide</key>" "$dir/de.vexa.Ravlin.plist" || { echo "the new settings file was not written"; exit 1; }
echo "garbage moved aside to $(basename "${aside[0]}"), defaults in use"
