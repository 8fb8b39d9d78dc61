"""A scripted stand-in for the workstation, for the DC benchmarks: it answers "/job/start" with a
stream of DC live data and serves the job's result table as a JOB_RESULT resource.

Only what the benchmarks need is answered; every other request gets a FAILED reply.
"""

from __future__ import annotations

import asyncio
import base64
import json
import threading

import numpy as np
from websockets.asyncio.server import serve
from websockets.datastructures import Headers

PROTOCOL_VERSION = "12"
HEADER = {
    "measurement_type_short": "CV",
    "measurement_type": "Cyclic Voltammetry",
    "columns": {
        "dimensions": ["time", "voltage", "current"],
        "units": ["s", "V", "A"],
        "urns": ["MAIN:1:POT:TIME", "MAIN:1:POT:VOLTAGE", "MAIN:1:POT:CURRENT"],
    },
}


def table(rows: int) -> np.ndarray:
    """rows x 3: time, voltage, current."""
    t = np.arange(rows, dtype="<f8") * 1e-3
    return np.stack([t, np.sin(t), np.sin(t) * 1e-3], axis=1)


def row_frames(rows: int, block: int, encoding: str) -> list[str]:
    """The "LIVE_DATA_ROWS" event frames of `rows` rows in blocks of `block`."""
    data = table(rows)
    frames = []
    for start in range(0, rows, block):
        part = data[start : start + block]
        payload = base64.b64encode(part.tobytes()).decode() if encoding == "base64" else part.tolist()
        frames.append(json.dumps({"type": "EVENT", "event": {"type": "LIVE_DATA_ROWS", "job_id": "job-1", "data": payload}}))
    return frames


class FakeWorkstation:
    """Serves on 127.0.0.1 in a background thread; `port` is known after start()."""

    def __init__(self, frames: list[str] | None = None, result: bytes = b"", result_rows: int = 0) -> None:
        self.frames = frames or []
        self.result = result
        self.result_rows = result_rows
        self.port = 0
        self._ready = threading.Event()
        self._loop: asyncio.AbstractEventLoop | None = None
        self._stop: asyncio.Future | None = None
        self._thread = threading.Thread(target=lambda: asyncio.run(self._main()), daemon=True)

    def start(self) -> "FakeWorkstation":
        self._thread.start()
        if not self._ready.wait(10):
            raise RuntimeError("fake workstation did not start")
        return self

    def stop(self) -> None:
        if self._loop is not None and self._stop is not None:
            self._loop.call_soon_threadsafe(self._stop.set_result, None)
        self._thread.join(10)

    async def _main(self) -> None:
        self._loop = asyncio.get_running_loop()
        self._stop = self._loop.create_future()

        def process_response(connection, request, response):
            response.headers["V-Supported-Protocol-Version"] = PROTOCOL_VERSION
            return response

        async with serve(self._session, "127.0.0.1", 0, max_size=None, process_response=process_response,
                         compression=None) as server:
            self.port = server.sockets[0].getsockname()[1]
            self._ready.set()
            await self._stop

    async def _session(self, websocket) -> None:
        async for text in websocket:
            request = json.loads(text)
            path = request.get("do", "")
            rid = request.get("request_id", "")
            if path == "/job/start":
                await websocket.send(json.dumps({"type": "REPLY", "request_id": rid, "status": "SUCCESS", "job_id": "job-1"}))
                await websocket.send(json.dumps({"type": "EVENT", "event": {"type": "LIVE_DATA_HEADER", "job_id": "job-1", "header": HEADER}}))
                for frame in self.frames:
                    await websocket.send(frame)
                info = {"job_id": "job-1", "type": "cv", "status": "FINISHED", "status_detail": "RUN_TO_COMPLETION"}
                await websocket.send(json.dumps({"type": "EVENT", "event": {"type": "LIVE_DATA_FINISHED", "job_id": "job-1", "job_info": info}}))
                await websocket.send(json.dumps({"type": "JOB_DONE", "request_id": rid, "job_id": "job-1", "job_info": info}))
            elif path == "/JOB_RESULT/list":
                resource = {
                    "resource_id": "res-1", "name": "job-1", "type": "JOB_RESULT", "sub_type": "DATASET_DC",
                    "size": len(self.result), "created": "", "created_by": "", "updated": "", "job_id": "job-1",
                    "header": {"job_data_header": HEADER, "job_info": {"job_id": "job-1", "type": "cv"},
                               "number_of_rows": self.result_rows},
                }
                await websocket.send(json.dumps({"type": "REPLY", "request_id": rid, "status": "SUCCESS", "resources": [resource]}))
            elif path == "/JOB_RESULT/download":
                await websocket.send(json.dumps({"type": "REPLY", "request_id": rid, "status": "SUCCESS"}))
                await websocket.send(self.result)
            else:
                error = {"number": 0x2002, "code": "ENDPOINT_NOT_FOUND", "message": "endpoint '{0}' not found",
                         "message_parameters": [path]}
                await websocket.send(json.dumps({"type": "REPLY", "request_id": rid, "status": "FAILED", "error": error}))
