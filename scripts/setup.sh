#!/usr/bin/env bash
# Installs what the build and the tests need (Debian packages, Python tools) when it is missing
# or too old, then builds and installs the velmar_link package. Extra arguments go to pip as
# config settings, e.g. scripts/setup.sh -C cmake.define.VELMAR_BUILD_TESTS=ON
# Sourcing the file defines its functions without running anything.

apt_packages=(g++ cmake ninja-build ccache lld libboost1.81-dev libboost-json1.81-dev libboost-system1.81-dev
              libssl-dev libtinyxml2-dev libfmt-dev libgtest-dev libgmock-dev
              clang-16 libclang-rt-16-dev)
# The build backend and the module's binding library; the tests' runner, peer, arrays, type check
# and property tests; circuit fits and the Kramers-Kronig check of impedance spectra.
python_tools=("scikit-build-core>=0.10" "pybind11>=3.0" "pytest>=8" "websockets>=12" "numpy>=1.26" "mypy>=1.10"
              "hypothesis>=6.100" "scipy>=1.10" "pyimpspec>=5")

# Prints the Debian packages among the arguments that are not installed.
missing_debian_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || echo "$package"
    done
}

# Prints the requirements ("name>=version") among the arguments that are not installed in at
# least that version; nothing else, whatever is or is not installed.
missing_python_tools() {
    python3 - "$@" <<'PY'
import re
import sys
from importlib import metadata


def numbers(version):
    return tuple(int(part) for part in re.findall(r"\d+", version.split("+")[0])[:3])


for requirement in sys.argv[1:]:
    name, _, minimum = requirement.partition(">=")
    try:
        installed = metadata.version(name)
    except Exception:  # not installed, or its metadata unreadable: install it
        print(requirement)
        continue
    if minimum and numbers(installed) < numbers(minimum):
        print(requirement)
PY
}

main() {
    set -euo pipefail
    cd "$(dirname "${BASH_SOURCE[0]}")/.."
    export PIP_DISABLE_PIP_VERSION_CHECK=1 PIP_ROOT_USER_ACTION=ignore

    local missing
    mapfile -t missing < <(missing_debian_packages "${apt_packages[@]}")
    if ((${#missing[@]})); then
        echo "installing Debian packages: ${missing[*]}"
        local sudo_cmd=""
        [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
        $sudo_cmd apt-get update -qq
        DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq "${missing[@]}" >/dev/null
    fi

    mapfile -t missing < <(missing_python_tools "${python_tools[@]}")
    if ((${#missing[@]})); then
        echo "installing Python tools: ${missing[*]}"
        python3 -m pip install -q "${missing[@]}"
    fi

    echo "building and installing velmar_link"
    export CMAKE_BUILD_PARALLEL_LEVEL="${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}"
    python3 -m pip install -q --no-build-isolation --no-deps "$@" .
}

if [[ "${BASH_SOURCE[0]}" == "$0" ]]; then
    main "$@"
fi
