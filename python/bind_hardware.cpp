#include "bindings.hpp"

#include "bind_jobs_common.hpp"
#include "json_common/configuration/hardware_info.hpp"
#include "json_common/configuration/hardware_settings.hpp"
#include "settings/hardware_settings_helper.hpp"

namespace velmar::python {

namespace {

/// A record that the device reports: one read-only property per member, each with its
/// one-line docstring (given in member order).
template <class T>
py::class_<T> bindReportedRecord(py::module_& m, const char* name, const char* doc,
                                 std::initializer_list<const char*> memberDocs) {
    py::class_<T> cls(m, name, doc);
    auto nextDoc = memberDocs.begin();
    boost::mp11::mp_for_each<DescribedMembers<T>>([&](auto member) {
        const char* memberDoc = nextDoc != memberDocs.end() ? *nextDoc++ : "value reported by the device";
        cls.def_readonly(member.name, member.pointer, memberDoc);
    });
    return cls;
}

UserPolynomial polynomialFrom(const py::handle& value) {
    if (py::isinstance<UserPolynomial>(value)) return value.cast<UserPolynomial>();
    if (py::isinstance<py::sequence>(value) && !py::isinstance<py::str>(value)) {
        return UserPolynomial{value.cast<std::vector<double>>()};
    }
    throw py::type_error("Expected sequence or UserPolynomial");
}

constexpr const char* kAddChannelDoc = R"(Append one channel to the channels.

Appending to the ``channels`` property of this object does not work, because reading the
property returns a copy of the list; use this method instead.

:param channel: the :class:`velmar_link.Channel` to add)";

}  // namespace

void bindHardware(py::module_& m) {
    // Device tree (read-only records).
    bindReportedRecord<CurrentRange>(m, "CurrentRange", "A current range of a potentiostat.",
                                     {"index of the range", "maximum current", "nominal shunt resistance"});
    bindReportedRecord<VoltageRange>(m, "VoltageRange", "A voltage range of a potentiostat.",
                                     {"index of the range", "maximum voltage"});
    bindReportedRecord<ComplianceRange>(m, "ComplianceRange", "A compliance range of a potentiostat.",
                                        {"index of the range", "maximum compliance voltage"});
    bindReportedRecord<GainRange>(m, "GainRange", "A gain of a signal path.",
                                  {"index of the gain", "nominal gain factor", "whether the gain is enabled"});
    bindReportedRecord<FilterRange>(m, "FilterRange", "A filter of a signal path.",
                                    {"index of the filter", "maximum impedance frequnecy"});
    bindReportedRecord<BandwidthRange>(m, "BandwidthRange", "A bandwidth setting.", {"index of the bandwidth"});
    bindReportedRecord<PathInfo>(m, "PathInfo", "A signal path of the RQ5.",
                                 {"path in url notation", "path in urn notation",
                                  "sampling of the path: simultan, acq or high_precision",
                                  "source of the path: shunt, voltage or input",
                                  "relevance from 0 (worst) to 1.0 (best)", "gains of the path",
                                  "filters of the path", "bandwidths of the path"});
    bindReportedRecord<PotentiostatInfo>(
        m, "PotentiostatInfo", "A potentiostat connected to the RQ5.",
        {"unique identification of the potentiostat", "serial number of the potentiostat",
         "flag if there is calibration data, if false no measurements are possible", "software version of the potentiostat",
         "resolution of the dac that is used for output values in bits", "current ranges of the potentiostat",
         "voltage ranges of the potentiostat", "compliance ranges of the potentiostat",
         "bandwidth ranges of the potentiostat"});
    bindReportedRecord<CardInfo>(m, "CardInfo", "An add-on card of the RQ5.",
                                 {"name of the card", "symbol of the card", "serial number of the card",
                                  "firmware version of the card", "hardware revision of the card"});
    bindReportedRecord<HardwareInfo>(m, "HardwareInfo", "The device tree of the RQ5: cards, potentiostats and paths.",
                                     {"identification of the workstation", "software version of the workstation",
                                      "list of :class:`velmar_link.PathInfo`",
                                      "list of :class:`velmar_link.PotentiostatInfo`",
                                      "list of :class:`velmar_link.CardInfo`"})
        .def("constains_urn", &HardwareInfo::constainsUrn,
             "True if the object holds a path with that urn. The device tree must first have been retrieved from the "
             "device.\n\n:param urn: path in urn notation",
             "urn"_a)
        .def("constains_url", &HardwareInfo::constainsUrl,
             "True if the object holds a path with that url. The device tree must first have been retrieved from the "
             "device.\n\n:param url: path in url notation",
             "url"_a)
        .def("convert_urn_to_url", &HardwareInfo::convertUrnToUrl,
             "The url of the path with that urn, or an empty string if unknown.\n\n:param urn: path in urn notation",
             "urn"_a)
        .def("convert_url_to_urn", &HardwareInfo::convertUrlToUrn,
             "The urn of the path with that url, or an empty string if unknown.\n\n:param url: path in url notation",
             "url"_a);

    // Sampling configuration (editable records).
    py::class_<UserPolynomial>(m, "UserPolynomial", "A polynomial, coefficient of degree 0 first.")
        .def(py::init([]() { return UserPolynomial{}; }), "The identity [0.0, 1.0].")
        .def(py::init([](const py::object& value) { return polynomialFrom(value); }),
             "Create from a sequence of floats or another UserPolynomial.\n\n:param coefficients: sequence or "
             ":class:`velmar_link.UserPolynomial`",
             "coefficients"_a)
        .def_readwrite("coefficients", &UserPolynomial::coefficients,
                       "Array containing the coefficients of the polynomial.")
        .def("__eq__", [](const UserPolynomial& a, const UserPolynomial& b) { return a == b; }, "Compare.", "other"_a)
        .def("__copy__", [](const UserPolynomial& p) { return p; }, "An independent copy.")
        .def("__deepcopy__", [](const UserPolynomial& p, py::dict) { return p; }, "An independent copy.", "memo"_a);
    py::implicitly_convertible<py::list, UserPolynomial>();
    py::implicitly_convertible<py::tuple, UserPolynomial>();

    bindRecord<Channel>(m, "Channel",
                        "A sampled signal path; the polynomial computes its DC value and is included in the impedance "
                        "calculation.")
        .def("__eq__", [](const Channel& a, const Channel& b) { return a == b; }, "Compare.", "other"_a);
    bindRecord<ImpedanceConfiguration>(
        m, "ImpedanceConfiguration",
        "For each impedance configuration, the numerator is simply returned divided by the denominator as a complex "
        "number. Left empty, the device names the impedance \"numerator/denominator\".");
    bindRecord<PotentiostatConfiguration>(
        m, "PotentiostatConfiguration",
        "The output potentiostat: potentiostatic_polynomial calculates the potentiostatic output for reference "
        "electrode and FRA, galvanostatic_polynomial the galvanostatic output for FRA.");
    bindRecord<PotConnection>(m, "PotConnection", "An external potentiostat by its QLC card and connector.");
    bindRecord<Mux4Connection>(m, "Mux4Connection", "An input channel of a MUX4 card.")
        .def("getPath", &Mux4Connection::getPath, "The signal path \"MUX4:{card}:CH{connector}~MUX4:{card}:ADC{connector}\".")
        .def("get_channel_name", &Mux4Connection::getChannelName, "The channel name \"MUX4-{card}-CH{connector}\".")
        .def("__lt__", [](const Mux4Connection& a, const Mux4Connection& b) { return a < b; }, "Order.", "other"_a)
        .def("__eq__", [](const Mux4Connection& a, const Mux4Connection& b) { return a == b; }, "Compare.", "other"_a);
    bindRecord<Mux4ImpedanceConfiguration>(
        m, "Mux4ImpedanceConfiguration",
        "An impedance between two MUX4 channels; left empty, the name is derived from the card and connector indices.");

    py::class_<UserHardwareSettings>(m, "UserHardwareSettings",
                                     "The editable sampling configuration, passed to "
                                     ":class:`velmar_link.control.SetHardwareSettingsJob`.")
        .def(py::init([](std::vector<Channel> channels, std::vector<ImpedanceConfiguration> impedances,
                         std::vector<PotentiostatConfiguration> outputs) {
                 return UserHardwareSettings{std::move(channels), std::move(impedances), std::move(outputs)};
             }),
             "Create the configuration.\n\n:param channels: synchronous and asynchronous channels together\n"
             ":param impedance_configurations: the impedances to compute\n:param output_potentiostats: the outputs",
             "channels"_a = std::vector<Channel>{}, "impedance_configurations"_a = std::vector<ImpedanceConfiguration>{},
             "output_potentiostats"_a = std::vector<PotentiostatConfiguration>{})
        .def_readwrite("channels", &UserHardwareSettings::channels, "Channels (a copy is returned).")
        .def_readwrite("impedance_configurations", &UserHardwareSettings::impedance_configurations,
                       "Impedance configurations (a copy is returned).")
        .def_readwrite("output_potentiostats", &UserHardwareSettings::output_potentiostats,
                       "Output potentiostats (a copy is returned).")
        .def("add_sync_voltage_channel", &UserHardwareSettings::addSyncVoltageChannel,
             "Add MUX4 voltage channels; an impedance is calculated with the main current channel.\n\n"
             ":param connections: list of :class:`velmar_link.Mux4Connection`",
             "connections"_a)
        .def("add_sync_current_channel", &UserHardwareSettings::addSyncCurrentChannel,
             "Add MUX4 current channels; an impedance is calculated with the main voltage channel.\n\n"
             ":param connections: list of :class:`velmar_link.Mux4Connection`",
             "connections"_a)
        .def("add_channel", &UserHardwareSettings::addChannel, kAddChannelDoc, "channel"_a)
        .def("remove_duplicates_from_channels", &UserHardwareSettings::removeDuplicatesFromChannels,
             "Remove repeated channels, keeping the first occurrence and the order.");

    bindReportedRecord<HardwareSettings>(
        m, "HardwareSettings", "Class which contains the settings adopted by the RQ5.",
        {"channels sampled synchronously",
         "channels that can only be measured sequentially, which slows down the internal oversampling",
         "impedance configurations", "output potentiostats"});

    using H = HardwareSettingsHelper;
    using Connections = const std::vector<Mux4Connection>&;
    using Impedances = const std::vector<Mux4ImpedanceConfiguration>&;
    py::class_<H>(m, "HardwareSettingsHelper",
                  "Builds the usual sampling configurations as :class:`velmar_link.UserHardwareSettings`.")
        .def_static("get_config_for_main_potentiostat", &H::getConfigForMainPotentiostat,
                    "Voltage and current channel of the main potentiostat, their impedance and the main potentiostat as "
                    "output.")
        .def_static("get_config_for_potentiostat", py::overload_cast<const PotConnection&>(&H::getConfigForPotentiostat),
                    "The same for an external potentiostat given by QLC card and connector.", "pot_connection"_a)
        .def_static("get_config_for_potentiostat", py::overload_cast<std::string_view>(&H::getConfigForPotentiostat),
                    "The same for a potentiostat given by serial number.", "pot_serial_number"_a)
        .def_static("get_config_for_main_with_sync_voltage_channel", &H::getConfigForMainWithSyncVoltageChannel,
                    "Main potentiostat plus MUX4 voltage channels.", "connections"_a)
        .def_static("get_config_for_potentiostat_with_sync_voltage_channel",
                    py::overload_cast<const PotConnection&, Connections>(&H::getConfigForPotentiostatWithSyncVoltageChannel),
                    "External potentiostat plus MUX4 voltage channels.", "pot_connection"_a, "connections"_a)
        .def_static("get_config_for_potentiostat_with_sync_voltage_channel",
                    py::overload_cast<std::string_view, Connections>(&H::getConfigForPotentiostatWithSyncVoltageChannel),
                    "Potentiostat by serial number plus MUX4 voltage channels.", "pot_serial_number"_a, "connections"_a)
        .def_static("get_config_for_main_with_sync_current_channel", &H::getConfigForMainWithSyncCurrentChannel,
                    "Main potentiostat plus MUX4 current channels.", "connections"_a)
        .def_static("get_config_for_potentiostat_with_sync_current_channel",
                    py::overload_cast<const PotConnection&, Connections>(&H::getConfigForPotentiostatWithSyncCurrentChannel),
                    "External potentiostat plus MUX4 current channels.", "pot_connection"_a, "connections"_a)
        .def_static("get_config_for_potentiostat_with_sync_current_channel",
                    py::overload_cast<std::string_view, Connections>(&H::getConfigForPotentiostatWithSyncCurrentChannel),
                    "Potentiostat by serial number plus MUX4 current channels.", "pot_serial_number"_a, "connections"_a)
        .def_static("get_config_for_main_with_sync_channel_impedance", &H::getConfigForMainWithSyncChannelImpedance,
                    "Main potentiostat plus impedances between MUX4 channel pairs.", "connections"_a)
        .def_static("get_config_for_potentiostat_with_sync_channel_impedance",
                    py::overload_cast<const PotConnection&, Impedances>(&H::getConfigForPotentiostatWithSyncChannelImpedance),
                    "External potentiostat plus impedances between MUX4 channel pairs.", "pot_connection"_a,
                    "connections"_a)
        .def_static("get_config_for_potentiostat_with_sync_channel_impedance",
                    py::overload_cast<std::string_view, Impedances>(&H::getConfigForPotentiostatWithSyncChannelImpedance),
                    "Potentiostat by serial number plus impedances between MUX4 channel pairs.", "pot_serial_number"_a,
                    "connections"_a)
        .def_static("get_potentiostat_url", &H::getPotentiostatUrl, "\"QLC:{card}:EXT{connector}:POT\".",
                    "pot_connection"_a)
        .def_static("get_potentiostat_urn", &H::getPotentiostatUrn,
                    "The text unchanged if it contains \"MAIN:1:POT\", otherwise text + \":POT\".", "pot_serial_number"_a);
}

}  // namespace velmar::python
