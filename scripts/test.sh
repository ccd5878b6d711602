#!/usr/bin/env bash
# Builds Vorlan and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cd build
ctest --output-on-failure -j2 --timeout 600
