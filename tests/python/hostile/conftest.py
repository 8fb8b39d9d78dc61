"""Fixtures of the hostile-workstation tests: a scripted server per test and a link connected
to it, released with a bounded disconnect."""

from __future__ import annotations

from typing import Any, Iterator

import pytest

import velmar_link
from velmar_link import VelmarLink

from .support import STUCK, Hung, bounded, ms
from .workstation import HostileWorkstation


@pytest.fixture
def station() -> Iterator[HostileWorkstation]:
    instance = HostileWorkstation().start()
    yield instance
    instance.stop()


def _connect(cls: type, station: HostileWorkstation) -> Any:
    link = cls("127.0.0.1", station.port_str)
    link.set_request_timeout(ms(1000))
    error = link.connect()
    assert not error, f"connect to the scripted workstation failed: {error}"
    return link


def _release(link: Any) -> None:
    if link in STUCK:
        return
    try:
        bounded(link.disconnect, link, 10)
    except Hung:
        pytest.fail("disconnect() did not return")


@pytest.fixture
def hostile_link(station: HostileWorkstation) -> Iterator[Any]:
    """A ``VelmarLink`` connected to ``station``; disconnected (bounded) afterwards."""
    link = _connect(VelmarLink, station)
    yield link
    _release(link)


@pytest.fixture
def hostile_link_exc(station: HostileWorkstation) -> Iterator[Any]:
    """A ``VelmarLinkExc`` connected to ``station``."""
    link = _connect(velmar_link.VelmarLinkExc, station)
    yield link
    _release(link)

