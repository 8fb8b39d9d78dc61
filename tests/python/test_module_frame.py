"""The module frame: package layout, enums, constant classes, error values."""

import copy
import enum
import importlib

import pytest

import velmar_link
from velmar_link import ErrorCodeEnum, ErrorObject, ErrorParameter


def test_version_and_submodules():
    assert velmar_link.__version__ == "26.40.0+23251aaf"
    for name in ("calibration", "control", "meas", "meas.stop", "xml"):
        importlib.import_module(f"velmar_link.{name}")

    assert velmar_link.meas.stop.__doc__ == "Submodule with measurement jobs."
    assert velmar_link.xml.__doc__ == "Submodule with xml utilities."
    assert velmar_link.add(2, 3) == 5
    assert velmar_link.factorial(5) == 120


@pytest.mark.parametrize(
    "enum_type, members",
    [
        (velmar_link.JobStatusEnum, ["UNKNOWN", "PENDING", "RUNNING", "FINISHED", "FAILED", "DELETED"]),
        (velmar_link.VelmarLinkConnectionStatusEnum, ["DISCONNECTED", "CONNECTED"]),
        (velmar_link.LogSeverityEnum, ["DEBUG", "MESSAGE", "WARNING", "CRITICAL_ERROR"]),
        (velmar_link.SettingType, ["UNINITIALIZED", "BOOL", "INT", "DOUBLE", "STRING"]),
    ],
)
def test_enums_are_native_with_values_in_order(enum_type, members):
    assert issubclass(enum_type, enum.Enum)
    assert not issubclass(enum_type, int)
    assert [m.name for m in enum_type] == members
    assert [m.value for m in enum_type] == list(range(len(members)))


def test_enum_special_values_and_orders():
    assert velmar_link.WorkstationModeEnum.EMULATION.value == 1000
    assert velmar_link.CalibrationTypesEnum.DC.value == 2
    assert velmar_link.CalibrationTypesEnum.DUMP.value == 0
    assert list(velmar_link.CalibrationTypesEnum)[0] is velmar_link.CalibrationTypesEnum.DC
    assert velmar_link.EventTypeEnum.LIVE_DATA_FINISHED.value == 10
    assert velmar_link.ResourceTypeEnum.JOB_RESULT.value == 6
    assert velmar_link.PotentiostatCoupling.FRA_PROBE.__doc__ == (
        "internal feedback, mode must be used in combination with an FRA probe"
    )
    assert ErrorCodeEnum.UNKNOWN_ERR.value == 0xBADF00D
    assert ErrorCodeEnum.PROTOCOL_VERSION_MISMATCH.value == 4108
    assert ErrorCodeEnum.ID_NOT_FOUND.value == 16400
    assert ErrorCodeEnum.TLS_CERTIFICATE_EXPIRED.value == 32776
    assert len(ErrorCodeEnum) == 75
    assert ErrorCodeEnum.NONE != 0


def test_constant_classes():
    flags = velmar_link.VelmarLinkConnectionFlags
    assert flags.USE_SSL | flags.SKIP_SSL_HOSTNAME_MATCHING == 5
    assert flags.SSL_VERIFY_CUSTOM_HOSTNAME == 32
    assert velmar_link.UnitNames.IMPEDANCE_ABSOLUTE == "\u2126"
    assert velmar_link.UnitNames.IMPEDANCE_ABSOLUTE.encode() == b"\xe2\x84\xa6"
    assert velmar_link.UnitNames.PERIODS == ""
    assert velmar_link.TrackNames.BANDWITH == "bandwith"
    assert velmar_link.TrackNames.IMPEDANCE_ABSOLUTE == "|impedance|"


def test_error_object_truth_and_text():
    ok = ErrorObject()
    assert not ok and ok.is_none() and ok == False  # noqa: E712
    assert str(ok) == "no error occoured"
    error = ErrorObject(ErrorCodeEnum.CONNECTION_DNS_ERROR, "dns error: {0}", ["nowhere:1994"])
    assert error and error == True  # noqa: E712
    assert error.get_message_formatted() == "dns error: nowhere:1994"
    assert repr(error) == str(error)
    assert error.get_message_format_string() == "dns error: {0}"
    assert error != ok
    assert copy.deepcopy(error) == error


def test_error_parameters():
    error = ErrorObject(ErrorCodeEnum.ID_NOT_FOUND, "{0} {1} {2} {3}", [True, 1.5, -3, "x"])
    params = error.get_message_parameters()
    assert [p.value for p in params] == [True, 1.5, -3, "x"]
    assert repr(params[3]) == 'ErrorParameter("x")'
    assert repr(params[2]) == "ErrorParameter(-3)"
    assert str(error) == "true 1.5 -3 x"
    too_many = ErrorObject(ErrorCodeEnum.UNKNOWN_ERR, "{0}", [1, 2, 3, 4, 5, 6, 7])
    assert str(too_many) == "Error: Too many parameters (7 > 6). Format string: '{0}'"
    assert ErrorParameter("a") == ErrorParameter("a")
