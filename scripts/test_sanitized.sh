#!/usr/bin/env bash
# Builds the native libraries and their GoogleTest suites with AddressSanitizer and
# UndefinedBehaviorSanitizer (no Python module, no emulator) and runs them.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/sanitized
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g1" \
      -DVELMAR_SANITIZE=address,undefined -DVELMAR_BUILD_TESTS=ON -DVELMAR_BUILD_PYTHON=OFF \
      -DVELMAR_BUILD_EMULATOR=OFF > /dev/null
ninja -C "$build" -j "$(nproc)" velmar_json_common_tests velmar_settings_tests velmar_link_json_tests
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
ctest --test-dir "$build" -j "$(nproc)" --output-on-failure --timeout 300 \
      -R '^(ErrorObject|ErrorFormatting|ErrorObjectJson|ErrorFactory|VelmarLinkException|ErrorCodeEnum|ExactJson|Base64|Setting|SettingsSet|HardwareSettingsHelper|LinkJsonSession|SessionTest|LinkTransport|LinkRecords|Job|Event|Dc)'
