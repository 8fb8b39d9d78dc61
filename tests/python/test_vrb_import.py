"""The "With Header" snapshot of a job result (`.vrb`): downloaded from the emulator through the
link's resource calls and imported with ``VrbImporter``, it gives the dataset of
``get_job_result_data`` bit for bit; failures are ``ErrorObject`` values, never exceptions."""

from __future__ import annotations

import json
from pathlib import Path

import pytest

import velmar_link
from velmar_link import (DcDataset, EisDataset, ErrorCodeEnum, ErrorObject, Resource, ResourceTypeEnum,
                         VrbImporter)
from velmar_link.meas import EisFrequencyRangeGenerate, EisGenerateJob, RampJob


def run(link, job) -> None:
    error = link.do_job(job)
    assert not error, error


def snapshot_of(link, job) -> Resource:
    """The job result's "With Header" snapshot, found by the job's id among the VELMAR_BINARY resources."""
    job_id = job.get_last_job_info().get_job_id()
    resources = link.get_available_resources(ResourceTypeEnum.VELMAR_BINARY)
    assert isinstance(resources, list), resources
    matching = [r for r in resources if r.job_id == job_id]
    assert len(matching) == 1, [r.job_id for r in resources]
    return matching[0]


def read_in_chunks(link, resource: Resource) -> bytes:
    data = b""
    while len(data) < resource.size:
        chunk = link.retrieve_resource(resource, 0, len(data))
        assert isinstance(chunk, bytes) and chunk, chunk
        data += chunk
    return data


def ramp() -> RampJob:
    return RampJob(start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0)


def impedance() -> EisGenerateJob:
    # 1 kHz .. 100 kHz, two measured periods per point and no settling: a short spectrum.
    return EisGenerateJob(frequency_range=EisFrequencyRangeGenerate(
        min_frequency=1000.0, max_frequency=100000.0, start_frequency=10000.0, pre_waves=0, pre_duration=0.0,
        meas_waves=2, meas_duration=0.0))


@pytest.mark.parametrize("make_job, kind", [(ramp, DcDataset), (impedance, EisDataset)], ids=["dc", "ac"])
def test_with_header_download_imports_as_the_result(link, tmp_path, make_job, kind):
    job = make_job()
    run(link, job)
    expected = link.get_job_result_data(job)
    assert isinstance(expected, kind), expected

    resource = snapshot_of(link, job)
    assert resource.type == ResourceTypeEnum.VELMAR_BINARY and resource.get_name().endswith(".vrb")
    target = tmp_path / "result.vrb"
    assert not link.download_resource_to_file(resource, target)
    data = target.read_bytes()
    assert len(data) == resource.size
    assert read_in_chunks(link, resource) == data

    importer = VrbImporter()
    for imported in (importer.import_from_file(target), importer.import_from_file(str(target)),
                     importer.import_from_file(bytes(target)), importer.import_from_memory(data),
                     importer.import_from_memory(bytearray(data))):
        assert isinstance(imported, kind), imported
        assert imported.to_binary() == expected.to_binary()
        assert imported.get_job_info().get_job_id() == job.get_last_job_info().get_job_id()
        assert imported.get_row_count() == expected.get_row_count() > 0

    typed = (importer.import_from_file_as_dc_dataset if kind is DcDataset
             else importer.import_from_file_as_eis_dataset)(target)
    assert isinstance(typed, kind) and typed.to_binary() == expected.to_binary()
    other = (importer.import_from_file_as_eis_dataset if kind is DcDataset
             else importer.import_from_memory_as_dc_dataset)(target if kind is DcDataset else data)
    assert isinstance(other, ErrorObject)
    assert other.get_error_code_enum() == ErrorCodeEnum.RESOURCE_CONTENT_INVALID
    assert str(other) == "imported dataset type does not match the requested type"

    metadata = json.loads(data[: data.index(b"\0")])
    assert metadata["sub_type"] == ("DATASET_DC" if kind is DcDataset else "DATASET_AC")
    assert metadata["size"] == len(data) - data.index(b"\0") - 1
    assert metadata["workstation_info"]["protocol_version"] == velmar_link.VelmarLink.get_supported_protocol_version()


def with_protocol_version(data: bytes, version: int) -> bytes:
    separator = data.index(b"\0")
    metadata = json.loads(data[:separator])
    metadata["workstation_info"]["protocol_version"] = version
    return json.dumps(metadata).encode() + data[separator:]


def test_newer_protocol_version_is_refused_unless_ignored(link, tmp_path):
    job = ramp()
    run(link, job)
    data = read_in_chunks(link, snapshot_of(link, job))
    newer = with_protocol_version(data, velmar_link.VelmarLink.get_supported_protocol_version() + 1)

    importer = VrbImporter()
    assert not importer.get_ignore_protocol_version_mismatch()
    refused = importer.import_from_memory(newer)
    assert isinstance(refused, ErrorObject)
    assert refused.get_error_code_enum() == ErrorCodeEnum.PROTOCOL_VERSION_MISMATCH
    assert str(refused) == "protocol version mismatch"

    assert isinstance(VrbImporter(ignore_protocol_version_mismatch=True).import_from_memory(newer), DcDataset)
    importer.set_ignore_protocol_version_mismatch(True)
    assert importer.get_ignore_protocol_version_mismatch()
    path = tmp_path / "newer.vrb"
    path.write_bytes(newer)
    assert isinstance(importer.import_from_file(path), DcDataset)
    assert isinstance(VrbImporter().import_from_memory(with_protocol_version(data, 0)), DcDataset)


def test_bad_input_gives_error_objects(tmp_path):
    importer = VrbImporter()
    missing = importer.import_from_file(tmp_path / "absent.vrb")
    assert isinstance(missing, ErrorObject) and missing.get_error_code_enum() == ErrorCodeEnum.FILE_NOT_FOUND
    empty = tmp_path / "empty.vrb"
    empty.write_bytes(b"")
    assert importer.import_from_file_as_dc_dataset(empty).get_error_code_enum() == ErrorCodeEnum.FILE_IS_EMPTY
    no_separator = importer.import_from_memory(b'{"size": 0}')
    assert no_separator.get_error_code_enum() == ErrorCodeEnum.RESOURCE_CONTENT_INVALID
    assert str(no_separator) == "missing metadata/payload separator (0x00): not a valid 'With Header' (.vrb) file"
    assert importer.import_from_memory(b"[]\0").get_error_code_enum() == ErrorCodeEnum.JSON_MALFORMED
