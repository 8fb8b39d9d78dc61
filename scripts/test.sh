#!/usr/bin/env bash
# Builds everything with the tests and runs every test: GoogleTest through ctest, then pytest
# against the emulator on loopback.
set -euo pipefail
cd "$(dirname "$0")/.."
start=$(date +%s)
scripts/setup.sh -C cmake.define.VELMAR_BUILD_TESTS=ON
echo "build finished after $(( $(date +%s) - start )) s"
status=0
ctest --test-dir build/python --output-on-failure -j "$(nproc)" --timeout 300 || status=1
(cd tests/python && python3 -m pytest -q -c ../../pyproject.toml --rootdir ../.. .) || status=1
# The native suites once more under AddressSanitizer and UndefinedBehaviorSanitizer.
scripts/test_sanitized.sh || status=1
echo "all tests finished after $(( $(date +%s) - start )) s"
exit $status
