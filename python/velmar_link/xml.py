"""Submodule with xml utilities."""

from velmar_link._velmar_link.xml import *  # noqa: F401,F403
