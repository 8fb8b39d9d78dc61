"""The emulator over the wire, driven with the ``websockets`` package (no native module needed)."""

from __future__ import annotations

import base64
import json
import os
import signal
import subprocess
import time
import uuid
from typing import Any

import pytest

import websockets
from websockets.exceptions import ConnectionClosed, InvalidStatus  # noqa: E402
from websockets.sync.client import connect  # noqa: E402

VERSION_12 = {"V-Supported-Protocol-Version": "12"}


class Session:
    """One WebSocket connection with request helpers; every wait is bounded."""

    def __init__(self, emulator: Any, headers: dict[str, str] | None = None) -> None:
        # Entered explicitly: newer websockets versions warn about connections used outside
        # a with-block.
        self.ws = connect(
            emulator.url,
            additional_headers=headers if headers is not None else emulator.handshake_headers(),
            open_timeout=5,
            close_timeout=2,
            max_size=None,
        ).__enter__()

    def send(self, request: dict[str, Any]) -> str:
        request = dict(request)
        request.setdefault("request_id", str(uuid.uuid4()))
        self.ws.send(json.dumps(request))
        return request["request_id"]

    def recv(self, timeout: float = 5.0) -> str | bytes:
        return self.ws.recv(timeout=timeout)

    def recv_json(self, timeout: float = 5.0) -> dict[str, Any]:
        frame = self.recv(timeout)
        assert isinstance(frame, str), f"expected a text frame, got {len(frame)} bytes"
        return json.loads(frame)

    def call(self, request: dict[str, Any], timeout: float = 5.0) -> dict[str, Any]:
        request_id = self.send(request)
        reply = self.recv_json(timeout)
        assert reply["type"] == "REPLY" and reply["request_id"] == request_id, reply
        return reply

    def close(self) -> None:
        self.ws.close()

    def __enter__(self) -> Session:
        return self

    def __exit__(self, *exc_info: object) -> None:
        self.close()


def refusal(emulator: Any, headers: dict[str, str], target: str = "/default") -> Any:
    url = emulator.url.rsplit("/", 1)[0] + target
    with pytest.raises(InvalidStatus) as caught:
        with connect(url, additional_headers=headers, open_timeout=5):
            pass
    return caught.value.response


# -- handshake --------------------------------------------------------------------------------


def test_handshake_refusals_and_acceptance(emulator_factory):
    emulator = emulator_factory(user="lab", password="pw")
    auth = {"Authorization": "Basic " + base64.b64encode(b"lab:pw").decode()}

    assert refusal(emulator, {**VERSION_12, **auth}, target="/other").status_code == 404

    response = refusal(emulator, VERSION_12)
    assert response.status_code == 401
    assert response.headers["WWW-Authenticate"] == 'Basic realm="RQ5"'
    bad = {"Authorization": "Basic " + base64.b64encode(b"lab:wrong").decode()}
    assert refusal(emulator, {**VERSION_12, **bad}).status_code == 401

    response = refusal(emulator, {"V-Supported-Protocol-Version": "11", **auth})
    assert response.status_code == 426
    assert response.headers["V-Supported-Protocol-Version"] == "12"

    headers = {"V-Supported-Protocol-Version": "11", "V-Accept-Any-Protocol-Version": "1", **auth}
    with Session(emulator, headers) as session:
        assert session.ws.response.headers["V-Supported-Protocol-Version"] == "12"
        connection = session.call({"do": "/connection/id"})["connection"]
        assert connection["target"] == "/default"
        assert connection["using_tls"] is False
        assert connection["remote_addr"] == "127.0.0.1"


def test_protocol_version_option_is_announced(emulator_factory):
    emulator = emulator_factory(protocol_version=13)
    response = refusal(emulator, VERSION_12)
    assert response.status_code == 426
    assert response.headers["V-Supported-Protocol-Version"] == "13"
    assert emulator.control({"do": "/id"})["status"] == "SUCCESS"  # control accepts any version


# -- endpoints --------------------------------------------------------------------------------


def test_identity_status_and_connections(emulator):
    assert emulator.port_str == str(emulator.port) and emulator.address.endswith(emulator.port_str)
    workstation = emulator.control({"do": "/id"})["workstation"]
    assert list(workstation) == [
        "serial_number",
        "model_name",
        "firmware_version",
        "firmware_build_id",
        "cpu_card_uuid",
        "system_mac",
        "system_name",
        "mode",
    ]
    assert workstation["model_name"] == "RQ5" and workstation["mode"] == "EMULATION"
    status = emulator.control({"do": "/status"})["workstation_status"]
    assert status["busy"] is False and isinstance(status["uptime"], int)

    with Session(emulator) as first, Session(emulator) as second:
        second_id = second.call({"do": "/connection/id"})["connection"]["connection_id"]
        listed = [c["connection_id"] for c in first.call({"do": "/connection/list"})["connections"]]
        assert second_id in listed
        reply = first.call({"do": "/connection/drop", "connection_id": "no-such-id"})
        assert reply["status"] == "FAILED"
        assert reply["error"]["code"] == "ID_NOT_FOUND"
        assert reply["error"]["message_parameters"] == ["connection", "connection_id", "no-such-id"]
        assert first.call({"do": "/connection/drop", "connection_id": second_id})["status"] == "SUCCESS"
        with pytest.raises(ConnectionClosed) as closed:
            second.recv(timeout=5)
        assert closed.value.rcvd is not None and closed.value.rcvd.code == 1000


def test_unknown_endpoint_and_malformed_frames(emulator):
    with Session(emulator) as session:
        reply = session.call({"do": "/nowhere"})
        assert reply["error"]["code"] == "ENDPOINT_NOT_FOUND"
        assert reply["error"]["message"] == "endpoint '{0}' not found"
        assert reply["error"]["message_parameters"] == ["/nowhere"]
        session.ws.send("{not json")
        assert session.recv_json()["error"]["code"] == "JSON_MALFORMED"
        session.ws.send(json.dumps({"request_id": "r-1"}))
        reply = session.recv_json()
        assert reply["request_id"] == "r-1" and reply["error"]["code"] == "PARAMETER_MISSING"


def test_settings_outcomes_and_changes(emulator_factory):
    emulator = emulator_factory()
    settings = emulator.control({"do": "/settings/get"})["settings"]
    assert isinstance(settings["network_dhcp"], bool)
    assert isinstance(settings["network_port"], int)
    assert isinstance(settings["fan_curve_temperature_low"], float)
    assert isinstance(settings["network_hostname"], str)

    changes = {
        "display_brightness": 55,
        "network_hostname": "bench-7",
        "network_port": 0,
        "system_serial_number": "X",
        "network_dhcp": "yes",
        "unknown_key": 1,
    }
    reply = emulator.control({"do": "/settings/set", "settings": changes})
    assert reply["status"] == "SUCCESS"
    outcome = {key: value["status"] if value["status"] == "SUCCESS" else value["error"]["code"]
               for key, value in reply["settings"].items()}
    assert outcome == {
        "display_brightness": "SUCCESS",
        "network_hostname": "SUCCESS",
        "network_port": "PARAMETER_VALUE_TOO_LOW",
        "system_serial_number": "SETTINGS_NOT_APPLIED",
        "network_dhcp": "PARAMETER_FORMAT_INVALID",
        "unknown_key": "ID_NOT_FOUND",
    }
    after = emulator.control({"do": "/settings/get"})["settings"]
    assert after["display_brightness"] == 55 and after["network_hostname"] == "bench-7"
    assert after["network_port"] == settings["network_port"]

    reply = emulator.control({"do": "/settings/set"})
    assert reply["status"] == "FAILED" and reply["error"]["code"] == "PARAMETER_MISSING"


def _upload(session: Session, kind: str, content: bytes, chunk: int) -> str:
    created = session.call({"do": f"/{kind}/create", "name": "upload"})
    assert created["status"] == "SUCCESS", created
    resource_id = created["resource"]["resource_id"]
    for start in range(0, len(content), chunk):
        data = base64.b64encode(content[start : start + chunk]).decode("ascii")
        reply = session.call({"do": f"/{kind}/append", "resource_id": resource_id, "data": data}, timeout=30)
        assert reply["status"] == "SUCCESS", reply
    return resource_id


def test_resource_chunks_and_download_frame(emulator):
    content = os.urandom(300_000)
    with Session(emulator) as session:
        resource_id = _upload(session, "WAVE", content, 65_536)
        info = session.call({"do": "/WAVE/info", "resource_id": resource_id})["resource"]
        assert info["size"] == len(content) and info["type"] == "WAVE"
        assert set(info) == {"resource_id", "name", "type", "sub_type", "size", "created", "created_by",
                             "updated", "job_id", "header"}

        reply = session.call({"do": "/WAVE/get", "resource_id": resource_id, "offset": 1000, "limit": 500})
        assert base64.b64decode(reply["data"]) == content[1000:1500]
        assert reply["resource_total_size"] == len(content)
        reply = session.call({"do": "/WAVE/get", "resource_id": resource_id, "offset": 10**9, "limit": 0})
        assert reply["data"] == ""

        assert session.call({"do": "/WAVE/download", "resource_id": resource_id, "limit": 0})["status"] == "SUCCESS"
        assert session.recv() == content
        session.call({"do": "/WAVE/download", "resource_id": resource_id, "limit": 10})
        assert session.recv() == content[:10]

        mismatch = session.call({"do": "/FIRMWARE_UPDATE/get", "resource_id": resource_id})
        assert mismatch["error"]["code"] == "RESOURCE_TYPE_MISMATCH"
        assert session.call({"do": "/WAVE/delete", "resource_id": resource_id})["status"] == "SUCCESS"
        gone = session.call({"do": "/WAVE/info", "resource_id": resource_id})
        assert gone["error"]["code"] == "ID_NOT_FOUND"
        assert gone["error"]["message_parameters"] == ["resource", "resource_id", resource_id]


@pytest.mark.slow
def test_64_mib_resource_round_trip(emulator_factory):
    emulator = emulator_factory()
    content = os.urandom(64 << 20)
    with Session(emulator) as session:
        resource_id = _upload(session, "VELMAR_BINARY", content, 4 << 20)
        reply = session.call({"do": "/VELMAR_BINARY/download", "resource_id": resource_id, "limit": 0}, timeout=60)
        assert reply["status"] == "SUCCESS"
        assert session.recv(timeout=60) == content


# -- test hooks -------------------------------------------------------------------------------


def test_fault_delay_with_events_before_reply(emulator):
    events = [{"type": "MESSAGE_FROM_SERVER", "text": "first"}, {"type": "MESSAGE_FROM_SERVER", "text": "second"}]
    assert emulator.fault("/status", "delay", delay_ms=300, events_before_reply=events)["status"] == "SUCCESS"
    with Session(emulator) as session:
        started = time.monotonic()
        request_id = session.send({"do": "/status"})
        assert session.recv_json() == {"type": "EVENT", "event": events[0]}
        assert session.recv_json() == {"type": "EVENT", "event": events[1]}
        reply = session.recv_json()
        assert reply["request_id"] == request_id and reply["status"] == "SUCCESS"
        assert time.monotonic() - started >= 0.28
        # Used up: the next request is answered at once.
        assert session.call({"do": "/status"}, timeout=1)["status"] == "SUCCESS"


@pytest.mark.parametrize(
    "action, check",
    [
        ("malformed", lambda frame: isinstance(frame, str) and not _is_json(frame)),
        ("no_type", lambda frame: "type" not in json.loads(frame)),
        ("unknown_type", lambda frame: json.loads(frame)["type"] == "WHATEVER"),
        ("binary", lambda frame: isinstance(frame, bytes)),
    ],
)
def test_fault_stray_frame_precedes_reply(emulator, action, check):
    emulator.fault("/id", action)
    with Session(emulator) as session:
        request_id = session.send({"do": "/id"})
        assert check(session.recv())
        reply = session.recv_json()
        assert reply["request_id"] == request_id and reply["status"] == "SUCCESS"


def test_fault_drop_and_close(emulator):
    emulator.fault("/id", "drop")
    emulator.fault("/status", "close")
    with Session(emulator) as session:
        session.send({"do": "/id"})
        with pytest.raises(TimeoutError):
            session.recv(timeout=0.5)
        assert session.call({"do": "/id"})["status"] == "SUCCESS"
        session.send({"do": "/status"})
        with pytest.raises(ConnectionClosed):
            session.recv(timeout=5)


def test_emulator_event_arrives_after_its_delay(emulator):
    with Session(emulator) as session:
        event = {"type": "MESSAGE_FROM_SERVER", "text": "later"}
        assert session.call({"do": "/emulator/event", "event": event, "delay_ms": 200})["status"] == "SUCCESS"
        # Other requests are served while the event waits.
        assert session.call({"do": "/id"}, timeout=0.15)["status"] == "SUCCESS"
        assert session.recv_json(timeout=5) == {"type": "EVENT", "event": event}


# -- the program --------------------------------------------------------------------------------


def test_command_line_help_errors_and_idle_exit(emulator_binary):
    result = subprocess.run([emulator_binary, "--help"], capture_output=True, text=True, timeout=10)
    assert result.returncode == 0 and "--idle-exit" in result.stdout
    result = subprocess.run([emulator_binary, "--bogus"], capture_output=True, text=True, timeout=10)
    assert result.returncode == 2 and "--bogus" in result.stderr

    process = subprocess.Popen([emulator_binary, "--port", "0", "--idle-exit", "0.3"], stdout=subprocess.PIPE, text=True)
    try:
        assert process.stdout.readline().startswith("listening on 127.0.0.1:")
        assert process.wait(timeout=10) == 0
    finally:
        if process.poll() is None:
            process.kill()
            process.wait()
        process.stdout.close()


def test_sigterm_closes_connections_and_exits_cleanly(emulator_factory):
    emulator = emulator_factory()
    with Session(emulator) as session:
        os.kill(emulator.pid, signal.SIGTERM)
        with pytest.raises(ConnectionClosed) as closed:
            session.recv(timeout=5)
        assert closed.value.rcvd is not None and closed.value.rcvd.code == 1000
    assert emulator.stop() == 0


def _is_json(text: str) -> bool:
    try:
        json.loads(text)
    except ValueError:
        return False
    return True


def test_limits_become_options_and_unknown_ones_are_refused(emulator_module, emulator_binary):
    emulator = emulator_module.Emulator(binary=emulator_binary, limits={"max_outgoing_bytes": 1 << 20, "jobs_kept": 10})
    command = emulator.command()
    assert command[command.index("--max-outgoing-bytes") + 1] == str(1 << 20)
    assert command[command.index("--jobs-kept") + 1] == "10"
    with pytest.raises(ValueError):
        emulator_module.Emulator(binary=emulator_binary, limits={"max_everything": 1})
    with pytest.raises(ValueError):
        emulator_module.Emulator(binary=emulator_binary, limits={"jobs_kept": 0})
    # Every name the launcher knows is an option of the program.
    help_text = subprocess.run([str(emulator_binary), "--help"], capture_output=True, text=True, timeout=10).stdout
    for name in emulator_module.LIMIT_NAMES:
        assert "--" + name.replace("_", "-") in help_text
