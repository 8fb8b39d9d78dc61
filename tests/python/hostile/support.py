"""Helpers of the hostile-workstation tests: bounded calls and the checks that follow a fault."""

from __future__ import annotations

import datetime
import threading
from typing import Any, Callable

import velmar_link
from velmar_link import ErrorObject

#: Links whose calls hung: kept alive so that no destructor joins a stuck thread at collection.
STUCK: list[Any] = []


def ms(value: int) -> datetime.timedelta:
    return datetime.timedelta(milliseconds=value)


class Hung(AssertionError):
    pass


def bounded(call: Callable[[], Any], link: Any = None, timeout: float = 10.0) -> Any:
    """Run ``call`` on a thread of its own and return its result (or raise its exception).

    When it has not returned after ``timeout`` seconds the link's pending operations are
    cancelled from here (which releases a caller blocked on the link) and the test fails."""
    outcome: dict[str, Any] = {}

    def run() -> None:
        try:
            outcome["value"] = call()
        except BaseException as error:  # handed to the test thread
            outcome["error"] = error

    worker = threading.Thread(target=run, daemon=True)
    worker.start()
    worker.join(timeout)
    if worker.is_alive():
        if link is not None:
            link.cancel_pending_operations()
            STUCK.append(link)
        worker.join(5)
        raise Hung(f"the call did not return within {timeout} s")
    if "error" in outcome:
        raise outcome["error"]
    return outcome["value"]


def code_of(result: Any) -> Any:
    assert isinstance(result, ErrorObject), f"expected an ErrorObject, got {result!r}"
    return result.get_error_code_enum()


def assert_usable(link: Any) -> None:
    """The link is connected and a following request gets its answer."""
    assert link.is_connected()
    status = bounded(link.get_workstation_status, link, 5)
    assert isinstance(status, velmar_link.WorkstationStatus), status


def assert_no_source_location(text: str) -> None:
    for marker in (".hpp", ".cpp", ".ipp", "/usr/include", "boost::", "function:", "line "):
        assert marker not in text, f"library detail {marker!r} in user-facing text: {text!r}"
