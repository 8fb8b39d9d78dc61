"""Shared fixtures: the emulator (started once per session), extra emulators on demand, and a
connected ``VelmarLink``.

The package ``velmar_link`` must be importable: without it the run stops at once with a
message instead of skipping the tests that need it. The emulator program is the one named by
the environment variable ``VELMAR_EMULATOR_BINARY`` (for instance a sanitized build), else the
one bundled with the package, else the newest one in the build directories.
"""

from __future__ import annotations

import faulthandler
import importlib.util
import os
import sys
from pathlib import Path
from types import ModuleType
from typing import Any, Callable, Iterator

import pytest

REPO = Path(__file__).resolve().parents[2]

#: Upper bound of every single test, in seconds; a hanging test ends the run with tracebacks.
TEST_TIME_LIMIT = 120


def _load_emulator_module() -> ModuleType:
    try:
        from velmar_link import emulator

        return emulator
    except ImportError:
        path = REPO / "python" / "velmar_link" / "emulator.py"
        spec = importlib.util.spec_from_file_location("velmar_link_emulator_source", path)
        assert spec is not None and spec.loader is not None
        module = importlib.util.module_from_spec(spec)
        sys.modules[spec.name] = module
        spec.loader.exec_module(module)
        return module


#: Names the emulator program to run instead of the bundled one.
EMULATOR_BINARY_VARIABLE = "VELMAR_EMULATOR_BINARY"


def pytest_sessionstart(session: pytest.Session) -> None:
    """Stop the run when the package cannot be imported: its tests must not be skipped."""
    try:
        import velmar_link  # noqa: F401
    except ImportError as error:
        pytest.exit(f"velmar_link cannot be imported ({error}): build and install the package first "
                    "(scripts/setup.sh), or put its build directory on PYTHONPATH", returncode=3)


def _find_binary(module: ModuleType) -> Path:
    named = os.environ.get(EMULATOR_BINARY_VARIABLE)
    if named:
        if not Path(named).is_file():
            pytest.exit(f"{EMULATOR_BINARY_VARIABLE}={named} does not name a file", returncode=3)
        return Path(named)
    bundled = module.bundled_binary()
    if bundled.is_file():
        return bundled
    candidates = sorted(
        [*REPO.glob("build/*/python_package/velmar_link/bin/velmar-emulator"), *REPO.glob("build/*/emulator/velmar-emulator")],
        key=lambda p: p.stat().st_mtime,
        reverse=True,
    )
    if not candidates:
        pytest.exit("velmar-emulator not found: build the target velmar-emulator first", returncode=3)
    return candidates[0]


@pytest.fixture(autouse=True)
def _time_limit() -> Iterator[None]:
    """Bound every test without the pytest-timeout plugin: dump all stacks and exit on expiry."""
    faulthandler.dump_traceback_later(TEST_TIME_LIMIT, exit=True)
    yield
    faulthandler.cancel_dump_traceback_later()


@pytest.fixture(scope="session")
def emulator_module() -> ModuleType:
    """The module ``velmar_link.emulator`` (possibly loaded from the source tree)."""
    return _load_emulator_module()


@pytest.fixture(scope="session")
def emulator_binary(emulator_module: ModuleType) -> Path:
    """The ``velmar-emulator`` program to run."""
    return _find_binary(emulator_module)


@pytest.fixture(scope="session")
def emulator(emulator_module: ModuleType, emulator_binary: Path) -> Iterator[Any]:
    """One emulator for the whole session, on a free loopback port."""
    instance = emulator_module.Emulator(binary=emulator_binary, extra_args=("--seed", "1994"))
    instance.start()
    yield instance
    instance.stop()


@pytest.fixture
def emulator_factory(emulator_module: ModuleType, emulator_binary: Path) -> Iterator[Callable[..., Any]]:
    """Start further emulators with options (the ``Emulator`` keywords); all stop at teardown."""
    started: list[Any] = []

    def start(**options: Any) -> Any:
        options.setdefault("binary", emulator_binary)
        instance = emulator_module.Emulator(**options)
        started.append(instance)
        return instance.start()

    yield start
    for instance in started:
        instance.stop()


@pytest.fixture
def link(emulator: Any) -> Iterator[Any]:
    """A ``velmar_link.VelmarLink`` connected to the session emulator, disconnected afterwards."""
    import velmar_link

    instance = velmar_link.VelmarLink("127.0.0.1", emulator.port_str)
    error = instance.connect()
    assert not error, f"connect failed: {error}"
    yield instance
    instance.disconnect()
