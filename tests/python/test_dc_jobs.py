"""DC measurement jobs from Python: construction, callbacks, rebuilding the job of a dataset."""

from __future__ import annotations

import json

import pytest

import velmar_link
from velmar_link import DcDataset
from velmar_link.meas import CvJob, CvParametersPy, OcvJob, RampJob

HEADER = {
    "measurement_type_short": "CV",
    "measurement_type": "Cyclic Voltammetry",
    "columns": {"dimensions": ["time", "voltage"], "units": ["s", "V"], "urns": ["T", "U"]},
}


def recorded_events(job_info: dict, rows: object = None) -> str:
    return json.dumps(
        [
            {"type": "EVENT", "event": {"type": "LIVE_DATA_HEADER", "header": HEADER}},
            {"type": "EVENT", "event": {"type": "LIVE_DATA_ROWS", "data": rows or [[0.0, 0.1], [0.5, 0.2]]}},
            {"type": "EVENT", "event": {"type": "LIVE_DATA_FINISHED", "job_info": job_info}},
        ]
    )


def test_jobs_take_parameters_stop_conditions_and_meta_data_as_keywords():
    job = CvJob(start_value=0.1, num_cycles=2.5, scan_rate=0.05, meta_data={"sample": "A"})
    assert isinstance(job.parameters, CvParametersPy)
    assert (job.parameters.start_value, job.parameters.num_cycles) == (0.1, 2.5)
    assert job.get_meta_data() == {"sample": "A"}
    assert job.get_name() == "cv"
    assert '"type": "cv"' in CvJob.__doc__
    assert isinstance(OcvJob(duration=3.0), velmar_link.AbstractMeasurementJob)


def test_callbacks_are_counted_in_the_order_added():
    job = RampJob(end_value=1.0)
    assert job.get_number_of_live_data_callbacks() == 0
    job.add_header_callback(lambda header, info: None)
    job.add_rows_callback(lambda rows: None)
    job.add_rows_array_callback(lambda array: None)
    job.add_finished_callback(lambda info: None)
    assert job.get_number_of_live_data_callbacks() == 4


def test_recreate_original_job_rebuilds_kind_parameters_and_meta_data():
    parameters = CvJob(first_vertex=0.7, second_vertex=-0.3, scan_rate=0.02).parameters
    info = {
        "job_id": "abc",
        "type": "cv",
        "status": "FINISHED",
        "job_meta": {"operator": "B"},
        "parameters": {name: getattr(parameters, name) for name in dir(parameters) if not name.startswith("_")},
    }
    dataset = DcDataset.from_json_events(recorded_events(info))
    assert isinstance(dataset, DcDataset)
    assert dataset.get_row_count() == 2
    assert dataset.get_job_info().get_job_id() == "abc"
    job = dataset.recreate_original_job()
    assert isinstance(job, CvJob)
    assert (job.parameters.first_vertex, job.parameters.scan_rate) == (0.7, 0.02)
    assert job.get_meta_data() == {"operator": "B"}

    without_parameters = DcDataset.from_json_events(recorded_events({"job_id": "x", "type": "cv"}))
    assert without_parameters.recreate_original_job() is None
    unknown = DcDataset.from_json_events(recorded_events({"job_id": "x", "type": "reboot"}))
    assert unknown.recreate_original_job() is None


@pytest.mark.parametrize("text", ["[", json.dumps([{"type": "EVENT", "event": {"type": "LIVE_DATA_ROWS"}}])])
def test_malformed_recorded_events_give_an_error_object(text):
    assert isinstance(DcDataset.from_json_events(text), velmar_link.ErrorObject)


def test_base64_rows_in_recorded_events_are_decoded():
    import base64
    import struct

    rows = base64.b64encode(struct.pack("<4d", 1.0, 2.0, 3.0, -0.0)).decode()
    dataset = DcDataset.from_json_events(recorded_events({"job_id": "x"}, rows))
    assert dataset.get_tracks() == [[1.0, 3.0], [2.0, -0.0]]
    bad = DcDataset.from_json_events(recorded_events({"job_id": "x"}, "AAAAA"))
    assert bad.get_message_formatted() == "Invalid Base64 string length."
