#!/usr/bin/env bash
# Builds every libFuzzer harness tests/fuzz/<name>_fuzz.cpp with clang, AddressSanitizer and
# UndefinedBehaviorSanitizer (build/fuzz: the libraries and the harnesses only), then runs each
# for a bounded time over a copy of its seed corpus tests/fuzz/corpus/<name>/, so that the run
# never writes into the repository. A crash, a leak, a time-out of one input, a harness that
# does not build or a missing corpus fails the command.
#   VELMAR_FUZZ_SECONDS  seconds per harness (default 60)
#   VELMAR_FUZZ_ONLY     run only this harness name (e.g. vrb)
set -euo pipefail
cd "$(dirname "$0")/.."
start=$(date +%s)
seconds=${VELMAR_FUZZ_SECONDS:-60}

# The newest clang that is installed; setup.sh installs clang-16 with its libFuzzer runtime.
cxx=""
for candidate in clang++-16 clang++; do
    if command -v "$candidate" > /dev/null; then cxx=$(command -v "$candidate"); break; fi
done
if [ -z "$cxx" ]; then
    echo "test_fuzz: clang++ is missing (scripts/setup.sh installs clang-16 and libclang-rt-16-dev)" >&2
    exit 1
fi

build=build/fuzz
cmake -S . -B "$build" -G Ninja -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_BUILD_TYPE=Debug \
      -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g1" -DVELMAR_SANITIZE=address,undefined -DVELMAR_BUILD_FUZZ=ON \
      -DVELMAR_BUILD_TESTS=OFF -DVELMAR_BUILD_PYTHON=OFF -DVELMAR_BUILD_EMULATOR=OFF > /dev/null
mapfile -t harnesses < <(find tests/fuzz -maxdepth 1 -name '*_fuzz.cpp' -printf '%f\n' | sed 's/_fuzz\.cpp$//' | sort)
if ((${#harnesses[@]} == 0)); then
    echo "test_fuzz: no harness in tests/fuzz" >&2
    exit 1
fi
if [ -n "${VELMAR_FUZZ_ONLY:-}" ]; then harnesses=("$VELMAR_FUZZ_ONLY"); fi
targets=()
for name in "${harnesses[@]}"; do targets+=("${name}_fuzz"); done
ninja -C "$build" -j 2 "${targets[@]}"
echo "fuzz build finished after $(( $(date +%s) - start )) s"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
passed=0
failed=0
for name in "${harnesses[@]}"; do
    seeds="tests/fuzz/corpus/$name"
    if ! compgen -G "$seeds/*" > /dev/null; then
        echo "FAILED $name: no seed corpus in $seeds"
        failed=$((failed + 1))
        continue
    fi
    corpus="$work/$name/corpus"
    mkdir -p "$corpus" "$work/$name/artifacts"
    cp "$seeds"/* "$corpus"/
    # libFuzzer stops itself after max_total_time; the outer time-out only guards a harness
    # that stops answering altogether.
    if timeout --kill-after=10 $((seconds + 120)) "$build/tests/fuzz/${name}_fuzz" \
        -max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="$work/$name/artifacts/" "$corpus" > "$work/$name/log" 2>&1; then
        echo "passed $name: $(grep -m1 -o 'stat::number_of_executed_units: *[0-9]*' "$work/$name/log" | grep -o '[0-9]*$') inputs in ${seconds} s"
        passed=$((passed + 1))
    else
        echo "FAILED $name:"
        tail -n 60 "$work/$name/log"
        for artifact in "$work/$name/artifacts"/*; do
            [ -e "$artifact" ] || continue
            echo "input that failed ($(basename "$artifact")), as Base64:"
            base64 -w 0 "$artifact"
            echo
        done
        failed=$((failed + 1))
    fi
done
echo "fuzz runs finished after $(( $(date +%s) - start )) s"
echo "fuzz: $passed passed, $failed failed"
((failed == 0))
