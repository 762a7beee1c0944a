#!/usr/bin/env bash
# Values Ravlin does not own are written back exactly as they were read, checked with Python's
# plistlib as the reference reader: unsigned integers above 2^63, dates with fractions of a
# second, UIDs, text XML cannot hold. Samples in Apple's XML and binary formats.
set -euo pipefail
sandbox="$1"
data="$2"
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT

for sample in apple-sample.xml.plist apple-sample.binary.plist; do
    mkdir "$dir/$sample"
    file="$dir/$sample/de.vexa.Ravlin.plist"
    cp "$data/$sample" "$file"
    "$sandbox" --script - --defaults "$file" --log-dir "$dir/$sample/logs" 2> "$dir/$sample/log" <<'SCRIPT' ||
start
advance 2
expect /preferences/rehideInterval == 7
prefs set autoRehide false
SCRIPT
        { echo "$sample: the sandbox failed"; tail -5 "$dir/$sample/log"; exit 1; }
    if grep -q "beyond the 64-bit range" "$dir/$sample/log"; then
        echo "$sample: a valid unsigned integer was reported as out of range"; exit 1
    fi
    python3 - "$data/$sample" "$file" <<'PY'
import plistlib, sys
original = plistlib.load(open(sys.argv[1], "rb"))
written = plistlib.load(open(sys.argv[2], "rb"))
assert written.get("autoRehide") is False, "the change was not saved"
changed = [k for k, v in original.items() if k not in written or written[k] != v or type(written[k]) != type(v)]
for k in changed:
    print(f"{k}: {original[k]!r} became {written.get(k)!r}")
sys.exit(1 if changed else 0)
PY
    echo "$sample: every value written back as it was read"
done
