"""A typed script: test_module_frame checks it with mypy --strict against the package's stubs.

It is not run; it uses the surface as a laboratory script would, so that a stub that loses a
type (``Any``, ``*args``) or gives a wrong one fails the check.
"""

from __future__ import annotations

import datetime

import velmar_link
from velmar_link import (
    DataSet,
    ErrorCodeEnum,
    ErrorObject,
    Resource,
    ResourceTypeEnum,
    VelmarLink,
    VelmarLinkConnectionFlags,
    VelmarLinkConnectionStatusEnum,
    VelmarLinkExc,
    WorkstationInfo,
)
from velmar_link import control, meas
from velmar_link.meas import stop

SECOND = datetime.timedelta(seconds=1)


def serial_number(link: VelmarLink) -> str:
    info = link.get_workstation_info()
    if isinstance(info, ErrorObject):
        return str(info)
    return info.serial_number


def identities(link: VelmarLink) -> list[WorkstationInfo | ErrorObject]:
    return [link.id(SECOND), VelmarLink.id("127.0.0.1", "1994", SECOND)]


def identity_or_raise() -> WorkstationInfo:
    return VelmarLinkExc.id("127.0.0.1", "1994", SECOND)


def read_resource(link: VelmarLink, resource: Resource) -> bytes:
    content = link.retrieve_resource(resource, 0, 0)
    if isinstance(content, ErrorObject):
        raise RuntimeError(content.get_message_formatted())
    return content


def upload(link: VelmarLinkExc, data: bytes) -> Resource:
    resource = link.create_resource(ResourceTypeEnum.WAVE, "wave")
    link.append_to_resource(resource, bytearray(data))
    link.append_to_resource(resource, memoryview(data))
    return resource


def on_status(status: VelmarLinkConnectionStatusEnum) -> None:
    print(status.name)


def measure(link: VelmarLinkExc) -> DataSet:
    flags: int = VelmarLinkConnectionFlags.USE_SSL | VelmarLinkConnectionFlags.SKIP_SSL_HOSTNAME_MATCHING
    link.set_flag(flags)
    link.set_connection_status_callback(on_status)
    link.set_connection_status_callback(None)
    link.set_request_timeout(SECOND)
    link.suppress_do_job_exception(ErrorCodeEnum.STOP_CONDITION_TRIGGERED)
    job = meas.RampJob(start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0,
                       stop_conditions=[stop.MaxLimitStopCondition(for_dimension="voltage", maximum=0.1)])
    error: ErrorObject = link.do_job(job)
    if error:
        print(error.get_error_code_enum().name)
    return link.get_job_result_data(job)


def switch_on(link: VelmarLink) -> float:
    job = control.SwitchOnJob(potentiostat="MAIN:1:POT", bias=0.2)
    if link.do_job(job):
        return 0.0
    return job.get_job_result().applied_bias


def connections(link: VelmarLink) -> int:
    listed = link.get_ecw_connection_list()
    return 0 if isinstance(listed, ErrorObject) else len(listed)


def names() -> list[str]:
    return [velmar_link.TrackNames.TIME, velmar_link.UnitNames.VOLTAGE, velmar_link.__version__]


def impedance(link: VelmarLink) -> list[complex]:
    job = meas.EisGenerateJob(meta_data={"sample": "A7"})
    frequencies: list[float] = []
    job.add_row_callback(lambda row: frequencies.append(row.get_meta()[0]))
    job.add_header_callback(lambda header, info: print([p.get_name() for p in header.get_paths_data_headers()]))
    collector = job.add_live_data_collector()
    if link.do_job(job):
        return []
    live: velmar_link.EisDataset = collector.get_dataset()
    result = link.get_job_result_data(job)
    if not isinstance(result, velmar_link.EisDataset):
        return []
    data = result.get_impedance_data("voltage", "current")
    if data is velmar_link.EisDataset.INVALID_IMPEDANCE_DATA:
        return []
    spectra: dict[float, complex] = data.get_calculated_spectra()
    print(live.get_row_count(), len(spectra), result.get_frequencies_array().sum())
    return data.get_calculated_complex_impedance_track()
