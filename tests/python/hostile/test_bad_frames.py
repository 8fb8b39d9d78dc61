"""Bad frames: text that is not JSON, frames without a type, and "JOB_DONE" frames that are
garbage or lack their job information. Each is dropped or ends its job; the link stays usable."""

from __future__ import annotations

import uuid

import pytest

import velmar_link
from velmar_link import ErrorCodeEnum, JobStatusDetailEnum, JobStatusEnum
from velmar_link.control import SleepJob

from .support import assert_usable, bounded, code_of
from .workstation import STATUS, error_object, job_info


@pytest.mark.parametrize("frame", [
    "{not json", "", "[1, 2, 3]", '"text"', '{"request_id": "x"}', '{"type": 5}', '{"type": "WHATEVER"}',
    '{"type": "REPLY"}', '{"type": "REPLY", "request_id": 7}', '{"type": "EVENT", "event": "LIVE_DATA_ROWS"}',
    '{"type": "EVENT", "event": {"type": "LIVE_DATA_ROWS", "data": null}}',
    '{"type": "JOB_DONE", "request_id": "no-such-request"}',
], ids=["truncated", "empty", "array", "string", "no-type", "type-number", "unknown-type", "reply-no-id",
        "reply-id-number", "event-not-object", "event-no-job", "job-done-unknown-id"])
def test_bad_frame_before_the_reply_is_dropped(station, hostile_link, frame):
    def status(peer, request):
        peer.send_text(frame)
        peer.send_binary(b"\x00\x01 a binary frame nobody asked for")
        peer.reply(request, workstation_status=STATUS)

    station.on("/status", status)
    result = bounded(hostile_link.get_workstation_status, hostile_link)
    assert isinstance(result, velmar_link.WorkstationStatus), result
    assert_usable(hostile_link)


def sleep_job():
    return SleepJob(duration=0.01)


def start_then(done_frame):
    """A "/job/start" handler: accept the job, then send ``done_frame(request, job_id)``."""
    def handler(peer, request):
        job_id = str(uuid.uuid4())
        peer.accept_job(request, job_id)
        peer.send(done_frame(request, job_id))
    return handler


@pytest.mark.parametrize("frame", [
    lambda request, job_id: {"type": "JOB_DONE", "request_id": request["request_id"], "job_id": job_id},
    lambda request, job_id: {"type": "JOB_DONE", "request_id": request["request_id"], "job_id": job_id,
                             "status": "BOGUS", "status_detail": "NONSENSE"},
    lambda request, job_id: {"type": "JOB_DONE", "request_id": request["request_id"], "job_id": job_id,
                             "status": 3},
    lambda request, job_id: {"type": "JOB_DONE", "request_id": request["request_id"], "job_id": job_id,
                             "job_info": "FINISHED"},
    lambda request, job_id: {"type": "JOB_DONE", "request_id": request["request_id"], "job_id": job_id,
                             "job_info": [1, 2]},
], ids=["no-status", "invalid-status", "status-number", "job-info-string", "job-info-array"])
def test_garbage_job_done_leaves_the_job_failed_not_pending(station, hostile_link, frame):
    station.on("/job/start", start_then(frame))
    job = sleep_job()
    result = bounded(lambda: hostile_link.do_job(job), hostile_link)
    assert code_of(result) == ErrorCodeEnum.JSON_MALFORMED
    info = job.get_last_job_info()
    assert info.get_status() == JobStatusEnum.FAILED
    assert info.get_status_detail() == JobStatusDetailEnum.RUNTIME_ERROR
    assert info.get_error().get_error_code_enum() == ErrorCodeEnum.JSON_MALFORMED
    assert_usable(hostile_link)


def test_job_done_without_job_info_keeps_the_stored_job_information(station, hostile_link):
    # The start reply's job information stays; only the outcome comes from the top level.
    def handler(peer, request):
        info = job_info(request, "job-from-reply", "PENDING", "NOT_FINISHED")
        info["created"] = "2026-02-03T04:05:06.000Z"
        peer.reply(request, job_id="job-from-reply", job_info=info)
        peer.send({"type": "JOB_DONE", "request_id": request["request_id"], "job_id": "job-from-reply",
                   "status": "FAILED", "status_detail": "RUNTIME_ERROR",
                   "error": error_object("POT_STATUS_MISMATCH", "potentiostat '{0}' must be switched off", "MAIN:1:POT")})

    station.on("/job/start", handler)
    job = sleep_job()
    result = bounded(lambda: hostile_link.do_job(job), hostile_link)
    assert code_of(result) == ErrorCodeEnum.POT_STATUS_MISMATCH
    info = job.get_last_job_info()
    assert info.get_job_id() == "job-from-reply"
    assert info.get_creation_date() == "2026-02-03T04:05:06.000Z"
    assert info.get_type() == "sleep"
    assert info.get_status() == JobStatusEnum.FAILED
    assert info.get_status_detail() == JobStatusDetailEnum.RUNTIME_ERROR
    assert_usable(hostile_link)
