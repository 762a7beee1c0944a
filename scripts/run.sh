#!/usr/bin/env bash
# Installs the dependencies, builds, and runs ravlin-sandbox: its window when a
# display is there, otherwise the built-in demo, headless. Arguments go to the sandbox.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh --target ravlin-sandbox
exec build/debug/bin/ravlin-sandbox "$@"
