"""Bad concurrency: callbacks that call back into their link, two jobs on one link, events
of other jobs, the same job object run twice at once, cancellation from another thread."""

from __future__ import annotations

import threading
import uuid

import velmar_link
from velmar_link import ErrorCodeEnum, JobStatusDetailEnum, JobStatusEnum, VelmarLinkConnectionStatusEnum
from velmar_link.meas import RampJob

from .support import assert_usable, bounded, code_of
from .workstation import STATUS, dc_header, job_info

ROWS_A = [[0.0, 1.0, 1e-6], [0.01, 1.1, 2e-6]]
ROWS_B = [[0.0, 2.0, 5e-6], [0.01, 2.1, 6e-6], [0.02, 2.2, 7e-6]]


def ramp() -> RampJob:
    return RampJob(start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0)


def collect(job):
    rows = []
    job.add_rows_callback(lambda block: rows.extend(block))
    return rows


def test_blocking_call_from_a_callback_fails_at_once(station, hostile_link):
    station.on("/job/start", lambda peer, request: peer.run_dc_job(request, ROWS_A))
    station.on("/status", lambda peer, request: peer.reply(request, workstation_status=STATUS))
    job = ramp()
    from_callback = []
    job.add_rows_callback(lambda rows: from_callback.append(hostile_link.get_workstation_status()))
    result = bounded(lambda: hostile_link.do_job(job), hostile_link)
    assert not result, result
    assert len(from_callback) == 1
    error = from_callback[0]
    assert code_of(error) == ErrorCodeEnum.UNEXPECTED_EXCEPTION
    assert error.get_message_format_string() == "an unexpected exception occured: {0}"
    assert [str(p) for p in error.get_message_parameters()] == ["blocking call from a callback of the same link"]
    assert station.requests("/status") == [], "the refused call sent nothing"
    assert_usable(hostile_link)


def test_disconnect_from_a_callback_completes(station, hostile_link):
    # No end: the job is still pending when the callback disconnects.
    station.on("/job/start", lambda peer, request: peer.begin_dc_job(request, ROWS_A))
    job = ramp()
    inside = {}

    def rows_callback(rows):
        try:
            hostile_link.disconnect()
            inside["connected"] = hostile_link.is_connected()
            inside["status"] = hostile_link.get_connection_status()
        except BaseException as error:  # recorded, the test fails below
            inside["error"] = error

    job.add_rows_callback(rows_callback)
    result = bounded(lambda: hostile_link.do_job(job), hostile_link)
    assert "error" not in inside, inside.get("error")
    assert inside == {"connected": False, "status": VelmarLinkConnectionStatusEnum.DISCONNECTED}
    assert code_of(result) == ErrorCodeEnum.CONNECTION_WAS_CLOSED
    assert job.get_last_job_info().get_status() == JobStatusEnum.FAILED
    assert job.get_last_job_info().get_status_detail() == JobStatusDetailEnum.CONNECTION_LOSS
    assert not hostile_link.is_connected()
    assert code_of(hostile_link.get_workstation_status()) == ErrorCodeEnum.CONNECTION_NOT_ESTABLISHED
    assert not bounded(hostile_link.connect, hostile_link), "the owner reconnects (and joins the old thread)"
    assert_usable(hostile_link)


def two_job_station(station):
    """Hold both starts until both have arrived, then interleave the two jobs' events."""
    arrived = []
    lock = threading.Lock()

    def start(peer, request):
        with lock:
            arrived.append((peer, request, str(uuid.uuid4())))
            if len(arrived) < 2:
                peer.accept_job(request, arrived[-1][2])
                return
        peer.accept_job(request, arrived[-1][2])
        (_, first, a), (_, second, b) = arrived
        rows_of = {a: ROWS_A, b: ROWS_B}
        job_of = {a: first, b: second}
        for job_id in (a, b):
            peer.event("LIVE_DATA_HEADER", job_id=job_id, header=dc_header(),
                       job_info=job_info(job_of[job_id], job_id, "RUNNING", "NOT_FINISHED"))
        for index in range(3):
            for job_id in (b, a):
                rows = rows_of[job_id]
                if index < len(rows):
                    peer.event("LIVE_DATA_ROWS", job_id=job_id, data=[rows[index]])
        for job_id in (a, b):
            peer.end_dc_job(job_of[job_id], job_id)

    station.on("/job/start", start)
    return arrived


def run_two_jobs(station, link, early, late):
    """Start ``early`` from another thread and, once its request is in, ``late`` from here;
    returns both outcomes (bounded)."""
    outcomes = {}
    other = threading.Thread(target=lambda: outcomes.setdefault("early", link.do_job(early)), daemon=True)

    def run_both():
        other.start()
        assert station.wait_for_requests("/job/start", 1)
        outcomes["late"] = link.do_job(late)
        other.join(10)
        return outcomes

    return bounded(run_both, link)


def test_two_jobs_on_one_link_get_their_own_rows(station, hostile_link):
    # The job started first is the device's first job and gets ROWS_A.
    arrived = two_job_station(station)
    early, late = ramp(), ramp()
    rows_early, rows_late = collect(early), collect(late)
    outcomes = run_two_jobs(station, hostile_link, early, late)
    assert not outcomes.get("early", "missing") and not outcomes["late"], outcomes
    assert [job_id for _, _, job_id in arrived] == [early.get_last_job_info().get_job_id(),
                                                    late.get_last_job_info().get_job_id()]
    assert rows_early == ROWS_A
    assert rows_late == ROWS_B
    assert_usable(hostile_link)


def test_rows_of_another_job_id_are_not_added(station, hostile_link):
    def start(peer, request):
        job_id = str(uuid.uuid4())
        peer.accept_job(request, job_id)
        peer.event("LIVE_DATA_HEADER", job_id=job_id, header=dc_header())
        peer.event("LIVE_DATA_ROWS", job_id="someone-else", data=ROWS_B)
        peer.event("LIVE_DATA_ROWS", job_id=job_id, data=ROWS_A[:1])
        peer.event("LIVE_DATA_ROWS", data=ROWS_A[1:])  # no id: the job whose header came last
        peer.end_dc_job(request, job_id)

    station.on("/job/start", start)
    job = ramp()
    rows = collect(job)
    collector = job.add_live_data_collector()
    assert not bounded(lambda: hostile_link.do_job(job), hostile_link)
    assert rows == ROWS_A
    assert collector.get_dataset().get_tracks() == [list(column) for column in zip(*ROWS_A)]


def test_application_handler_sees_every_jobs_rows(station, hostile_link):
    two_job_station(station)
    blocks = []
    handler = velmar_link.VelmarLinkEventHandler.make_live_data_rows_event_handler(blocks.append)
    hostile_link.set_event_handler(handler)
    try:
        outcomes = run_two_jobs(station, hostile_link, ramp(), ramp())
        assert not outcomes.get("early", "missing") and not outcomes["late"], outcomes
    finally:
        hostile_link.clear_event_handler(handler)
    assert sorted(row for block in blocks for row in block) == sorted(ROWS_A + ROWS_B)


def test_same_job_object_run_twice_at_once_is_refused(station, hostile_link):
    release = threading.Event()

    def start(peer, request):
        job_id = peer.begin_dc_job(request, ROWS_A)

        def finish():
            release.wait(10)
            peer.end_dc_job(request, job_id)
        peer.later(0, finish)

    station.on("/job/start", start)
    job = ramp()
    rows = collect(job)
    outcomes = {}
    first = threading.Thread(target=lambda: outcomes.setdefault("first", hostile_link.do_job(job)), daemon=True)
    try:
        first.start()
        assert station.wait_for_requests("/job/start", 1)
        second = bounded(lambda: hostile_link.do_job(job), hostile_link, timeout=5)
    finally:
        release.set()
        first.join(10)
    assert code_of(second) == ErrorCodeEnum.INVALID_PARAMETER
    assert str(second) == "job is already running"
    assert len(station.requests("/job/start")) == 1, "the refused run sent nothing"
    assert not first.is_alive() and not outcomes["first"], outcomes
    assert job.was_successful()
    assert rows == ROWS_A


def test_cancel_pending_operations_from_another_thread(station, hostile_link):
    def start(peer, request):
        peer.accept_job(request, str(uuid.uuid4()))  # and then nothing

    station.on("/job/start", start)
    job = ramp()
    timer = threading.Timer(0.2, hostile_link.cancel_pending_operations)
    timer.start()
    try:
        result = bounded(lambda: hostile_link.do_job(job), hostile_link)
    finally:
        timer.join(5)
    assert code_of(result) == ErrorCodeEnum.STOPPED_MANUALLY
    assert job.get_last_job_info().get_status_detail() == JobStatusDetailEnum.STOPPED_BY_USER
    assert_usable(hostile_link)
