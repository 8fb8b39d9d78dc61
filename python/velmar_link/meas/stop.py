"""Submodule with measurement jobs."""

from velmar_link._velmar_link.meas.stop import *  # noqa: F401,F403
