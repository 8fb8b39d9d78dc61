"""Property-based round trips of the XML measurement file: random DC and impedance datasets with
awkward names (";", unicode, blanks), empty groups and every kind of double survive save and
import bit for bit."""

from __future__ import annotations

import struct

from hypothesis import HealthCheck, given, settings
from hypothesis import strategies as st

from velmar_link import ColumnHeader, DcDataset, ImpedanceDataHeader, PathDataHeader, PotentiostatDataHeader
from velmar_link.xml import ImportedFile, Measurement, VXmlExporter, VXmlImporter

from xml_support import eis_dataset

# Texts that XML 1.0 can carry: no control characters and no surrogates; ";" and non-ASCII
# letters are drawn often.
texts = st.text(alphabet=st.one_of(st.sampled_from(";,:/ µΩ°é漢"), st.characters(
    blacklist_categories=("Cc", "Cs"), blacklist_characters="\ufffe\uffff")), max_size=12)
# Every double but NaNs with a payload: the text spells a NaN "nan" or "-nan" (as printf does),
# which keeps its sign only.
NAN = float("nan")
doubles = st.one_of(st.floats(allow_nan=False, allow_infinity=True, allow_subnormal=True),
                    st.sampled_from([NAN, -NAN, 0.0, -0.0, 5e-324]))
column_headers = st.builds(ColumnHeader, texts, texts, texts)

SETTINGS = settings(max_examples=200, deadline=None, suppress_health_check=[HealthCheck.too_slow])


def bits(values):
    return struct.pack(f"<{len(values)}d", *values)


def round_trip(obj, compact):
    text = VXmlExporter(generator="hypothesis", generator_version="1", compact_xml=compact) \
        .serialize_as_file_standalone(obj, "")
    assert isinstance(text, str), text
    imported = VXmlImporter().import_from_memory(text.encode("utf-8"))
    assert isinstance(imported, ImportedFile), imported
    return imported.object


@st.composite
def dc_datasets(draw):
    header = draw(st.lists(column_headers, min_size=1, max_size=5))
    rows = draw(st.integers(0, 12))
    tracks = [draw(st.lists(doubles, min_size=rows, max_size=rows)) for _ in header]
    return DcDataset(header, tracks, job_type=draw(texts), job_type_short=draw(texts))


@given(dc_datasets(), st.booleans())
@SETTINGS
def test_dc_datasets_round_trip(dataset, compact):
    read = round_trip(Measurement(dataset), compact).get_datasets()[0]
    assert read.get_header() == dataset.get_header()
    assert [bits(t) for t in read.get_tracks()] == [bits(t) for t in dataset.get_tracks()]
    assert (read.get_info().job_type, read.get_info().job_type_short) == \
        (dataset.get_info().job_type, dataset.get_info().job_type_short)


@st.composite
def eis_datasets(draw):
    names = st.lists(texts, max_size=3)
    group_columns = lambda: [ColumnHeader(n, draw(texts), "") for n in draw(names)]  # noqa: E731
    impedances = [ImpedanceDataHeader(draw(texts), draw(texts), group_columns(), draw(texts))
                  for _ in range(draw(st.integers(0, 2)))]
    paths = [PathDataHeader(draw(texts), f"PATH:{i}", group_columns()) for i in range(draw(st.integers(0, 2)))]
    async_paths = [PathDataHeader(draw(texts), f"ASYNC:{i}", group_columns()) for i in range(draw(st.integers(0, 1)))]
    potentiostats = [PotentiostatDataHeader(f"POT:{i}", group_columns()) for i in range(draw(st.integers(0, 1)))]
    meta = [ColumnHeader(n, draw(texts), draw(texts)) for n in ("frequency", "periods", "time", "wave_size")]
    rows = draw(st.integers(0, 5))
    sizes = [float(draw(st.integers(0, 3))) for _ in range(rows)] if paths else [0.0] * rows
    counts = [len(h.get_columns()) for h in impedances + paths + async_paths] + \
        [len(p.get_columns()) for p in potentiostats]
    values = [draw(st.lists(doubles, min_size=rows, max_size=rows)) for _ in range(3)] + [sizes]
    values += [draw(st.lists(doubles, min_size=rows, max_size=rows)) for _ in range(sum(counts))]
    waves = [[draw(st.lists(doubles, min_size=int(s), max_size=int(s))) for s in sizes] for _ in paths]
    return eis_dataset(impedances, paths, async_paths, potentiostats, meta, values, waves)


@given(eis_datasets(), st.booleans())
@SETTINGS
def test_impedance_datasets_round_trip(dataset, compact):
    read = round_trip(dataset, compact)
    assert read.get_header() == dataset.get_header()
    assert read.to_binary() == dataset.to_binary()
