#include "bindings.hpp"

#include "velmar_link_json/velmar_link.hpp"

#include <boost/json.hpp>

namespace velmar::python {

namespace {

py::object jsonToPython(const boost::json::value& value) {
    switch (value.kind()) {
    case boost::json::kind::null: return py::none();
    case boost::json::kind::bool_: return py::bool_(value.get_bool());
    case boost::json::kind::int64: return py::int_(value.get_int64());
    case boost::json::kind::uint64: return py::int_(value.get_uint64());
    case boost::json::kind::double_: return py::float_(value.get_double());
    case boost::json::kind::string: return py::str(value.get_string().data(), value.get_string().size());
    case boost::json::kind::array: {
        py::list list;
        for (const auto& element : value.get_array()) list.append(jsonToPython(element));
        return list;
    }
    case boost::json::kind::object: {
        py::dict dict;
        for (const auto& member : value.get_object()) {
            dict[py::str(member.key().data(), member.key().size())] = jsonToPython(member.value());
        }
        return dict;
    }
    }
    return py::none();
}

}  // namespace

void bindLinkRecords(py::module_& m) {
    py::class_<WorkstationInfo>(m, "WorkstationInfo", R"(Identity of an RQ5, the reply of its "/id".)")
        .def_readonly("protocol_version", &WorkstationInfo::protocol_version,
                      R"(protocol version announced by the device in the handshake (0 if unknown))")
        .def_readonly("serial_number", &WorkstationInfo::serial_number, R"(serial number of the device)")
        .def_readonly("model_name", &WorkstationInfo::model_name, R"(model name of the device)")
        .def_readonly("firmware_version", &WorkstationInfo::firmware_version, R"(firmware version)")
        .def_readonly("firmware_build_id", &WorkstationInfo::firmware_build_id, R"(firmware build id)")
        .def_readonly("cpu_card_uuid", &WorkstationInfo::cpu_card_uuid, R"(UUID of the CPU card)")
        .def_readonly("system_mac", &WorkstationInfo::system_mac, R"(MAC address of the system)")
        .def_readonly("system_name", &WorkstationInfo::system_name, R"(name of the system)")
        .def_readonly("mode", &WorkstationInfo::mode, R"(:class:`velmar_link.WorkstationModeEnum` of the device)");

    py::class_<WorkstationStatus>(m, "WorkstationStatus", R"(Status of an RQ5, the reply of its "/status".)")
        .def_readonly("mode", &WorkstationStatus::mode, R"(:class:`velmar_link.WorkstationModeEnum` of the device)")
        .def_readonly("uptime", &WorkstationStatus::uptime, R"(uptime of the device in seconds)")
        .def_readonly("busy", &WorkstationStatus::busy, R"(True while the device runs a job)")
        .def_readonly("last_dc_calibration", &WorkstationStatus::last_dc_calibration,
                      R"(date of the last DC calibration)");

    py::class_<WebsocketConnectionInfo>(m, "WebsocketConnectionInfo",
                                        R"(One WebSocket connection to the RQ5's server.)")
        .def_readonly("connection_id", &WebsocketConnectionInfo::connection_id, R"(identifier of the connection)")
        .def_readonly("connected_since", &WebsocketConnectionInfo::connected_since, R"(time of the connect)")
        .def_readonly("remote_addr", &WebsocketConnectionInfo::remote_addr, R"(address of the client)")
        .def_readonly("remote_port", &WebsocketConnectionInfo::remote_port, R"(port of the client)")
        .def_readonly("target", &WebsocketConnectionInfo::target, R"(target of the WebSocket handshake)")
        .def_readonly("user_agent", &WebsocketConnectionInfo::user_agent, R"(User-Agent of the client)")
        .def_readonly("using_tls", &WebsocketConnectionInfo::using_tls, R"(True for a TLS connection)");

    py::class_<Resource>(m, "Resource", R"(Description of a resource stored on the RQ5.)")
        .def_readonly("resource_id", &Resource::resource_id, R"(identifier of the resource)")
        .def_readonly("type", &Resource::type, R"(:class:`velmar_link.ResourceTypeEnum` of the resource)")
        .def_readonly("name", &Resource::name, R"(name of the resource)")
        .def_readonly("sub_type", &Resource::sub_type, R"(sub-type, e.g. the dataset kind of a job result)")
        .def_readonly("size", &Resource::size, R"(size of the content in bytes)")
        .def_readonly("created_by", &Resource::created_by, R"(creator of the resource)")
        .def_readonly("job_id", &Resource::job_id, R"(job that produced the resource, if any)")
        .def_property_readonly(
            "header",
            [](const Resource& r) -> py::typing::Dict<py::str, py::object> {
                py::object header = jsonToPython(r.header);
                if (!py::isinstance<py::dict>(header)) return {};
                return py::reinterpret_borrow<py::typing::Dict<py::str, py::object>>(header);
            },
            R"(header that travels beside the content, as a ``dict``)")
        .def("get_id", &Resource::getId, R"(:returns: the identifier of the resource.)")
        .def("get_name", &Resource::getName, R"(:returns: the name of the resource.)")
        .def("get_creation_date", &Resource::getCreationDate, R"(:returns: the creation date as text.)")
        .def("get_last_updated_date", &Resource::getLastUpdatedDate, R"(:returns: the date of the last change.)")
        .def_readonly_static("DATA_CHUNK_SIZE_LIMIT", &Resource::DATA_CHUNK_SIZE_LIMIT,
                             R"(largest chunk of one append or retrieve request, in bytes)");
}

}  // namespace velmar::python
