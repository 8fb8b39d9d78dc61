"""Impedance live data from a scripted workstation: well-formed events reach the job's callbacks
and the application's handlers as typed objects; a header, row or wave fragment that does not
fit its declaration fails its own job with JSON_MALFORMED, and the link stays usable."""

from __future__ import annotations

import uuid

import pytest

import velmar_link
from velmar_link import (
    ErrorCodeEnum,
    ImpedanceDataHeader,
    JobStatusDetailEnum,
    JobStatusEnum,
    LiveDataHeaderEis,
    LiveDataRowEis,
    LiveDataWavesEis,
    PathDataHeader,
    PotentiostatDataHeader,
)
from velmar_link.meas import EisGenerateJob

from .support import assert_no_source_location, assert_usable, bounded, code_of
from .workstation import eis_header, eis_row, job_info

MISMATCH = "the AC data table does not match the declared "


def eis_job() -> EisGenerateJob:
    return EisGenerateJob()


def impedance_job(events, end_after: float = 0.0):
    """Accept the job, send RUNNING, the events of ``events(job_id)`` and, after ``end_after``
    seconds, the finished mark and the "JOB_DONE" frame."""
    def handler(peer, request):
        job_id = str(uuid.uuid4())
        peer.accept_job(request, job_id)
        running = job_info(request, job_id, "RUNNING", "NOT_FINISHED")
        peer.event("JOB_STATUS_UPDATE", job_id=job_id, new_status="RUNNING", job_info=running)
        for event in events(job_id):
            peer.send({"type": "EVENT", "event": {"job_id": job_id, **event}})

        def end():
            peer.event("LIVE_DATA_FINISHED", job_id=job_id,
                       job_info=job_info(request, job_id, "FINISHED", "RUN_TO_COMPLETION"))
            peer.job_done(request, job_id)
        if end_after:
            peer.later(end_after, end)
        else:
            end()
    return handler


def header_event():
    return {"type": "LIVE_DATA_HEADER_EIS", "header": eis_header()}


def row_event(row):
    return {"type": "LIVE_DATA_ROW_EIS", **row}


def waves_event(waves, offset=0, full=3):
    return {"type": "LIVE_DATA_WAVES", "paths_waves": waves, "offset": offset, "full_wave_size": full}


def test_impedance_live_data_reach_the_job_and_the_application_typed(station, hostile_link):
    station.on("/job/start", impedance_job(lambda job_id: [
        header_event(), waves_event([[1.0, 2.0], [0.001, 0.002]], 0, 3),
        row_event(eis_row(1000.0, 0)), row_event(eis_row(100.0, 0, wave=()))]))
    job = eis_job()
    seen: dict[str, list] = {"header": [], "rows": [], "waves": [], "finished": []}
    job.add_header_callback(lambda header, info: seen["header"].append((header, info.get_job_id())))
    job.add_row_callback(seen["rows"].append)
    job.add_waves_callback(seen["waves"].append)
    job.add_finished_callback(seen["finished"].append)
    assert job.get_number_of_live_data_callbacks() == 4
    application = []
    handler = velmar_link.VelmarLinkEventHandler.make_live_data_header_eis_event_handler(
        lambda header, info: application.append(header))
    hostile_link.set_event_handler(handler)

    assert not bounded(lambda: hostile_link.do_job(job), hostile_link)

    (header, job_id), = seen["header"]
    assert job_id == job.get_last_job_info().get_job_id()
    assert isinstance(header, LiveDataHeaderEis)
    assert header.get_short_type() == "EIS"
    impedance, = header.get_impedances_headers()
    assert isinstance(impedance, ImpedanceDataHeader)
    assert impedance.get_numerator_path() == "MAIN:1:POT:U~MUX:1:MUX_U"
    assert impedance.get_denominator_path() == "MAIN:1:POT:I~MUX:1:MUX_I"
    assert impedance.get_impedance_name() == ""
    assert [c.get_dimension() for c in impedance.get_columns()] == ["|impedance|", "phase"]
    assert impedance.get_columns()[0].get_unit() == "\u2126"
    paths = header.get_paths_data_headers()
    assert all(isinstance(p, PathDataHeader) for p in paths)
    assert [p.get_name() for p in paths] == ["voltage", "current"]
    assert header.get_async_paths_data_headers() == []
    potentiostat, = header.get_potentiostats_data_headers()
    assert isinstance(potentiostat, PotentiostatDataHeader) and potentiostat.get_uri() == "MAIN:1:POT"
    assert [c.get_dimension() for c in header.get_meta_data_header()] == [
        "frequency", "periods", "time", "wave_id", "wave_size"]
    assert header.get_number_of_columns() == 5 + 2 + 2 + 2 + 2

    first, second = seen["rows"]
    assert isinstance(first, LiveDataRowEis)
    assert first.get_meta() == [1000.0, 4.0, 0.0, 0.0, 3.0]
    assert first.get_paths_waves()[0] == [1.0, 2.0, 3.0]
    assert second.get_paths_waves() == []
    wave, = seen["waves"]
    assert isinstance(wave, LiveDataWavesEis)
    assert (wave.get_offset(), wave.get_full_wave_size()) == (0, 3)
    assert seen["finished"][0].get_status() == JobStatusEnum.FINISHED
    assert application == [header]


MALFORMED = {
    "row-before-header": ([lambda: row_event(eis_row(10.0)), header_event], "header: none received"),
    "undeclared-impedance": ([header_event, lambda: row_event(eis_row(10.0, impedances=[[1.0, 0.0], [2.0, 0.0]]))],
                             "impedances: 2 lists for 1 declared"),
    "short-path-list": ([header_event, lambda: row_event(eis_row(10.0, paths=[[0.0, 1.0], [0.0]]))],
                        "paths: list 1 holds 1 values for 2 columns"),
    "meta-missing": ([header_event, lambda: row_event(eis_row(10.0, meta=None))], "row layout: 'meta'"),
    "string-in-row": ([header_event, lambda: row_event(eis_row(10.0, potentiostats=[[0.0, "1k"]]))],
                      "row layout: 'potentiostats' holds a non-number"),
    "waves-for-one-path": ([header_event, lambda: waves_event([[1.0, 2.0]])], "wave fragment: 1 fragments"),
    "wave-beyond-its-size": ([header_event, lambda: waves_event([[1.0, 2.0], [1.0, 2.0]], 2, 3)],
                             "wave fragment: samples 2 to 4"),
    "header-without-meta": ([lambda: {"type": "LIVE_DATA_HEADER_EIS",
                                      "header": {k: v for k, v in eis_header().items() if k != "meta"}}],
                            "header: 'meta' missing"),
}


@pytest.mark.parametrize("case", sorted(MALFORMED))
def test_impedance_data_that_does_not_fit_fails_its_job_and_the_link_stays_usable(station, hostile_link, case,
                                                                                   capfd):
    events, problem = MALFORMED[case]
    # A well-formed row follows the bad event; the job has failed by then and never sees it.
    station.on("/job/start", impedance_job(
        lambda job_id: [make() for make in events] + [row_event(eis_row(1.0))], end_after=1.5))
    job = eis_job()
    rows: list = []
    job.add_row_callback(rows.append)
    result = bounded(lambda: hostile_link.do_job(job), hostile_link)

    assert code_of(result) == ErrorCodeEnum.JSON_MALFORMED, result
    message = result.get_message_formatted()
    assert message.startswith(MISMATCH + problem), message
    assert_no_source_location(message)
    assert rows == []
    info = job.get_last_job_info()
    assert info.get_status() == JobStatusEnum.FAILED
    assert info.get_status_detail() == JobStatusDetailEnum.RUNTIME_ERROR
    assert info.get_error().get_error_code_enum() == ErrorCodeEnum.JSON_MALFORMED
    assert_usable(hostile_link)
    assert "fails job" in capfd.readouterr().err


def test_a_header_that_is_not_an_object_is_malformed_json(station, hostile_link):
    station.on("/job/start", impedance_job(lambda job_id: [{"type": "LIVE_DATA_HEADER_EIS", "header": "EIS"}]))
    job = eis_job()
    result = bounded(lambda: hostile_link.do_job(job), hostile_link)
    assert code_of(result) == ErrorCodeEnum.JSON_MALFORMED
    assert result.get_message_formatted() == "json malformed: live data 'header' is not an object"
    assert_usable(hostile_link)
    # The same job object runs again on the same link, from a fresh header.
    station.on("/job/start", impedance_job(lambda job_id: [header_event(), row_event(eis_row(5.0))]))
    rows: list = []
    job.add_row_callback(rows.append)
    assert not bounded(lambda: hostile_link.do_job(job), hostile_link)
    assert [row.get_meta()[0] for row in rows] == [5.0]
