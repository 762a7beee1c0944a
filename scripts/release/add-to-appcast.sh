#!/usr/bin/env bash
# Puts a release's item at the top of the update feed (made when there is none yet) and keeps
# the newest items: Sparkle offers the newest item it may, so older ones only cost bandwidth.
# Usage: add-to-appcast.sh FEED ITEMFILE [TITLE]
set -euo pipefail
[ $# -ge 2 ] || { echo "usage: $0 FEED ITEMFILE [TITLE]" >&2; exit 2; }
feed=$1 item=$2 title=${3:-Ravlin}
keep=${RAVLIN_APPCAST_KEEP:-20}
[ -f "$item" ] || { echo "add-to-appcast: no item file $item" >&2; exit 2; }
grep -q '<enclosure ' "$item" || { echo "add-to-appcast: $item holds no item" >&2; exit 2; }
mkdir -p "$(dirname "$feed")"
if [ ! -f "$feed" ]; then
  cat > "$feed" <<XML
<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle">
  <channel>
    <title>$title</title>
  </channel>
</rss>
XML
fi
grep -q '<channel>' "$feed" || { echo "add-to-appcast: $feed is not an update feed" >&2; exit 2; }
tmp=$(mktemp)
awk -v item="$item" -v keep="$keep" '
  function emit_item(   line) { while ((getline line < item) > 0) print line; close(item) }
  # The new item goes before the first one there is, or at the end of an empty channel.
  (/<item>/ || /<\/channel>/) && !placed { emit_item(); placed = 1; count = 1 }
  /<item>/ { count++; if (count > keep) skipping = 1 }
  skipping { if (/<\/item>/) skipping = 0; next }
  { print }
  END { if (!placed) exit 3 }
' "$feed" > "$tmp" || { rm -f "$tmp"; echo "add-to-appcast: $feed has no channel to add to" >&2; exit 2; }
mv "$tmp" "$feed"
