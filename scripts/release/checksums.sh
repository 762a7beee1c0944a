#!/usr/bin/env bash
# Prints the SHA-256 checksums of the files, in the form `shasum -a 256 -c` and
# `sha256sum -c` read back.
# Usage: checksums.sh FILE... > SHA256SUMS.txt
set -euo pipefail
[ $# -gt 0 ] || { echo "usage: $0 FILE..." >&2; exit 2; }
for f in "$@"; do
  [ -f "$f" ] || { echo "checksums: no such file: $f" >&2; exit 2; }
  ( cd "$(dirname "$f")"
    if command -v sha256sum >/dev/null; then sha256sum "$(basename "$f")"
    else shasum -a 256 "$(basename "$f")"; fi )
done
