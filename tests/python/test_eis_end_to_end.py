"""Impedance spectroscopy from job to dataset against the emulator: every impedance kind
streams header, rows, wave fragments and the finished mark to Python; the downloaded
EisDataset equals what the live data carried, value for value and wave for wave; and the
emulated cells' spectra obey their physics (circuit fit, Kramers-Kronig, the redox cell's
charge-transfer resistance)."""

from __future__ import annotations

import math
import warnings

import numpy as np
import pytest

import velmar_link
from velmar_link import EisDataset, meas

FARADAY = 96485.33212
GAS_CONSTANT = 8.314462618


def spectrum(frequencies, amplitude=0.01, waves=2, record=meas.EisParametersFrequencyTable):
    return record(spectrum=[
        meas.EisParametersFrequencyTableEntry(frequency=f, amplitude=amplitude, pre_duration=0.0, pre_waves=1,
                                              meas_duration=0.0, meas_waves=waves)
        for f in frequencies])


def generated(record, low=100.0, high=1000.0, per_decade=5, **extra):
    return record(min_frequency=low, max_frequency=high, start_frequency=high, points_per_decade_upper=per_decade,
                  points_per_decade_lower=per_decade, pre_duration=0.0, pre_waves=1, meas_duration=0.0, meas_waves=2,
                  amplitude=0.01, **extra)


def every_kind():
    """One small job of each impedance kind (a few points between 100 Hz and 1 kHz)."""
    multisine_table = meas.EisMultiSineTable(fundamental_frequency=100.0, harmonics=[
        meas.EisMultiSineTableEntry(harmonic=h, amplitude=0.005) for h in (1, 3, 7)], pre_duration=0.0, pre_waves=1,
        meas_duration=0.0, meas_waves=2)
    return {
        "eis": meas.EisGenerateJob(frequency_range=generated(meas.EisFrequencyRangeGenerate)),
        "eis_table": meas.EisFrequencyTableJob(frequency_range=spectrum([1000.0, 300.0, 100.0])),
        "eis_multisine": meas.EisMultisineGenerateJob(
            multisine_wave_in_result=True, frequency_range=generated(meas.EisMultisineFrequencyRangeGenerate)),
        "eis_multisine_table": meas.EisMultisineTableJob(multisine_wave_in_result=True,
                                                         frequency_range=multisine_table),
        "geis_va": meas.GeisVaGenerateJob(minimum_current_amplitude=1e-6, maximum_current_amplitude=1e-3,
                                          frequency_range=generated(meas.EisFrequencyRangeGenerate)),
        "geis_va_table": meas.GeisVaFrequencyTableJob(minimum_current_amplitude=1e-6, maximum_current_amplitude=1e-3,
                                                      frequency_range=spectrum([1000.0, 100.0], amplitude=1e-4,
                                                                               record=meas.GeisVaParametersFrequencyTable)),
    }


def run(link, job) -> None:
    error = link.do_job(job)
    assert not error, error
    assert job.was_successful(), job.get_last_job_error_message()


def assert_same_dataset(result: EisDataset, live: EisDataset) -> None:
    rows = live.get_row_count()
    assert result.get_row_count() == rows > 0
    assert result.get_meta_data_header() == live.get_meta_data_header()
    # Rows that share identical waves share one wave id in the result (waves are merged after
    # the download), so wave ids are compared through the waves they point at.
    for i, column in enumerate(live.get_meta_data_header()):
        if column.get_dimension() != "wave_id":
            np.testing.assert_array_equal(result.get_meta_column_array(i), live.get_meta_column_array(i))
    assert list(result.get_impedances_data()) == list(live.get_impedances_data())
    for key, impedance in live.get_impedances_data().items():
        other = result.get_impedances_data()[key]
        for name in impedance.get_track_names():
            np.testing.assert_array_equal(other.get_track_array(name), impedance.get_track_array(name))
    assert list(result.get_paths_data()) == list(live.get_paths_data())
    for name, path in live.get_paths_data().items():
        for track in path.get_track_names():
            np.testing.assert_array_equal(result.get_paths_data()[name].get_track_array(track),
                                          path.get_track_array(track))
    for p in range(len(live.get_paths_dimensions())):
        for row in range(rows):
            np.testing.assert_array_equal(result.get_wave_for_row_array(p, row), live.get_wave_for_row_array(p, row))


@pytest.mark.parametrize("kind", list(every_kind()))
def test_every_kind_streams_its_live_data_and_the_result_equals_it(link, kind):
    job = every_kind()[kind]
    headers, rows, fragments, finished = [], [], [], []
    job.add_header_callback(lambda header, info: headers.append(header))
    job.add_row_callback(rows.append)
    job.add_waves_callback(fragments.append)
    job.add_finished_callback(finished.append)
    collector = job.add_live_data_collector()

    run(link, job)

    assert len(headers) == 1 and len(finished) == 1 and rows and fragments
    header = headers[0]
    assert header.get_type() == "Electrochemical Impedance Spectroscopy"
    meta = [c.get_dimension() for c in header.get_meta_data_header()]
    assert meta[:5] == ["frequency", "periods", "time", "wave_id", "wave_size"]
    assert all(len(row.get_meta()) == len(meta) for row in rows)
    assert all(len(f.get_waves()) == len(header.get_paths_data_headers()) for f in fragments)

    live = collector.get_dataset()
    assert collector.is_finished()
    result = link.get_job_result_data(job)
    assert isinstance(result, EisDataset), result
    assert_same_dataset(result, live)
    assert result.get_row_count() == len(rows)
    assert result.get_info().job_type_short == "EIS"


def test_the_generated_grid_is_the_documented_one(emulator_factory):
    """100 Hz to 1 MHz, 20 points per decade above 66 Hz (5 at the minimum), from 10 kHz:
    upwards from the start to the maximum, then downwards from below the start."""
    emulator = emulator_factory(extra_args=("--time-scale", "1000"))
    link = velmar_link.VelmarLinkExc("127.0.0.1", emulator.port_str)
    link.connect()
    try:
        job = meas.EisGenerateJob(frequency_range=meas.EisFrequencyRangeGenerate(
            min_frequency=100.0, max_frequency=1e6, start_frequency=1e4, points_per_decade_upper=20,
            points_per_decade_lower=5, pre_duration=0.1, pre_waves=1, meas_duration=1.0, meas_waves=5, amplitude=0.01))
        link.do_job(job)
        frequencies = link.get_job_result_data(job).get_frequencies_array()
    finally:
        link.disconnect()
    expected = [10 ** (4 + k / 20) for k in range(41)] + [10 ** (4 - k / 20) for k in range(1, 41)]
    np.testing.assert_allclose(frequencies, expected, rtol=1e-12)


def measure_spectrum(emulator_factory, cell: str, frequencies, bias: float = 0.0):
    emulator = emulator_factory(extra_args=("--cell", cell, "--time-scale", "1000"))
    link = velmar_link.VelmarLinkExc("127.0.0.1", emulator.port_str)
    link.connect()
    try:
        job = meas.EisFrequencyTableJob(bias=bias, frequency_range=spectrum(frequencies, amplitude=0.005))
        link.do_job(job)
        dataset = link.get_job_result_data(job)
    finally:
        link.disconnect()
    impedance = dataset.get_impedance_data()
    assert impedance.is_valid()
    return dataset.get_frequencies_array(), impedance.get_complex_impedance_array()


def randles(frequencies, rs, rct, cdl, sigma):
    omega = 2 * np.pi * np.asarray(frequencies)
    faradaic = rct + sigma * (1 - 1j) / np.sqrt(omega)
    return rs + 1 / (1j * omega * cdl + 1 / faradaic)


def fit_randles(frequencies, z, guess):
    from scipy.optimize import least_squares

    def residuals(log_parameters):
        model = randles(frequencies, *np.exp(log_parameters))
        relative = (model - z) / np.abs(z)
        return np.concatenate([relative.real, relative.imag])

    solution = least_squares(residuals, np.log(guess), xtol=1e-14, ftol=1e-14, gtol=1e-14)
    return np.exp(solution.x)


FREQUENCIES = list(np.logspace(5, -1, 37))


def test_a_randles_cell_fits_its_own_elements_and_passes_kramers_kronig(emulator_factory):
    frequencies, z = measure_spectrum(emulator_factory, "randles:Rs=10,Rct=100,Cdl=1e-5,sigma=50", FREQUENCIES)
    rs, rct, cdl, sigma = fit_randles(frequencies, z, [5, 200, 3e-5, 20])
    assert rs == pytest.approx(10, rel=0.01)
    assert rct == pytest.approx(100, rel=0.01)
    assert cdl == pytest.approx(1e-5, rel=0.01)
    assert sigma == pytest.approx(50, rel=0.01)

    with warnings.catch_warnings():  # its dependencies import deprecated numpy modules
        warnings.simplefilter("ignore", PendingDeprecationWarning)
        import pyimpspec  # a test dependency, installed by scripts/setup.sh

    result = pyimpspec.perform_kramers_kronig_test(pyimpspec.DataSet(frequencies=frequencies, impedances=z))
    _, real_residuals, imaginary_residuals = result.get_residuals_data()
    assert np.max(np.abs(real_residuals)) < 1.0  # percent
    assert np.max(np.abs(imaginary_residuals)) < 1.0


def test_the_redox_cells_charge_transfer_resistance_is_rt_over_nf_i0(emulator_factory):
    # O + e- <=> R, both 1 mM, measured at E0: the exchange current is n F A k0 c.
    area, k0, concentration, temperature = 7e-6, 1e-5, 1.0, 298.15  # m^2, m/s, mol/m^3, K
    cell = f"redox:E0=0.2,c=1e-3,cR=1e-3,k0={k0},A={area},Ru=10,T={temperature}"
    frequencies, z = measure_spectrum(emulator_factory, cell, FREQUENCIES, bias=0.2)
    exchange_current = FARADAY * area * k0 * concentration
    expected = GAS_CONSTANT * temperature / (FARADAY * exchange_current)
    _, rct, _, _ = fit_randles(frequencies, z, [5, expected * 2, 1e-6, 1000])
    assert rct == pytest.approx(expected, rel=0.02)
    assert math.isfinite(rct)
