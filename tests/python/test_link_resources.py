"""Resources through VelmarLink: create, append, read, list, info, download, delete."""

from __future__ import annotations

import os

import pytest

import velmar_link

from velmar_link import ErrorCodeEnum, ErrorObject, Resource, ResourceTypeEnum  # noqa: E402


def test_resource_round_trip(link, tmp_path):
    resource = link.create_resource(ResourceTypeEnum.WAVE, "triangle")
    assert isinstance(resource, Resource)
    assert resource.type == ResourceTypeEnum.WAVE and resource.get_name() == "triangle"
    assert resource.get_id() == resource.resource_id and resource.get_creation_date()

    payload = bytes(range(256)) * 8
    assert not link.append_to_resource(resource, bytearray(payload[:1000]))
    assert not link.append_to_resource(resource, memoryview(payload)[1000:])
    assert not link.get_updated_resource_info(resource)
    assert resource.size == len(payload)

    assert link.retrieve_resource(resource, 16, 0) == payload[:16]
    assert link.retrieve_resource(resource, 0, 100) == payload[100:]  # 0: up to the chunk limit
    assert resource.resource_id in [r.resource_id for r in link.get_available_resources(ResourceTypeEnum.WAVE)]

    target = tmp_path / "nested" / "wave.bin"
    assert not link.download_resource_to_file(resource, target)
    assert target.read_bytes() == payload

    assert not link.delete_resource(resource)
    missing = link.get_updated_resource_info(resource)
    assert isinstance(missing, ErrorObject) and missing.get_error_code_enum() == ErrorCodeEnum.ID_NOT_FOUND


def test_create_resource_from_file(link, tmp_path):
    source = tmp_path / "mesh.json"
    source.write_bytes(b'{"mesh": [1, 2, 3]}')
    resource = link.create_resource_from_file(ResourceTypeEnum.CALIB_MESH, source)
    assert resource.get_name() == "mesh.json" and resource.size == source.stat().st_size
    named = link.create_resource_from_file(ResourceTypeEnum.CALIB_MESH, str(source), "custom")
    assert named.get_name() == "custom"
    missing = link.create_resource_from_file(ResourceTypeEnum.CALIB_MESH, tmp_path / "absent")
    assert missing.get_error_code_enum() == ErrorCodeEnum.FILE_NOT_FOUND
    for r in (resource, named):
        assert not link.delete_resource(r)


def test_chunk_limit_constant():
    assert Resource.DATA_CHUNK_SIZE_LIMIT == 1048576


@pytest.mark.slow
def test_64_mib_resource_downloads_intact(link, tmp_path):
    link.set_request_timeout(__import__("datetime").timedelta(seconds=10))
    payload = os.urandom(64 << 20)
    resource = link.create_resource(ResourceTypeEnum.VELMAR_BINARY, "big")
    try:
        assert not link.append_to_resource(resource, payload)
        target = tmp_path / "big.bin"
        assert not link.download_resource_to_file(resource, target)
        assert target.stat().st_size == len(payload)
        assert target.read_bytes() == payload
    finally:
        assert not link.delete_resource(resource)
