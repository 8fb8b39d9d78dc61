"""Datasets for the measurement file tests: impedance datasets built from their flat binary form,
so that any double (NaN, infinities, -0.0, subnormals) can be put into them."""

from __future__ import annotations

import struct
from typing import Sequence

from velmar_link import (
    ColumnHeader,
    EisDataset,
    ImpedanceDataHeader,
    LiveDataHeaderEis,
    PathDataHeader,
    PotentiostatDataHeader,
)


def columns(names: Sequence[str], unit: str = "") -> list[ColumnHeader]:
    return [ColumnHeader(name, unit, "") for name in names]


def eis_dataset(impedances: Sequence[ImpedanceDataHeader], paths: Sequence[PathDataHeader],
                async_paths: Sequence[PathDataHeader], potentiostats: Sequence[PotentiostatDataHeader],
                meta: Sequence[ColumnHeader], values: Sequence[Sequence[float]],
                waves: Sequence[Sequence[Sequence[float]]]) -> EisDataset:
    """An impedance dataset of one value list per column (in the order of the binary table: meta,
    impedances, paths, async paths, potentiostats) and, per sync path, one wave per row; the meta
    columns must include "wave_size" holding the wave lengths when there are waves."""
    header = LiveDataHeaderEis(list(impedances), list(paths), list(async_paths), list(potentiostats), list(meta))
    rows = len(values[0]) if values else 0
    payload = b"".join(struct.pack(f"<{len(column)}d", *column) for column in values)
    payload += b"".join(struct.pack(f"<{len(wave)}d", *wave) for path in waves for wave in path)
    dataset = EisDataset.from_binary(payload, header, rows)
    assert isinstance(dataset, EisDataset), dataset
    return dataset


def sample_eis() -> EisDataset:
    """Three points of one impedance, two sync paths and a potentiostat; rows 0 and 2 share a wave."""
    u, i = "MAIN:1:POT:U", "MAIN:1:POT:I"
    nan, inf = float("nan"), float("inf")
    meta = [ColumnHeader("frequency", "Hz", ""), ColumnHeader("periods", "", ""), ColumnHeader("time", "s", ""),
            ColumnHeader("wave_size", "", "")]
    values = [[1000.0, 100.0, 10.0], [3.0, 3.0, 4.0], [0.0, 0.5, 1.25], [2.0, 3.0, 2.0],
              [100.0, -0.0, 5e-324], [0.0, nan, -inf],
              [0.5, 0.25, 0.125], [0.001, 0.002, 0.003], [0.2, 0.2, 0.2]]
    waves = [[[1.0, 2.0], [3.0, 4.0, 5.0], [1.0, 2.0]], [[-1.0, -2.0], [-3.0, -4.0, -5.0], [-1.0, -2.0]]]
    return eis_dataset([ImpedanceDataHeader(u, i, columns(["|impedance|", "phase"]), "cell")],
                       [PathDataHeader("voltage", u, columns(["dc"], "V")),
                        PathDataHeader("current", i, columns(["dc"], "A"))],
                       [], [PotentiostatDataHeader("MAIN:1:POT", columns(["dc"], "V"))], meta, values, waves)
