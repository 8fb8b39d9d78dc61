"""The module frame: package layout, enums, constant classes, error values."""

import copy
import enum
import importlib
import os
import site
import re
import subprocess
import sys
from pathlib import Path

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


@pytest.mark.parametrize(
    "constants, name, value",
    [
        (velmar_link.TrackNames, "TIME", "time"),
        (velmar_link.UnitNames, "IMPEDANCE_ABSOLUTE", "\u2126"),
        (velmar_link.VelmarLinkConnectionFlags, "USE_SSL", 1),
    ],
)
def test_constant_classes_are_read_only(constants, name, value):
    with pytest.raises(AttributeError):
        setattr(constants, name, "changed")
    with pytest.raises(AttributeError):
        delattr(constants, name)
    with pytest.raises(AttributeError):
        constants.NEW_NAME = 1
    assert getattr(constants, name) == value
    assert not hasattr(constants, "NEW_NAME")


def test_submodules_are_modules_of_the_package():
    import velmar_link.meas.stop as stop_module

    native = velmar_link._velmar_link
    assert stop_module is sys.modules["velmar_link.meas.stop"] is velmar_link.meas.stop
    assert stop_module.__file__.endswith(os.path.join("velmar_link", "meas", "stop.py"))
    assert stop_module.MinLimitStopCondition is native.meas.stop.MinLimitStopCondition
    for name in ("calibration", "control", "meas", "xml"):
        module = importlib.import_module(f"velmar_link.{name}")
        assert module is getattr(velmar_link, name)
        assert module.__file__ is not None and module is not getattr(native, name)
        assert module.__doc__ == getattr(native, name).__doc__
        public = {key for key in vars(getattr(native, name)) if not key.startswith("_")}
        assert public <= set(vars(module)), public - set(vars(module))
    from velmar_link.control import SwitchOnJob

    assert SwitchOnJob is native.control.SwitchOnJob


STUBS = Path(velmar_link.__file__).parent / "_velmar_link"


def test_stubs_carry_real_types():
    text = "\n".join(path.read_text() for path in sorted(STUBS.rglob("*.pyi")))
    assert "*args" not in text and "**kwargs" not in text
    link_stub = (STUBS / "__init__.pyi").read_text()
    start = link_stub.index("class VelmarLink:")
    classes = link_stub[start : link_stub.index("class VelmarLinkExc", start) + 20000]
    assert "typing.Any" not in classes
    assert re.search(r"def retrieve_resource\(self, resource: Resource, limit: [^)]*\) -> bytes \| ErrorObject", link_stub)
    assert "def get_job_result_data(self, job: AbstractMeasurementJob) -> DataSet | ErrorObject" in link_stub


def test_typed_example_passes_the_type_checker(tmp_path):
    pytest.importorskip("mypy", reason="mypy is installed by scripts/setup.sh")
    example = Path(__file__).with_name("typing_example.py")
    package_root = Path(velmar_link.__file__).parents[1]
    # The script is checked strictly against the stubs, as a user's script is; the stubs' own
    # style (generated) is not the script's concern.
    config = tmp_path / "mypy.ini"
    config.write_text("[mypy]\nstrict = True\n\n[mypy-velmar_link.*]\nignore_errors = True\n")
    # An installed package is found by mypy itself (py.typed); one from a build tree through
    # MYPYPATH, which mypy refuses to point at site-packages.
    env = dict(os.environ)
    if str(package_root) not in site.getsitepackages():
        env["MYPYPATH"] = str(package_root)
    result = subprocess.run(
        [sys.executable, "-m", "mypy", "--config-file", str(config), "--no-incremental", "--cache-dir", os.devnull,
         str(example)],
        capture_output=True, text=True, timeout=300, env=env, cwd=tmp_path,
    )
    assert result.returncode == 0, result.stdout + result.stderr


SETUP = Path(__file__).resolve().parents[2] / "scripts" / "setup.sh"


def test_setup_check_names_what_is_missing_without_a_traceback():
    command = 'source "$1"; missing_python_tools "no-such-package-for-velmar>=1.0" "pytest>=1" "pytest>=999" pytest'
    result = subprocess.run(["bash", "-c", command, "bash", str(SETUP)], capture_output=True, text=True, timeout=60)
    assert result.returncode == 0
    assert result.stdout.split() == ["no-such-package-for-velmar>=1.0", "pytest>=999"]
    assert result.stderr == ""
