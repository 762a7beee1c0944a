#!/usr/bin/env bash
# Installs what Ravlin needs to build, test and run on Debian 12. Safe to run again:
# it only calls apt-get when a package is missing. OpenSSL signs and checks the update feed's
# Ed25519 signatures and Ruby reads the Homebrew cask in the release tests.
set -euo pipefail

packages=(
  cmake ninja-build g++ ccache pkg-config
  qt6-base-dev qt6-svg-dev qt6-positioning-dev libqt6positioning6-plugins
  libplist-dev libgtest-dev libgmock-dev libbenchmark-dev
  fonts-material-design-icons-iconfont fonts-noto-core fonts-noto-cjk
  xvfb xauth
  openssl ruby python3
)
if [[ "${RAVLIN_WITH_CLANG:-0}" == 1 ]]; then
  packages+=(clang libclang-rt-14-dev)
fi

missing=()
for p in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$p" 2>/dev/null || true)
  [[ "$status" == "install ok installed" ]] || missing+=("$p")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

sudo=()
if [[ $(id -u) -ne 0 ]]; then
  command -v sudo >/dev/null || { echo "Run as root (or install sudo): missing ${missing[*]}" >&2; exit 1; }
  sudo=(sudo)
fi
echo "Installing: ${missing[*]}"
"${sudo[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
