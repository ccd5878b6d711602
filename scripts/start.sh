#!/usr/bin/env bash
# Builds Vorlan and starts it on the sample library beside the program.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
exec build/bin/vorlan "$@"
