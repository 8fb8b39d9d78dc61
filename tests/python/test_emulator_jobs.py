"""The emulator's job queue over the wire, driven with the ``websockets`` package (no native
module needed): frame order of a job, refusals, stops, a DC measurement with its result."""

from __future__ import annotations

import json
import struct
import time
import uuid
from typing import Any

import pytest

import websockets
from websockets.sync.client import connect  # noqa: E402

MAIN = "MAIN:1:POT"


class Session:
    """One WebSocket connection that keeps every frame it reads; every wait is bounded."""

    def __init__(self, emulator: Any) -> None:
        self.ws = connect(
            emulator.url,
            additional_headers=emulator.handshake_headers(),
            open_timeout=5,
            close_timeout=2,
            max_size=None,
        ).__enter__()
        self.frames: list[Any] = []

    def send(self, request: dict[str, Any]) -> str:
        request = dict(request)
        request.setdefault("request_id", str(uuid.uuid4()))
        self.ws.send(json.dumps(request))
        return request["request_id"]

    def read_until(self, predicate, timeout: float = 10.0) -> Any:
        """Reads frames until one satisfies `predicate`; returns it (all are kept)."""
        deadline = time.monotonic() + timeout
        while True:
            remaining = deadline - time.monotonic()
            assert remaining > 0, f"no matching frame within {timeout} s; got {self.frames[-5:]}"
            raw = self.ws.recv(timeout=remaining)
            frame = json.loads(raw) if isinstance(raw, str) else raw
            self.frames.append(frame)
            if predicate(frame):
                return frame

    def call(self, request: dict[str, Any], timeout: float = 5.0) -> dict[str, Any]:
        request_id = self.send(request)
        return self.read_until(lambda f: isinstance(f, dict) and f.get("type") == "REPLY"
                               and f.get("request_id") == request_id, timeout)

    def start(self, job_type: str, parameters: dict[str, Any] | None = None, **extra: Any) -> tuple[str, dict]:
        job = {"type": job_type, "parameters": parameters or {}, "stop_conditions": extra.pop("stop_conditions", []),
               "job_meta": extra.pop("job_meta", {})}
        request_id = self.send({"do": "/job/start", "job": job, **extra})
        reply = self.read_until(lambda f: isinstance(f, dict) and f.get("type") == "REPLY"
                                and f.get("request_id") == request_id)
        return request_id, reply

    def done(self, request_id: str, timeout: float = 10.0) -> dict[str, Any]:
        return self.read_until(lambda f: isinstance(f, dict) and f.get("type") == "JOB_DONE"
                               and f.get("request_id") == request_id, timeout)

    def events(self, event_type: str, job_id: str | None = None) -> list[dict[str, Any]]:
        out = []
        for frame in self.frames:
            if isinstance(frame, dict) and frame.get("type") == "EVENT" and frame["event"]["type"] == event_type:
                event = frame["event"]
                event_job = event.get("job_id") or event.get("job_info", {}).get("job_id")
                if job_id is None or event_job == job_id:
                    out.append(event)
        return out

    def close(self) -> None:
        self.ws.close()

    def __enter__(self) -> Session:
        return self

    def __exit__(self, *exc_info: object) -> None:
        self.close()


@pytest.fixture
def fast_emulator(emulator_factory):
    """An emulator of its own (jobs change device state) running 20 times faster than real time."""
    return emulator_factory(extra_args=("--seed", "5", "--time-scale", "20", "--queue-size", "2"))


def test_control_job_frames_arrive_in_lifecycle_order(fast_emulator):
    with Session(fast_emulator) as s:
        request_id, reply = s.start("switch_on", {"potentiostat": MAIN, "coupling": "POTENTIOSTATIC", "bias": 0.5,
                                                  "voltage_range_index": 0, "compliance_range_index": 0},
                                    job_meta={"who": "test"})
        assert reply["status"] == "SUCCESS"
        job_id = reply["job_id"]
        assert reply["job_info"]["status"] == "PENDING" and reply["job_info"]["job_meta"] == {"who": "test"}
        assert reply["job_info"]["parameters"]["bias"] == 0.5
        done = s.done(request_id)
        assert (done["job_id"], done["status"], done["status_detail"]) == (job_id, "FINISHED", "RUN_TO_COMPLETION")
        assert done["result"]["applied_bias"] == 0.5
        assert done["result"]["current"] == pytest.approx(0.5 / 1000.0)
        statuses = [e["new_status"] for e in s.events("JOB_STATUS_UPDATE", job_id)]
        assert statuses == ["PENDING", "RUNNING", "FINISHED"]
        assert s.events("MESSAGE_FROM_JOB", job_id)[0]["severity"] == "MESSAGE"
        assert s.events("JOB_DONE", job_id)[0]["job_info"]["status"] == "FINISHED"
        # The JOB_DONE event comes right before the top-level frame, which ends the job.
        kinds = [f["type"] if f["type"] != "EVENT" else "EVENT:" + f["event"]["type"] for f in s.frames]
        assert kinds[-2:] == ["EVENT:JOB_DONE", "JOB_DONE"]
        assert s.call({"do": "/job/info", "job_id": job_id})["job_info"]["status"] == "FINISHED"


def test_refused_job_gets_failed_reply_and_job_done(fast_emulator):
    with Session(fast_emulator) as s:
        request_id, reply = s.start("set_led_color", {"red": 256, "green": 0, "blue": 0})
        assert reply["status"] == "FAILED" and reply["error"]["code"] == "PARAMETER_VALUE_TOO_HIGH"
        done = s.done(request_id)
        assert (done["status"], done["status_detail"]) == ("FAILED", "FAILED_TO_CREATE")
        assert done["error"]["code"] == "PARAMETER_VALUE_TOO_HIGH"
        assert done["job_info"]["type"] == "set_led_color"
        request_id, reply = s.start("cv", {"start_value": 0}, bypass_queue=True)
        assert reply["error"]["code"] == "QUEUE_BYPASS_NOT_ALLOWED"
        assert s.done(request_id)["status_detail"] == "FAILED_TO_CREATE"


def test_queue_full_stop_flush_and_busy(fast_emulator):
    with Session(fast_emulator) as s:
        sleeper, _ = s.start("sleep", {"duration": 200.0})  # 10 s at time scale 20
        waiting = [s.start("beep", {"frequency": 440.0, "duration": 0.1})[0] for _ in range(2)]
        refused, reply = s.start("beep", {"frequency": 440.0, "duration": 0.1})
        assert reply["error"]["code"] == "QUEUE_FULL"
        assert s.call({"do": "/status"})["workstation_status"]["busy"] is True
        # A bypassing information job runs beside the blocked queue.
        info_id, reply = s.start("get_date_time", bypass_queue=True)
        assert s.done(info_id)["result"]["datetime"].startswith("20")
        s.send({"do": "/stop", "queue": "flush"})
        done = s.done(sleeper)
        assert (done["status"], done["status_detail"], done["error"]["code"]) == (
            "FAILED", "STOPPED_BY_USER", "STOPPED_MANUALLY")
        for request_id in waiting:
            done = s.done(request_id)
            assert (done["status_detail"], done["error"]["code"]) == ("CANCELLED_BEFORE_RUN", "STOPPED_MANUALLY_BEFORE_RUN")
        assert s.call({"do": "/status"})["workstation_status"]["busy"] is False
        assert s.call({"do": "/job/list", "exclude_finished": True})["jobs"] == []


def test_job_outlives_its_connection(fast_emulator):
    with Session(fast_emulator) as s:
        _, reply = s.start("sleep", {"duration": 4.0})  # 0.2 s
        job_id = reply["job_id"]
    with Session(fast_emulator) as other:
        deadline = time.monotonic() + 5.0
        while True:
            info = other.call({"do": "/job/info", "job_id": job_id})["job_info"]
            if info["status"] == "FINISHED" or time.monotonic() > deadline:
                break
            time.sleep(0.05)
        assert info["status"] == "FINISHED"
        assert other.events("JOB_STATUS_UPDATE") == []  # events go to the starting connection only


def test_dc_measurement_streams_rows_and_stores_its_result(fast_emulator):
    # 0 V to 0.5 V at 0.5 V/s, 20 rows/s: 1 s of emulated time, 21 rows, 1 kOhm cell.
    parameters = {"start_value": 0.0, "end_value": 0.5, "scan_rate": 0.5, "step_height": 0.0,
                  "output_data_rate": 20.0, "autorange": True, "current_range": 0.01}
    with Session(fast_emulator) as s:
        request_id, reply = s.start("ramp", parameters)
        job_id = reply["job_id"]
        done = s.done(request_id)
        assert done["status"] == "FINISHED", done
        header = s.events("LIVE_DATA_HEADER", job_id)[0]
        assert header["header"]["columns"]["dimensions"] == ["time", "voltage", "current"]
        assert header["job_info"]["job_id"] == job_id
        rows = [row for event in s.events("LIVE_DATA_ROWS", job_id) for row in event["data"]]
        assert len(rows) == 21
        assert rows[-1][1] == pytest.approx(0.5) and rows[-1][2] == pytest.approx(0.5e-3)
        assert s.events("LIVE_DATA_FINISHED", job_id)
        resource_id = done["job_info"]["result_resource_id"]
        info = s.call({"do": "/JOB_RESULT/info", "resource_id": resource_id})["resource"]
        assert (info["job_id"], info["sub_type"]) == (job_id, "DATASET_DC")
        assert info["header"]["number_of_rows"] == 21
        assert info["header"]["job_data_header"]["measurement_type_short"]
        s.call({"do": "/JOB_RESULT/download", "resource_id": resource_id})
        payload = s.read_until(lambda f: isinstance(f, bytes))
        columns = struct.unpack("<63d", payload)
        assert list(columns[21:42]) == pytest.approx([row[1] for row in rows])


def test_dc_stop_condition_ends_the_job(fast_emulator):
    parameters = {"bias": 0.2, "duration": 2.0, "output_data_rate": 10.0, "autorange": True, "current_range": 0.01}
    condition = {"type": "max", "parameters": {"for_dimension": "time", "maximum": 0.45}}
    with Session(fast_emulator) as s:
        request_id, reply = s.start("poga", parameters, stop_conditions=[condition], discard_result_data=True)
        done = s.done(request_id)
        assert (done["status"], done["status_detail"], done["error"]["code"]) == (
            "FAILED", "FUNCTIONAL_LIMIT_OCCURRED", "STOP_CONDITION_TRIGGERED")
        rows = [row for event in s.events("LIVE_DATA_ROWS", reply["job_id"]) for row in event["data"]]
        assert rows[-1][0] == pytest.approx(0.5)
        assert "result_resource_id" not in done["job_info"]
        bad = {"type": "min_max", "parameters": {"for_dimension": "voltage", "minimum": 1.0, "maximum": -1.0}}
        check = s.call({"do": "/job/check_parameters", "job": {"type": "poga", "parameters": parameters,
                                                               "stop_conditions": [bad], "job_meta": {}}})
        assert check["error"]["code"] == "STOP_CONDITION_MISCONFIGURED"
