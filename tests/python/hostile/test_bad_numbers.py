"""Bad numbers: NaN and infinities in job parameters, stop conditions, settings and hardware
properties are refused before anything is sent, with PARAMETER_IS_NOT_A_NUMBER naming the
JSON path of the value; the workstation receives nothing for them."""

from __future__ import annotations

import math

import pytest

import velmar_link
from velmar_link import ErrorCodeEnum, JobStatusDetailEnum, JobStatusEnum
from velmar_link.control import SetHardwarePropertyJob
from velmar_link.meas import RampJob
from velmar_link.meas.stop import MaxLimitStopCondition, MinMaxLimitStopCondition

from .support import assert_usable, bounded, code_of

NON_FINITE = pytest.mark.parametrize("value", [math.nan, math.inf, -math.inf], ids=["nan", "inf", "-inf"])


def assert_not_a_number(error, path):
    assert code_of(error) == ErrorCodeEnum.PARAMETER_IS_NOT_A_NUMBER, error
    assert error.get_message_format_string() == "parameter '{0}' is not a number"
    assert [str(p) for p in error.get_message_parameters()] == [path]


def assert_failed_locally(job, station, path):
    result_error = job.get_last_job_info().get_error()
    assert_not_a_number(result_error, path)
    assert job.get_last_job_info().get_status() == JobStatusEnum.FAILED
    assert job.get_last_job_info().get_status_detail() == JobStatusDetailEnum.FAILED_TO_CREATE
    assert station.requests("/job/start") == [], "nothing may be sent for a refused job"


JOBS = {
    "job-parameter": (lambda value: RampJob(start_value=0.0, end_value=value, scan_rate=2.0, output_data_rate=100.0),
                      "job/parameters/end_value"),
    "hardware-property": (lambda value: SetHardwarePropertyJob(uri="MAIN:1:POT", key="temperature", value=value),
                          "job/parameters/value"),
}


@NON_FINITE
@pytest.mark.parametrize("kind", sorted(JOBS))
def test_job_parameter(station, hostile_link, value, kind):
    make, path = JOBS[kind]
    job = make(value)
    error = bounded(lambda: hostile_link.do_job(job), hostile_link)
    assert_not_a_number(error, path)
    assert_failed_locally(job, station, path)
    assert_usable(hostile_link)


@NON_FINITE
def test_stop_condition(station, hostile_link, value):
    conditions = [MaxLimitStopCondition(for_dimension="current", maximum=1.0),
                  MinMaxLimitStopCondition(for_dimension="voltage", minimum=-1.0, maximum=value)]
    job = RampJob(start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0, stop_conditions=conditions)
    error = bounded(lambda: hostile_link.do_job(job), hostile_link)
    assert_not_a_number(error, "job/stop_conditions/1/parameters/maximum")
    assert_failed_locally(job, station, "job/stop_conditions/1/parameters/maximum")
    assert_usable(hostile_link)


def test_check_job_parameters(station, hostile_link):
    job = RampJob(start_value=math.nan, end_value=0.2, scan_rate=2.0, output_data_rate=100.0)
    error = bounded(lambda: hostile_link.check_job_parameters(job), hostile_link)
    assert_not_a_number(error, "job/parameters/start_value")
    assert station.requests("/job/check_parameters") == []
    assert_usable(hostile_link)


@NON_FINITE
def test_setting(station, hostile_link_exc, value):
    settings = velmar_link.SettingsSet([("display_brightness", velmar_link.Setting(50)),
                                        ("fan_curve_temperature_low", velmar_link.Setting(value))])

    def update():
        with pytest.raises(velmar_link.VelmarLinkException) as raised:
            hostile_link_exc.update_settings(settings)
        return raised.value.error

    error = bounded(update, hostile_link_exc)
    assert_not_a_number(error, "settings/fan_curve_temperature_low")
    assert station.requests("/settings/set") == []
    assert_usable(hostile_link_exc)


def test_finite_extremes_still_go_out(station, hostile_link):
    # The refusal is about non-finite numbers only: the largest doubles travel as they are.
    def start(peer, request):
        peer.fail(request, "PARAMETER_VALUE_TOO_HIGH", "parameter '{0}' value {1} is above the maximum {2}",
                  "end_value", 1.7976931348623157e308, 10.0)

    station.on("/job/start", start)
    job = RampJob(start_value=-1.7976931348623157e308, end_value=1.7976931348623157e308, scan_rate=2.0,
                  output_data_rate=100.0)
    error = bounded(lambda: hostile_link.do_job(job), hostile_link)
    assert code_of(error) == ErrorCodeEnum.PARAMETER_VALUE_TOO_HIGH
    sent = station.requests("/job/start")
    assert len(sent) == 1
    assert sent[0]["job"]["parameters"]["end_value"] == 1.7976931348623157e308
