"""The emulator against a hostile client over loopback: requests that would cost without bound,
numbers that are not numbers, a client that never reads, and exhausted file descriptors.

The emulator listens on laboratory networks too; each fault here must end in a refusal or a
dropped connection, with the emulator's memory small and other clients still served. Memory is
read from /proc/<pid>/status (VmRSS).
"""

from __future__ import annotations

import base64
import json
import os
import resource
import socket
import struct
import time
import uuid
from pathlib import Path
from typing import Any

import pytest

import websockets
from websockets.sync.client import connect  # noqa: E402

MIB = 1 << 20


def rss_bytes(pid: int) -> int:
    """Resident memory of a process."""
    for line in Path(f"/proc/{pid}/status").read_text().splitlines():
        if line.startswith("VmRSS:"):
            return int(line.split()[1]) * 1024
    raise AssertionError("no VmRSS line")


def cpu_seconds(pid: int) -> float:
    """User plus system CPU time of a process."""
    fields = Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


class Session:
    """A well-behaved client; every wait is bounded."""

    def __init__(self, emulator: Any) -> None:
        self.ws = connect(
            emulator.url, additional_headers=emulator.handshake_headers(), open_timeout=5, close_timeout=2, max_size=None
        ).__enter__()

    def send_text(self, text: str) -> None:
        self.ws.send(text)

    def reply(self, request_id: str, timeout: float = 10.0) -> dict[str, Any]:
        deadline = time.monotonic() + timeout
        while True:
            frame = self.ws.recv(timeout=max(0.01, deadline - time.monotonic()))
            if isinstance(frame, str):
                message = json.loads(frame)
                if message.get("type") == "REPLY" and message.get("request_id") == request_id:
                    return message

    def call(self, request: dict[str, Any], timeout: float = 10.0) -> dict[str, Any]:
        request = {**request, "request_id": str(uuid.uuid4())}
        self.send_text(json.dumps(request))
        return self.reply(request["request_id"], timeout)

    def close(self) -> None:
        self.ws.close()


class RawClient:
    """A WebSocket client on a bare socket: it writes frames and reads nothing at all."""

    def __init__(self, emulator: Any) -> None:
        self.sock = socket.socket(socket.AF_INET, socket.SOCK_STREAM)
        self.sock.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 4096)
        self.sock.settimeout(5)
        self.sock.connect((emulator.host, emulator.port))
        key = base64.b64encode(os.urandom(16)).decode()
        self.sock.sendall(
            (
                f"GET /default HTTP/1.1\r\nHost: {emulator.address}\r\nUpgrade: websocket\r\n"
                f"Connection: Upgrade\r\nSec-WebSocket-Key: {key}\r\nSec-WebSocket-Version: 13\r\n"
                "V-Supported-Protocol-Version: 12\r\n\r\n"
            ).encode()
        )
        head = b""
        while b"\r\n\r\n" not in head:
            chunk = self.sock.recv(1)
            assert chunk, "handshake answer cut short"
            head += chunk
        assert head.startswith(b"HTTP/1.1 101"), head

    def send_text(self, text: str) -> bool:
        """Send one masked text frame; False once the emulator has closed the connection."""
        payload = text.encode()
        header = bytearray([0x81])
        if len(payload) < 126:
            header.append(0x80 | len(payload))
        elif len(payload) < 1 << 16:
            header += bytes([0x80 | 126]) + struct.pack("!H", len(payload))
        else:
            header += bytes([0x80 | 127]) + struct.pack("!Q", len(payload))
        mask = os.urandom(4)
        masked = bytes(b ^ mask[i % 4] for i, b in enumerate(payload))
        try:
            self.sock.sendall(bytes(header) + mask + masked)
        except OSError:
            return False
        return True

    def close(self) -> None:
        self.sock.close()


def check(job_type: str, parameters: dict[str, Any]) -> str:
    return json.dumps(
        {
            "do": "/job/check_parameters",
            "request_id": str(uuid.uuid4()),
            "job": {"type": job_type, "parameters": parameters, "stop_conditions": [], "job_meta": {}},
        }
    )


CV = {
    "start_value": 0.0,
    "first_vertex": 0.5,
    "second_vertex": -0.5,
    "end_value": 0.0,
    "scan_rate": 0.1,
    "output_data_rate": 10.0,
    "num_cycles": 1.0,
    "autorange": True,
    "current_range": 0.01,
    "turn_limit_check": False,
    "upper_turn_boundary": 0.0,
    "lower_turn_boundary": 0.0,
    "step_height": 0.0,
    "ir_drop": 0.0,
}
RAMP = {
    "start_value": -10.0,
    "end_value": 10.0,
    "scan_rate": 0.1,
    "step_height": 0.0,
    "output_data_rate": 10.0,
    "autorange": True,
    "current_range": 0.01,
}


# -- bad numbers ------------------------------------------------------------------------------


@pytest.mark.parametrize(
    "job_type, changes, code, parameter",
    [
        ("cv", {"num_cycles": 5e6}, "PARAMETER_VALUE_TOO_HIGH", "num_cycles"),
        ("cv", {"num_cycles": 1e12}, "PARAMETER_VALUE_TOO_HIGH", "num_cycles"),
        ("cv", {"num_cycles": 1e300}, "PARAMETER_VALUE_TOO_HIGH", "num_cycles"),
        ("cv", {"num_cycles": 2**64 - 1}, "PARAMETER_VALUE_TOO_HIGH", "num_cycles"),
        ("cv", {"step_height": 1e-300}, "PARAMETER_VALUE_TOO_LOW", "step_height"),
        ("cv", {"num_cycles": 100000, "step_height": 1e-4, "scan_rate": 1000.0}, "PARAMETER_VALUE_TOO_HIGH", "steps"),
        ("ramp", {"step_height": 1e-12}, "PARAMETER_VALUE_TOO_LOW", "step_height"),
        ("ramp", {"scan_rate": 1e-6}, "PARAMETER_VALUE_TOO_HIGH", "duration"),
        ("ramp", {"output_data_rate": 10000.0, "scan_rate": 0.001}, "PARAMETER_VALUE_TOO_HIGH", "points"),
    ],
)
def test_costly_parameters_are_refused_with_the_device_codes(emulator, job_type, changes, code, parameter):
    base = CV if job_type == "cv" else RAMP
    session = Session(emulator)
    try:
        message = json.loads(check(job_type, {**base, **changes}))
        session.send_text(json.dumps(message))
        reply = session.reply(message["request_id"])
    finally:
        session.close()
    assert reply["status"] == "FAILED"
    assert reply["error"]["code"] == code
    assert reply["error"]["message_parameters"][0] == parameter


def test_a_burst_of_costly_requests_leaves_the_memory_small(emulator_factory):
    emulator = emulator_factory()
    session = Session(emulator)
    before = rss_bytes(emulator.pid)
    try:
        for cycles in (5e6, 1e12, 1e300, 2**64 - 1) * 5:
            start = {
                "do": "/job/start",
                "request_id": str(uuid.uuid4()),
                "job": {"type": "cv", "parameters": {**CV, "num_cycles": cycles}, "stop_conditions": [], "job_meta": {}},
            }
            session.send_text(json.dumps(start))
            reply = session.reply(start["request_id"])
            assert reply["error"]["code"] == "PARAMETER_VALUE_TOO_HIGH"
        for step in (1e-300, 1e-12, 1e-9):
            message = json.loads(check("ramp", {**RAMP, "step_height": step}))
            session.send_text(json.dumps(message))
            assert session.reply(message["request_id"])["error"]["code"] == "PARAMETER_VALUE_TOO_LOW"
        assert session.call({"do": "/id"})["status"] == "SUCCESS"
    finally:
        session.close()
    # One of these requests cost hundreds of megabytes before the limits.
    assert rss_bytes(emulator.pid) - before < 32 * MIB


def test_numbers_that_no_double_holds_are_not_a_number(emulator):
    session = Session(emulator)
    try:
        text = check("ramp", RAMP).replace('"scan_rate": 0.1', '"scan_rate": 1e999')
        session.send_text(text)
        reply = session.reply(json.loads(text.replace("1e999", "0"))["request_id"])
        assert reply["error"]["code"] == "PARAMETER_IS_NOT_A_NUMBER"
        assert reply["error"]["message"] == "parameter '{0}' is not a number"
        assert reply["error"]["message_parameters"] == ["job/parameters/scan_rate"]

        session.send_text('{"do": "/settings/set", "request_id": "s", "settings": {"display_brightness": -1e999}}')
        reply = session.reply("s")
        assert reply["error"]["code"] == "PARAMETER_IS_NOT_A_NUMBER"
        assert reply["error"]["message_parameters"] == ["settings/display_brightness"]
        assert session.call({"do": "/status"})["status"] == "SUCCESS"
    finally:
        session.close()


# -- bad timing: a client that never reads ----------------------------------------------------


def test_a_client_that_never_reads_is_dropped_while_another_is_served(emulator_factory):
    emulator = emulator_factory(limits={"max_outgoing_bytes": MIB})
    session = Session(emulator)
    raw: RawClient | None = None
    try:
        created = session.call({"do": "/VELMAR_BINARY/create", "name": "blob"})
        resource_id = created["resource"]["resource_id"]
        data = base64.b64encode(os.urandom(MIB)).decode()
        assert session.call({"do": "/VELMAR_BINARY/append", "resource_id": resource_id, "data": data})["status"] == "SUCCESS"
        before = rss_bytes(emulator.pid)

        raw = RawClient(emulator)
        request = json.dumps({"do": "/VELMAR_BINARY/get", "resource_id": resource_id, "request_id": "g"})
        sent = 0
        while sent < 400 and raw.send_text(request):  # 400 replies of 1.4 MB: 560 MB unread
            sent += 1
        assert session.call({"do": "/id"})["status"] == "SUCCESS"

        deadline = time.monotonic() + 10
        while len(session.call({"do": "/connection/list"})["connections"]) > 1:
            assert time.monotonic() < deadline, "the client that does not read was not dropped"
            time.sleep(0.05)
        assert rss_bytes(emulator.pid) - before < 64 * MIB
        assert session.call({"do": "/status"})["status"] == "SUCCESS"
    finally:
        if raw is not None:
            raw.close()
        session.close()


# -- bad timing: no descriptors left ----------------------------------------------------------


def test_exhausted_descriptors_make_the_accept_loop_wait_and_it_recovers(emulator_factory):
    emulator = emulator_factory()
    resource.prlimit(emulator.pid, resource.RLIMIT_NOFILE, (32, 32))
    sockets: list[socket.socket] = []
    try:
        # The kernel completes these connections in the listen queue; the emulator cannot
        # accept them all.
        for _ in range(48):
            sock = socket.create_connection((emulator.host, emulator.port), timeout=5)
            sockets.append(sock)
        time.sleep(0.5)
        used_before = cpu_seconds(emulator.pid)
        time.sleep(2.0)
        # Retrying at once would keep a core busy the whole time.
        assert cpu_seconds(emulator.pid) - used_before < 0.25
    finally:
        for sock in sockets:
            sock.close()

    deadline = time.monotonic() + 10
    while True:
        try:
            session = Session(emulator)
            break
        except (OSError, TimeoutError, websockets.exceptions.WebSocketException):
            assert time.monotonic() < deadline, "the emulator did not accept connections again"
            time.sleep(0.1)
    try:
        assert session.call({"do": "/id"})["status"] == "SUCCESS"
    finally:
        session.close()
