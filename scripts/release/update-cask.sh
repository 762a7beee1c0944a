#!/usr/bin/env bash
# Points the Homebrew cask at a release: its version and the DMG's SHA-256 (and, when given,
# the repository the release lives in). Only stable releases go into the cask.
# Usage: update-cask.sh --version X.Y.Z --sha256 HEX [--repository OWNER/NAME] [CASK]
set -euo pipefail
die() { echo "update-cask: $*" >&2; exit 2; }
version="" sha="" repository="" cask="$(cd "$(dirname "$0")/../.." && pwd)/Casks/ravlin.rb"
while [ $# -gt 0 ]; do
  case $1 in
    --version) version=${2:-}; shift 2 ;;
    --sha256) sha=${2:-}; shift 2 ;;
    --repository) repository=${2:-}; shift 2 ;;
    -*) die "unknown argument $1" ;;
    *) cask=$1; shift ;;
  esac
done
[[ $version =~ ^[0-9]+\.[0-9]+\.[0-9]+$ ]] || die "a cask takes a stable version (X.Y.Z), not '$version'"
[[ $sha =~ ^[0-9a-f]{64}$ ]] || die "the SHA-256 is 64 lower-case hex digits, not '$sha'"
[ -f "$cask" ] || die "no cask at $cask"
[ -z "$repository" ] || [[ $repository =~ ^[A-Za-z0-9_.-]+/[A-Za-z0-9_.-]+$ ]] || die "a repository is OWNER/NAME"

tmp=$(mktemp)
sed -E \
  -e "s|^(  version )\"[^\"]*\"|\1\"$version\"|" \
  -e "s|^(  sha256 ).*$|\1\"$sha\"|" \
  "$cask" > "$tmp"
if [ -n "$repository" ]; then
  sed -E -i.bak \
    -e "s|github\\.com/[^/]+/[^/]+/releases|github.com/$repository/releases|" \
    -e "s|(homepage \"https://github\\.com/)[^\"]+\"|\1$repository\"|" \
    -e "s|raw\\.githubusercontent\\.com/[^/]+/[^/]+/|raw.githubusercontent.com/$repository/|" "$tmp"
  rm -f "$tmp.bak"
fi
grep -q "^  version \"$version\"" "$tmp" && grep -q "^  sha256 \"$sha\"" "$tmp" ||
  { rm -f "$tmp"; die "the cask has no version or sha256 line to update"; }
mv "$tmp" "$cask"
