"""Submodule with control jobs."""

from velmar_link._velmar_link.control import *  # noqa: F401,F403
