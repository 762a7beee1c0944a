#!/usr/bin/env bash
# A settings file that cannot be read is never written over: Ravlin runs on its defaults and
# saves nothing of its own; a setting the user changes is saved in the file's place while the
# unreadable file is kept beside it, untouched. Root reads every file, so as root the sandbox
# runs as the unprivileged user nobody.
set -euo pipefail
sandbox="$1"
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
file="$dir/de.vexa.Ravlin.plist"
settings='<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>rehideInterval</key><integer>7</integer></dict></plist>'

run_as=()
if [[ $(id -u) == 0 ]]; then
    if ! command -v setpriv > /dev/null; then
        echo "SKIP: running as root without setpriv, so no file can be made unreadable"; exit 0
    fi
    run_as=(setpriv --reuid=65534 --regid=65534 --clear-groups)
    chown 65534:65534 "$dir"
    if ! "${run_as[@]}" test -x "$sandbox"; then
        echo "SKIP: the user nobody cannot run $sandbox"; exit 0
    fi
fi

unreadable() { # a file its owner may write but not read
    printf '%s\n' "$settings" > "$file"
    [[ -z "${run_as[*]}" ]] || chown 65534:65534 "$file"
    chmod 200 "$file"
}

sandbox() { # SCRIPT
    "${run_as[@]}" env HOME="$dir" "$sandbox" --script - --defaults "$file" \
        --log-dir "$dir/logs" 2> "$dir/log" <<< "$1" ||
        { echo "the sandbox failed"; cat "$dir/log"; exit 1; }
}

content() { chmod 600 "$1"; cat "$1"; chmod 200 "$1"; }

# Start-up's own writes (the seeded positions) leave the file alone.
unreadable
sandbox 'start
expect /preferences/rehideInterval == 15'
[[ "$(content "$file")" == "$settings" ]] || { echo "the unreadable file was written over"; exit 1; }
[[ $(grep -c "cannot be read" "$dir/log") == 1 ]] || { echo "not one clear log line"; cat "$dir/log"; exit 1; }
if compgen -G "$file.unreadable-*" > /dev/null; then echo "moved without a change by the user"; exit 1; fi

# A change by the user is saved; the unreadable file is kept beside it.
sandbox 'start
prefs set autoRehide false
expect /preferences/autoRehide == false'
kept=("$file".unreadable-*)
[[ -f "${kept[0]}" ]] || { echo "the unreadable file was not kept"; ls -la "$dir"; exit 1; }
[[ "$(content "${kept[0]}")" == "$settings" ]] || { echo "the kept file changed"; exit 1; }
grep -q "<key>autoRehide</key>" "$file" || { echo "the change was not saved"; exit 1; }
grep -q "kept as ${kept[0]}" "$dir/log" || { echo "the log does not say where"; cat "$dir/log"; exit 1; }
echo "unreadable file left alone, then kept as $(basename "${kept[0]}") when a setting changed"
