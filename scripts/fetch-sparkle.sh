#!/usr/bin/env bash
# Fetches the released Sparkle framework that Ravlin.app embeds: a pinned version whose
# download is checked against a pinned SHA-256 before anything is unpacked. Sparkle is not
# built here. Run on a Mac (the release and macOS CI jobs run it before configuring).
# Usage: fetch-sparkle.sh [FOLDER]   (default build/sparkle; CMake's RAVLIN_SPARKLE_DIR)
set -euo pipefail
cd "$(dirname "$0")/.."
version=2.6.4
sha256=eb3814726816ca2f09334ce562fff1b2cd0f7c16dd4e283256081f307accb9c4
url="https://github.com/sparkle-project/Sparkle/releases/download/$version/Sparkle-for-Swift-Package-Manager.zip"
dest=${1:-build/sparkle}

# The marker stands beside the framework: a file inside it would break its signature.
if [ -d "$dest/Sparkle.framework" ] && [ "$(cat "$dest/sparkle-version" 2>/dev/null)" = "$version" ]; then
  echo "Sparkle $version is already in $dest"
  exit 0
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
echo "Fetching Sparkle $version"
curl --fail --location --silent --show-error --retry 3 -o "$work/sparkle.zip" "$url"
actual=$(shasum -a 256 "$work/sparkle.zip" | cut -d' ' -f1)
if [ "$actual" != "$sha256" ]; then
  echo "fetch-sparkle: the download's SHA-256 is $actual, not the pinned $sha256" >&2
  exit 1
fi
# ditto keeps the framework's symbolic links.
ditto -x -k "$work/sparkle.zip" "$work/unpacked"
framework=$(find "$work/unpacked" -path '*macos*' -name Sparkle.framework -type d -prune | head -n 1)
[ -n "$framework" ] || { echo "fetch-sparkle: no macOS Sparkle.framework in the download" >&2; exit 1; }
rm -rf "$dest/Sparkle.framework"
mkdir -p "$dest"
ditto "$framework" "$dest/Sparkle.framework"
echo "$version" > "$dest/sparkle-version"
echo "Sparkle $version is in $dest/Sparkle.framework"
