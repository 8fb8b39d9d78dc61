"""The hardware settings helper and the sampling configuration records."""

from __future__ import annotations

import copy

import pytest

import velmar_link
from velmar_link import (Channel, HardwareSettingsHelper, ImpedanceConfiguration, Mux4Connection,
                         Mux4ImpedanceConfiguration, PotConnection, UserHardwareSettings, UserPolynomial)


def test_main_potentiostat_configuration():
    config = HardwareSettingsHelper.get_config_for_main_potentiostat()
    assert [(c.uri, c.dimension, c.unit) for c in config.channels] == [
        ("MAIN:1:POT:U~MUX:1:MUX_U", "voltage", "V"),
        ("MAIN:1:POT:I~MUX:1:MUX_I", "current", "A"),
    ]
    assert all(c.polynomial.coefficients == [0.0, 1.0] for c in config.channels)
    (impedance,) = config.impedance_configurations
    assert (impedance.numerator, impedance.denominator, impedance.impedance_name) == (
        "MAIN:1:POT:U~MUX:1:MUX_U", "MAIN:1:POT:I~MUX:1:MUX_I", "")
    assert [p.uri for p in config.output_potentiostats] == ["MAIN:1:POT"]


def test_potentiostat_overloads():
    by_connection = HardwareSettingsHelper.get_config_for_potentiostat(pot_connection=PotConnection(card_index=1,
                                                                                                    connector_index=2))
    assert by_connection.output_potentiostats[0].uri == "QLC:1:EXT2:POT"
    assert by_connection.channels[0].uri == "QLC:1:EXT2:POT:U~MUX:1:MUX_U"
    by_serial = HardwareSettingsHelper.get_config_for_potentiostat(pot_serial_number="123456")
    assert by_serial.output_potentiostats[0].uri == "123456:POT"
    assert HardwareSettingsHelper.get_potentiostat_urn("MAIN:1:POT") == "MAIN:1:POT"


def test_sync_current_channels_pair_with_the_main_voltage():
    config = HardwareSettingsHelper.get_config_for_main_with_sync_current_channel(
        connections=[Mux4Connection(card_index=1, connector_index=1), Mux4Connection(card_index=1, connector_index=2)])
    assert len(config.channels) == 4
    assert [i.numerator for i in config.impedance_configurations[1:]] == ["MAIN:1:POT:U~MUX:1:MUX_U"] * 2
    assert config.channels[3].dimension == "current-MUX4-1-CH2"


def test_duplicates_are_removed_and_add_channel_is_needed():
    config = HardwareSettingsHelper.get_config_for_potentiostat_with_sync_voltage_channel(
        pot_serial_number="9", connections=[Mux4Connection(card_index=1, connector_index=3)])
    config.add_sync_voltage_channel([Mux4Connection(card_index=1, connector_index=3)])
    config.remove_duplicates_from_channels()
    assert len(config.channels) == 3

    config.channels.append(Channel(uri="X"))  # changes only a copy
    assert len(config.channels) == 3
    config.add_channel(Channel(uri="X", dimension="voltage", unit="V", polynomial=[0.0, 2.0]))
    assert config.channels[-1].polynomial.coefficients == [0.0, 2.0]
    assert "add_channel" in UserHardwareSettings.add_channel.__name__
    assert "copy" in UserHardwareSettings.add_channel.__doc__


def test_user_polynomial_accepts_sequences_only():
    assert UserPolynomial().coefficients == [0.0, 1.0]
    assert UserPolynomial((1, 2, 3)).coefficients == [1.0, 2.0, 3.0]
    assert UserPolynomial(UserPolynomial([4.0])).coefficients == [4.0]
    with pytest.raises(TypeError, match="Expected sequence or UserPolynomial"):
        UserPolynomial(5)
    with pytest.raises(TypeError, match="Expected sequence or UserPolynomial"):
        UserPolynomial("12")


def test_mux4_connection_path_and_order():
    connection = Mux4Connection(card_index=2, connector_index=3)
    assert connection.getPath() == "MUX4:2:CH3~MUX4:2:ADC3"
    assert sorted([Mux4Connection(card_index=2), Mux4Connection(card_index=1)])[0].card_index == 1
    pair = Mux4ImpedanceConfiguration(numerator=Mux4Connection(card_index=1, connector_index=1),
                                      denominator=Mux4Connection(card_index=1, connector_index=2))
    config = HardwareSettingsHelper.get_config_for_main_with_sync_channel_impedance(connections=[pair])
    assert config.impedance_configurations[-1].impedance_name == "MUX4-1-CH1/MUX4-1-CH2"


def test_user_hardware_settings_constructor_and_copies():
    settings = UserHardwareSettings(channels=[Channel(uri="a")],
                                    impedance_configurations=[ImpedanceConfiguration(numerator="a", denominator="b")],
                                    output_potentiostats=[])
    clone = copy.deepcopy(settings.channels[0])
    clone.uri = "b"
    assert settings.channels[0].uri == "a"
    assert velmar_link.HardwareSettings.__doc__ == "Class which contains the settings adopted by the RQ5."


def test_hardware_info_is_read_only_and_converts_nothing_when_empty():
    info = velmar_link.control.GetHardwareInfoJob().get_job_result()
    assert info.paths == [] and info.convert_urn_to_url("MAIN:1:POT") == ""
    assert info.constains_urn("MAIN:1:POT") is False
    with pytest.raises(AttributeError):
        info.paths = []
