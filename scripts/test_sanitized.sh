#!/usr/bin/env bash
# Builds every native GoogleTest suite and the emulator with AddressSanitizer and
# UndefinedBehaviorSanitizer (one build, -O1), runs the suites labelled `native`, then runs the
# Python tests against that sanitized emulator (the Python module itself is the normal build,
# which must be installed). A sanitizer report of the emulator fails the run.
set -euo pipefail
cd "$(dirname "$0")/.."
start=$(date +%s)
build=build/sanitized
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g1" \
      -DVELMAR_SANITIZE=address,undefined -DVELMAR_BUILD_TESTS=ON -DVELMAR_BUILD_PYTHON=OFF \
      -DVELMAR_BUILD_EMULATOR=ON > /dev/null
ninja -C "$build" -j "$(nproc)"
echo "sanitized build finished after $(( $(date +%s) - start )) s"

status=0
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
ctest --test-dir "$build" -L native -j "$(nproc)" --output-on-failure --timeout 300 --no-tests=error || status=1

# The emulator writes its sanitizer reports to files, so that none goes unnoticed in a
# subprocess whose standard error nobody reads.
reports="$build/emulator-reports"
rm -rf "$reports" && mkdir -p "$reports"
export VELMAR_EMULATOR_BINARY="$PWD/$build/emulator/velmar-emulator"
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1:log_path=$PWD/$reports/asan"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1:log_path=$PWD/$reports/ubsan"
(cd tests/python && python3 -m pytest -q -c ../../pyproject.toml --rootdir ../.. \
    --ignore=hostile --ignore=test_soak.py .) || status=1
if compgen -G "$reports/*" > /dev/null; then
    echo "sanitizer reports of the emulator:"
    cat "$reports"/*
    status=1
fi
echo "sanitizer runs finished after $(( $(date +%s) - start )) s"
exit $status
