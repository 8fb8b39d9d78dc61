"""Decoding a DC job result of ROWS x 3 columns: DcDataset.from_binary against numpy.frombuffer.

The payload is the flat result table the workstation sends (column-major little-endian float64).
Each variant runs in its own process so that the peak resident memory of one does not hide the
other's. Prints times, peak memory above the payload and the ratios.

    PYTHONPATH=build/dc/python_package python3 bench/dc_result_decode.py [ROWS]
"""

from __future__ import annotations

import json
import os
import subprocess
import sys
import tempfile
import time

COLUMNS = 3
REPEATS = 5


def payload(rows: int) -> bytes:
    import numpy as np

    table = np.empty((COLUMNS, rows), dtype="<f8")
    table[0] = np.arange(rows) * 1e-3
    table[1] = np.sin(table[0])
    table[2] = table[1] * 1e-3
    return table.tobytes()


def run(variant: str, path: str) -> dict:
    with open(path, "rb") as file:
        data = file.read()
    rows = len(data) // (COLUMNS * 8)
    import numpy as np  # both variants: its import is not part of the decode

    if variant == "velmar_link":
        import velmar_link
    # Reset the peak resident size to the present one (Linux), so that the peak measured below
    # is the decode's own.
    with open("/proc/self/clear_refs", "w") as refs:
        refs.write("5")
    before = rss_kib("VmHWM")
    start = time.perf_counter()
    if variant == "velmar_link":
        import velmar_link

        header = velmar_link.LiveDataHeader(
            "Cyclic Voltammetry",
            "CV",
            [velmar_link.ColumnHeader(d, u, "MAIN:1:POT:" + d) for d, u in (("time", "s"), ("voltage", "V"), ("current", "A"))],
        )
        dataset = velmar_link.DcDataset.from_binary(data, header)
        elapsed = time.perf_counter() - start
        assert dataset.get_row_count() == rows
        checksum = float(dataset.track_as_numpy(2).sum())
    else:
        # An owned copy per column, like the tracks of a dataset.
        table = np.frombuffer(data, dtype="<f8").reshape(COLUMNS, -1)
        columns = [table[i].copy() for i in range(COLUMNS)]
        elapsed = time.perf_counter() - start
        checksum = float(columns[2].sum())
    peak = rss_kib("VmHWM")
    return {"seconds": elapsed, "extra_mib": (peak - before) / 1024.0, "checksum": checksum}


def rss_kib(field: str) -> int:
    with open("/proc/self/status") as status:
        for line in status:
            if line.startswith(field + ":"):
                return int(line.split()[1])
    raise RuntimeError(field + " not found")


def main() -> None:
    if len(sys.argv) == 3:
        print(json.dumps(run(sys.argv[1], sys.argv[2])))
        return
    rows = int(sys.argv[1]) if len(sys.argv) > 1 else 10_000_000
    results = {}
    with tempfile.TemporaryDirectory() as directory:
        path = os.path.join(directory, "payload.bin")
        with open(path, "wb") as file:
            file.write(payload(rows))
        # Alternating runs; the fastest of each is reported (the machine may be shared).
        for _ in range(REPEATS):
            for variant in ("velmar_link", "numpy"):
                out = subprocess.run([sys.executable, __file__, variant, path], check=True, capture_output=True,
                                     text=True)
                result = json.loads(out.stdout)
                if variant not in results or result["seconds"] < results[variant]["seconds"]:
                    results[variant] = result
    assert abs(results["velmar_link"]["checksum"] - results["numpy"]["checksum"]) < 1e-6 * abs(results["numpy"]["checksum"]) + 1e-9
    mib = rows * COLUMNS * 8 / 2**20
    print(f"decode {rows} rows x {COLUMNS} columns ({mib:.0f} MiB payload), best of {REPEATS}")
    for name, result in results.items():
        print(f"  {name:12s} {result['seconds'] * 1e3:8.1f} ms   peak +{result['extra_mib']:7.1f} MiB (payload {mib:.0f} MiB held by the caller)")
    ratio = results["velmar_link"]["seconds"] / results["numpy"]["seconds"]
    memory = results["velmar_link"]["extra_mib"] / max(results["numpy"]["extra_mib"], 1e-9)
    print(f"  ratio velmar_link / numpy: time {ratio:.2f}, memory {memory:.2f}")


if __name__ == "__main__":
    main()
