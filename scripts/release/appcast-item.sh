#!/usr/bin/env bash
# Writes the update feed's item for a release: title, publication date, sparkle:version and
# sparkle:shortVersionString (CFBundleVersion and CFBundleShortVersionString of the bundle),
# sparkle:minimumSystemVersion (LSMinimumSystemVersion), the channel for a beta, and the
# enclosure with the archive's length and its Ed25519 signature. Before printing, the
# signature is checked against the bundle's own SUPublicEDKey, so that no update goes out
# that the installed copies would refuse.
#
# Usage: appcast-item.sh --archive FILE --info-plist FILE --url URL
#                        [--channel NAME] [--date "RFC 2822 date"] [--notes URL]
# The key: SPARKLE_PRIVATE_KEY or SPARKLE_PRIVATE_KEY_FILE (see ed25519.sh).
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
die() { echo "appcast-item: $*" >&2; exit 2; }

archive="" plist="" url="" channel="" date="" notes=""
while [ $# -gt 0 ]; do
  case $1 in
    --archive) archive=${2:-}; shift 2 ;;
    --info-plist) plist=${2:-}; shift 2 ;;
    --url) url=${2:-}; shift 2 ;;
    --channel) channel=${2:-}; shift 2 ;;
    --date) date=${2:-}; shift 2 ;;
    --notes) notes=${2:-}; shift 2 ;;
    *) die "unknown argument $1" ;;
  esac
done
[ -f "$archive" ] || die "no archive (--archive FILE)"
[ -f "$plist" ] || die "no Info.plist (--info-plist FILE)"
case $url in https://*) ;; *) die "the download URL must be https (--url)" ;; esac
case $channel in ''|[a-z]*) ;; *) die "a channel is a lower-case name, not $channel" ;; esac

value() { bash "$here/plist-value.sh" "$plist" "$1" || die "the Info.plist has no $1"; }
name=$(value CFBundleName)
version=$(value CFBundleVersion)
short=$(value CFBundleShortVersionString)
minimum=$(value LSMinimumSystemVersion)
public=$(value SUPublicEDKey)
case $version in ''|*[!0-9]*) die "CFBundleVersion is not a whole number: $version" ;; esac
[ -n "$public" ] || die "the bundle has no SUPublicEDKey: its updates could never be installed"

length=$(wc -c < "$archive" | tr -d ' ')
signature=$(bash "$here/ed25519.sh" sign "$archive")
bash "$here/ed25519.sh" verify "$archive" "$signature" "$public" ||
  die "the signing key does not match the bundle's SUPublicEDKey"
[ -n "$date" ] || date=$(LC_ALL=C date -u '+%a, %d %b %Y %H:%M:%S +0000')

xml() { printf '%s' "$1" | sed -e 's/&/\&amp;/g' -e 's/</\&lt;/g' -e 's/>/\&gt;/g' -e 's/"/\&quot;/g'; }
echo "    <item>"
echo "      <title>$(xml "$name $short")</title>"
echo "      <pubDate>$(xml "$date")</pubDate>"
echo "      <sparkle:version>$version</sparkle:version>"
echo "      <sparkle:shortVersionString>$(xml "$short")</sparkle:shortVersionString>"
echo "      <sparkle:minimumSystemVersion>$(xml "$minimum")</sparkle:minimumSystemVersion>"
[ -z "$channel" ] || echo "      <sparkle:channel>$channel</sparkle:channel>"
[ -z "$notes" ] || echo "      <sparkle:releaseNotesLink>$(xml "$notes")</sparkle:releaseNotesLink>"
echo "      <enclosure url=\"$(xml "$url")\" length=\"$length\" type=\"application/octet-stream\""
echo "                 sparkle:edSignature=\"$signature\"/>"
echo "    </item>"
