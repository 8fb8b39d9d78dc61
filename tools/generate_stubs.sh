#!/usr/bin/env bash
# Regenerates the type stubs of the extension (python/velmar_link/_velmar_link/*.pyi) from a
# built module. Usage: tools/generate_stubs.sh [python_package_dir]   (default: build/python/python_package)
set -euo pipefail
cd "$(dirname "$0")/.."
package_dir="${1:-build/python/python_package}"
python3 -m pip install -q "pybind11-stubgen>=2.5"
out=$(mktemp -d)
PYTHONPATH="$package_dir" python3 -m pybind11_stubgen velmar_link._velmar_link -o "$out" \
    --enum-class-locations "PotentiostatCoupling:velmar_link._velmar_link" \
    --enum-class-locations "CalibrationTypesEnum:velmar_link._velmar_link" \
    --ignore-invalid-expressions "<.* object at 0x[0-9a-f]+>"
rm -rf python/velmar_link/_velmar_link
cp -r "$out/velmar_link/_velmar_link" python/velmar_link/_velmar_link
rm -rf "$out"
echo "stubs written to python/velmar_link/_velmar_link"
