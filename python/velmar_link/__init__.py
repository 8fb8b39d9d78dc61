"""Control Velmar RQ5 electrochemical workstations from Python.

The names of the native extension ``_velmar_link`` are re-exported here; the submodules
``xml``, ``control``, ``meas`` (with ``meas.stop``) and ``calibration`` are modules of this
package (``import velmar_link.meas.stop``) that re-export the extension's submodules.
"""

from __future__ import annotations

from . import _velmar_link
from ._velmar_link import *  # noqa: F401,F403

# The package's modules, not the extension's submodules of the same names.
from . import calibration, control, meas, xml  # noqa: E402

__all__ = [name for name in dir(_velmar_link) if not name.startswith("_")]
__version__: str = _velmar_link.__version__
