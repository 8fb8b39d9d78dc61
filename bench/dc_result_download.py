"""Downloading a DC job result of ROWS x 3 columns over loopback, side by side:

  velmar_link: VelmarLink.get_job_result_data -> DcDataset (tracks viewed as numpy arrays)
  plain client: websockets + numpy.frombuffer on the binary frame (columns copied out)

The scripted workstation (dc_fake_workstation.py) runs in its own process and serves the table;
each client runs in its own process and reports its time and the growth of its peak resident
memory during the download. Best of REPEATS runs.

    PYTHONPATH=build/dc/python_package python3 bench/dc_result_download.py [ROWS]
"""

from __future__ import annotations

import json
import os
import subprocess
import sys
import time

HERE = os.path.dirname(os.path.abspath(__file__))
REPEATS = 3


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


def serve(rows: int) -> None:
    sys.path.insert(0, HERE)
    from dc_fake_workstation import FakeWorkstation, table

    result = table(rows).T.copy().tobytes()  # column-major
    server = FakeWorkstation(result=result, result_rows=rows).start()
    print(server.port, flush=True)
    sys.stdin.read()  # until the parent closes our input
    server.stop()


def client(variant: str, port: int) -> dict:
    import numpy as np

    if variant == "velmar_link":
        import velmar_link
        from velmar_link.meas import CvJob

        link = velmar_link.VelmarLink("127.0.0.1", str(port))
        assert not link.connect()
        job = CvJob()
        assert not link.do_job(job)
        before = reset_peak()
        start = time.perf_counter()
        dataset = link.get_job_result_data(job)
        elapsed = time.perf_counter() - start
        peak = status_kib("VmHWM")
        assert isinstance(dataset, velmar_link.DcDataset), dataset
        checksum = float(dataset.track_as_numpy(2).sum())
        rows = dataset.get_row_count()
        link.disconnect()
    else:
        import asyncio

        from websockets.asyncio.client import connect

        async def download() -> list:
            async with connect(f"ws://127.0.0.1:{port}/default", max_size=None, compression=None) as websocket:
                await websocket.send(json.dumps({"do": "/JOB_RESULT/list", "request_id": "1"}))
                resource = json.loads(await websocket.recv())["resources"][0]
                await websocket.send(json.dumps({"do": "/JOB_RESULT/download", "request_id": "2",
                                                 "resource_id": resource["resource_id"], "limit": 0}))
                json.loads(await websocket.recv())
                frame = await websocket.recv()
                columns = len(resource["header"]["job_data_header"]["columns"]["dimensions"])
                table = np.frombuffer(frame, dtype="<f8").reshape(columns, -1)
                return [table[i].copy() for i in range(columns)]

        before = reset_peak()
        start = time.perf_counter()
        tracks = asyncio.run(download())
        elapsed = time.perf_counter() - start
        peak = status_kib("VmHWM")
        checksum = float(tracks[2].sum())
        rows = len(tracks[0])
    return {"seconds": elapsed, "extra_mib": (peak - before) / 1024.0, "checksum": checksum, "rows": rows}


def main() -> None:
    if len(sys.argv) > 1 and sys.argv[1] == "--serve":
        serve(int(sys.argv[2]))
        return
    if len(sys.argv) > 1 and sys.argv[1] == "--client":
        print(json.dumps(client(sys.argv[2], int(sys.argv[3]))))
        return
    rows = int(sys.argv[1]) if len(sys.argv) > 1 else 10_000_000
    server = subprocess.Popen([sys.executable, __file__, "--serve", str(rows)], stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE, text=True)
    try:
        port = int(server.stdout.readline())
        best: dict = {}
        for _ in range(REPEATS):
            for variant in ("velmar_link", "websockets + numpy"):
                out = subprocess.run([sys.executable, __file__, "--client", variant, str(port)], check=True,
                                     capture_output=True, text=True, timeout=600)
                result = json.loads(out.stdout)
                assert result["rows"] == rows, result
                if variant not in best or result["seconds"] < best[variant]["seconds"]:
                    best[variant] = result
    finally:
        server.stdin.close()
        server.wait(30)
    mib = rows * 3 * 8 / 2**20
    print(f"get_job_result_data, {rows} rows x 3 ({mib:.0f} MiB), best of {REPEATS}")
    for name, result in best.items():
        print(f"  {name:20s} {result['seconds'] * 1e3:8.1f} ms   peak +{result['extra_mib']:7.1f} MiB")
    a, b = best["velmar_link"], best["websockets + numpy"]
    print(f"  ratio velmar_link / plain: time {a['seconds'] / b['seconds']:.2f}, "
          f"peak memory {a['extra_mib'] / max(b['extra_mib'], 1e-9):.2f}")


if __name__ == "__main__":
    main()
