#!/usr/bin/env bash
# Installs what the build needs (Debian packages, Python tools) when it is missing, then
# builds and installs the velmar_link package. Extra arguments go to pip as config settings,
# e.g. scripts/setup.sh -C cmake.define.VELMAR_BUILD_TESTS=ON
set -euo pipefail
cd "$(dirname "$0")/.."

apt_packages=(g++ cmake ninja-build ccache lld libboost1.81-dev libboost-json1.81-dev libboost-system1.81-dev
              libssl-dev libtinyxml2-dev libfmt-dev libgtest-dev libgmock-dev)
missing=()
for package in "${apt_packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
done
if ((${#missing[@]})); then
    echo "installing Debian packages: ${missing[*]}"
    sudo_cmd=""
    [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
    $sudo_cmd apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq "${missing[@]}" >/dev/null
fi

python3 - <<'PY' || python3 -m pip install -q "scikit-build-core>=0.10" "pybind11>=3.0" "pytest>=8" "websockets>=12" "numpy>=1.26"
import importlib.metadata as m
for name, major in (("scikit-build-core", 0), ("pybind11", 3), ("pytest", 8), ("websockets", 12), ("numpy", 1)):
    if int(m.version(name).split(".")[0]) < major:
        raise SystemExit(1)
PY

export CMAKE_BUILD_PARALLEL_LEVEL="${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}"
python3 -m pip install -q --no-build-isolation --no-deps "$@" .
