#!/usr/bin/env bash
# Builds the suites labelled `tsan` (the link with its session, job runner and transport, and
# the emulator) with ThreadSanitizer and runs every test of that label.
set -euo pipefail
cd "$(dirname "$0")/.."
start=$(date +%s)
build=build/tsan
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g1" \
      -DVELMAR_SANITIZE=thread -DVELMAR_BUILD_TESTS=ON -DVELMAR_BUILD_PYTHON=OFF \
      -DVELMAR_BUILD_EMULATOR=ON > /dev/null
# The targets whose tests carry the label `tsan` (tests/cpp/CMakeLists.txt).
ninja -C "$build" -j "$(nproc)" velmar_link_json_tests velmar_emulator_tests
echo "thread-sanitized build finished after $(( $(date +%s) - start )) s"
export TSAN_OPTIONS="halt_on_error=1:second_deadlock_stack=1"
ctest --test-dir "$build" -L tsan -j "$(nproc)" --output-on-failure --timeout 600 --no-tests=error
echo "thread-sanitized tests finished after $(( $(date +%s) - start )) s"
