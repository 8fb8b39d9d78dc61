"""A scripted workstation for the client: a WebSocket server on 127.0.0.1 that accepts the
client's handshake like an RQ5 and then plays what each test tells it to, misbehaviour included.

A test routes request paths to handlers ``handler(peer, request)``; a handler answers through
the ``Peer`` (replies, events, "JOB_DONE" frames, raw text or binary frames, a close) now or
later. Every frame the client sends is recorded, so a test can assert what was (not) sent.
"""

from __future__ import annotations

import base64
import json
import struct
import threading
import time
import uuid
from typing import Any, Callable, Sequence

from websockets.exceptions import ConnectionClosed
from websockets.sync.server import ServerConnection, serve

PROTOCOL_VERSION = 12
DC_COLUMNS = {"dimensions": ["time", "voltage", "current"], "units": ["s", "V", "A"],
              "urns": ["MAIN:1:POT:TIME", "MAIN:1:POT:VOLTAGE", "MAIN:1:POT:CURRENT"]}
WORKSTATION = {"serial_number": "RQ5-HOSTILE-1", "model_name": "RQ5", "firmware_version": "1.0.0",
               "firmware_build_id": "0", "cpu_card_uuid": "00000000-0000-4000-8000-000000000000",
               "system_mac": "02:00:00:00:00:01", "system_name": "hostile", "mode": "EMULATION"}
STATUS = {"busy": False, "uptime": 1, "last_dc_calibration": "2026-01-01T00:00:00Z", "mode": "EMULATION"}

Handler = Callable[["Peer", dict], None]


def error_object(code: str, message: str, *parameters: Any) -> dict:
    """An error object as the device writes it; the number is looked up from the code's name."""
    from velmar_link import ErrorCodeEnum

    return {"number": ErrorCodeEnum.__members__[code].value, "code": code, "message": message,
            "message_parameters": list(parameters)}


NO_ERROR = {"number": 0, "code": "NONE", "message": "no error occoured", "message_parameters": []}


def dc_header(columns: dict = DC_COLUMNS) -> dict:
    """A DC live-data header with the given column arrays."""
    return {"measurement_type_short": "ramp", "measurement_type": "Linear Sweep",
            **{key: list(value) for key, value in columns.items()}, "columns": columns}


OHM = "\u2126"
EIS_META = {"dimensions": ["frequency", "periods", "time", "wave_id", "wave_size"], "units": ["Hz", "", "s", "", ""]}


def eis_header() -> dict:
    """An impedance live-data header: one impedance, the voltage and current paths of the main
    potentiostat, no asynchronous path, the potentiostat, the five meta columns."""
    u, i = "MAIN:1:POT:U~MUX:1:MUX_U", "MAIN:1:POT:I~MUX:1:MUX_I"
    groups = {
        "impedances": [{"impedance_name": "", "numerator": u, "denominator": i,
                        "dimensions": ["|impedance|", "phase"], "units": [OHM, "rad"]}],
        "paths": [{"name": "voltage", "uri": u, "dimensions": ["dc", "gain"], "units": ["V", ""]},
                  {"name": "current", "uri": i, "dimensions": ["dc", "gain"], "units": ["A", ""]}],
        "async_paths": [],
        "potentiostats": [{"uri": "MAIN:1:POT", "dimensions": ["dc", "shunt"], "units": ["V", OHM]}],
    }
    columns = [EIS_META] + [group for key in groups for group in groups[key]]
    return {"measurement_type": "Electrochemical Impedance Spectroscopy", "measurement_type_short": "EIS",
            "dimensions": [d for c in columns for d in c["dimensions"]],
            "units": [u for c in columns for u in c["units"]], **groups, "meta": EIS_META}


def eis_row(frequency: float, wave_id: int = 0, wave: Sequence[float] = (1.0, 2.0, 3.0), **replace: Any) -> dict:
    """One frequency point that fits ``eis_header()`` (1 kOhm, no phase); ``replace`` swaps
    whole groups, e.g. ``meta=None`` drops the meta group."""
    row: dict[str, Any] = {
        "impedances": [[1000.0, 0.0]], "paths": [[0.0, 1.0], [0.0, 10.0]],
        "paths_waves": [list(wave), [w / 1000.0 for w in wave]] if wave else [],
        "async_paths": [], "potentiostats": [[0.0, 1000.0]],
        "meta": [[frequency, 4.0, 0.1 * wave_id, float(wave_id), float(len(wave))]],
    }
    for key, value in replace.items():
        if value is None:
            row.pop(key, None)
        else:
            row[key] = value
    return row


def rows_base64(rows: Sequence[Sequence[float]]) -> str:
    """Rows as the binary row form: row after row of little-endian doubles, in Base64."""
    return base64.b64encode(b"".join(struct.pack(f"<{len(row)}d", *row) for row in rows)).decode()


def columns_bytes(columns: Sequence[Sequence[float]]) -> bytes:
    """A result frame: the columns one after the other, little-endian doubles."""
    return b"".join(struct.pack(f"<{len(column)}d", *column) for column in columns)


class Peer:
    """One client connection as the script sees it. Sending is safe from any thread; frames
    to a connection that has gone are dropped."""

    def __init__(self, connection: ServerConnection, station: "HostileWorkstation") -> None:
        self.connection = connection
        self.station = station
        self._send_lock = threading.Lock()

    # -- raw frames ------------------------------------------------------------------------
    def send_text(self, text: str) -> None:
        with self._send_lock:
            try:
                self.connection.send(text)
            except (ConnectionClosed, OSError, RuntimeError):
                pass

    def send_binary(self, data: bytes) -> None:
        with self._send_lock:
            try:
                self.connection.send(bytes(data))
            except (ConnectionClosed, OSError, RuntimeError):
                pass

    def send(self, message: dict) -> None:
        self.send_text(json.dumps(message))

    def close(self) -> None:
        try:
            self.connection.close()
        except (ConnectionClosed, OSError, RuntimeError):
            pass

    def later(self, seconds: float, action: Callable[[], None]) -> None:
        """Run ``action`` after ``seconds`` on a thread of its own (other requests go on)."""
        timer = threading.Timer(seconds, action)
        timer.daemon = True
        self.station._timers.append(timer)
        timer.start()

    # -- protocol frames -------------------------------------------------------------------
    def reply(self, request: dict, **keys: Any) -> None:
        self.send({"type": "REPLY", "request_id": request.get("request_id"), "status": "SUCCESS", **keys})

    def fail(self, request: dict, code: str, message: str, *parameters: Any) -> None:
        self.send({"type": "REPLY", "request_id": request.get("request_id"), "status": "FAILED",
                   "error": error_object(code, message, *parameters)})

    def event(self, event_type: str, **payload: Any) -> None:
        self.send({"type": "EVENT", "event": {"type": event_type, **payload}})

    def accept_job(self, request: dict, job_id: str) -> dict:
        """The start reply of an accepted job; returns its job information (PENDING)."""
        info = job_info(request, job_id, "PENDING", "NOT_FINISHED")
        self.reply(request, job_id=job_id, job_info=info)
        return info

    def job_done(self, request: dict, job_id: str, status: str = "FINISHED",
                 detail: str = "RUN_TO_COMPLETION", **extra: Any) -> None:
        self.send({"type": "JOB_DONE", "request_id": request.get("request_id"), "job_id": job_id,
                   "status": status, "status_detail": detail,
                   "job_info": job_info(request, job_id, status, detail), **extra})

    def begin_dc_job(self, request: dict, rows: Sequence[Sequence[float]], job_id: str | None = None, *,
                     with_job_id: bool = True, header: dict | None = None) -> str:
        """Accept a DC job and send status RUNNING, the live-data header and the rows in one
        event; the job stays open. Returns its id."""
        job_id = job_id or str(uuid.uuid4())
        tag = {"job_id": job_id} if with_job_id else {}
        self.accept_job(request, job_id)
        running = job_info(request, job_id, "RUNNING", "NOT_FINISHED")
        self.event("JOB_STATUS_UPDATE", new_status="RUNNING", job_info=running, **tag)
        self.event("LIVE_DATA_HEADER", header=header or dc_header(), job_info=running, **tag)
        self.event("LIVE_DATA_ROWS", data=[list(row) for row in rows], **tag)
        return job_id

    def end_dc_job(self, request: dict, job_id: str) -> None:
        """The finished mark and the "JOB_DONE" frame of a job that ran to completion."""
        self.event("LIVE_DATA_FINISHED", job_id=job_id,
                   job_info=job_info(request, job_id, "FINISHED", "RUN_TO_COMPLETION"))
        self.job_done(request, job_id)

    def run_dc_job(self, request: dict, rows: Sequence[Sequence[float]], job_id: str | None = None,
                   **options: Any) -> str:
        """A whole DC job that runs to completion; its result is kept for download."""
        job_id = self.begin_dc_job(request, rows, job_id, **options)
        columns = [list(column) for column in zip(*rows)] if rows else [[], [], []]
        self.station.add_result(job_id, columns_bytes(columns), len(rows))
        self.end_dc_job(request, job_id)
        return job_id


def job_info(request: dict, job_id: str, status: str, detail: str) -> dict:
    """The device's job information for the job of a "/job/start" request."""
    job = request.get("job") if isinstance(request.get("job"), dict) else {}
    return {"job_id": job_id, "status": status, "status_detail": detail, "type": job.get("type", ""),
            "created": "2026-01-01T00:00:00.000Z", "started": "", "ended": "", "error": NO_ERROR,
            "options": {}, "job_meta": job.get("job_meta", {})}


class HostileWorkstation:
    """The scripted server. ``on(path, handler)`` routes a request path; unrouted paths answer
    ENDPOINT_NOT_FOUND, except "/id" and "/status", which answer like a device, and the
    job-result resource paths, which serve the results kept by ``add_result``."""

    def __init__(self) -> None:
        self._routes: dict[str, Handler] = {}
        self._lock = threading.Lock()
        self._received: list[str | bytes] = []
        self._timers: list[threading.Timer] = []
        self.peers: list[Peer] = []
        self.results: dict[str, dict] = {}
        self._server = None
        self._thread: threading.Thread | None = None
        self.port = 0
        self.on("/id", lambda peer, request: peer.reply(request, workstation=WORKSTATION))
        self.on("/status", lambda peer, request: peer.reply(request, workstation_status=STATUS))
        self.on("/JOB_RESULT/list", self._list_results)
        self.on("/JOB_RESULT/download", self._download_result)

    # -- set-up ----------------------------------------------------------------------------
    def on(self, path: str, handler: Handler) -> None:
        self._routes[path] = handler

    def add_result(self, job_id: str, content: bytes, declared_rows: int | None,
                   header: dict | None = None) -> None:
        """Keep a DC job result: ``content`` is sent as the download's binary frame and
        ``declared_rows`` (unless None) is the header's "number_of_rows"."""
        resource_header: dict[str, Any] = {"job_data_header": header or dc_header()}
        if declared_rows is not None:
            resource_header["number_of_rows"] = declared_rows
        self.results[job_id] = {"resource_id": str(uuid.uuid4()), "name": f"job {job_id}", "type": "JOB_RESULT",
                                "sub_type": "DATASET_DC", "size": len(content), "created": "", "created_by": "emulator",
                                "updated": "", "job_id": job_id, "header": resource_header, "_content": content}

    def start(self) -> "HostileWorkstation":
        def add_version(connection, request, response):
            response.headers["V-Supported-Protocol-Version"] = str(PROTOCOL_VERSION)
            return response

        self._server = serve(self._serve, "127.0.0.1", 0, process_response=add_version, compression=None,
                             max_size=None, ping_interval=None)
        self.port = self._server.socket.getsockname()[1]
        self._thread = threading.Thread(target=self._server.serve_forever, name="hostile-workstation", daemon=True)
        self._thread.start()
        return self

    def stop(self) -> None:
        for timer in self._timers:
            timer.cancel()
        for timer in self._timers:
            timer.join(5)
        for peer in list(self.peers):
            peer.close()
        if self._server is not None:
            self._server.shutdown()
        if self._thread is not None:
            self._thread.join(5)

    @property
    def port_str(self) -> str:
        return str(self.port)

    # -- what the client sent --------------------------------------------------------------
    def received(self) -> list[dict]:
        """Every text frame that parsed as a JSON object, in arrival order."""
        with self._lock:
            frames = list(self._received)
        parsed = []
        for frame in frames:
            try:
                value = json.loads(frame)
            except (TypeError, ValueError):
                continue
            if isinstance(value, dict):
                parsed.append(value)
        return parsed

    def raw_received(self) -> list[str | bytes]:
        with self._lock:
            return list(self._received)

    def requests(self, path: str) -> list[dict]:
        return [frame for frame in self.received() if frame.get("do") == path]

    def wait_for_requests(self, path: str, count: int, timeout: float = 5.0) -> bool:
        deadline = time.monotonic() + timeout
        while len(self.requests(path)) < count:
            if time.monotonic() > deadline:
                return False
            time.sleep(0.005)
        return True

    # -- serving ---------------------------------------------------------------------------
    def _serve(self, connection: ServerConnection) -> None:
        peer = Peer(connection, self)
        self.peers.append(peer)
        try:
            for message in connection:
                with self._lock:
                    self._received.append(message)
                if not isinstance(message, str):
                    continue
                try:
                    request = json.loads(message)
                except ValueError:
                    continue
                if not isinstance(request, dict):
                    continue
                handler = self._routes.get(request.get("do"))
                if handler is None:
                    peer.fail(request, "ENDPOINT_NOT_FOUND", "endpoint '{0}' not found", str(request.get("do")))
                else:
                    handler(peer, request)
        except ConnectionClosed:
            pass

    def _list_results(self, peer: Peer, request: dict) -> None:
        resources = [{key: value for key, value in result.items() if not key.startswith("_")}
                     for result in self.results.values()]
        peer.reply(request, resources=resources)

    def _download_result(self, peer: Peer, request: dict) -> None:
        for result in self.results.values():
            if result["resource_id"] == request.get("resource_id"):
                peer.reply(request)
                peer.send_binary(result["_content"])
                return
        peer.fail(request, "ID_NOT_FOUND", "could not find {0} with {1} '{2}'", "resource", "resource_id",
                  str(request.get("resource_id")))
