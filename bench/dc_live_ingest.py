"""Live-data ingestion of a DC job, rows per second, side by side:

  velmar_link, native collector   (C++ handler, no Python per event)
  velmar_link, Python rows callback   (list of lists per block)
  velmar_link, Python array callback  (numpy array per block)
  plain websockets + json client  (json.loads per frame, rows appended to a list)

A scripted workstation (dc_fake_workstation.py) streams ROWS rows in blocks of BLOCK rows, as
arrays of numbers or as Base64 binary rows, over loopback. Prints rows/s and the ratio to the
plain client. The best of REPEATS runs is kept (the machine may be shared). The scripted
workstation is Python, so the fastest clients may be bounded by its send rate; the last line
of each block therefore parses the same frames without a socket (DcDataset.from_json_events
against json.loads).

    PYTHONPATH=build/dc/python_package python3 bench/dc_live_ingest.py [ROWS] [BLOCK]
"""

from __future__ import annotations

import asyncio
import base64
import json
import os
import sys
import time

import numpy as np
from websockets.asyncio.client import connect

sys.path.insert(0, os.path.dirname(__file__))
from dc_fake_workstation import HEADER, FakeWorkstation, row_frames  # noqa: E402

import velmar_link  # noqa: E402
from velmar_link.meas import CvJob  # noqa: E402

REPEATS = 3


def run_link(port: int, attach) -> tuple[float, int]:
    link = velmar_link.VelmarLink("127.0.0.1", str(port))
    assert not link.connect()
    job = CvJob()
    count = attach(job)
    start = time.perf_counter()
    error = link.do_job(job)
    elapsed = time.perf_counter() - start
    link.disconnect()
    assert not error, error
    return elapsed, count()


def native(job):
    collector = job.add_live_data_collector()
    return lambda: collector.get_dataset().get_row_count()


def rows_callback(job):
    sink: list = []
    job.add_rows_callback(sink.extend)
    return lambda: len(sink)


def array_callback(job):
    sink: list = []
    job.add_rows_array_callback(sink.append)
    return lambda: sum(len(a) for a in sink)


async def plain_client(port: int) -> tuple[float, int]:
    async with connect(f"ws://127.0.0.1:{port}/default", max_size=None, compression=None) as websocket:
        start = time.perf_counter()
        await websocket.send(json.dumps({"do": "/job/start", "request_id": "1", "job": {"type": "cv"}}))
        rows: list = []
        arrays: list = []
        async for text in websocket:
            message = json.loads(text)
            if message.get("type") == "JOB_DONE":
                break
            event = message.get("event", {})
            if event.get("type") == "LIVE_DATA_ROWS":
                data = event["data"]
                if isinstance(data, str):
                    arrays.append(np.frombuffer(base64.b64decode(data), dtype="<f8").reshape(-1, 3))
                else:
                    rows.extend(data)
        return time.perf_counter() - start, len(rows) + sum(len(a) for a in arrays)


def offline(frames: list[str], total: int) -> dict:
    """Parsing the same frames without a socket: the native reader against json.loads."""
    header = json.dumps({"type": "EVENT", "event": {"type": "LIVE_DATA_HEADER", "header": HEADER}})
    document = "[" + ",".join([header, *frames]) + "]"
    best: dict = {}
    for _ in range(REPEATS):
        start = time.perf_counter()
        dataset = velmar_link.DcDataset.from_json_events(document)
        native_seconds = time.perf_counter() - start
        assert dataset.get_row_count() == total
        start = time.perf_counter()
        rows: list = []
        arrays: list = []
        for frame in frames:
            data = json.loads(frame)["event"]["data"]
            if isinstance(data, str):
                arrays.append(np.frombuffer(base64.b64decode(data), dtype="<f8").reshape(-1, 3))
            else:
                rows.extend(data)
        python_seconds = time.perf_counter() - start
        best["native"] = min(best.get("native", native_seconds), native_seconds)
        best["python"] = min(best.get("python", python_seconds), python_seconds)
    return best


def main() -> None:
    total = int(sys.argv[1]) if len(sys.argv) > 1 else 1_000_000
    block = int(sys.argv[2]) if len(sys.argv) > 2 else 1000
    for encoding in ("arrays", "base64"):
        frames = row_frames(total, block, encoding)
        server = FakeWorkstation(frames).start()
        try:
            variants = {
                "native collector": lambda: run_link(server.port, native),
                "python rows callback": lambda: run_link(server.port, rows_callback),
                "python array callback": lambda: run_link(server.port, array_callback),
                "websockets + json": lambda: asyncio.run(plain_client(server.port)),
            }
            best = {}
            for _ in range(REPEATS):
                for name, variant in variants.items():
                    seconds, rows = variant()
                    assert rows == total, (name, rows)
                    best[name] = min(best.get(name, seconds), seconds)
        finally:
            server.stop()
        print(f"live data, {total} rows x 3 in blocks of {block}, rows as {encoding} (best of {REPEATS})")
        reference = best["websockets + json"]
        for name, seconds in best.items():
            print(f"  {name:22s} {total / seconds / 1e6:7.2f} M rows/s   ratio to plain client {reference / seconds:5.2f}x")
        parsed = offline(frames, total)
        print(f"  without socket: native reader {total / parsed['native'] / 1e6:.2f} M rows/s, json.loads "
              f"{total / parsed['python'] / 1e6:.2f} M rows/s, ratio {parsed['python'] / parsed['native']:.2f}x")


if __name__ == "__main__":
    main()
