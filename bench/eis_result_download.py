"""Downloading an impedance job result with waves over loopback from the C++ emulator, side by
side in one run:

  velmar_link: VelmarLink.get_job_result_data -> EisDataset (the frame is read straight into
               the tracks and the waves; identical waves merged by hashing)
  plain client: websockets (asyncio) downloads the same resource frame with
               "/JOB_RESULT/download", splits it with numpy.frombuffer into the same columns and
               one array view per wave

The emulator runs in its own process. Each round the velmar_link client runs a one-point
impedance job and has the emulator replace its result by POINTS rows with a wave of SAMPLES
samples per sync path ("/emulator/make_ac_result"; the default sampling configuration has two
sync paths, voltage and current); then both clients download that resource, each in its own
process, which reports its wall time and the growth of its peak resident memory (VmHWM, reset
before the download). The velmar_link process also times dedup_waves() on the downloaded
dataset, whose waves are all distinct (every sample hashed), against the download. Best of
REPEATS rounds.

    PYTHONPATH=build/perf/python_package python3 bench/eis_result_download.py [POINTS SAMPLES]
"""

from __future__ import annotations

import argparse
import datetime
import json
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
from dc_result_download import emulator_at, find_emulator, reset_peak, status_kib  # noqa: E402

REPEATS = 3
#: Sync paths of the emulator's default sampling configuration.
PATHS = 2


def client_velmar_link(port: int, points: int, samples: int) -> dict:
    import velmar_link
    from velmar_link.meas import EisFrequencyTableJob

    link = velmar_link.VelmarLink("127.0.0.1", str(port))
    assert not link.connect()
    from velmar_link.meas import EisParametersFrequencyTable, EisParametersFrequencyTableEntry

    job = EisFrequencyTableJob(frequency_range=EisParametersFrequencyTable(spectrum=[
        EisParametersFrequencyTableEntry(frequency=1000.0, pre_duration=0.0, meas_duration=0.0, meas_waves=1)]))
    assert not link.do_job(job)
    reply = emulator_at(port).control({"do": "/emulator/make_ac_result", "job_id": job.get_last_job_info().get_job_id(),
                                       "points": points, "samples": samples}, timeout=120)
    assert reply["status"] == "SUCCESS", reply
    link.set_request_timeout(datetime.timedelta(seconds=120))
    before = reset_peak()
    start = time.perf_counter()
    dataset = link.get_job_result_data(job)
    elapsed = time.perf_counter() - start
    peak = status_kib("VmHWM")
    assert isinstance(dataset, velmar_link.EisDataset), dataset
    start = time.perf_counter()
    dataset.dedup_waves()
    dedup = time.perf_counter() - start
    checksum = float(sum(float(dataset.get_wave_for_row(p, points - 1)[-1]) for p in range(PATHS)))
    rows = dataset.get_row_count()
    link.disconnect()
    return {"seconds": elapsed, "dedup_seconds": dedup, "extra_kib": peak - before, "checksum": checksum,
            "rows": rows}


def client_websockets(port: int, points: int, samples: int) -> dict:
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

    def column_count(header: dict) -> tuple[int, int]:
        groups = [header["meta"]] + header["impedances"] + header["paths"] + header["async_paths"] + \
            header["potentiostats"]
        return sum(len(g["dimensions"]) for g in groups), len(header["paths"])

    async def download():
        async with connect(f"ws://127.0.0.1:{port}/default", additional_headers=headers, max_size=None,
                           compression=None) as websocket:
            listed = await request(websocket, {"do": "/JOB_RESULT/list", "request_id": "1"})
            resource = [r for r in listed["resources"] if r["sub_type"] == "DATASET_AC"
                        and r["header"].get("number_of_rows") == points][-1]
            reply = await request(websocket, {"do": "/JOB_RESULT/download", "request_id": "2",
                                              "resource_id": resource["resource_id"], "limit": 0})
            assert reply["status"] == "SUCCESS", reply
            frame = await websocket.recv()
            header = resource["header"]["job_data_header"]
            columns, sync_paths = column_count(header)
            values = np.frombuffer(frame, dtype="<f8")
            rows = resource["header"]["number_of_rows"]
            table = values[: columns * rows].reshape(columns, rows)
            tracks = [table[i] for i in range(columns)]
            wave_size = tracks[header["meta"]["dimensions"].index("wave_size")].astype(np.int64)
            offsets = np.concatenate(([0], np.cumsum(wave_size)))
            waves, base = [], columns * rows
            for _ in range(sync_paths):
                waves.append([values[base + offsets[r]: base + offsets[r + 1]] for r in range(rows)])
                base += int(offsets[-1])
            return tracks, waves

    before = reset_peak()
    start = time.perf_counter()
    tracks, waves = asyncio.run(download())
    elapsed = time.perf_counter() - start
    peak = status_kib("VmHWM")
    checksum = float(sum(float(w[-1][-1]) for w in waves))
    return {"seconds": elapsed, "extra_kib": peak - before, "checksum": checksum, "rows": len(tracks[0])}


CLIENTS = {"velmar_link": client_velmar_link, "websockets + numpy": client_websockets}


def delete_results(port: int) -> None:
    import velmar_link

    link = velmar_link.VelmarLink("127.0.0.1", str(port))
    assert not link.connect()
    for resource in link.get_available_resources(velmar_link.ResourceTypeEnum.JOB_RESULT):
        link.delete_resource(resource)
    link.disconnect()


def main() -> None:
    if len(sys.argv) > 1 and sys.argv[1] == "--client":
        print(json.dumps(CLIENTS[sys.argv[2]](*(int(a) for a in sys.argv[3:6]))))
        return
    parser = argparse.ArgumentParser()
    parser.add_argument("points", nargs="?", type=int, default=200)
    parser.add_argument("samples", nargs="?", type=int, default=65_000)
    parser.add_argument("--emulator")
    parser.add_argument("--repeats", type=int, default=REPEATS)
    args = parser.parse_args()

    from velmar_link.emulator import Emulator

    payload = args.points * PATHS * args.samples * 8
    limit = str(max(payload * 2, 64 << 20))
    best: dict = {}
    with Emulator(binary=find_emulator(args.emulator),
                  extra_args=("--max-message-bytes", limit, "--resource-capacity", limit)) as emulator:
        for _ in range(args.repeats):
            for variant in CLIENTS:  # velmar_link first: it makes the result
                out = subprocess.run([sys.executable, __file__, "--client", variant, str(emulator.port),
                                      str(args.points), str(args.samples)],
                                     capture_output=True, text=True, timeout=900)
                if out.returncode != 0:
                    sys.exit(f"{variant} client failed:\n{out.stderr}")
                result = json.loads(out.stdout.strip().splitlines()[-1])
                assert result["rows"] == args.points, result
                if variant not in best or result["seconds"] < best[variant]["seconds"]:
                    best[variant] = result
            delete_results(emulator.port)
    checksums = {round(r["checksum"], 6) for r in best.values()}
    assert len(checksums) == 1, best
    print(f"get_job_result_data, impedance result of {args.points} points x {PATHS} paths x "
          f"{args.samples} samples ({payload / 1e6:.0f} MB of waves), best of {args.repeats}")
    for name, result in best.items():
        peak = result["extra_kib"] * 1024
        print(f"  {name:20s} {result['seconds'] * 1e3:8.1f} ms  {payload / result['seconds'] / 1e6:8.0f} MB/s"
              f"   peak +{peak / 1e6:7.1f} MB = {peak / payload:.2f} x payload")
    a, b = best["velmar_link"], best["websockets + numpy"]
    print(f"  velmar_link / plain: throughput {b['seconds'] / a['seconds']:.2f}x, "
          f"peak memory {a['extra_kib'] / max(b['extra_kib'], 1):.2f}x")
    print(f"  dedup_waves over all {args.points * PATHS} distinct waves: {a['dedup_seconds'] * 1e3:.1f} ms = "
          f"{100 * a['dedup_seconds'] / a['seconds']:.1f}% of the download")


if __name__ == "__main__":
    main()
