"""Setting and SettingsSet in Python, and the settings round trip through the emulator."""

from __future__ import annotations

import copy

import pytest

import velmar_link

from velmar_link import ErrorCodeEnum, ErrorObject, Setting, SettingsSet, SettingType  # noqa: E402


@pytest.mark.parametrize(
    "value, kind, text",
    [(True, SettingType.BOOL, "true"), (7, SettingType.INT, "7"), (0.5, SettingType.DOUBLE, "0.5"),
     (1000000.0, SettingType.DOUBLE, "1e+06"), ("abc", SettingType.STRING, "abc")],
)
def test_setting_constructors_and_text(value, kind, text):
    setting = Setting(value)
    assert setting.get_type() == kind
    assert setting.as_string() == text == str(setting)


def test_setting_assignment_changes_kind_and_keeps_outcome():
    setting = Setting("text")
    assert setting.assign_int(3) is setting
    assert setting.get_type() == SettingType.INT and setting.get_int_value() == 3
    with pytest.raises(Exception, match="wrong index for variant|bad variant"):
        setting.get_string_value()
    assert Setting().get_type() == SettingType.UNINITIALIZED
    fresh = Setting().get_update_failure_reason()
    assert fresh.get_error_code_enum() == ErrorCodeEnum.NONE and str(fresh) == "no error occoured"
    assert not Setting(True).successfully_updated()


def test_settings_set_automatic_conversion():
    settings = SettingsSet()
    settings["flag"] = True
    settings["number"] = 1
    settings["ratio"] = 2.5
    settings["name"] = "rq5"
    settings["listed"] = [1]
    settings["explicit"] = Setting(4)
    kinds = {key: s.get_type() for key, s in settings}
    assert kinds == {"flag": SettingType.BOOL, "number": SettingType.INT, "ratio": SettingType.DOUBLE,
                     "name": SettingType.STRING, "listed": SettingType.STRING, "explicit": SettingType.INT}
    assert settings["listed"].get_string_value() == "[1]"
    assert sorted(settings.keys()) == sorted(kinds)
    assert len(settings) == 6


def test_settings_set_constructors_copies_and_missing_keys():
    pairs = SettingsSet([("a", Setting(1)), ("b", Setting("x"))])
    converted = SettingsSet([("a", 1), ("b", False)])
    assert pairs["a"].get_int_value() == 1 and converted["b"].get_type() == SettingType.BOOL
    assert SettingsSet().all_successfully_updated()
    assert pairs["missing"].get_type() == SettingType.UNINITIALIZED
    assert len(pairs) == 2, "reading a missing key does not grow the set"
    duplicate = copy.deepcopy(pairs)
    duplicate["a"].assign_int(9)
    assert pairs["a"].get_int_value() == 1 and duplicate["a"].get_int_value() == 9
    assert copy.copy(pairs)["b"].get_string_value() == "x"


def test_settings_round_trip(link):
    settings = link.get_settings()
    assert isinstance(settings, SettingsSet)
    assert settings["display_brightness"].get_type() == SettingType.INT
    original = settings["display_brightness"].get_int_value()

    update = SettingsSet()
    update["display_brightness"] = 42
    update["system_serial_number"] = "forged"  # read-only on the device
    assert link.update_settings(update) is None
    assert update["display_brightness"].successfully_updated()
    assert not update["system_serial_number"].successfully_updated()
    assert update["system_serial_number"].get_update_failure_reason()
    assert not update.all_successfully_updated()
    assert link.get_settings()["display_brightness"].get_int_value() == 42

    restore = SettingsSet([("display_brightness", original)])
    link.update_settings(restore)
    assert restore.all_successfully_updated()


def test_update_settings_without_connection_leaves_the_set_untouched(emulator):
    link = velmar_link.VelmarLink("127.0.0.1", emulator.port_str)
    settings = SettingsSet([("display_brightness", 10)])
    link.update_settings(settings)
    assert not settings["display_brightness"].successfully_updated()
    assert settings["display_brightness"].get_update_failure_reason().is_none()
    error = link.get_settings()
    assert isinstance(error, ErrorObject)
    assert str(error) == "no network connection has been established yet"
