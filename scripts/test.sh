#!/usr/bin/env bash
# Installs the dependencies, builds everything and runs the whole test suite.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh
ctest --preset "${RAVLIN_PRESET:-debug}"
