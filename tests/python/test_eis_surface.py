"""The Python surface of impedance results: EisDataset and its helper objects, the class
constants returned for what is missing, numpy views without copy, the typed live-data headers
and the event-handler factories."""

from __future__ import annotations

import gc
import json
import math

import numpy as np
import pytest

import velmar_link
from velmar_link import (
    ColumnHeader,
    EisDataset,
    EventTypeEnum,
    ImpedanceDataHeader,
    LiveDataHeaderEis,
    PathDataHeader,
    PotentiostatDataHeader,
    VelmarLinkEventHandler,
)

U, I = "MAIN:1:POT:U~MUX:1:MUX_U", "MAIN:1:POT:I~MUX:1:MUX_I"
OHM = "\u2126"
META = {"dimensions": ["frequency", "periods", "time", "wave_id", "wave_size"], "units": ["Hz", "", "s", "", ""]}
HEADER = {
    "measurement_type": "Electrochemical Impedance Spectroscopy", "measurement_type_short": "EIS",
    "impedances": [{"impedance_name": "cell", "numerator": U, "denominator": I,
                    "dimensions": ["|impedance|", "phase"], "units": [OHM, "rad"]}],
    "paths": [{"name": "voltage", "uri": U, "dimensions": ["dc", "gain"], "units": ["V", ""]},
              {"name": "current", "uri": I, "dimensions": ["dc", "gain"], "units": ["A", ""]}],
    "async_paths": [],
    "potentiostats": [{"uri": "MAIN:1:POT", "dimensions": ["dc", "shunt"], "units": ["V", OHM]}],
    "meta": META,
}
# (frequency, |Z|, phase, wave id): the third point reuses the wave of the first.
POINTS = [(1000.0, 100.0, 0.0, 0), (100.0, 200.0, -math.pi / 2, 1), (10.0, 300.0, math.pi, 0)]
WAVES = [[1.0, 2.0, 3.0], [4.0, 5.0, 6.0]]


def row_event(frequency, magnitude, phase, wave_id, with_wave):
    wave = WAVES[wave_id]
    return {"type": "EVENT", "event": {
        "type": "LIVE_DATA_ROW_EIS", "impedances": [[magnitude, phase]],
        "paths": [[0.5, 1.0], [0.005, 10.0]],
        "paths_waves": [wave, [w / 100 for w in wave]] if with_wave else [],
        "async_paths": [], "potentiostats": [[0.5, 100.0]],
        "meta": [[frequency, 4.0, float(len(POINTS)), float(wave_id), float(len(wave))]]}}


def events_text():
    events = [{"type": "EVENT", "event": {"type": "LIVE_DATA_HEADER_EIS", "header": HEADER}}]
    seen = set()
    for frequency, magnitude, phase, wave_id in POINTS:
        events.append(row_event(frequency, magnitude, phase, wave_id, wave_id not in seen))
        seen.add(wave_id)
    events.append({"type": "EVENT", "event": {"type": "LIVE_DATA_FINISHED",
                                              "job_info": {"job_id": "eis-1", "status": "FINISHED", "type": "eis"}}})
    return json.dumps(events)


@pytest.fixture
def dataset() -> EisDataset:
    result = EisDataset.from_json_events(events_text())
    assert isinstance(result, EisDataset), result
    return result


def test_columns_rows_and_waves(dataset):
    assert dataset.get_row_count() == 3
    assert dataset.get_frequencies() == [1000.0, 100.0, 10.0]
    assert [h.get_dimension() for h in dataset.get_meta_data_header()] == META["dimensions"]
    assert dataset.get_meta_column(0) == dataset.get_frequencies()
    assert dataset.get_wave_ids() == [0.0, 1.0, 0.0]
    assert dataset.get_wave_id_for_row(2) == 0
    assert dataset.get_wave_for_row(0, 2) == WAVES[0]
    assert dataset.get_wave_for_row("voltage", 1) == WAVES[1]
    assert dataset.get_paths_dimensions() == ["voltage", "current"]
    assert dataset.get_potentiostats_identifiers() == ["MAIN:1:POT"]
    assert dataset.get_info().job_type == "Electrochemical Impedance Spectroscopy"
    assert dataset.get_job_info().get_job_id() == "eis-1"
    assert isinstance(dataset, velmar_link.DataSet)


def test_impedances_by_dimension_uri_and_name(dataset):
    assert dataset.get_impedances_names() == ["cell"]
    data = dataset.get_impedances_data()
    assert list(data) == [("voltage", "current")]
    impedance = data[("voltage", "current")]
    assert isinstance(impedance, velmar_link.ImpedanceData)
    assert impedance.get_impedance_name() == "cell"
    assert (impedance.get_numerator_dimension(), impedance.get_denominator_dimension()) == ("voltage", "current")
    assert impedance.get_track_names() == ["|impedance|", "phase"]
    assert impedance.get_track("|impedance|") == [100.0, 200.0, 300.0]
    for same in (dataset.get_impedance_data("current"), dataset.get_impedance_data(U),
                 dataset.get_impedance_data("voltage", "current"), dataset.get_impedance_data(U, I),
                 dataset.get_impedance_data_by_name("cell")):
        assert same.get_impedance_name() == "cell"
    expected = [complex(m * math.cos(p), m * math.sin(p)) for _, m, p, _ in POINTS]
    assert impedance.get_calculated_complex_impedance_track() == pytest.approx(expected)
    spectra = impedance.get_calculated_spectra()
    assert isinstance(spectra, dict) and spectra[100.0] == pytest.approx(expected[1])
    array = impedance.get_complex_impedance_array()
    assert array.dtype == np.complex128 and array == pytest.approx(np.array(expected))
    assert dataset.get_impedance_array(0) == pytest.approx(np.array(expected))
    path = dataset.get_path_data("voltage")
    assert path.get_dc_track() == [0.5, 0.5, 0.5]
    assert path.get_waves() == WAVES
    assert [d.get_impedance_name() for d in path.get_impedances_data()] == ["cell"]
    assert list(dataset.get_paths_data()) == ["current", "voltage"]
    potentiostat = dataset.get_potentiostat_data("MAIN:1:POT")
    assert potentiostat.get_identifier() == "MAIN:1:POT"
    assert potentiostat.get_track("shunt") == [100.0] * 3


def test_missing_items_are_the_class_constants(dataset):
    assert dataset.get_path_data("temperature") is EisDataset.INVALID_PATH
    assert dataset.get_impedance_data("nowhere") is EisDataset.INVALID_IMPEDANCE_DATA
    assert dataset.get_impedance_data("current", "voltage") is EisDataset.INVALID_IMPEDANCE_DATA
    assert dataset.get_impedance_data_by_name("anode") is EisDataset.INVALID_IMPEDANCE_DATA
    assert dataset.get_potentiostat_data("QLC:1:EXT1:POT") is EisDataset.INVALID_POTENTIOSTAT
    assert dataset.get_meta_column(99) is EisDataset.EMPTY_TRACK
    assert dataset.get_wave_for_row(5, 0) is EisDataset.EMPTY_TRACKWAVE
    assert dataset.get_wave_for_row("voltage", 99) is EisDataset.EMPTY_TRACKWAVE
    assert EisDataset.INVALID_IMPEDANCE_DATA.get_calculated_spectra() is EisDataset.EMPTY_SPECTRA
    assert EisDataset.INVALID_IMPEDANCE_DATA.get_calculated_complex_impedance_track() == EisDataset.EMPTY_COMPLEX_TRACK
    assert EisDataset.INVALID_PATH.get_dc_track() is EisDataset.EMPTY_TRACK
    assert not EisDataset.INVALID_PATH.is_valid()
    assert dataset.get_path_data("voltage").get_track("nope") is EisDataset.EMPTY_TRACK


def test_numpy_views_are_read_only_shared_and_keep_the_dataset_alive(dataset):
    frequencies = dataset.get_frequencies_array()
    again = dataset.get_meta_column_array(0)
    assert frequencies.dtype == np.float64 and not frequencies.flags.writeable
    assert np.shares_memory(frequencies, again)  # both view the dataset's one track
    with pytest.raises(ValueError):
        frequencies[0] = 1.0
    impedance = dataset.get_impedance_data("voltage", "current")
    magnitude = impedance.get_track_array("|impedance|")
    wave = dataset.get_path_data("voltage").get_wave_array(1)
    row_wave = dataset.get_wave_for_row_array(0, 1)
    assert np.shares_memory(wave, row_wave)
    with pytest.raises(IndexError):
        dataset.get_path_data("voltage").get_wave_array(7)
    del dataset, impedance
    gc.collect()
    assert frequencies.tolist() == [1000.0, 100.0, 10.0]
    assert magnitude.tolist() == [100.0, 200.0, 300.0]
    assert wave.tolist() == WAVES[1]


def test_binary_form_round_trip(dataset):
    form = dataset.to_binary()
    assert isinstance(form, tuple), form
    header, rows, payload = form
    copy = EisDataset.from_binary(payload, header, rows)
    assert isinstance(copy, EisDataset), copy
    assert copy.get_impedance_array(0) == pytest.approx(dataset.get_impedance_array(0))
    assert copy.get_wave_for_row("current", 2) == dataset.get_wave_for_row("current", 2)


def test_malformed_events_give_an_error_object():
    assert isinstance(EisDataset.from_json_events("[{"), velmar_link.ErrorObject)
    assert isinstance(EisDataset.from_json_events('{"not": "events"}'), velmar_link.ErrorObject)


def test_typed_headers_and_event_factories():
    columns = [ColumnHeader("dc", "V", "")]
    header = LiveDataHeaderEis(impedances=[ImpedanceDataHeader(U, I, [ColumnHeader("phase", "rad", "")], "")],
                               paths=[PathDataHeader("voltage", U, columns)],
                               potentiostats=[PotentiostatDataHeader("MAIN:1:POT", columns)],
                               meta=[ColumnHeader("frequency", "Hz", "")])
    assert header.get_short_type() == "EIS"
    assert [c.get_dimension() for c in header.get_columns()] == ["frequency", "phase", "dc", "dc"]
    assert header.get_impedances_headers()[0].get_uri() == U + "/" + I
    assert header.get_paths_data_headers()[0].get_polynomial() is None
    dataset = EisDataset(header)
    assert dataset.get_row_count() == 0
    assert dataset.get_paths_dimensions() == ["voltage"]
    factories = {
        VelmarLinkEventHandler.make_live_data_header_eis_event_handler: EventTypeEnum.LIVE_DATA_HEADER_EIS,
        VelmarLinkEventHandler.make_live_data_row_eis_event_handler: EventTypeEnum.LIVE_DATA_ROW_EIS,
        VelmarLinkEventHandler.make_live_data_wave_event_handler: EventTypeEnum.LIVE_DATA_WAVES,
    }
    for factory, event_type in factories.items():
        assert factory(lambda *args: None).get_type() == event_type


def test_help_lists_the_documented_methods_first():
    assert EisDataset._fields[:4] == ("get_row_count", "get_frequencies", "get_periods", "get_times")
    for name in EisDataset._fields:
        assert getattr(EisDataset, name).__doc__, name
    for cls in (EisDataset, velmar_link.ImpedanceData, velmar_link.PathData, velmar_link.PotentiostatData,
                velmar_link.AcLiveDataCollector, ImpedanceDataHeader, PathDataHeader, PotentiostatDataHeader):
        for name, member in vars(cls).items():
            if not name.startswith("_") and callable(member):
                assert member.__doc__, f"{cls.__name__}.{name}"
