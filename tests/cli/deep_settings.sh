#!/usr/bin/env bash
# A settings file nested far deeper than any real one is refused before it is parsed: kept aside
# byte for byte while Ravlin starts with its defaults, and nothing crashes. A file nested deeply
# but not absurdly is refused the same way, never read cut down and written back.
set -euo pipefail
sandbox="$1"
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT

# deep FILE LEVELS OPEN INNERMOST CLOSE
deep() {
    {
        printf '<?xml version="1.0" encoding="UTF-8"?>\n<plist version="1.0">\n<dict>'
        printf '<key>rehideInterval</key><integer>7</integer><key>deep</key>'
        printf -- "%.0s$3" $(seq "$2")
        printf '%s' "$4"
        printf -- "%.0s$5" $(seq "$2")
        printf '</dict></plist>\n'
    } > "$1"
}

check() { # NAME LEVELS OPEN INNERMOST CLOSE
    local case="$dir/$1"
    mkdir "$case"
    local file="$case/de.vexa.Ravlin.plist"
    deep "$file" "$2" "$3" "$4" "$5"
    cp "$file" "$case/original"
    local status=0
    "$sandbox" --script - --defaults "$file" --log-dir "$case/logs" 2> "$case/log" <<'SCRIPT' || status=$?
start
expect /preferences/rehideInterval == 15
expect /defaults/deep absent
prefs set autoRehide false
SCRIPT
    if (( status != 0 )); then
        echo "$1: the sandbox ended with status $status"; tail -5 "$case/log"; exit 1
    fi
    local aside=("$case"/de.vexa.Ravlin.plist.corrupt-*)
    [[ -f "${aside[0]}" ]] || { echo "$1: the file was not kept aside"; ls "$case"; exit 1; }
    cmp -s "${aside[0]}" "$case/original" || { echo "$1: the kept file differs"; exit 1; }
    grep -q "nested more than 512 levels deep.*moved to ${aside[0]}" "$case/log" ||
        { echo "$1: no clear log line"; cat "$case/log"; exit 1; }
    grep -q "<key>autoRehide</key>" "$file" || { echo "$1: the new settings were not saved"; exit 1; }
    echo "$1: kept aside as $(basename "${aside[0]}"), defaults in use"
}

check arrays-200000 200000 '<array>' '<array/>' '</array>'
check dictionaries-200000 200000 '<dict><key>k</key>' '<dict/>' '</dict>'
check arrays-100000 100000 '<array>' '<array/>' '</array>'
