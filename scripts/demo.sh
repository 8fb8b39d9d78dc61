#!/usr/bin/env bash
# Builds and installs velmar_link if needed, then runs the demo against the emulator.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cd examples
python3 demo.py
