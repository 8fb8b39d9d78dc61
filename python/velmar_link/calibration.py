"""Submodule with calibration jobs."""

from velmar_link._velmar_link.calibration import *  # noqa: F401,F403
