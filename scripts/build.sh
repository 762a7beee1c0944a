#!/usr/bin/env bash
# Configures and builds one preset (default: debug). Extra arguments go to the build.
set -euo pipefail
cd "$(dirname "$0")/.."
preset="${RAVLIN_PRESET:-debug}"
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" "$@"
