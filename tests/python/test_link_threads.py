"""VelmarLink threading: cancellation from another thread, callbacks on the I/O thread, peer
closing mid-request, and connect/disconnect cycles without leaked threads or descriptors."""

from __future__ import annotations

import datetime
import os
import sys
import threading
import time

import pytest

import velmar_link

from velmar_link import ErrorCodeEnum, ErrorObject, VelmarLink, VelmarLinkConnectionStatusEnum  # noqa: E402

ms = lambda n: datetime.timedelta(milliseconds=n)  # noqa: E731
CONNECTED = VelmarLinkConnectionStatusEnum.CONNECTED
DISCONNECTED = VelmarLinkConnectionStatusEnum.DISCONNECTED


def wait_until(predicate, timeout=5.0):
    deadline = time.monotonic() + timeout
    while not predicate():
        if time.monotonic() > deadline:
            return False
        time.sleep(0.005)
    return True


def test_cancel_pending_operations_from_another_thread(emulator, link):
    link.set_request_timeout(ms(5000))
    emulator.fault("/status", "delay", delay_ms=3000)
    canceller = threading.Timer(0.2, link.cancel_pending_operations)
    canceller.start()
    started = time.monotonic()
    result = link.get_workstation_status()
    canceller.join(5)
    assert isinstance(result, ErrorObject)
    assert result.get_error_code_enum() == ErrorCodeEnum.STOPPED_MANUALLY
    assert str(result) == "manually stopped"
    assert time.monotonic() - started < 1.5
    assert link.is_connected()
    assert link.get_workstation_info().serial_number == "RQ5-EMU-000001"


def test_peer_closing_mid_request(emulator):
    link = VelmarLink("127.0.0.1", emulator.port_str)
    seen: list = []
    link.set_connection_status_callback(seen.append)
    assert not link.connect()
    emulator.fault("/status", "close")
    result = link.get_workstation_status()
    assert result.get_error_code_enum() == ErrorCodeEnum.CONNECTION_WAS_CLOSED
    assert str(result) == "network connection closed by remote peer"
    assert wait_until(lambda: seen == [CONNECTED, DISCONNECTED])
    assert not link.is_connected()
    assert link.get_workstation_status().get_error_code_enum() == ErrorCodeEnum.CONNECTION_NOT_ESTABLISHED
    assert not link.connect(), "a link reconnects after a loss"
    assert link.get_workstation_info().serial_number == "RQ5-EMU-000001"
    link.disconnect()


def test_callback_during_a_blocking_call_does_not_deadlock(emulator):
    # The status callback needs the interpreter lock on the I/O thread while the main thread
    # waits in get_workstation_status(): it only works if that wait released the lock.
    link = VelmarLink("127.0.0.1", emulator.port_str)
    fired = threading.Event()

    def on_status(status):
        if status == DISCONNECTED:
            sum(range(10000))  # real Python work under the lock
            fired.set()

    link.set_connection_status_callback(on_status)
    assert not link.connect()
    emulator.fault("/status", "close")
    started = time.monotonic()
    result = link.get_workstation_status()
    assert result.get_error_code_enum() == ErrorCodeEnum.CONNECTION_WAS_CLOSED
    assert fired.wait(5)
    assert time.monotonic() - started < 2
    link.disconnect()


def test_event_callback_during_get_workstation_status(emulator, link):
    # The event arrives and runs its Python callback on the I/O thread while the main thread
    # is still waiting for the delayed reply.
    seen = []
    handler = velmar_link.VelmarLinkEventHandler.make_log_message_event_handler(
        lambda severity, when, text: seen.append((severity, text, time.monotonic())))
    link.set_event_handler(handler)
    emulator.fault("/status", "delay", delay_ms=300, events_before_reply=[
        {"type": "MESSAGE_FROM_SERVER", "severity": "WARNING", "date_time": "2026-01-01T00:00:00Z",
         "message": "fan speed high"}])
    try:
        result = link.get_workstation_status()
        returned = time.monotonic()
    finally:
        link.clear_event_handler(handler)
    assert isinstance(result, velmar_link.WorkstationStatus)
    assert len(seen) == 1
    severity, text, when = seen[0]
    assert severity is velmar_link.LogSeverityEnum.WARNING and text == "fan speed high"
    assert when < returned


def test_second_handler_for_the_same_event_type_is_refused(link):
    factory = velmar_link.VelmarLinkEventHandler.make_job_done_event_handler
    first, second = factory(lambda info: None), factory(lambda info: None)
    link.set_event_handler(first)
    link.set_event_handler(first)
    with pytest.raises(RuntimeError, match="event handler already set"):
        link.set_event_handler(second)
    link.clear_event_handler(first)
    link.set_event_handler(second)
    link.clear_event_handler(second)


def test_other_python_threads_run_while_a_request_waits(emulator, link):
    emulator.fault("/status", "delay", delay_ms=400)
    ticks = []
    stop = threading.Event()

    def ticker():
        while not stop.is_set():
            ticks.append(1)
            time.sleep(0.01)

    worker = threading.Thread(target=ticker)
    worker.start()
    try:
        assert isinstance(link.get_workstation_status(), velmar_link.WorkstationStatus)
    finally:
        stop.set()
        worker.join(5)
    assert len(ticks) >= 10


def test_raising_callback_is_reported_and_the_link_keeps_working(emulator, monkeypatch):
    reported = []
    monkeypatch.setattr(sys, "unraisablehook", lambda info: reported.append(info.exc_type))

    def broken(status):
        raise ValueError("callback failure")

    link = VelmarLink("127.0.0.1", emulator.port_str)
    link.set_connection_status_callback(broken)
    assert not link.connect()
    assert wait_until(lambda: reported)
    assert reported[0] is ValueError
    assert isinstance(link.get_workstation_status(), velmar_link.WorkstationStatus)
    link.set_connection_status_callback(None)
    link.disconnect()


def test_disconnect_clears_the_status_callback(emulator):
    link = VelmarLink("127.0.0.1", emulator.port_str)
    seen: list = []
    link.set_connection_status_callback(seen.append)
    assert not link.connect()
    link.disconnect()
    time.sleep(0.1)
    assert seen == [CONNECTED]
    assert not link.connect()
    link.disconnect()
    assert seen == [CONNECTED], "the callback stays cleared after disconnect"


def test_set_connection_status_callback_none_clears(emulator):
    link = VelmarLink("127.0.0.1", emulator.port_str)
    seen: list = []
    link.set_connection_status_callback(seen.append)
    link.set_connection_status_callback(None)
    assert not link.connect()
    link.disconnect()
    assert seen == []
    with pytest.raises(TypeError):
        link.set_connection_status_callback(42)


def _count(path: str) -> int:
    return len(os.listdir(path))


@pytest.mark.slow
def test_connect_disconnect_cycles_leak_no_threads_or_descriptors(emulator):
    link = VelmarLink("127.0.0.1", emulator.port_str)
    for _ in range(3):  # warm-up: lazily created process-wide resources
        assert not link.connect()
        link.disconnect()
    tasks, fds = _count("/proc/self/task"), _count("/proc/self/fd")
    for _ in range(200):
        assert not link.connect()
        assert isinstance(link.get_workstation_status(), velmar_link.WorkstationStatus)
        link.disconnect()
    for _ in range(50):
        other = VelmarLink("127.0.0.1", emulator.port_str)
        assert not other.connect()
        del other  # destroyed while connected
    assert _count("/proc/self/task") == tasks
    assert _count("/proc/self/fd") <= fds
