"""Downloading a DC job result of ROWS x 3 columns over loopback from the C++ emulator, side by
side in one run:

  velmar_link: VelmarLink.get_job_result_data -> DcDataset (the frame is read straight into
               the tracks; one track viewed as a numpy array for the checksum)
  plain client: websockets (asyncio) downloads the same resource frame with
               "/JOB_RESULT/download" and decodes it with numpy.frombuffer (column views)

The emulator runs in its own process. Each round the velmar_link client runs a short ramp job
and has the emulator replace its result by ROWS deterministic rows ("/emulator/make_dc_result");
then both clients download that resource, each in its own process, which reports its wall time
and the growth of its peak resident memory (VmHWM, reset before the download) during the
download. Both clients list the JOB_RESULT resources and download one, so they do the same
requests. Best of REPEATS rounds.

    PYTHONPATH=build/perf/python_package python3 bench/dc_result_download.py [ROWS] [--emulator PATH]
"""

from __future__ import annotations

import argparse
import datetime
import json
import subprocess
import sys
import time
from pathlib import Path

REPO = Path(__file__).resolve().parents[1]
REPEATS = 3
COLUMNS = 3


def reset_peak() -> int:
    with open("/proc/self/clear_refs", "w") as refs:
        refs.write("5")
    return status_kib("VmHWM")


def status_kib(field: str) -> int:
    with open("/proc/self/status") as status:
        for line in status:
            if line.startswith(field + ":"):
                return int(line.split()[1])
    raise RuntimeError(field)


def find_emulator(explicit: str | None) -> Path:
    import velmar_link.emulator

    if explicit:
        return Path(explicit)
    bundled = velmar_link.emulator.bundled_binary()
    if bundled.is_file():
        return bundled
    candidates = sorted(REPO.glob("build/*/emulator/velmar-emulator"), key=lambda p: p.stat().st_mtime)
    if not candidates:
        sys.exit("velmar-emulator not found; pass --emulator")
    return candidates[-1]


def emulator_at(port: int):
    from velmar_link.emulator import Emulator

    emulator = Emulator()
    emulator.host, emulator.port = "127.0.0.1", port
    return emulator


def client_velmar_link(port: int, rows: int) -> dict:
    import velmar_link
    from velmar_link.meas import RampJob

    link = velmar_link.VelmarLink("127.0.0.1", str(port))
    assert not link.connect()
    job = RampJob(start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0)
    assert not link.do_job(job)
    reply = emulator_at(port).control({"do": "/emulator/make_dc_result",
                                       "job_id": job.get_last_job_info().get_job_id(), "rows": rows}, timeout=60)
    assert reply["status"] == "SUCCESS", reply
    link.set_request_timeout(datetime.timedelta(seconds=60))
    before = reset_peak()
    start = time.perf_counter()
    dataset = link.get_job_result_data(job)
    elapsed = time.perf_counter() - start
    peak = status_kib("VmHWM")
    assert isinstance(dataset, velmar_link.DcDataset), dataset
    checksum = float(dataset.track_as_numpy(2).sum())
    result_rows = dataset.get_row_count()
    link.disconnect()
    return {"seconds": elapsed, "extra_kib": peak - before, "checksum": checksum, "rows": result_rows}


def client_websockets(port: int, rows: int) -> dict:
    import asyncio

    import numpy as np
    from websockets.asyncio.client import connect

    headers = emulator_at(port).handshake_headers()

    async def request(websocket, message: dict) -> dict:
        await websocket.send(json.dumps(message))
        while True:
            reply = json.loads(await websocket.recv())
            if reply.get("type") == "REPLY" and reply.get("request_id") == message["request_id"]:
                return reply

    async def download() -> list:
        async with connect(f"ws://127.0.0.1:{port}/default", additional_headers=headers, max_size=None,
                           compression=None) as websocket:
            listed = await request(websocket, {"do": "/JOB_RESULT/list", "request_id": "1"})
            resource = [r for r in listed["resources"] if r["header"].get("number_of_rows") == rows][-1]
            reply = await request(websocket, {"do": "/JOB_RESULT/download", "request_id": "2",
                                              "resource_id": resource["resource_id"], "limit": 0})
            assert reply["status"] == "SUCCESS", reply
            frame = await websocket.recv()
            columns = len(resource["header"]["job_data_header"]["dimensions"])
            table = np.frombuffer(frame, dtype="<f8").reshape(columns, -1)
            return [table[i] for i in range(columns)]

    before = reset_peak()
    start = time.perf_counter()
    tracks = asyncio.run(download())
    elapsed = time.perf_counter() - start
    peak = status_kib("VmHWM")
    return {"seconds": elapsed, "extra_kib": peak - before, "checksum": float(tracks[2].sum()),
            "rows": len(tracks[0])}


CLIENTS = {"velmar_link": client_velmar_link, "websockets + numpy": client_websockets}


def delete_results(port: int) -> None:
    import velmar_link

    link = velmar_link.VelmarLink("127.0.0.1", str(port))
    assert not link.connect()
    resources = link.get_available_resources(velmar_link.ResourceTypeEnum.JOB_RESULT)
    for resource in resources:
        link.delete_resource(resource)
    link.disconnect()


def main() -> None:
    if len(sys.argv) > 1 and sys.argv[1] == "--client":
        print(json.dumps(CLIENTS[sys.argv[2]](int(sys.argv[3]), int(sys.argv[4]))))
        return
    parser = argparse.ArgumentParser()
    parser.add_argument("rows", nargs="?", type=int, default=10_000_000)
    parser.add_argument("--emulator")
    parser.add_argument("--repeats", type=int, default=REPEATS)
    args = parser.parse_args()

    from velmar_link.emulator import Emulator

    best: dict = {}
    with Emulator(binary=find_emulator(args.emulator)) as emulator:
        for _ in range(args.repeats):
            for variant in CLIENTS:  # velmar_link first: it makes the result
                out = subprocess.run([sys.executable, __file__, "--client", variant, str(emulator.port),
                                      str(args.rows)], capture_output=True, text=True, timeout=600)
                if out.returncode != 0:
                    sys.exit(f"{variant} client failed:\n{out.stderr}")
                result = json.loads(out.stdout.strip().splitlines()[-1])
                assert result["rows"] == args.rows, result
                if variant not in best or result["seconds"] < best[variant]["seconds"]:
                    best[variant] = result
            delete_results(emulator.port)
    payload = args.rows * COLUMNS * 8
    checksums = {round(r["checksum"], 3) for r in best.values()}
    assert len(checksums) == 1, best
    print(f"get_job_result_data, {args.rows} rows x {COLUMNS} ({payload / 1e6:.0f} MB), best of {args.repeats}")
    for name, result in best.items():
        peak = result["extra_kib"] * 1024
        print(f"  {name:20s} {result['seconds'] * 1e3:8.1f} ms  {payload / result['seconds'] / 1e6:8.0f} MB/s"
              f"   peak +{peak / 1e6:7.1f} MB = {peak / payload:.2f} x payload")
    a, b = best["velmar_link"], best["websockets + numpy"]
    print(f"  velmar_link / plain: throughput {b['seconds'] / a['seconds']:.2f}x, "
          f"peak memory {a['extra_kib'] / max(b['extra_kib'], 1):.2f}x")


if __name__ == "__main__":
    main()
