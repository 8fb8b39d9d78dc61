"""Impedance measurements of the emulator over the wire, driven with the ``websockets`` package
(not the client library): the live data of an eis job against the closed form of its cell and
an independently computed frequency grid, the result resource's bytes against the live rows,
and the synthetic result of ``/emulator/make_ac_result``."""

from __future__ import annotations

import cmath
import math
import struct

import pytest

from test_emulator_jobs import Session

#: Ru + R || C of the cell below.
RU, R, C = 10.0, 1000.0, 1e-6


def grid(minimum: float, maximum: float, start: float, upper: int, lower: int) -> list[float]:
    """The generated grid as docs/protocol.md states it, computed here on its own."""
    corner = math.log10(66.0)
    x_min, x_max = math.log10(minimum), math.log10(maximum)

    def density(x: float) -> float:
        return upper if x >= corner else lower + (upper - lower) * (x - x_min) / (corner - x_min)

    points = [start]
    for sign, limit in ((1, x_max), (-1, x_min)):
        x = math.log10(start)
        if abs(x - limit) <= 1e-9:
            continue
        anchor, steps, run = x, 0, False
        run_points = []
        while True:
            if x >= corner:
                if not run:
                    anchor, steps, run = x, 0, True
                steps += 1
                nxt = anchor + sign * steps / upper
            else:
                run = False
                nxt = x + sign / density(x)
            if (nxt - limit) * sign > 1e-9:
                break
            x = nxt
            run_points.append(10.0 ** x)
        if abs(x - limit) <= 1e-9:
            run_points[-1] = maximum if sign > 0 else minimum
        else:
            run_points.append(maximum if sign > 0 else minimum)
        points += run_points
    return points


@pytest.fixture
def rc_emulator(emulator_factory):
    return emulator_factory(extra_args=("--seed", "7", "--time-scale", "50",
                                        "--cell", f"rc:R={R},C={C},Ru={RU}"))


def eis_parameters() -> dict:
    return {"bias": 0.0,
            "frequency_range": {"type": "generate", "min_frequency": 10.0, "max_frequency": 1e5,
                                "start_frequency": 1e3, "points_per_decade_upper": 10,
                                "points_per_decade_lower": 4, "pre_duration": 0.0, "pre_waves": 1,
                                "meas_duration": 0.0, "meas_waves": 2, "amplitude": 0.01}}


def test_eis_live_rows_waves_and_result_agree(rc_emulator):
    with Session(rc_emulator) as s:
        request_id, reply = s.start("eis", eis_parameters())
        assert reply["status"] == "SUCCESS", reply
        job_id = reply["job_id"]
        done = s.done(request_id, timeout=60.0)
        assert done["status"] == "FINISHED", done

        header = s.events("LIVE_DATA_HEADER_EIS", job_id)[0]["header"]
        meta_dims = header["meta"]["dimensions"]
        assert meta_dims == ["frequency", "periods", "time", "wave_id", "wave_size"]
        assert [p["uri"] for p in header["paths"]] == ["MAIN:1:POT:U~MUX:1:MUX_U", "MAIN:1:POT:I~MUX:1:MUX_I"]
        columns = len(header["dimensions"])

        # Previews of a point's wave come before its row and show that row's wave.
        rows, preview = [], [[], []]
        for frame in s.frames:
            if not isinstance(frame, dict) or frame.get("type") != "EVENT":
                continue
            event = frame["event"]
            if event["type"] == "LIVE_DATA_WAVES":
                assert event["offset"] == len(preview[0])
                for p in range(2):
                    preview[p] += event["paths_waves"][p]
            elif event["type"] == "LIVE_DATA_ROW_EIS":
                assert event["paths_waves"] == preview
                preview = [[], []]
                rows.append(event)

        frequencies = [row["meta"][0][0] for row in rows]
        assert frequencies == pytest.approx(grid(10.0, 1e5, 1e3, 10, 4), rel=1e-12)
        for row, f in zip(rows, frequencies):
            z = RU + R / complex(1.0, 2 * math.pi * f * R * C)
            magnitude, phase = row["impedances"][0][:2]
            assert magnitude == pytest.approx(abs(z), rel=1e-12)
            assert phase == pytest.approx(cmath.phase(z), abs=1e-12)
            assert row["meta"][0][4] == 128 and len(row["paths_waves"][0]) == 128

        # The result: every column with one value per row, then the waves path by path.
        resource_id = done["job_info"]["result_resource_id"]
        info = s.call({"do": "/JOB_RESULT/info", "resource_id": resource_id})["resource"]
        assert info["sub_type"] == "DATASET_AC"
        n = info["header"]["number_of_rows"]
        assert n == len(rows)
        assert info["header"]["job_data_header"] == header
        s.call({"do": "/JOB_RESULT/download", "resource_id": resource_id})
        payload = s.read_until(lambda f: isinstance(f, bytes))
        waves = 2 * sum(row["meta"][0][4] for row in rows)
        assert len(payload) == 8 * (n * columns + int(waves))
        values = struct.unpack(f"<{len(payload) // 8}d", payload)
        flat_rows = [row["meta"][0] + sum(row["impedances"], []) + sum(row["paths"], []) +
                     sum(row["async_paths"], []) + sum(row["potentiostats"], []) for row in rows]
        for c in range(columns):
            assert list(values[c * n:(c + 1) * n]) == [r[c] for r in flat_rows], header["dimensions"][c]
        offset = n * columns
        for p in range(2):
            for row in rows:
                assert list(values[offset:offset + 128]) == row["paths_waves"][p]
                offset += 128


def test_make_ac_result_attaches_a_large_synthetic_result(rc_emulator):
    with Session(rc_emulator) as s:
        parameters = eis_parameters()
        parameters["frequency_range"].update(min_frequency=1e3, max_frequency=1e3)
        request_id, reply = s.start("eis", parameters)
        done = s.done(request_id, timeout=30.0)
        assert done["status"] == "FINISHED", done
        made = s.call({"do": "/emulator/make_ac_result", "job_id": reply["job_id"], "points": 300,
                       "samples": 2000})
        assert made["status"] == "SUCCESS", made
        assert (made["number_of_rows"], made["columns"], made["sync_paths"]) == (300, 25, 2)
        info = s.call({"do": "/JOB_RESULT/info", "resource_id": made["resource_id"]})["resource"]
        assert info["header"]["number_of_rows"] == 300
        s.call({"do": "/JOB_RESULT/download", "resource_id": made["resource_id"]})
        payload = s.read_until(lambda f: isinstance(f, bytes))
        assert len(payload) == 8 * (300 * 25 + 2 * 300 * 2000) == made["size"]
        values = struct.unpack(f"<{len(payload) // 8}d", payload)
        assert values[0] == 1e6 and values[4 * 300 + 7] == 2000  # frequency of row 0, wave_size
        assert values[300 * 25 + 300 * 2000 + 5 * 2000 + 3] == pytest.approx(1 + 5e-6 + 3e-9, rel=1e-15)

        refused = s.call({"do": "/emulator/make_ac_result", "job_id": "nope"})
        assert refused["error"]["code"] == "ID_NOT_FOUND"
