#!/usr/bin/env bash
# Regenerates the type stubs of the extension (python/velmar_link/_velmar_link/*.pyi) from a
# built module. Usage: tools/generate_stubs.sh [python_package_dir]   (default: build/python/python_package;
# a plain CMake build has it in build/dev/python_package)
set -euo pipefail
cd "$(dirname "$0")/.."
package_dir="${1:-build/python/python_package}"
python3 -c "import pybind11_stubgen" 2>/dev/null || python3 -m pip install -q "pybind11-stubgen>=2.5"
out=$(mktemp -d)
PYTHONPATH="$package_dir" python3 -m pybind11_stubgen velmar_link._velmar_link -o "$out" \
    --enum-class-locations "PotentiostatCoupling:velmar_link._velmar_link" \
    --enum-class-locations "CalibrationTypesEnum:velmar_link._velmar_link" \
    --ignore-invalid-expressions "<.* object at 0x[0-9a-f]+>"
# `id` of the link classes is a descriptor (the link's query on an instance, the query by
# address on the class), which the generator renders as an untyped function: declare it with
# its descriptor type instead. `_fields` (the order that help() shows) is a tuple of names.
python3 - "$out/velmar_link/_velmar_link/__init__.pyi" <<'PY'
import re
import sys

path = sys.argv[1]
text = open(path).read()


def typed_id(match: re.Match) -> str:
    owner = re.findall(r"^class (\w+)", text[: match.start()], re.MULTILINE)[-1]
    return f"    id: _{owner}IdQuery\n"


text = re.sub(r'    @staticmethod\n    def id\(\*args, \*\*kwargs\):\n        """.*?"""\n', typed_id, text, flags=re.S)
text = text.replace("_fields: typing.ClassVar[tuple] =", "_fields: typing.ClassVar[tuple[str, ...]] =")
open(path, "w").write(text)
PY
rm -rf python/velmar_link/_velmar_link
cp -r "$out/velmar_link/_velmar_link" python/velmar_link/_velmar_link
rm -rf "$out"
echo "stubs written to python/velmar_link/_velmar_link"
