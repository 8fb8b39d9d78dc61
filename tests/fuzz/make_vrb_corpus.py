"""Writes the seed corpus of the `.vrb` fuzz harness: the "With Header" snapshots of a DC and an
impedance job result, downloaded from the emulator through the link's resource calls.

    PYTHONPATH=build/dev/python_package python3 tests/fuzz/make_vrb_corpus.py [--binary EMULATOR]

An emulator without impedance measurements gives no impedance result; the impedance seed is then
composed from a small impedance dataset in the same layout (metadata, 0x00, binary form), and the
script says so.
"""

from __future__ import annotations

import argparse
import json
from pathlib import Path

from velmar_link import EisDataset, ResourceTypeEnum, VelmarLink
from velmar_link.emulator import Emulator
from velmar_link.meas import EisFrequencyRangeGenerate, EisGenerateJob, RampJob

CORPUS = Path(__file__).resolve().parent / "corpus" / "vrb"

U, I = "MAIN:1:POT:U~MUX:1:MUX_U", "MAIN:1:POT:I~MUX:1:MUX_I"
EIS_HEADER = {
    "measurement_type": "Electrochemical Impedance Spectroscopy", "measurement_type_short": "EIS",
    "meta": {"dimensions": ["frequency", "periods", "time", "wave_id", "wave_size"],
             "units": ["Hz", "", "s", "", ""]},
    "impedances": [{"impedance_name": "cell", "numerator": U, "denominator": I,
                    "dimensions": ["|impedance|", "phase"], "units": ["\u2126", "rad"]}],
    "paths": [{"name": "voltage", "uri": U, "dimensions": ["dc", "gain"], "units": ["V", ""]},
              {"name": "current", "uri": I, "dimensions": ["dc", "gain"], "units": ["A", ""]}],
    "async_paths": [],
    "potentiostats": [{"uri": "MAIN:1:POT", "dimensions": ["dc", "shunt"], "units": ["V", "\u2126"]}],
}


def snapshot(link: VelmarLink, job) -> bytes | None:
    error = link.do_job(job)
    if error:
        print(f"{type(job).__name__} failed: {error}")
        return None
    job_id = job.get_last_job_info().get_job_id()
    for resource in link.get_available_resources(ResourceTypeEnum.VELMAR_BINARY):
        if resource.job_id == job_id:
            data = b""
            while len(data) < resource.size:
                data += link.retrieve_resource(resource, 0, len(data))
            return data
    print(f"no snapshot of job {job_id}")
    return None


def impedance_job() -> EisGenerateJob:
    # 1 kHz .. 100 kHz, two measured periods per point and no settling: a short spectrum.
    return EisGenerateJob(frequency_range=EisFrequencyRangeGenerate(
        min_frequency=1000.0, max_frequency=100000.0, start_frequency=10000.0, pre_waves=0, pre_duration=0.0,
        meas_waves=2, meas_duration=0.0))


def composed_impedance_snapshot() -> bytes:
    events = [{"type": "EVENT", "event": {"type": "LIVE_DATA_HEADER_EIS", "header": EIS_HEADER}}]
    for row, (frequency, wave) in enumerate([(1000.0, [1.0, 2.0, 3.0]), (100.0, [4.0, -0.0, 6.0])]):
        events.append({"type": "EVENT", "event": {
            "type": "LIVE_DATA_ROW_EIS", "impedances": [[100.0 * (row + 1), -0.5]],
            "paths": [[0.5, 1.0], [0.005, 10.0]], "paths_waves": [wave, [w / 100 for w in wave]],
            "async_paths": [], "potentiostats": [[0.5, 100.0]],
            "meta": [[frequency, 4.0, float(row), float(row), float(len(wave))]]}})
    job_info = {"job_id": "eis-seed", "status": "FINISHED", "type": "eis"}
    events.append({"type": "EVENT", "event": {"type": "LIVE_DATA_FINISHED", "job_info": job_info}})
    dataset = EisDataset.from_json_events(json.dumps(events))
    _, rows, payload = dataset.to_binary()
    metadata = {"resource_id": "00000000-0000-4000-8000-000000000000", "name": "job eis-seed", "type": "JOB_RESULT",
                "sub_type": "DATASET_AC", "size": len(payload), "created": "", "created_by": "emulator",
                "updated": "", "job_id": "eis-seed",
                "header": {"job_data_header": EIS_HEADER, "job_info": job_info, "number_of_rows": rows},
                "workstation_info": {"mode": "EMULATION", "protocol_version": 12}}
    return json.dumps(metadata).encode() + b"\0" + payload


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--binary", help="the velmar-emulator program (default: the bundled one)")
    arguments = parser.parse_args()
    CORPUS.mkdir(parents=True, exist_ok=True)
    with Emulator(binary=arguments.binary, extra_args=("--seed", "1994")) as emulator:
        link = VelmarLink("127.0.0.1", emulator.port_str)
        error = link.connect()
        assert not error, error
        try:
            dc = snapshot(link, RampJob(start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0))
            assert dc is not None
            (CORPUS / "dc_ramp.vrb").write_bytes(dc)
            ac = snapshot(link, impedance_job())
        finally:
            link.disconnect()
    if ac is None:
        print("the emulator gave no impedance result: composing the impedance seed")
        ac = composed_impedance_snapshot()
    (CORPUS / "ac_eis.vrb").write_bytes(ac)
    print(f"seeds written to {CORPUS}")


if __name__ == "__main__":
    main()
