#!/usr/bin/env bash
# Signs Ravlin.app from the inside out, as Gatekeeper and the notary service require: every
# helper, XPC service and framework first (Sparkle's and Qt's), the plug-ins, then the app with
# its entitlements. With a Developer ID: the hardened runtime and a secure timestamp. With "-":
# an ad hoc signature (no timestamp), for builds without the signing certificate.
# Usage: sign-bundle.sh APP IDENTITY ENTITLEMENTS      (macOS only)
set -euo pipefail
[ $# -eq 3 ] || { echo "usage: $0 APP IDENTITY ENTITLEMENTS" >&2; exit 2; }
app=$1 identity=$2 entitlements=$3
[ -d "$app/Contents/MacOS" ] || { echo "sign-bundle: $app is no application bundle" >&2; exit 2; }

options=(--force --options runtime --sign "$identity")
[ "$identity" = "-" ] || options+=(--timestamp)
sign() { echo "signing ${1#"$app/"}"; codesign "${options[@]}" "$@"; }

sparkle="$app/Contents/Frameworks/Sparkle.framework"
if [ -d "$sparkle" ]; then
  # Sparkle's own order: its services and helpers, then the framework.
  for part in Versions/B/XPCServices/Installer.xpc Versions/B/XPCServices/Downloader.xpc \
              Versions/B/Autoupdate Versions/B/Updater.app; do
    [ -e "$sparkle/$part" ] || continue
    case $part in
      *Downloader.xpc) sign --preserve-metadata=entitlements "$sparkle/$part" ;;
      *) sign "$sparkle/$part" ;;
    esac
  done
  sign "$sparkle"
fi
# Qt's frameworks and plug-ins, and any other library the bundle carries.
find "$app/Contents/Frameworks" -maxdepth 1 -name '*.framework' ! -name Sparkle.framework -print0 |
  while IFS= read -r -d '' framework; do sign "$framework"; done
find "$app/Contents" \( -name '*.dylib' -o -name '*.so' \) -type f -print0 |
  while IFS= read -r -d '' library; do sign "$library"; done
sign --entitlements "$entitlements" "$app"
codesign --verify --deep --strict --verbose=2 "$app"
