#!/usr/bin/env bash
# Sends a signed app (zipped) or disk image to Apple's notary service, waits for the verdict,
# prints the log when it is refused, and staples the ticket to what was sent.
# Credentials (from the CI's secret store): APPLE_ID, APPLE_TEAM_ID and APPLE_APP_PASSWORD
# (an app-specific password).
# Usage: notarize.sh APP|DMG      (macOS only)
set -euo pipefail
[ $# -eq 1 ] || { echo "usage: $0 APP|DMG" >&2; exit 2; }
target=$1
: "${APPLE_ID:?}" "${APPLE_TEAM_ID:?}" "${APPLE_APP_PASSWORD:?}"
auth=(--apple-id "$APPLE_ID" --team-id "$APPLE_TEAM_ID" --password "$APPLE_APP_PASSWORD")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
submit=$target
if [ -d "$target" ]; then
  submit="$work/$(basename "$target").zip"
  ditto -c -k --keepParent "$target" "$submit"
fi
xcrun notarytool submit "$submit" "${auth[@]}" --wait --timeout 30m --output-format json > "$work/result.json"
status=$(plutil -extract status raw "$work/result.json" 2>/dev/null || echo unknown)
id=$(plutil -extract id raw "$work/result.json" 2>/dev/null || echo "")
echo "notarization of $(basename "$target"): $status"
if [ "$status" != Accepted ]; then
  [ -z "$id" ] || xcrun notarytool log "$id" "${auth[@]}" || true
  exit 1
fi
xcrun stapler staple "$target"
xcrun stapler validate "$target"
