"""Jobs end to end against the emulator: start, queue, results, failures and cancellation."""

from __future__ import annotations

import threading
import time

import pytest

import velmar_link
from velmar_link import ErrorCodeEnum, JobStatusDetailEnum, JobStatusEnum, control, meas


@pytest.fixture
def job_link(link):
    """The connected link; the queue is flushed and the potentiostats switched off afterwards."""
    error = link.check_job_parameters(control.BeepJob(frequency=440.0, duration=0.1))
    assert not error, str(error)
    yield link
    link.send_stop(velmar_link.QueueStopModeEnum.QUEUE_STOP_MODE_FLUSH)
    link.do_job(control.SwitchAllOffJob())


def test_job_without_connection_fails_locally():
    link = velmar_link.VelmarLink("127.0.0.1", "1")
    job = control.BeepJob()
    error = link.do_job(job)
    assert error.get_error_code_enum() is ErrorCodeEnum.CONNECTION_NOT_ESTABLISHED
    assert job.get_last_job_status() is JobStatusEnum.FAILED
    assert job.get_last_job_info().get_status_detail() is JobStatusDetailEnum.NOT_CONNECTED


def test_switch_on_returns_its_values(job_link):
    job = control.SwitchOnJob(potentiostat="MAIN:1:POT", bias=0.2)
    assert job_link.do_job(job) == False  # noqa: E712 - the documented success test
    assert job.was_successful()
    info = job.get_job_result()
    assert info.applied_bias == pytest.approx(0.2)
    assert job.get_last_job_info().get_job_id()
    state = control.GetPotentiostatStateJob(potentiostat="MAIN:1:POT")
    assert not job_link.do_job(state)
    assert state.get_job_result().switched_on is True


def test_refused_parameters_end_failed_to_create(job_link):
    job = control.SetLedColorJob(300, 0, 0)
    error = job_link.do_job(job)
    assert error.get_error_code_enum() is ErrorCodeEnum.PARAMETER_VALUE_TOO_HIGH
    assert job.get_last_job_info().get_status_detail() is JobStatusDetailEnum.FAILED_TO_CREATE
    assert job.get_last_job_error_message()


def test_voltage_range_only_while_switched_off(job_link):
    assert not job_link.do_job(control.SwitchOnJob())
    job = control.SetVoltageRangeJob(potentiostat="MAIN:1:POT", index=1)
    assert job_link.do_job(job).get_error_code_enum() is ErrorCodeEnum.POT_STATUS_MISMATCH
    assert not job_link.do_job(control.SwitchOffJob())
    assert not job_link.do_job(control.SetVoltageRangeJob(potentiostat="MAIN:1:POT", index=1))


def test_hardware_info_and_properties(job_link):
    job = control.GetHardwareInfoJob()
    assert not job_link.do_job(job)
    info = job.get_job_result()
    assert {p.identifier for p in info.potentiostats} >= {"MAIN:1:POT", "QLC:1:EXT1:POT", "QLC:1:EXT2:POT"}
    urn = "MAIN:1:POT:U~MUX:1:MUX_U"
    assert info.constains_urn(urn)
    assert info.convert_url_to_urn(info.convert_urn_to_url(urn)) == urn
    for value in (True, 7, 2.5, "text"):
        assert not job_link.do_job(control.SetHardwarePropertyJob(uri="MAIN:1:POT", key="k", value=value))
        read = control.GetHardwarePropertyJob(uri="MAIN:1:POT", key="k")
        assert not job_link.do_job(read)
        assert read.get_job_result() == value and type(read.get_job_result()) is type(value)


def test_hardware_settings_round_trip(job_link):
    config = velmar_link.HardwareSettingsHelper.get_config_for_main_potentiostat()
    assert not job_link.do_job(control.SetHardwareSettingsJob(config))
    job = control.GetHardwareSettingsJob()
    assert not job_link.do_job(job)
    assert [c.uri for c in job.get_job_result().sync_channels] == [c.uri for c in config.channels]


def test_cancel_pending_operations_stops_a_blocked_run(job_link):
    job = control.SleepJob(duration=30.0)
    results = []
    runner = threading.Thread(target=lambda: results.append(job_link.do_job(job)))
    runner.start()
    deadline = time.monotonic() + 5.0
    while job.get_last_job_status() is not JobStatusEnum.PENDING and time.monotonic() < deadline:
        time.sleep(0.01)
    job_link.cancel_pending_operations()
    runner.join(timeout=10.0)
    assert not runner.is_alive()
    assert results[0].get_error_code_enum() is ErrorCodeEnum.STOPPED_MANUALLY
    assert job.get_last_job_info().get_status_detail() is JobStatusDetailEnum.STOPPED_BY_USER


def test_job_list_and_info(job_link):
    job = control.BeepJob(frequency=880.0, duration=0.1)
    assert not job_link.do_job(job)
    jobs = job_link.get_job_info_list(False)
    assert job.get_last_job_info().get_job_id() in [info.get_job_id() for info in jobs]
    assert all(info.get_status() is not JobStatusEnum.FINISHED for info in job_link.get_job_info_list(True))
    assert job_link.get_job_info(job).get_status() is JobStatusEnum.FINISHED


def test_status_events_reach_the_handler(job_link):
    seen = []
    handler = velmar_link.VelmarLinkEventHandler.make_job_status_update_event_handler(
        lambda status, info: seen.append((status, info.get_job_id())))
    job_link.set_event_handler(handler)
    try:
        job = control.BeepJob(frequency=880.0, duration=0.1)
        assert not job_link.do_job(job)
    finally:
        job_link.clear_event_handler(handler)
    assert (JobStatusEnum.FINISHED, job.get_last_job_info().get_job_id()) in seen


def test_dc_job_with_stop_condition_check(job_link):
    bad = meas.OcvJob(duration=0.2, output_data_rate=10.0,
                      stop_conditions=[meas.stop.MinMaxLimitStopCondition(for_dimension="voltage", minimum=1.0,
                                                                          maximum=-1.0)])
    assert job_link.check_job_parameters(bad).get_error_code_enum() is ErrorCodeEnum.STOP_CONDITION_MISCONFIGURED
    good = meas.OcvJob(duration=0.2, output_data_rate=10.0)
    assert not job_link.do_job(good)
    assert good.was_successful()
