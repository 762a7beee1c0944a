#!/usr/bin/env bash
# The update feed as the release workflow writes it: each item is signed with Ed25519 and the
# signature checks out with the public key the bundle carries; version, short version and
# minimum system are the bundle's own; a beta carries its channel; keys that do not fit are
# refused before anything is written.
# Usage: appcast.sh INFO_PLIST
set -euo pipefail
plist=$1
release=$(cd "$(dirname "$0")/../../scripts/release" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
value() { bash "$release/plist-value.sh" "$1" "$2"; }

# A test key, and the bundle's Info.plist with its public half (a release build's).
export SPARKLE_PRIVATE_KEY
SPARKLE_PRIVATE_KEY=$(bash "$release/ed25519.sh" generate)
public=$(bash "$release/ed25519.sh" public)
[ "$(printf '%s' "$public" | openssl base64 -d -A | wc -c)" = 32 ] || fail "the public key is not 32 bytes"
sed "s|<key>SUPublicEDKey</key>[[:space:]]*<string>[^<]*</string>|<key>SUPublicEDKey</key><string>$public</string>|" \
  "$plist" > "$work/Info.plist"
# The template puts the key on the next line: join it if the first pass found nothing.
if [ "$(value "$work/Info.plist" SUPublicEDKey)" != "$public" ]; then
  tr -d '\n' < "$plist" | sed "s|<key>SUPublicEDKey</key>[[:space:]]*<string>[^<]*</string>|<key>SUPublicEDKey</key><string>$public</string>|" \
    > "$work/Info.plist"
fi
[ "$(value "$work/Info.plist" SUPublicEDKey)" = "$public" ] || fail "could not give the Info.plist the test key"

head -c 300000 /dev/urandom > "$work/Ravlin.dmg"
url=https://example.invalid/Ravlin.dmg

# Signatures: good for the file, bad for a changed file or another key.
sig=$(bash "$release/ed25519.sh" sign "$work/Ravlin.dmg")
bash "$release/ed25519.sh" verify "$work/Ravlin.dmg" "$sig" "$public" || fail "a fresh signature does not verify"
cp "$work/Ravlin.dmg" "$work/changed.dmg"; printf 'x' >> "$work/changed.dmg"
! bash "$release/ed25519.sh" verify "$work/changed.dmg" "$sig" "$public" || fail "a changed archive verifies"
other=$(SPARKLE_PRIVATE_KEY=$(bash "$release/ed25519.sh" generate) bash "$release/ed25519.sh" public)
! bash "$release/ed25519.sh" verify "$work/Ravlin.dmg" "$sig" "$other" || fail "another key verifies"

# The feed as the repository holds it: a stable item, then a beta on top of it.
cp "$release/../../updates/appcast.xml" "$work/appcast.xml"
bash "$release/appcast-item.sh" --archive "$work/Ravlin.dmg" --info-plist "$work/Info.plist" \
  --url "$url" --date "Tue, 01 Dec 2026 10:00:00 +0000" > "$work/stable.xml"
bash "$release/add-to-appcast.sh" "$work/appcast.xml" "$work/stable.xml"
bash "$release/appcast-item.sh" --archive "$work/Ravlin.dmg" --info-plist "$work/Info.plist" \
  --url "$url" --channel beta > "$work/beta.xml"
bash "$release/add-to-appcast.sh" "$work/appcast.xml" "$work/beta.xml"

# Read back with an XML parser, as Sparkle reads it.
ruby -rrexml/document - "$work/appcast.xml" > "$work/items.txt" <<'RUBY' || fail "the feed is not well-formed XML"
doc = REXML::Document.new(File.read(ARGV[0]))
REXML::XPath.each(doc, "/rss/channel/item") do |item|
  e = item.elements
  enc = e["enclosure"]
  puts [e["sparkle:channel"]&.text || "-", e["sparkle:version"].text, e["sparkle:shortVersionString"].text,
        e["sparkle:minimumSystemVersion"].text, e["title"].text.tr(" ", "_"), e["pubDate"].text.tr(" ", "_"),
        enc.attributes["url"], enc.attributes["length"], enc.attributes["sparkle:edSignature"]].join(" ")
end
RUBY
[ "$(wc -l < "$work/items.txt")" = 2 ] || fail "the feed holds $(wc -l < "$work/items.txt") items, not 2"
first=1
while read -r channel version short minimum title date enc_url length signature; do
  if [ "$first" = 1 ]; then [ "$channel" = beta ] || fail "the newest item is not the beta"
  else [ "$channel" = - ] || fail "the stable item has a channel"; [ "$date" = "Tue,_01_Dec_2026_10:00:00_+0000" ] || fail "pubDate $date"; fi
  first=0
  [ "$version" = "$(value "$plist" CFBundleVersion)" ] || fail "sparkle:version $version is not the bundle's"
  [ "$short" = "$(value "$plist" CFBundleShortVersionString)" ] || fail "shortVersionString $short is not the bundle's"
  [ "$minimum" = "$(value "$plist" LSMinimumSystemVersion)" ] || fail "minimumSystemVersion $minimum is not the bundle's"
  [ "$title" = "Ravlin_$short" ] || fail "title $title"
  [ "$enc_url" = "$url" ] || fail "enclosure url $enc_url"
  [ "$length" = "$(wc -c < "$work/Ravlin.dmg" | tr -d ' ')" ] || fail "enclosure length $length"
  bash "$release/ed25519.sh" verify "$work/Ravlin.dmg" "$signature" "$(value "$work/Info.plist" SUPublicEDKey)" ||
    fail "the feed's signature does not verify with the bundle's key"
done < "$work/items.txt"

# Refused: a key that is not the bundle's, a bundle without a key, a key in the old form.
! SPARKLE_PRIVATE_KEY=$(bash "$release/ed25519.sh" generate) bash "$release/appcast-item.sh" \
    --archive "$work/Ravlin.dmg" --info-plist "$work/Info.plist" --url "$url" > /dev/null 2>&1 ||
  fail "an item was signed with a key the bundle does not trust"
sed 's|<string>'"$public"'</string>|<string></string>|' "$work/Info.plist" > "$work/NoKey.plist"
! bash "$release/appcast-item.sh" --archive "$work/Ravlin.dmg" --info-plist "$work/NoKey.plist" \
    --url "$url" > /dev/null 2>&1 || fail "an item was written for a bundle without SUPublicEDKey"
old=$(head -c 96 /dev/urandom | openssl base64 -A)
! SPARKLE_PRIVATE_KEY=$old bash "$release/ed25519.sh" sign "$work/Ravlin.dmg" > /dev/null 2>&1 ||
  fail "a 96-byte key was taken for a seed"
! bash "$release/appcast-item.sh" --archive "$work/Ravlin.dmg" --info-plist "$work/Info.plist" \
    --url http://example.invalid/x.dmg > /dev/null 2>&1 || fail "a plain http download was accepted"

# The checksums read back with the standard tool.
bash "$release/checksums.sh" "$work/Ravlin.dmg" > "$work/SHA256SUMS.txt"
( cd "$work" && sha256sum -c --quiet SHA256SUMS.txt ) || fail "the checksums do not verify"

# The feed keeps the newest items only.
for i in 1 2 3; do RAVLIN_APPCAST_KEEP=2 bash "$release/add-to-appcast.sh" "$work/appcast.xml" "$work/stable.xml"; done
[ "$(grep -c '<item>' "$work/appcast.xml")" = 2 ] || fail "the feed was not trimmed to its newest items"
echo "appcast: signed, verified and checked against the bundle"
