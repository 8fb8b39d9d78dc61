"""The job classes as Python sees them: constructors, parameters, results and docstrings."""

from __future__ import annotations

import json
import re

import pytest

import velmar_link
from velmar_link import calibration, control, meas
from velmar_link.meas import stop

COLLAPSE = ".. collapse:: WebSocket JSON Example"


def _job_classes():
    for module in (control, meas, calibration):
        for name, value in vars(module).items():
            if name.endswith("Job") and isinstance(value, type):
                yield pytest.param(value, id=f"{module.__name__.rsplit('.', 1)[-1]}.{name}")


def _request_example(job_class) -> dict:
    doc = job_class.__doc__
    block = doc[doc.index(COLLAPSE) :]
    text = block[block.index("{") :]
    return json.loads(text)


@pytest.mark.parametrize("job_class", list(_job_classes()))
def test_every_job_class_documents_its_request(job_class):
    assert issubclass(job_class, velmar_link.AbstractMeasurementJob)
    request = _request_example(job_class)
    assert request["do"] == "/job/start"
    assert list(request["job"]) == ["type", "parameters", "stop_conditions", "job_meta"]
    # A job constructed with its defaults has the parameters of the example.
    job = job_class()
    assert job.get_name() == request["job"]["type"]
    if hasattr(job_class, "parameters"):
        assert sorted(vars(type(job.parameters))).count("__init__") == 1
        for key in request["job"]["parameters"]:
            assert hasattr(job.parameters, key), key
    else:
        assert request["job"]["parameters"] == {}


@pytest.mark.parametrize("job_class", list(_job_classes()))
def test_fresh_job_reports_unknown_and_not_successful(job_class):
    job = job_class()
    assert job.get_last_job_status() is velmar_link.JobStatusEnum.UNKNOWN
    assert job.get_last_job_info().get_status_detail() is velmar_link.JobStatusDetailEnum.NOT_FINISHED
    assert job.was_successful() is False
    assert job.get_last_job_error_message() == ""


def test_parameter_classes_are_named_after_their_jobs():
    assert type(meas.EisGenerateJob().parameters) is meas.EisParametersGeneratePy
    assert type(meas.EisMultisineTableJob().parameters) is meas.EisMultiSineTablePy
    assert type(control.SwitchOnJob().parameters) is control.SwitchOnParametersPy
    assert type(calibration.CalibrateJob().parameters) is calibration.CalibrateParametersStringPy
    for parameterless in (control.InitializeRtcJob, control.RebootJob, control.ReenumerateHardwareJob,
                          control.SwitchAllOffJob):
        assert not hasattr(parameterless(), "parameters")


def test_keyword_constructor_names_are_the_parameter_keys():
    job = control.SwitchOnJob(potentiostat="QLC:1:EXT2:POT", coupling=velmar_link.PotentiostatCoupling.GALVANOSTATIC,
                              bias=0.25, voltage_range_index=1, compliance_range_index=2)
    parameters = job.parameters
    assert (parameters.potentiostat, parameters.coupling, parameters.bias) == (
        "QLC:1:EXT2:POT", velmar_link.PotentiostatCoupling.GALVANOSTATIC, 0.25)
    assert (parameters.voltage_range_index, parameters.compliance_range_index) == (1, 2)
    assert "frequency" in control.BeepJob.__init__.__doc__ and "duration" in control.BeepJob.__init__.__doc__
    with pytest.raises(TypeError):
        control.BeepJob(loudness=3)


def test_parameters_property_is_a_copy():
    job = control.SleepJob(duration=2.0)
    parameters = job.parameters
    parameters.duration = 5.0
    assert job.parameters.duration == 2.0


def test_set_led_color_has_two_constructors():
    rgb = control.SetLedColorJob(255, 128, 0).parameters
    assert (rgb.red, rgb.green, rgb.blue) == (255, 128, 0)
    keywords = control.SetLedColorJob(red=1, green=2, blue=3).parameters
    assert (keywords.red, keywords.green, keywords.blue) == (1, 2, 3)
    single = control.SetLedColorJob(0x00FF00).parameters
    assert (single.red, single.green, single.blue) == (0, 255, 0)
    named = control.SetLedColorJob(led=0xFF0000).parameters
    assert (named.red, named.green, named.blue) == (255, 0, 0)


def test_set_hardware_settings_job_from_lists_or_config():
    config = velmar_link.HardwareSettingsHelper.get_config_for_main_potentiostat()
    from_config = control.SetHardwareSettingsJob(config).parameters
    from_lists = control.SetHardwareSettingsJob(config.channels, config.impedance_configurations,
                                                config.output_potentiostats).parameters
    assert [c.uri for c in from_config.channels] == [c.uri for c in from_lists.channels]
    assert from_lists.output_potentiostats[0].uri == "MAIN:1:POT"


def test_impedance_job_takes_nested_records_and_drift_correction():
    table = meas.EisParametersFrequencyTable(spectrum=[
        meas.EisParametersFrequencyTableEntry(frequency=1000.0, amplitude=0.01, pre_waves=2),
        meas.EisParametersFrequencyTableEntry(frequency=100.0),
    ])
    job = meas.EisFrequencyTableJob(bias=0.1, drift_correction=velmar_link.DriftCorrection.DC_ONLY,
                                    frequency_range=table, meta_data={"cell": "3"})
    assert job.parameters.drift_correction is velmar_link.DriftCorrection.DC_ONLY
    assert [p.frequency for p in job.parameters.frequency_range.spectrum] == [1000.0, 100.0]
    assert job.get_meta_data() == {"cell": "3"}
    assert meas.EisGenerateJob().parameters.drift_correction is None
    with pytest.raises(TypeError):
        meas.EisParametersFrequencyTableEntry(pre_waves=1.5)


def test_single_value_jobs_offer_their_result():
    assert isinstance(control.SwitchOnJob().get_job_result(), velmar_link.SwitchOnInfo)
    assert isinstance(control.GetHardwareInfoJob().get_job_result(), velmar_link.HardwareInfo)
    assert isinstance(control.GetHardwareSettingsJob().get_job_result(), velmar_link.HardwareSettings)
    assert isinstance(control.GetPotentiostatStateJob().get_job_result(), control.PotentiostatState)
    assert isinstance(control.GetAdcStateJob().get_job_result(), control.AdcStateInfo)
    assert control.MeasureIntegralJob().get_job_result() == 0.0
    assert calibration.GetMeshJsonFileJob().get_job_result() == b""
    assert not hasattr(control.BeepJob(), "get_job_result")


def test_job_options_are_set_before_the_run():
    job = control.BeepJob()
    assert job.get_job_options().bypass_queue is False
    job.set_job_options(velmar_link.JobOptions(bypass_queue=True))
    options = job.get_job_options()
    assert (options.bypass_queue, options.discard_result_data) == (True, False)
    assert velmar_link.JobOptions() == velmar_link.JobOptions(False, False)


def test_service_jobs_warn_customers():
    assert "No customer should call this job" in calibration.GetFilterUsageMatrixJob.__doc__
    assert "No customer should call this job" in calibration.GetMeshJsonFileJob.__doc__
    request = _request_example(calibration.GetMeshJsonFileJob)
    assert request["job"]["type"] == "\U0001F6E0\uFE0F/get_mesh_json_file"


def test_calibrate_job_sends_the_type_as_text():
    job = calibration.CalibrateJob(calibration_type=velmar_link.CalibrationTypesEnum.MUX4_GAIN)
    assert job.parameters.calibration_type == "mux4_gain"
    assert calibration.CalibrateJob().parameters.calibration_type == "dc"


@pytest.mark.parametrize(
    "condition_class, limits",
    [
        (stop.MinLimitStopCondition, {"minimum": -1.0}),
        (stop.MaxLimitStopCondition, {"maximum": 2.0}),
        (stop.MinMaxLimitStopCondition, {"minimum": -2.0, "maximum": 3.0}),
        (stop.IntegratingLimitStopCondition, {"over_dimension": "time", "maximum": 0.5}),
        (stop.StabilityToleranceLimitStopCondition, {"stability_tolerance": 0.01, "minimum_duration": 5.0}),
        (stop.InRangeStopCondition, {"minimum": 0.1, "maximum": 0.5}),
    ],
)
def test_stop_conditions(condition_class, limits):
    condition = condition_class(for_dimension="voltage", **limits)
    assert isinstance(condition, stop.AbstractStopCondition)
    assert condition.for_dimension == "voltage"
    written = json.loads(condition.get_parameters_json())
    assert written == {"for_dimension": "voltage", **limits}
    assert re.fullmatch(r"[a-z_]+", condition.get_type_name())


def test_in_range_is_written_back_unchanged():
    condition = stop.InRangeStopCondition(for_dimension="voltage", minimum=0.1, maximum=0.5)
    assert condition.get_type_name() == "in_range"
    assert json.loads(condition.get_parameters_json()) == {"for_dimension": "voltage", "minimum": 0.1, "maximum": 0.5}


EVENT_FACTORIES = {
    "make_live_data_header_event_handler": "LIVE_DATA_HEADER",
    "make_live_data_header_eis_event_handler": "LIVE_DATA_HEADER_EIS",
    "make_live_data_rows_event_handler": "LIVE_DATA_ROWS",
    "make_live_data_row_eis_event_handler": "LIVE_DATA_ROW_EIS",
    "make_live_data_wave_event_handler": "LIVE_DATA_WAVES",
    "make_live_data_finished_event_handler": "LIVE_DATA_FINISHED",
    "make_job_done_event_handler": "JOB_DONE",
    "make_job_status_update_event_handler": "JOB_STATUS_UPDATE",
    "make_job_log_message_event_handler": "MESSAGE_FROM_JOB",
    "make_log_message_event_handler": "MESSAGE_FROM_SERVER",
}


@pytest.mark.parametrize("factory, event_type", EVENT_FACTORIES.items())
def test_event_handler_factories_report_their_type(factory, event_type):
    handler = getattr(velmar_link.VelmarLinkEventHandler, factory)(lambda *args: None)
    assert handler.get_type() is velmar_link.EventTypeEnum[event_type]
    assert getattr(velmar_link.VelmarLinkEventHandler, factory).__doc__


def test_event_handler_is_made_only_by_factories():
    with pytest.raises(TypeError):
        velmar_link.VelmarLinkEventHandler()


def _public_members(cls):
    for name, member in vars(cls).items():
        if not name.startswith("_") or name == "__init__":
            yield name, member


@pytest.mark.parametrize("module", [control, meas, stop, calibration], ids=lambda m: m.__name__.rsplit(".", 1)[-1])
def test_every_job_related_callable_has_a_docstring(module):
    undocumented = [
        f"{cls_name}.{name}"
        for cls_name, cls in vars(module).items()
        if isinstance(cls, type)
        for name, member in _public_members(cls)
        if not (getattr(member, "__doc__", None) or "").strip()
    ]
    assert undocumented == []
