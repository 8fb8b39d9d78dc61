"""VelmarLink against the emulator: records, connection failures, time-outs, malformed frames."""

from __future__ import annotations

import datetime
import pydoc
import re
import socket
import threading
import time

import pytest

import velmar_link

from velmar_link import (  # noqa: E402
    ErrorCodeEnum,
    ErrorObject,
    VelmarLink,
    VelmarLinkConnectionFlags,
    VelmarLinkConnectionStatusEnum,
    VelmarLinkExc,
    VelmarLinkException,
)

ms = lambda n: datetime.timedelta(milliseconds=n)  # noqa: E731


def code_of(result):
    assert isinstance(result, ErrorObject), f"expected an ErrorObject, got {result!r}"
    return result.get_error_code_enum()


def closed_port() -> str:
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return str(probe.getsockname()[1])


# ---- records -----------------------------------------------------------------------------


def test_workstation_records_from_the_emulator(link):
    info = link.get_workstation_info()
    assert info.serial_number == "RQ5-EMU-000001"
    assert info.model_name == "RQ5"
    assert info.mode == velmar_link.WorkstationModeEnum.EMULATION
    assert info.protocol_version == VelmarLink.get_supported_protocol_version() == 12

    status = link.get_workstation_status()
    assert isinstance(status.busy, bool)
    assert isinstance(status.uptime, int)

    own = link.get_own_connection_info()
    assert own.target == "/default"
    assert own.user_agent == "velmar_link_lib"
    assert own.using_tls is False
    assert own.remote_addr == "127.0.0.1"
    listed = link.get_ecw_connection_list()
    assert own.connection_id in [c.connection_id for c in listed]


def test_id_with_and_without_a_connection(emulator, link):
    assert link.id(ms(1000)).serial_number == "RQ5-EMU-000001"
    unconnected = VelmarLink("127.0.0.1", emulator.port_str)
    assert unconnected.id(ms(1000)).serial_number == "RQ5-EMU-000001"
    assert not unconnected.is_connected()
    assert VelmarLink.id("127.0.0.1", emulator.port_str, ms(1000)).serial_number == "RQ5-EMU-000001"
    assert VelmarLink.id("127.0.0.1", "1", ms(1000)).get_error_code_enum() == ErrorCodeEnum.CONNECTION_FAILED
    assert velmar_link.VelmarLinkExc.id("127.0.0.1", emulator.port_str, ms(1000)).model_name == "RQ5"
    with pytest.raises(velmar_link.VelmarLinkException):
        velmar_link.VelmarLinkExc.id("127.0.0.1", "1", ms(1000))


def test_drop_own_connection_ends_it(emulator):
    link = VelmarLink("127.0.0.1", emulator.port_str)
    assert not link.connect()
    other = VelmarLink("127.0.0.1", emulator.port_str)
    assert not other.connect()
    try:
        target = link.get_own_connection_info()
        assert not other.drop_ecw_connection(target)
        deadline = time.monotonic() + 5
        while link.is_connected() and time.monotonic() < deadline:
            time.sleep(0.01)
        assert not link.is_connected()
    finally:
        other.disconnect()
        link.disconnect()


# ---- connection failures -----------------------------------------------------------------


def test_closed_port_fails_to_connect():
    error = VelmarLink("127.0.0.1", closed_port()).connect()
    assert code_of(error) == ErrorCodeEnum.CONNECTION_FAILED
    assert str(error) == "failed to connect"


def test_unresolvable_host_is_a_dns_error():
    error = VelmarLink("no-such-workstation.invalid", "1994").connect()
    assert code_of(error) == ErrorCodeEnum.CONNECTION_DNS_ERROR
    assert error.get_message_format_string() == "dns error: {0}"
    assert "no-such-workstation.invalid" in str(error)


def test_credentials(emulator_factory):
    guarded = emulator_factory(user="operator", password="s3cret")
    wrong = VelmarLink("127.0.0.1", guarded.port_str, 0, "operator", "wrong")
    assert code_of(wrong.connect()) == ErrorCodeEnum.UNAUTHORIZED
    assert code_of(VelmarLink("127.0.0.1", guarded.port_str).connect()) == ErrorCodeEnum.UNAUTHORIZED
    right = VelmarLink("127.0.0.1", guarded.port_str, 0, "operator", "s3cret")
    assert not right.connect()
    right.disconnect()


def test_protocol_mismatch_and_its_override(emulator_factory):
    newer = emulator_factory(protocol_version=13)
    assert code_of(VelmarLink("127.0.0.1", newer.port_str).connect()) == ErrorCodeEnum.PROTOCOL_VERSION_MISMATCH
    tolerant = VelmarLink("127.0.0.1", newer.port_str, VelmarLinkConnectionFlags.IGNORE_PROTOCOL_MISMATCH)
    assert tolerant.test_flag(VelmarLinkConnectionFlags.IGNORE_PROTOCOL_MISMATCH)
    assert not tolerant.connect()
    assert tolerant.get_workstation_info().protocol_version == 13
    tolerant.disconnect()


def test_already_connected(link):
    assert code_of(link.connect()) == ErrorCodeEnum.ALREADY_CONNECTED


def test_requests_without_connection_return_at_once():
    link = VelmarLink("127.0.0.1", "1")
    started = time.monotonic()
    for call in (link.get_workstation_status, link.get_workstation_info, link.get_settings,
                 link.get_own_connection_info, link.get_ecw_connection_list):
        assert code_of(call()) == ErrorCodeEnum.CONNECTION_NOT_ESTABLISHED
    assert time.monotonic() - started < 0.2
    assert link.get_connection_status() == VelmarLinkConnectionStatusEnum.DISCONNECTED


def test_flags_and_destination_are_stored():
    link = VelmarLink("127.0.0.1")
    link.set_flag(VelmarLinkConnectionFlags.IGNORE_PROTOCOL_MISMATCH | VelmarLinkConnectionFlags.USE_SSL)
    link.clear_flag(VelmarLinkConnectionFlags.USE_SSL)
    assert link.test_flag(VelmarLinkConnectionFlags.IGNORE_PROTOCOL_MISMATCH)
    assert not link.test_flag(VelmarLinkConnectionFlags.USE_SSL)
    link.set_destination_host("no-such-workstation.invalid", "1994")
    assert code_of(link.connect()) == ErrorCodeEnum.CONNECTION_DNS_ERROR
    assert VelmarLink.is_ip_address("::1") and not VelmarLink.is_ip_address("rq5.local")


# ---- time-outs ---------------------------------------------------------------------------


def test_default_timeout_is_one_second_and_a_late_reply_is_ignored(emulator, link):
    emulator.fault("/status", "delay", delay_ms=1500)
    started = time.monotonic()
    error = link.get_workstation_status()
    elapsed = time.monotonic() - started
    assert code_of(error) == ErrorCodeEnum.OPERATION_TIMED_OUT
    assert str(error) == "operation timed out"
    assert 0.9 <= elapsed < 1.4
    time.sleep(0.7)  # the late reply arrives now and must be dropped
    assert link.get_workstation_info().serial_number == "RQ5-EMU-000001"
    assert link.is_connected()


def test_changed_timeout(emulator, link):
    link.set_request_timeout(ms(200))
    emulator.fault("/status", "delay", delay_ms=600)
    started = time.monotonic()
    assert code_of(link.get_workstation_status()) == ErrorCodeEnum.OPERATION_TIMED_OUT
    assert 0.15 <= time.monotonic() - started < 0.5
    link.set_request_timeout(ms(0))  # back to the default
    emulator.fault("/status", "delay", delay_ms=600)
    assert not isinstance(link.get_workstation_status(), ErrorObject)


# ---- malformed frames --------------------------------------------------------------------


@pytest.mark.parametrize(
    "action, stream, text",
    [
        ("malformed", "err", "issue parsing incomming json "),
        ("no_type", "err", "missing property 'type'"),
        ("unknown_type", "out", "received unknown type"),
    ],
)
def test_malformed_frames_are_dropped_and_pending_requests_untouched(emulator, link, capfd, action, stream, text):
    link.set_request_timeout(ms(600))
    emulator.fault("/id", "delay", delay_ms=300)
    other: list = []
    worker = threading.Thread(target=lambda: other.append(link.get_workstation_info()))
    worker.start()
    time.sleep(0.05)
    emulator.fault("/status", action)  # the bad frame comes first, then the real reply
    assert isinstance(link.get_workstation_status(), velmar_link.WorkstationStatus)
    worker.join(5)
    assert other and other[0].serial_number == "RQ5-EMU-000001"
    captured = capfd.readouterr()
    assert text in (captured.err if stream == "err" else captured.out)
    assert link.is_connected()


def test_unsolicited_binary_frame_is_dropped(emulator, link):
    emulator.fault("/status", "binary")  # a binary frame without a download, then the reply
    assert isinstance(link.get_workstation_status(), velmar_link.WorkstationStatus)
    assert isinstance(link.get_workstation_status(), velmar_link.WorkstationStatus)


def test_events_before_a_reply_do_not_disturb_it(emulator, link):
    event = {"type": "MESSAGE_FROM_SERVER", "severity": "MESSAGE", "date_time": "now", "message": "hi"}
    emulator.fault("/status", "delay", delay_ms=0, events_before_reply=[event, {"type": "NO_SUCH_EVENT"}])
    assert not isinstance(link.get_workstation_status(), ErrorObject)


# ---- raising variant ---------------------------------------------------------------------


def test_velmar_link_exc_raises_with_the_error(emulator):
    link = VelmarLinkExc("127.0.0.1", emulator.port_str)
    with pytest.raises(VelmarLinkException) as raised:
        link.get_workstation_status()
    assert raised.value.error.get_error_code_enum() == ErrorCodeEnum.CONNECTION_NOT_ESTABLISHED
    assert str(raised.value) == "no network connection has been established yet"
    link.connect()
    try:
        assert link.get_workstation_info().serial_number == "RQ5-EMU-000001"
        with pytest.raises(VelmarLinkException) as again:
            link.connect()
        assert again.value.error.get_error_code_enum() == ErrorCodeEnum.ALREADY_CONNECTED
        link.suppress_do_job_exception(ErrorCodeEnum.QUEUE_FULL)
        assert link.is_do_job_exception_suppressed(ErrorCodeEnum.QUEUE_FULL)
        link.enable_do_job_exception(ErrorCodeEnum.QUEUE_FULL)
        assert not link.is_do_job_exception_suppressed(ErrorCodeEnum.QUEUE_FULL)
    finally:
        link.disconnect()
    with pytest.raises(VelmarLinkException) as refused:
        VelmarLinkExc("127.0.0.1", closed_port()).connect()
    assert refused.value.error.get_error_code_enum() == ErrorCodeEnum.CONNECTION_FAILED


# ---- one list of operations --------------------------------------------------------------

#: The methods of both link classes, in the order in which help() lists them.
SCRIPT_METHODS = [
    "connect", "disconnect", "id", "do_job", "wait_for_job_to_finish", "cancel_pending_operations",
    "get_job_result_data", "send_stop", "update_settings", "get_settings", "get_connection_status",
    "is_connected", "set_request_timeout", "get_job_info_list", "get_job_info", "get_workstation_info",
    "get_workstation_status", "get_own_connection_info", "get_ecw_connection_list", "drop_ecw_connection",
    "set_connection_status_callback", "set_event_handler", "clear_event_handler", "check_job_parameters",
    "create_resource", "create_resource_from_file", "append_to_resource", "retrieve_resource",
    "download_resource_to_file", "delete_resource", "get_available_resources", "get_updated_resource_info",
    "set_destination_host", "set_http_authentication_info", "set_flag", "clear_flag", "test_flag",
    "get_library_revision", "get_supported_protocol_version",
]
EXC_OWN_METHODS = ["suppress_do_job_exception", "enable_do_job_exception", "is_do_job_exception_suppressed"]
FURTHER_METHODS = ["set_connection_timeout", "is_ip_address", "set_max_message_size", "get_max_message_size"]


def help_order(cls) -> list[str]:
    """The names of the routines that help() shows for ``cls``, in its order."""
    text = pydoc.render_doc(cls, renderer=pydoc.plaintext)
    return [match for match in re.findall(r"^ \|  (\w+)(?:\(| = )", text, re.MULTILINE) if not match.startswith("_")]


def argument_names(method) -> list[str]:
    """The argument names of a bound native method, read from its signature line."""
    signature = method.__doc__.splitlines()[0]
    inside = signature[signature.index("(") + 1 : signature.rindex(") ->")] if ") ->" in signature else ""
    return [part.split(":")[0].strip() for part in inside.split(", ") if part and part.split(":")[0] != "self"]


@pytest.mark.parametrize("cls, own", [(VelmarLink, []), (VelmarLinkExc, EXC_OWN_METHODS)], ids=["link", "exc"])
def test_help_lists_the_methods_in_the_documented_order(cls, own):
    listed = help_order(cls)
    # pydoc shows the static methods (the last two of the table) after the others.
    documented = SCRIPT_METHODS[:-2] + own + SCRIPT_METHODS[-2:]
    assert [name for name in listed if name in documented] == documented
    assert sorted(listed) == sorted(documented + FURTHER_METHODS)


def test_both_link_classes_offer_the_same_operations_with_the_same_arguments():
    link = VelmarLink("127.0.0.1")
    exc = VelmarLinkExc("127.0.0.1")
    for name in SCRIPT_METHODS + FURTHER_METHODS:
        assert argument_names(getattr(link, name)) == argument_names(getattr(exc, name)), name
    assert argument_names(link.retrieve_resource) == ["resource", "limit", "offset"]
    assert argument_names(link.create_resource_from_file) == ["type", "file_name_and_path", "resource_name"]
    assert "resource_name: str = ''" in link.create_resource_from_file.__doc__
    assert argument_names(VelmarLink.__init__) == argument_names(VelmarLinkExc.__init__)
    assert "VelmarLinkException" in VelmarLinkExc.get_job_result_data.__doc__
    assert "did not finish successfully" in VelmarLinkExc.get_job_result_data.__doc__


def test_result_shapes_of_the_two_classes(emulator):
    link = VelmarLink("127.0.0.1", closed_port())
    assert link.update_settings(velmar_link.SettingsSet()) is None
    assert link.set_connection_status_callback(None) is None
    assert code_of(link.check_job_parameters(velmar_link.control.BeepJob())) == ErrorCodeEnum.CONNECTION_NOT_ESTABLISHED
    with pytest.raises(TypeError):
        link.do_job(None)
    with pytest.raises(TypeError):
        link.set_event_handler(None)
    assert re.search(r"-> bytes \| [\w.]*ErrorObject$", VelmarLink.retrieve_resource.__doc__.splitlines()[0])
    assert VelmarLinkExc.retrieve_resource.__doc__.splitlines()[0].endswith("-> bytes")
    exc = VelmarLinkExc("127.0.0.1", emulator.port_str)
    exc.connect()
    try:
        assert exc.check_job_parameters(velmar_link.control.BeepJob()) is None
        assert exc.update_settings(velmar_link.SettingsSet()) is None
    finally:
        exc.disconnect()
    assert isinstance(VelmarLinkExc.id, type(VelmarLinkExc._id_of_address))
    assert VelmarLink.get_max_message_size(link) >= 1 << 20


def test_exc_get_job_result_data_raises_for_a_job_that_did_not_succeed(emulator):
    link = VelmarLinkExc("127.0.0.1", emulator.port_str)
    link.connect()
    try:
        refused = velmar_link.control.SetLedColorJob(300, 0, 0)
        link.suppress_do_job_exception(ErrorCodeEnum.PARAMETER_VALUE_TOO_HIGH)
        assert code_of(link.do_job(refused)) == ErrorCodeEnum.PARAMETER_VALUE_TOO_HIGH
        with pytest.raises(VelmarLinkException) as raised:
            link.get_job_result_data(refused)
        assert raised.value.error.get_error_code_enum() == ErrorCodeEnum.PARAMETER_VALUE_TOO_HIGH

        # Stopped by its stop condition after some rows: a partial result is not handed out.
        stopped = velmar_link.meas.RampJob(
            start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0,
            stop_conditions=[velmar_link.meas.stop.MaxLimitStopCondition(for_dimension="voltage", maximum=0.05)])
        link.suppress_do_job_exception(ErrorCodeEnum.STOP_CONDITION_TRIGGERED)
        error = link.do_job(stopped)
        assert not stopped.was_successful(), error
        with pytest.raises(VelmarLinkException) as raised:
            link.get_job_result_data(stopped)
        assert raised.value.error == stopped.get_last_job_info().get_error()

        never_ran = velmar_link.meas.RampJob()
        with pytest.raises(VelmarLinkException):
            link.get_job_result_data(never_ran)

        finished = velmar_link.meas.RampJob(start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0)
        assert not link.do_job(finished)
        assert link.get_job_result_data(finished).get_row_count() == 11
    finally:
        link.disconnect()
