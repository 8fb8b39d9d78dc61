"""Soak: 10,000 requests and 200 DC jobs with live data from four threads over one link, through
a scripted workstation that injects faults at random with a fixed seed: dropped and stalled
replies, malformed and truncated frames, duplicates, malformed live data. At the end nothing
hangs or crashes, no thread or descriptor is left behind, every call returned its result or one
of the errors specified for its fault, and every successful job holds exactly its own rows."""

from __future__ import annotations

import datetime
import json
import os
import random
import threading
import time
import uuid
from collections import Counter

import pytest

import velmar_link
from velmar_link import ErrorCodeEnum, ErrorObject, VelmarLink
from velmar_link.meas import RampJob

from hostile.workstation import STATUS, HostileWorkstation, dc_header, job_info

SEED = 1994
THREADS = 4
REQUESTS_PER_THREAD = 2500
JOBS_PER_THREAD = 50
REQUEST_TIMEOUT_MS = 100
#: The whole run must end by then; afterwards the workers are stopped and the test fails.
DEADLINE_S = 90.0

BAD_FRAMES = ["{\"type\": \"REPLY\", \"request_id\": ", "not json at all", "[]", "{\"type\": 17}",
              "{\"type\": \"EVENT\", \"event\": {\"type\": \"LIVE_DATA_ROWS\", \"job_id\": \"x\", \"data\": [[1, \"a\"]]}}",
              "{\"type\": \"JOB_DONE\", \"request_id\": \"00000000-0000-4000-8000-000000000000\", \"status\": 7}"]


class FaultyWorkstation:
    """Answers "/status" and "/job/start" with faults drawn from one seeded generator."""

    def __init__(self, station: HostileWorkstation) -> None:
        self.random = random.Random(SEED)
        self.lock = threading.Lock()
        self.faults: Counter[str] = Counter()
        self.delivered_rows: dict[str, list[list[float]]] = {}
        self.job_count = 0
        station.on("/status", self.status)
        station.on("/job/start", self.start)

    def draw(self, table: list[tuple[str, float]]) -> tuple[str, float]:
        with self.lock:
            roll, extra = self.random.random(), self.random.random()
        for name, share in table:
            if roll < share:
                break
            roll -= share
        with self.lock:
            self.faults[name] += 1
        return name, extra

    def status(self, peer, request) -> None:
        fault, extra = self.draw([("drop", 0.03), ("stall", 0.04), ("malformed", 0.03), ("truncated", 0.02),
                                  ("duplicate", 0.02), ("normal", 1.0)])
        reply = json.dumps({"type": "REPLY", "request_id": request["request_id"], "status": "SUCCESS",
                            "workstation_status": STATUS})
        if fault == "drop":
            return
        if fault == "stall":
            peer.later(0.01 + 0.2 * extra, lambda: peer.send_text(reply))
            return
        if fault == "malformed":
            peer.send_text(BAD_FRAMES[int(extra * len(BAD_FRAMES))])
        if fault == "truncated":
            peer.send_text(reply[: int(len(reply) * extra)])
            return
        peer.send_text(reply)
        if fault == "duplicate":
            peer.send_text(reply)

    def start(self, peer, request) -> None:
        fault, extra = self.draw([("no_start_reply", 0.05), ("malformed_rows", 0.08), ("truncated_rows", 0.07),
                                  ("duplicate_done", 0.05), ("normal", 1.0)])
        if fault == "no_start_reply":
            return
        with self.lock:
            self.job_count += 1
            index = self.job_count
        job_id = str(uuid.uuid4())
        rows = [[k * 0.01, index + k * 1e-3, k * 1e-6] for k in range(12)]
        delivered: list[list[float]] = []
        peer.accept_job(request, job_id)
        running = job_info(request, job_id, "RUNNING", "NOT_FINISHED")
        peer.event("JOB_STATUS_UPDATE", job_id=job_id, new_status="RUNNING", job_info=running)
        peer.event("LIVE_DATA_HEADER", job_id=job_id, header=dc_header(), job_info=running)
        for block in range(3):
            part = rows[block * 4:(block + 1) * 4]
            if block == 1 and fault == "malformed_rows":
                peer.event("LIVE_DATA_ROWS", job_id=job_id, data=[part[0], part[1][:2]])
                continue
            if block == 1 and fault == "truncated_rows":
                text = json.dumps({"type": "EVENT", "event": {"type": "LIVE_DATA_ROWS", "job_id": job_id, "data": part}})
                peer.send_text(text[: len(text) // 2])
                continue
            peer.event("LIVE_DATA_ROWS", job_id=job_id, data=part)
            delivered.extend(part)
        with self.lock:
            self.delivered_rows[job_id] = delivered
        finished = job_info(request, job_id, "FINISHED", "RUN_TO_COMPLETION")
        peer.event("LIVE_DATA_FINISHED", job_id=job_id, job_info=finished)
        peer.job_done(request, job_id)
        if fault == "duplicate_done":
            peer.job_done(request, job_id)


def count_tasks() -> int:
    return len(os.listdir("/proc/self/task"))


def count_descriptors() -> int:
    return len(os.listdir("/proc/self/fd"))


def settle(predicate, timeout: float = 5.0) -> bool:
    deadline = time.monotonic() + timeout
    while not predicate():
        if time.monotonic() > deadline:
            return False
        time.sleep(0.01)
    return True


@pytest.mark.slow
def test_soak_with_random_faults():
    # Warm-up: process-wide resources created on first use are not leaks.
    warm = HostileWorkstation().start()
    link = VelmarLink("127.0.0.1", warm.port_str)
    assert not link.connect()
    link.disconnect()
    warm.stop()
    del link
    tasks_before, descriptors_before = count_tasks(), count_descriptors()

    station = HostileWorkstation().start()
    workstation = FaultyWorkstation(station)
    link = VelmarLink("127.0.0.1", station.port_str)
    link.set_request_timeout(datetime.timedelta(milliseconds=REQUEST_TIMEOUT_MS))
    assert not link.connect()

    stop = threading.Event()
    lock = threading.Lock()
    outcomes: Counter[str] = Counter()
    unexpected: list[str] = []
    wrong_rows: list[str] = []

    def record(kind: str, result, allowed: set) -> None:
        if isinstance(result, ErrorObject):
            code = result.get_error_code_enum()
            key = f"{kind}:{code.name}" if result else f"{kind}:ok"
            if result and code not in allowed:
                with lock:
                    unexpected.append(f"{kind}: {code.name} {result}")
        else:
            key = f"{kind}:ok"
        with lock:
            outcomes[key] += 1

    def worker() -> None:
        for index in range(REQUESTS_PER_THREAD):
            if stop.is_set():
                return
            result = link.get_workstation_status()
            if not isinstance(result, (velmar_link.WorkstationStatus, ErrorObject)):
                with lock:
                    unexpected.append(f"status: {result!r}")
            record("status", result, {ErrorCodeEnum.OPERATION_TIMED_OUT})
            if index % (REQUESTS_PER_THREAD // JOBS_PER_THREAD) == 0:
                job = RampJob(start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0)
                rows: list[list[float]] = []
                job.add_rows_callback(rows.extend)
                outcome = link.do_job(job)
                record("job", outcome, {ErrorCodeEnum.JSON_MALFORMED, ErrorCodeEnum.OPERATION_TIMED_OUT})
                if not outcome:
                    job_id = job.get_last_job_info().get_job_id()
                    with workstation.lock:
                        expected = workstation.delivered_rows.get(job_id)
                    if rows != expected:
                        with lock:
                            wrong_rows.append(f"{job_id}: {len(rows)} rows, expected {expected and len(expected)}")

    workers = [threading.Thread(target=worker, name=f"soak-{n}", daemon=True) for n in range(THREADS)]
    for thread in workers:
        thread.start()
    deadline = time.monotonic() + DEADLINE_S
    for thread in workers:
        thread.join(max(0.0, deadline - time.monotonic()))
    hung = [thread.name for thread in workers if thread.is_alive()]
    if hung:
        stop.set()
        link.cancel_pending_operations()
        for thread in workers:
            thread.join(5)
    still_hung = [thread.name for thread in workers if thread.is_alive()]
    if not still_hung:
        link.disconnect()
        station.stop()
        del link

    assert not hung, f"workers still running after {DEADLINE_S} s: {hung}; outcomes {dict(outcomes)}"
    assert not unexpected, unexpected[:10]
    assert not wrong_rows, wrong_rows[:10]
    assert outcomes["status:ok"] + outcomes["status:OPERATION_TIMED_OUT"] == THREADS * REQUESTS_PER_THREAD
    assert sum(count for key, count in outcomes.items() if key.startswith("job:")) == THREADS * JOBS_PER_THREAD
    assert outcomes["job:ok"] > 0 and outcomes["job:JSON_MALFORMED"] > 0, dict(outcomes)
    assert settle(lambda: count_tasks() <= tasks_before), f"threads: {count_tasks()} after, {tasks_before} before"
    assert settle(lambda: count_descriptors() <= descriptors_before), \
        f"descriptors: {count_descriptors()} after, {descriptors_before} before"
