"""Control Velmar RQ5 electrochemical workstations from Python.

The names of the native extension ``_velmar_link`` are re-exported here; the submodules
``xml``, ``control``, ``meas`` (with ``meas.stop``) and ``calibration`` are importable as
``velmar_link.meas`` and so on.
"""

from __future__ import annotations

import sys as _sys

from . import _velmar_link
from ._velmar_link import *  # noqa: F401,F403

_SUBMODULES = ("xml", "control", "meas", "calibration")


def _register_submodules() -> None:
    for name in _SUBMODULES:
        module = getattr(_velmar_link, name)
        _sys.modules[f"{__name__}.{name}"] = module
        globals()[name] = module
    stop = _velmar_link.meas.stop
    _sys.modules[f"{__name__}.meas.stop"] = stop


_register_submodules()

__all__ = [name for name in dir(_velmar_link) if not name.startswith("_")]
__version__: str = _velmar_link.__version__
