#!/usr/bin/env python3
"""Round trips of get_workstation_status() against the emulator.

Compares VelmarLink with a plain Python client written with the ``websockets`` package (sync
client) doing the same request/reply, in one run: requests per second, median and p99
latency. The measurement is made in three placements: client and emulator pinned to the same
core, pinned to different cores (when the machine has at least two), and unpinned. In each
placement the two clients take turns in rounds (both connected throughout), so that a change
of load on a shared machine falls on both alike; requests per second is the median of the
rounds, the latencies are those of all rounds together.

    python3 bench/link_roundtrip.py [--requests 20000] [--rounds 4] [--emulator PATH]

The velmar_link package must be importable (installed, or PYTHONPATH pointing to a build's
python_package directory).
"""

from __future__ import annotations

import argparse
import json
import os
import statistics
import sys
import time
import uuid
from pathlib import Path
from typing import Callable

import velmar_link
from velmar_link.emulator import Emulator

REPO = Path(__file__).resolve().parents[1]


def find_emulator(explicit: str | None) -> Path:
    if explicit:
        return Path(explicit)
    bundled = velmar_link.emulator.bundled_binary()
    if bundled.is_file():
        return bundled
    candidates = sorted(REPO.glob("build/*/emulator/velmar-emulator"), key=lambda p: p.stat().st_mtime)
    if not candidates:
        sys.exit("velmar-emulator not found; pass --emulator")
    return candidates[-1]


def pin_process(pid: int, cpus: set[int]) -> None:
    """Pin every thread of a process (the emulator's threads exist already)."""
    for task in os.listdir(f"/proc/{pid}/task"):
        try:
            os.sched_setaffinity(int(task), cpus)
        except ProcessLookupError:
            pass


def measure_round(call: Callable[[], object], requests: int, samples: list[int]) -> float:
    """Requests per second of one round; appends each latency (ns) to `samples`."""
    clock = time.perf_counter_ns
    started = clock()
    for _ in range(requests):
        t0 = clock()
        call()
        samples.append(clock() - t0)
    return requests / ((clock() - started) / 1e9)


def summary(rates: list[float], samples: list[int]) -> dict[str, float]:
    samples.sort()
    return {
        "rps": statistics.median(rates),
        "median_us": statistics.median(samples) / 1e3,
        "p99_us": samples[int(len(samples) * 0.99) - 1] / 1e3,
    }


def velmar_client(emulator: Emulator):
    link = velmar_link.VelmarLink(emulator.host, emulator.port_str)
    error = link.connect()
    if error:
        sys.exit(f"connect failed: {error}")

    def call() -> None:
        result = link.get_workstation_status()
        if isinstance(result, velmar_link.ErrorObject):
            raise RuntimeError(str(result))

    return call, link.disconnect


def websockets_client(emulator: Emulator):
    from websockets.sync.client import connect

    ws = connect(
        f"ws://{emulator.host}:{emulator.port}/default",
        additional_headers={"V-Supported-Protocol-Version": "12"},
        user_agent_header="velmar_link_bench",
        compression=None,
        max_size=None,
    )

    def call() -> None:
        request_id = str(uuid.uuid4())
        ws.send(json.dumps({"do": "/status", "request_id": request_id}))
        while True:
            reply = json.loads(ws.recv())
            if reply.get("type") == "REPLY" and reply.get("request_id") == request_id:
                if reply.get("status") != "SUCCESS":
                    raise RuntimeError(reply)
                return

    return call, ws.close


def run(emulator: Emulator, requests: int, rounds: int, client_cpus: set[int] | None,
        emulator_cpus: set[int] | None):
    if client_cpus is not None:
        os.sched_setaffinity(0, client_cpus)  # before connecting: the I/O thread inherits it
        pin_process(emulator.pid, emulator_cpus)
    clients = {}
    try:
        for name, factory in (("velmar_link", velmar_client), ("websockets", websockets_client)):
            clients[name] = factory(emulator)
        for call, _ in clients.values():
            for _ in range(min(1000, requests // 10)):
                call()
        rates: dict[str, list[float]] = {name: [] for name in clients}
        samples: dict[str, list[int]] = {name: [] for name in clients}
        per_round = max(1, requests // rounds)
        for _ in range(rounds):
            for name, (call, _) in clients.items():
                rates[name].append(measure_round(call, per_round, samples[name]))
        return {name: summary(rates[name], samples[name]) for name in clients}
    finally:
        for _, close in clients.values():
            close()


def report(title: str, results: dict[str, dict[str, float]]) -> None:
    print(f"\n{title}")
    print(f"  {'client':<12} {'requests/s':>12} {'median µs':>10} {'p99 µs':>10}")
    for name, r in results.items():
        print(f"  {name:<12} {r['rps']:>12.0f} {r['median_us']:>10.1f} {r['p99_us']:>10.1f}")
    ours, theirs = results["velmar_link"], results["websockets"]
    ratio = ours["rps"] / theirs["rps"]
    print(f"  ratio requests/s velmar_link / websockets: {ratio:.2f}x (target >= 1.5x: "
          f"{'met' if ratio >= 1.5 else 'missed'})")
    print(f"  ratio median latency websockets / velmar_link: {theirs['median_us'] / ours['median_us']:.2f}x")
    print(f"  velmar_link median {ours['median_us']:.1f} µs (target < 100 µs: "
          f"{'met' if ours['median_us'] < 100 else 'missed'})")


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--requests", type=int, default=20000, help="per client and placement")
    parser.add_argument("--rounds", type=int, default=4, help="turns of each client per placement")
    parser.add_argument("--emulator", help="path of velmar-emulator")
    args = parser.parse_args()

    cpus = sorted(os.sched_getaffinity(0))
    print(f"velmar_link {velmar_link.__version__}, Python {sys.version.split()[0]}, usable CPUs {cpus}")
    original = set(cpus)
    with Emulator(binary=find_emulator(args.emulator)) as emulator:
        report(f"client and emulator on the same core (CPU {cpus[0]})",
               run(emulator, args.requests, args.rounds, {cpus[0]}, {cpus[0]}))
        if len(cpus) >= 2:
            report(f"client on CPU {cpus[0]}, emulator on CPU {cpus[1]} (different cores)",
                   run(emulator, args.requests, args.rounds, {cpus[0]}, {cpus[1]}))
        else:
            print("\nonly one usable CPU: the different-cores measurement is skipped")
        os.sched_setaffinity(0, original)
        pin_process(emulator.pid, original)
        report(f"unpinned (client and emulator may share or move between CPUs {cpus})",
               run(emulator, args.requests, args.rounds, None, None))


if __name__ == "__main__":
    main()
