"""Submodule with measurement jobs."""

from velmar_link._velmar_link.meas import *  # noqa: F401,F403

from . import stop  # noqa: F401  (the module, not the native submodule of the same name)
