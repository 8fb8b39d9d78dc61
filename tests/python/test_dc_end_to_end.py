"""A DC measurement from job to dataset against the emulator: live-data callbacks, the native
collector and the downloaded result agree."""

from __future__ import annotations

import pytest

import velmar_link
from velmar_link import DcDataset
from velmar_link.meas import RampJob


def ramp(**extra) -> RampJob:
    # 0.0 V -> 0.2 V at 2 V/s, 100 rows/s: 0.1 s, 11 rows.
    return RampJob(start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0, **extra)


def run(link, job) -> None:
    error = link.do_job(job)
    assert not error, error


def test_live_data_and_result_download_agree(link):
    job = ramp(meta_data={"sample": "e2e"})
    headers, blocks, finished = [], [], []
    job.add_header_callback(lambda header, info: headers.append((header, info)))
    job.add_rows_callback(blocks.append)
    job.add_finished_callback(finished.append)
    collector = job.add_live_data_collector()

    run(link, job)
    assert job.was_successful()

    assert len(headers) == 1 and len(finished) == 1
    header = headers[0][0]
    assert [c.get_dimension() for c in header.get_columns()] == ["time", "voltage", "current"]
    rows = [row for block in blocks for row in block]
    assert len(rows) == 11
    assert rows[0][:2] == [0.0, 0.0] and rows[-1][1] == pytest.approx(0.2)

    live = collector.get_dataset()
    assert collector.is_finished()
    assert live.get_tracks() == [list(column) for column in zip(*rows)]

    result = link.get_job_result_data(job)
    assert isinstance(result, DcDataset), result
    assert result.get_tracks() == live.get_tracks()
    assert result.get_header() == header.get_columns()
    assert result.get_info().num_rows == 11
    assert result.get_job_info().get_job_id() == job.get_last_job_info().get_job_id()

    again = result.recreate_original_job()
    assert isinstance(again, RampJob)
    assert again.parameters.end_value == pytest.approx(0.2)
    assert again.get_meta_data() == {"sample": "e2e"}


def test_discarded_result_data_is_reported(link):
    job = ramp()
    options = job.get_job_options()
    options.discard_result_data = True
    job.set_job_options(options)
    run(link, job)
    error = link.get_job_result_data(job)
    assert isinstance(error, velmar_link.ErrorObject)
    assert error.get_error_code_enum() == velmar_link.ErrorCodeEnum.RESULT_DATA_DISCARDED


def test_large_result_is_read_into_the_tracks(link, emulator):
    import numpy as np
    job = ramp()
    run(link, job)
    rows = 300_000  # 7.2 MB: many reads straight into each track
    reply = emulator.control({"do": "/emulator/make_dc_result",
                              "job_id": job.get_last_job_info().get_job_id(), "rows": rows})
    assert reply["status"] == "SUCCESS", reply
    assert reply["number_of_rows"] == rows and reply["columns"] == 3

    result = link.get_job_result_data(job)
    assert isinstance(result, DcDataset), result
    assert result.get_row_count() == rows
    index = np.arange(rows, dtype=np.float64)
    assert np.array_equal(result.track_as_numpy(0), index * 1e-3)
    assert np.array_equal(result.track_as_numpy(1), 1.0 + index * 1e-9)
    assert np.array_equal(result.track_as_numpy(2), 2.0 + index * 1e-9)
    assert result.get_job_info().get_job_id() == job.get_last_job_info().get_job_id()

    missing = emulator.control({"do": "/emulator/make_dc_result", "job_id": "no-such-job", "rows": 1})
    assert missing["status"] == "FAILED" and missing["error"]["code"] == "ID_NOT_FOUND"
