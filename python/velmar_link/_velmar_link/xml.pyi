"""
Submodule with xml utilities.
"""
from __future__ import annotations
__all__: list[str] = list()
