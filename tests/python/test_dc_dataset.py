"""DC datasets from Python: construction, lookups, joining, copies and numpy views."""

from __future__ import annotations

import copy
import gc
import math
import struct

import pytest

import velmar_link
from velmar_link import ColumnHeader, DcDataset, LiveDataHeader

TIME = ColumnHeader("time", "s", "MAIN:TIME")
VOLTAGE = ColumnHeader("voltage", "V", "MAIN:1:POT:VOLTAGE")
CURRENT = ColumnHeader("current", "A", "MAIN:1:POT:CURRENT")


def make(tracks, header=(TIME, VOLTAGE), job_type="cv"):
    return DcDataset(list(header), tracks, job_type=job_type, job_type_short=job_type.upper())


def test_column_header_compares_all_three_strings():
    assert ColumnHeader("time", "s", "MAIN:TIME") == TIME
    assert ColumnHeader("time", "ms", "MAIN:TIME") != TIME
    assert (TIME.get_dimension(), TIME.get_unit(), TIME.get_urn()) == ("time", "s", "MAIN:TIME")
    assert len({TIME, ColumnHeader("time", "s", "MAIN:TIME"), VOLTAGE}) == 2
    assert ColumnHeader("z", "z", "A") < ColumnHeader("a", "a", "B")
    assert eval(repr(TIME), {"ColumnHeader": ColumnHeader}) == TIME


def test_lookups_return_minus_one_and_the_empty_track():
    data = make([[0.0, 1.0], [0.5, 0.6]])
    assert data.get_row_count() == 2
    assert data.get_dc_dimensions() == ["time", "voltage"]
    assert data.get_dc_tracks() == {"time": [0.0, 1.0], "voltage": [0.5, 0.6]}
    assert data.get_dc_track("voltage") == [0.5, 0.6]
    assert data.get_dc_track("charge") is DcDataset.EMPTY_TRACK
    assert DcDataset.EMPTY_TRACK == []
    assert data.index_of_dimension("charge") == -1
    assert data.index_of_urn("nope") == -1
    assert data.index_of(CURRENT) == -1
    assert data.index_of(VOLTAGE) == 1
    assert data.index_of_urn("MAIN:TIME") == 0
    assert data.get_header() == [TIME, VOLTAGE]
    assert data.get_tracks() == [[0.0, 1.0], [0.5, 0.6]]


def test_constructor_refuses_a_track_count_that_differs_from_the_header():
    with pytest.raises(ValueError):
        make([[0.0]])
    assert make([]).get_row_count() == 0


def test_append_shifts_time_fills_nan_and_combines_types():
    first = make([[0.0, 1.0], [0.1, 0.2]])
    second = make([[0.0, 2.0], [1e-6, 2e-6]], header=(TIME, CURRENT), job_type="ramp")
    assert first.append(second, 5.0) is True
    assert first.get_dc_track("time") == [0.0, 1.0, 6.0, 8.0]
    voltage = first.get_dc_track("voltage")
    assert voltage[:2] == [0.1, 0.2] and all(math.isnan(v) for v in voltage[2:])
    current = first.get_dc_track("current")
    assert all(math.isnan(v) for v in current[:2]) and current[2:] == [1e-6, 2e-6]
    assert first.get_header() == [TIME, VOLTAGE, CURRENT]
    assert first.get_job_type() == "DC Combined"
    assert first.get_job_type_short() == "DC"
    assert first.get_included_datasets() == [("cv", 2), ("ramp", 2)]


def test_info_and_copies_are_independent():
    data = make([[3.0, 4.0], [0.1, 0.2]])
    info = data.get_info()
    assert (info.job_type, info.job_type_short, info.num_rows, info.first_time_value) == ("cv", "CV", 2, 3.0)
    assert math.isnan(make([]).get_info().first_time_value)
    assert isinstance(data, velmar_link.DataSet) and isinstance(data, velmar_link.AbstractDataset)
    assert isinstance(data.get_job_info(), velmar_link.JobInfo)
    assert isinstance(info.jobInfo, velmar_link.JobInfo)
    for duplicate in (copy.copy(data), copy.deepcopy(data)):
        duplicate.append(make([[0.0], [9.0]]), 1.0)
        assert duplicate.get_row_count() == 3
    assert data.get_row_count() == 2


def test_numpy_views_share_memory_are_read_only_and_keep_the_dataset_alive():
    import numpy as np
    data = make([[0.0, 1.0, 2.0], [0.5, -0.0, math.inf]])
    view = data.get_dc_track_array("voltage")
    assert view.dtype == np.float64 and view.shape == (3,)
    assert not view.flags.writeable and not view.flags.owndata
    with pytest.raises(ValueError):
        view[0] = 1.0
    by_index = data.track_as_numpy(1)
    assert np.shares_memory(view, by_index)
    assert math.copysign(1.0, view[1]) == -1.0
    del data
    gc.collect()
    assert view.tolist() == [0.5, -0.0, math.inf]
    empty = make([]).get_dc_track_array("charge")
    assert empty.shape == (0,)
    with pytest.raises(IndexError):
        make([]).track_as_numpy(5)


def test_binary_round_trip_is_bit_exact_and_ragged_data_is_refused():
    nan_payload = struct.unpack("<d", struct.pack("<Q", 0x7FF4000000000123))[0]
    data = make([[0.0, 1.0], [nan_payload, -0.0]])
    payload = data.to_binary()
    assert payload == struct.pack("<4d", 0.0, 1.0, nan_payload, -0.0)
    assert payload[16:24] == struct.pack("<Q", 0x7FF4000000000123)
    header = LiveDataHeader("Cyclic Voltammetry", "CV", [TIME, VOLTAGE])
    assert header.get_number_of_columns() == 2 and header.get_columns() == [TIME, VOLTAGE]
    assert (header.get_type(), header.get_short_type()) == ("Cyclic Voltammetry", "CV")
    back = DcDataset.from_binary(payload + b"xyz", header)
    assert back.to_binary() == payload
    assert back.get_job_type() == "Cyclic Voltammetry"

    ragged = make([[0.0, 1.0], [0.5]])
    error = ragged.to_binary()
    assert isinstance(error, velmar_link.ErrorObject)
    assert "a ragged dataset cannot be written" in error.get_message_formatted()
