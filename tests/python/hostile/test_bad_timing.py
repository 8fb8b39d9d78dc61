"""Bad timing: replies after their time-out, silence, a peer that closes in the middle of a
request or a job, and time-outs that fall while the I/O thread is busy in a callback."""

from __future__ import annotations

import threading
import uuid

import velmar_link
from velmar_link import ErrorCodeEnum, JobStatusDetailEnum, JobStatusEnum, VelmarLinkConnectionStatusEnum
from velmar_link.meas import RampJob

from .support import assert_usable, bounded, code_of, ms
from .workstation import STATUS, job_info

ROWS = [[0.0, 0.1, 1e-6], [0.01, 0.11, 2e-6]]


def ramp() -> RampJob:
    return RampJob(start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0)


def test_late_reply_is_dropped_and_the_next_request_gets_its_own(station, hostile_link):
    answered = threading.Event()
    first = []

    def status(peer, request):
        if not first:
            first.append(request)
            # Answered only after the caller has timed out and the next request is in.
            return
        late = dict(STATUS, uptime=111)
        peer.reply(first[0], workstation_status=late)
        peer.reply(request, workstation_status=dict(STATUS, uptime=222))
        answered.set()

    station.on("/status", status)
    hostile_link.set_request_timeout(ms(200))
    assert code_of(bounded(hostile_link.get_workstation_status, hostile_link)) == ErrorCodeEnum.OPERATION_TIMED_OUT
    second = bounded(hostile_link.get_workstation_status, hostile_link)
    assert isinstance(second, velmar_link.WorkstationStatus), second
    assert second.uptime == 222
    assert answered.is_set()


def test_silence_times_out_and_the_link_stays_connected(station, hostile_link):
    station.on("/id", lambda peer, request: None)
    hostile_link.set_request_timeout(ms(150))
    result = bounded(hostile_link.get_workstation_info, hostile_link)
    assert code_of(result) == ErrorCodeEnum.OPERATION_TIMED_OUT
    assert str(result) == "operation timed out"
    assert_usable(hostile_link)


def test_peer_closes_mid_request(station, hostile_link):
    station.on("/status", lambda peer, request: peer.close())
    result = bounded(hostile_link.get_workstation_status, hostile_link)
    assert code_of(result) == ErrorCodeEnum.CONNECTION_WAS_CLOSED
    assert not hostile_link.is_connected()
    assert hostile_link.get_connection_status() == VelmarLinkConnectionStatusEnum.DISCONNECTED
    assert code_of(hostile_link.get_workstation_status()) == ErrorCodeEnum.CONNECTION_NOT_ESTABLISHED
    station.on("/status", lambda peer, request: peer.reply(request, workstation_status=STATUS))
    assert not bounded(hostile_link.connect, hostile_link), "a link reconnects after a loss"
    assert_usable(hostile_link)


def test_peer_closes_mid_job(station, hostile_link):
    def start(peer, request):
        peer.begin_dc_job(request, ROWS)
        peer.later(0.1, peer.close)

    station.on("/job/start", start)
    job = ramp()
    blocks = []
    job.add_rows_callback(blocks.append)
    result = bounded(lambda: hostile_link.do_job(job), hostile_link)
    assert code_of(result) == ErrorCodeEnum.CONNECTION_WAS_CLOSED
    info = job.get_last_job_info()
    assert info.get_status() == JobStatusEnum.FAILED
    assert info.get_status_detail() == JobStatusDetailEnum.CONNECTION_LOSS
    assert blocks == [ROWS]
    assert not hostile_link.is_connected()


def test_time_out_while_the_io_thread_is_busy_in_a_callback(station, hostile_link):
    # A rows callback holds the I/O thread until released; meanwhile another thread's request
    # (never answered) must still end with its time-out, enforced by the waiting thread.
    in_callback, release = threading.Event(), threading.Event()
    station.on("/status", lambda peer, request: None)

    station.on("/job/start", lambda peer, request: peer.run_dc_job(request, ROWS))
    job = ramp()

    def hold(rows):
        in_callback.set()
        release.wait(30)

    job.add_rows_callback(hold)
    runner = threading.Thread(target=lambda: hostile_link.do_job(job), daemon=True)
    runner.start()
    try:
        assert in_callback.wait(10), "the rows callback did not run"
        hostile_link.set_request_timeout(ms(200))
        result = bounded(hostile_link.get_workstation_status, hostile_link, timeout=10)
        still_held = not release.is_set()
    finally:
        release.set()
        runner.join(10)
    assert code_of(result) == ErrorCodeEnum.OPERATION_TIMED_OUT
    assert still_held, "the time-out came while the callback still held the I/O thread"
    assert not runner.is_alive()
    assert job.was_successful()


def test_job_done_after_the_start_reply_times_out_is_not_lost(station, hostile_link):
    # The start reply comes late; the job's completion still reaches the waiting caller.
    def start(peer, request):
        job_id = str(uuid.uuid4())

        def later():
            peer.accept_job(request, job_id)
            peer.send({"type": "JOB_DONE", "request_id": request["request_id"], "job_id": job_id,
                       "status": "FINISHED", "status_detail": "RUN_TO_COMPLETION",
                       "job_info": job_info(request, job_id, "FINISHED", "RUN_TO_COMPLETION")})
        peer.later(0.3, later)

    station.on("/job/start", start)
    hostile_link.set_request_timeout(ms(100))
    job = velmar_link.control.SleepJob(duration=0.01)
    result = bounded(lambda: hostile_link.do_job(job), hostile_link)
    # Either outcome is a clean end: the time-out of the start request, or the late success.
    assert not result or code_of(result) == ErrorCodeEnum.OPERATION_TIMED_OUT
    assert job.get_last_job_status() in (JobStatusEnum.FINISHED, JobStatusEnum.FAILED)
    assert_usable(hostile_link)
