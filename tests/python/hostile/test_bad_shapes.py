"""Bad shapes: live-data events and job results whose shape does not match what they claim.
A malformed event fails its own job with JSON_MALFORMED; a result frame of another length than
its header declares fails the download; no header number makes the client allocate what does
not arrive; messages beyond the link's size limit are refused. The link stays usable."""

from __future__ import annotations

import base64
import json
import os
import subprocess
import sys
import textwrap
import uuid
from pathlib import Path

import pytest

import velmar_link
from velmar_link import DcDataset, ErrorCodeEnum, JobStatusDetailEnum, JobStatusEnum
from velmar_link.meas import RampJob

from .support import assert_no_source_location, assert_usable, bounded, code_of
from .workstation import columns_bytes, dc_header, job_info, rows_base64

ROWS = [[0.0, 0.1, 1e-6], [0.01, 0.11, 2e-6], [0.02, 0.12, 3e-6]]


def ramp() -> RampJob:
    return RampJob(start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0)


# ---------------------------------------------------------------------------------------------
# Malformed live-data events

def header_event(job_id):
    return {"type": "LIVE_DATA_HEADER", "job_id": job_id, "header": dc_header()}


def rows_event(job_id, data):
    return {"type": "LIVE_DATA_ROWS", "job_id": job_id, "data": data}


MALFORMED = {
    "mixed-length-rows": lambda job_id: [header_event(job_id), rows_event(job_id, [[0.0, 1.0, 2.0], [0.1, 1.1]])],
    "strings-in-rows": lambda job_id: [header_event(job_id), rows_event(job_id, [[0.0, "1.0", 2.0]])],
    "data-null": lambda job_id: [header_event(job_id), rows_event(job_id, None)],
    "data-missing": lambda job_id: [header_event(job_id), {"type": "LIVE_DATA_ROWS", "job_id": job_id}],
    "data-not-rows": lambda job_id: [header_event(job_id), rows_event(job_id, [1.0, 2.0, 3.0])],
    "base64-partial-row": lambda job_id: [
        header_event(job_id), rows_event(job_id, base64.b64encode(b"\0" * (3 * 8 + 8)).decode())],
    "base64-invalid": lambda job_id: [header_event(job_id), rows_event(job_id, "!!!!not base64!!")],
    "header-missing": lambda job_id: [{"type": "LIVE_DATA_HEADER", "job_id": job_id},
                                      rows_event(job_id, ROWS)],
    "header-not-object": lambda job_id: [{"type": "LIVE_DATA_HEADER", "job_id": job_id, "header": "columns"},
                                         rows_event(job_id, ROWS)],
    "header-ragged-columns": lambda job_id: [
        {"type": "LIVE_DATA_HEADER", "job_id": job_id,
         "header": dc_header({"dimensions": ["time", "voltage"], "units": ["s"], "urns": ["A", "B", "C"]})},
        rows_event(job_id, ROWS)],
    "rows-before-header": lambda job_id: [rows_event(job_id, ROWS), header_event(job_id)],
}


def malformed_job(events, late_rows=ROWS):
    """Accept the job, send ``events`` (the bad one among them), more rows, and only after a
    pause the job's normal end: a client that failed the job at once never sees that end."""
    def handler(peer, request):
        job_id = str(uuid.uuid4())
        peer.accept_job(request, job_id)
        running = job_info(request, job_id, "RUNNING", "NOT_FINISHED")
        peer.event("JOB_STATUS_UPDATE", job_id=job_id, new_status="RUNNING", job_info=running)
        for event in events(job_id):
            peer.send({"type": "EVENT", "event": event})
        peer.event("LIVE_DATA_ROWS", job_id=job_id, data=late_rows)

        peer.later(1.5, lambda: peer.end_dc_job(request, job_id))
    return handler


@pytest.mark.parametrize("case", sorted(MALFORMED))
def test_malformed_live_data_fails_its_job_and_the_link_stays_usable(station, hostile_link, case, capfd):
    station.on("/job/start", malformed_job(MALFORMED[case]))
    job = ramp()
    rows_seen = []
    job.add_rows_callback(rows_seen.append)
    result = bounded(lambda: hostile_link.do_job(job), hostile_link)

    assert code_of(result) == ErrorCodeEnum.JSON_MALFORMED, result
    assert result.get_message_format_string() == "json malformed: {0}"
    parameters = [str(p) for p in result.get_message_parameters()]
    assert len(parameters) == 1 and parameters[0], parameters
    assert_no_source_location(parameters[0])
    info = job.get_last_job_info()
    assert info.get_status() == JobStatusEnum.FAILED
    assert info.get_status_detail() == JobStatusDetailEnum.RUNTIME_ERROR
    assert info.get_error().get_error_code_enum() == ErrorCodeEnum.JSON_MALFORMED
    assert_usable(hostile_link)
    assert capfd.readouterr().err.strip(), "the malformed event is reported on standard error"


def test_malformed_live_data_raises_from_velmar_link_exc(station, hostile_link_exc):
    station.on("/job/start", malformed_job(MALFORMED["strings-in-rows"]))
    job = ramp()

    def run():
        with pytest.raises(velmar_link.VelmarLinkException) as raised:
            hostile_link_exc.do_job(job)
        return raised.value

    raised = bounded(run, hostile_link_exc)
    assert raised.error.get_error_code_enum() == ErrorCodeEnum.JSON_MALFORMED
    assert_no_source_location(str(raised))


def test_application_handler_sees_the_well_formed_events(station, hostile_link):
    station.on("/job/start", malformed_job(MALFORMED["mixed-length-rows"]))
    headers, blocks = [], []
    header_handler = velmar_link.VelmarLinkEventHandler.make_live_data_header_event_handler(
        lambda header, info: headers.append(header.get_number_of_columns()))
    rows_handler = velmar_link.VelmarLinkEventHandler.make_live_data_rows_event_handler(blocks.append)
    hostile_link.set_event_handler(header_handler)
    hostile_link.set_event_handler(rows_handler)
    try:
        result = bounded(lambda: hostile_link.do_job(ramp()), hostile_link)
        assert code_of(result) == ErrorCodeEnum.JSON_MALFORMED
        assert_usable(hostile_link)  # the later rows event has arrived by now
    finally:
        hostile_link.clear_event_handler(header_handler)
        hostile_link.clear_event_handler(rows_handler)
    assert headers == [3]
    assert ROWS in blocks, "the well-formed rows after the bad event still reach the application"


def test_malformed_event_of_no_job_is_dropped(station, hostile_link, capfd):
    def status(peer, request):
        peer.event("LIVE_DATA_ROWS", job_id="nobody", data=[[1.0, "x"]])
        peer.event("LIVE_DATA_HEADER", header="not a header")
        peer.reply(request, workstation_status={"busy": False, "uptime": 1, "last_dc_calibration": "",
                                                "mode": "EMULATION"})

    station.on("/status", status)
    assert isinstance(bounded(hostile_link.get_workstation_status, hostile_link), velmar_link.WorkstationStatus)
    assert_usable(hostile_link)


def test_base64_rows_are_decoded_row_by_row(station, hostile_link):
    # The well-formed counterpart of the Base64 cases: rows as packed little-endian doubles.
    def handler(peer, request):
        job_id = peer.begin_dc_job(request, [])
        peer.event("LIVE_DATA_ROWS", job_id=job_id, data=rows_base64(ROWS))
        peer.end_dc_job(request, job_id)

    station.on("/job/start", handler)
    job = ramp()
    blocks = []
    job.add_rows_callback(blocks.append)
    assert not bounded(lambda: hostile_link.do_job(job), hostile_link)
    assert [row for block in blocks for row in block] == ROWS


# ---------------------------------------------------------------------------------------------
# Result downloads

def finished_job(station, content, declared_rows, rows=ROWS):
    """A "/job/start" handler for a job whose result is ``content`` with ``declared_rows``."""
    def handler(peer, request):
        job_id = peer.run_dc_job(request, rows)
        station.add_result(job_id, content, declared_rows)
    return handler


def test_zero_row_result_has_one_empty_track_per_column(station, hostile_link):
    station.on("/job/start", finished_job(station, b"", 0, rows=[]))
    job = ramp()
    assert not bounded(lambda: hostile_link.do_job(job), hostile_link)
    result = bounded(lambda: hostile_link.get_job_result_data(job), hostile_link)
    assert isinstance(result, DcDataset), result
    assert result.get_row_count() == 0
    assert result.get_tracks() == [[], [], []]
    assert len(result.track_as_numpy(0)) == 0
    assert len(result.get_dc_track_array("current")) == 0
    # Only with its tracks in place may the empty result be appended (this crashed before).
    combined = DcDataset(result.get_header(), [[0.0], [0.1], [1e-6]])
    assert combined.append(result, 1.0) is not False
    assert combined.get_row_count() == 1
    assert result.append(combined, 0.0) is not False
    assert result.get_row_count() == 1


def test_every_empty_dataset_has_one_track_per_column():
    columns = [velmar_link.ColumnHeader(d, u, "MAIN:1:POT:" + d.upper())
               for d, u in (("time", "s"), ("voltage", "V"), ("current", "A"))]
    header = velmar_link.LiveDataHeader("Linear Sweep", "ramp", columns)
    events = json.dumps([{"type": "EVENT", "event": {"type": "LIVE_DATA_HEADER", "header": dc_header()}}])
    for dataset in (DcDataset.from_binary(b"", header), DcDataset(columns), DcDataset.from_json_events(events)):
        assert isinstance(dataset, DcDataset), dataset
        assert dataset.get_tracks() == [[], [], []]
        assert len(dataset.track_as_numpy(2)) == 0


@pytest.mark.parametrize("frame_rows", [2, 8], ids=["half-frame", "double-frame"])
def test_result_frame_of_another_length_than_declared_fails(station, hostile_link, frame_rows):
    declared = 4
    content = columns_bytes([[float(r) for r in range(frame_rows)]] * 3)
    station.on("/job/start", finished_job(station, content, declared))
    job = ramp()
    assert not bounded(lambda: hostile_link.do_job(job), hostile_link)
    result = bounded(lambda: hostile_link.get_job_result_data(job), hostile_link)
    assert code_of(result) == ErrorCodeEnum.RESOURCE_CONTENT_INVALID
    text = str(result)
    assert str(declared * 3 * 8) in text and str(len(content)) in text, text
    assert_usable(hostile_link)


def test_result_frame_with_a_partial_value_fails(station, hostile_link):
    content = columns_bytes([[0.0, 1.0]] * 3)[:-1]
    station.on("/job/start", finished_job(station, content, 2))
    job = ramp()
    assert not bounded(lambda: hostile_link.do_job(job), hostile_link)
    result = bounded(lambda: hostile_link.get_job_result_data(job), hostile_link)
    assert code_of(result) == ErrorCodeEnum.RESOURCE_CONTENT_INVALID
    assert_usable(hostile_link)


def test_result_matching_its_declared_rows_is_read_column_by_column(station, hostile_link):
    columns = [[0.0, 0.01, 0.02], [0.1, 0.11, 0.12], [1e-6, 2e-6, 3e-6]]
    station.on("/job/start", finished_job(station, columns_bytes(columns), 3))
    job = ramp()
    assert not bounded(lambda: hostile_link.do_job(job), hostile_link)
    result = bounded(lambda: hostile_link.get_job_result_data(job), hostile_link)
    assert isinstance(result, DcDataset), result
    assert result.get_tracks() == columns


RSS_PROBE = textwrap.dedent("""
    import json, resource, sys, uuid
    from hostile.workstation import HostileWorkstation, columns_bytes
    import velmar_link
    from velmar_link.meas import RampJob

    claimed = int(sys.argv[1])
    station = HostileWorkstation().start()
    def handler(peer, request):
        job_id = peer.run_dc_job(request, [[0.0, 0.1, 1e-6]])
        station.add_result(job_id, columns_bytes([[0.5] * 61] * 3), claimed)  # 1464 bytes
    station.on("/job/start", handler)
    link = velmar_link.VelmarLink("127.0.0.1", station.port_str)
    assert not link.connect()
    job = RampJob(start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0)
    assert not link.do_job(job)
    result = link.get_job_result_data(job)
    code = result.get_error_code_enum().name if isinstance(result, velmar_link.ErrorObject) else "dataset"
    link.disconnect()
    station.stop()
    print(json.dumps({"peak_kib": resource.getrusage(resource.RUSAGE_SELF).ru_maxrss, "outcome": code}))
""")


def test_huge_row_claim_with_a_tiny_frame_allocates_nothing_of_it():
    claimed_rows = 44_739_242  # x 3 columns x 8 bytes: just under 1 GiB
    environment = dict(os.environ)
    here = str(Path(__file__).resolve().parents[1])
    environment["PYTHONPATH"] = os.pathsep.join(filter(None, [here, environment.get("PYTHONPATH", "")]))
    completed = subprocess.run([sys.executable, "-c", RSS_PROBE, str(claimed_rows)], env=environment,
                               capture_output=True, text=True, timeout=60)
    assert completed.returncode == 0, completed.stderr
    report = json.loads(completed.stdout.strip().splitlines()[-1])
    claim_kib = claimed_rows * 3 * 8 // 1024
    assert report["peak_kib"] < claim_kib // 4, f"peak {report['peak_kib']} KiB for a claim of {claim_kib} KiB"
    assert report["outcome"] == "RESOURCE_CONTENT_INVALID", report


# ---------------------------------------------------------------------------------------------
# Messages beyond the link's size limit

LIMIT = 1 << 20


def test_oversized_result_frame_fails_the_download(station, hostile_link):
    rows = LIMIT // 24 + 1000
    content = columns_bytes([[0.25] * rows] * 3)
    station.on("/job/start", finished_job(station, content, rows))
    hostile_link.set_max_message_size(LIMIT)
    job = ramp()
    assert not bounded(lambda: hostile_link.do_job(job), hostile_link)
    result = bounded(lambda: hostile_link.get_job_result_data(job), hostile_link)
    assert code_of(result) == ErrorCodeEnum.RESOURCE_CONTENT_INVALID
    assert str(LIMIT) in str(result), str(result)
    assert_usable(hostile_link)


def test_oversized_text_frame_is_dropped(station, hostile_link, capfd):
    def status(peer, request):
        peer.event("MESSAGE_FROM_SERVER", severity="MESSAGE", date_time="", message="x" * (2 * LIMIT))
        peer.reply(request, workstation_status={"busy": True, "uptime": 2, "last_dc_calibration": "",
                                                "mode": "EMULATION"})

    station.on("/status", status)
    hostile_link.set_max_message_size(LIMIT)
    result = bounded(hostile_link.get_workstation_status, hostile_link)
    assert isinstance(result, velmar_link.WorkstationStatus), result
    assert result.busy
    assert_usable(hostile_link)
    assert capfd.readouterr().err.strip()
