#!/usr/bin/env bash
# Builds everything with the tests and runs every test: GoogleTest through ctest, pytest
# against the emulator on loopback and against the scripted hostile workstation, then the
# sanitizer runs (AddressSanitizer + UBSan over every native suite and the emulator,
# ThreadSanitizer over the threaded suites), and a short libFuzzer run of every file reader
# (scripts/test_fuzz.sh). Any failure, and a missing package or emulator,
# fails the command.
set -euo pipefail
cd "$(dirname "$0")/.."
start=$(date +%s)
scripts/setup.sh -C cmake.define.VELMAR_BUILD_TESTS=ON
echo "build finished after $(( $(date +%s) - start )) s"
status=0
ctest --test-dir build/python --output-on-failure -j "$(nproc)" --timeout 300 --no-tests=error || status=1
(cd tests/python && python3 -m pytest -q -c ../../pyproject.toml --rootdir ../.. .) || status=1
scripts/test_sanitized.sh || status=1
scripts/test_tsan.sh || status=1
scripts/test_fuzz.sh || status=1
echo "all tests finished after $(( $(date +%s) - start )) s"
exit $status
