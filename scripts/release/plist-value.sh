#!/usr/bin/env bash
# Prints the value of a top-level key of an XML property list (a string, a number, or
# true/false), as the bundle's Info.plist holds it; exits 1 when the key is absent.
# Usage: plist-value.sh FILE KEY
set -euo pipefail
[ $# -eq 2 ] || { echo "usage: $0 FILE KEY" >&2; exit 2; }
file=$1 key=$2
[ -f "$file" ] || { echo "plist-value: no such file: $file" >&2; exit 2; }
# A binary list (as a Mac may keep it) is turned into XML first where plutil exists.
if ! head -c 6 "$file" | grep -q '<?xml'; then
  command -v plutil >/dev/null || { echo "plist-value: $file is not XML" >&2; exit 2; }
  xml=$(plutil -convert xml1 -o - "$file")
else
  xml=$(cat "$file")
fi
# The element after <key>KEY</key>, across line breaks.
value=$(printf '%s\n' "$xml" | tr -d '\n\r' |
  sed -En "s@.*<key>$key</key>[[:space:]]*(<[a-z]*/>|<[a-z]*>[^<]*</[a-z]*>).*@\1@p")
[ -n "$value" ] || exit 1
case $value in
  '<true/>') echo true ;;
  '<false/>') echo false ;;
  *) printf '%s\n' "$value" | sed -e 's|^<[a-z]*>||' -e 's|</[a-z]*>$||' \
       -e 's|&lt;|<|g' -e 's|&gt;|>|g' -e 's|&quot;|"|g' -e "s|&apos;|'|g" -e 's|&amp;|\&|g' ;;
esac
