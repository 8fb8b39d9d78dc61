#include "bindings.hpp"

#include "bind_jobs_common.hpp"
#include "velmar_link_json/jobs/control/control_jobs.hpp"

namespace velmar::python {

namespace {

constexpr const char* kPotentiostatNote =
    "\n\nThe potentiostat is given as resource path, for example \"MAIN:1:POT\" or \"QLC:1:EXT2:POT\".";

}  // namespace

void bindJobsControl(py::module_& m) {
    auto control = submodule(m, "control");

    py::class_<AdcStateInfo>(control, "AdcStateInfo", "The state of an ADC as reported by the RQ5.")
        .def_readonly("active_gain_indexes", &AdcStateInfo::active_gain_indexes,
                      "list of gain indexes active during measurements");
    py::class_<PotentiostatState>(control, "PotentiostatState", "The state of a potentiostat as reported by the RQ5.")
        .def_readonly("switched_on", &PotentiostatState::switched_on, "True if the potentiostat is switched on")
        .def_readonly("autocompensation_on", &PotentiostatState::autocompensation_on,
                      "True if the autocompensation is on (usually True)")
        .def_readonly("dc_value", &PotentiostatState::dc_value, "the DC value that the potentiostat outputs")
        .def_readonly("coupling", &PotentiostatState::coupling, "the :class:`velmar_link.PotentiostatCoupling`")
        .def_readonly("voltage_range_index", &PotentiostatState::voltage_range_index, "index of the voltage range")
        .def_readonly("compliance_range_index", &PotentiostatState::compliance_range_index,
                      "index of the compliance range")
        .def_readonly("current_range_index", &PotentiostatState::current_range_index, "index of the current range")
        .def_readonly("bandwidth_index", &PotentiostatState::bandwidth_index, "index of the bandwidth")
        .def_readonly("current_range_integration_time", &PotentiostatState::current_range_integration_time,
                      "integration time of the ranging process")
        .def_readonly("current_range_relaxation_time", &PotentiostatState::current_range_relaxation_time,
                      "relaxation time of the ranging process")
        .def_readonly("active_current_range_indexes", &PotentiostatState::active_current_range_indexes,
                      "indexes of the active current ranges")
        .def_readonly("active_bandwidth_indexes", &PotentiostatState::active_bandwidth_indexes,
                      "indexes of the active bandwidths");

    bindJob<BeepJob>(control, "BeepJob", "BeepParametersPy",
                     "Let the RQ5 beep.\n\nfrequency in Hz, duration in seconds.");
    bindJob<SleepJob>(control, "SleepJob", "SleepParametersPy",
                      "Pause the job queue for the given duration in seconds.");

    // The one-value constructor comes first, so that a single positional integer is the color.
    auto led = bindJob<SetLedColorJob, JobArguments::NO_CONSTRUCTOR>(
        control, "SetLedColorJob", "SetLedColorParametersPy",
        "Set the color of the LED. Only the lower RGB LED can be set.\n\nEither one color value (0xFF0000 red, "
        "0x00FF00 green, 0x0000FF blue) or red, green and blue from 0 to 255.");
    led.def(py::init([](std::uint32_t color) {
                return std::make_shared<SetLedColorJob>(SetLedColorParameters{
                    static_cast<int>((color >> 16U) & 0xFFU), static_cast<int>((color >> 8U) & 0xFFU),
                    static_cast<int>(color & 0xFFU)});
            }),
            "Create the job from one color value: 0xFF0000 red, 0x00FF00 green, 0x0000FF blue.\n\n"
            ":param led: the color as integer",
            "led"_a);
    defineDescribedInit<SetLedColorParameters>(
        led, [](SetLedColorParameters p) { return std::make_shared<SetLedColorJob>(p); },
        "Create the job from red, green and blue, each 0 to 255.");

    bindJob<SwitchOnJob>(control, "SwitchOnJob", "SwitchOnParametersPy",
                         std::string("Switch a potentiostat on; :meth:`get_job_result` returns the "
                                     ":class:`velmar_link.SwitchOnInfo`.") + kPotentiostatNote);
    bindJob<SwitchOnQuickJob>(control, "SwitchOnQuickJob", "SwitchOnQuickParametersPy",
                              std::string("Switch a potentiostat on without reporting the applied values.") +
                                  kPotentiostatNote);
    bindJob<SwitchOffJob>(control, "SwitchOffJob", "SwitchOffParametersPy",
                          std::string("Switch a potentiostat off.") + kPotentiostatNote);
    bindJob<SwitchAllOffJob>(control, "SwitchAllOffJob", nullptr, "Switch every potentiostat off.");
    bindJob<SetBiasJob>(control, "SetBiasJob", "SetBiasParametersPy",
                        std::string("Set the DC bias of a switched-on potentiostat.") + kPotentiostatNote);
    bindJob<SetVoltageRangeJob>(control, "SetVoltageRangeJob", "SetVoltageRangeParametersPy",
                                std::string("Select the voltage range (0 = smallest). Applies only while the "
                                            "potentiostat is off; the RQ5 refuses it otherwise.") +
                                    kPotentiostatNote);
    bindJob<SetActiveGainsJob>(control, "SetActiveGainsJob", "SetActiveGainsParametersPy",
                               "Select the gains of an ADC that are active during measurements.");
    bindJob<SetActiveCurrentRangesJob>(control, "SetActiveCurrentRangesJob", "SetActiveCurrentRangesParametersPy",
                                       std::string("Select the current ranges that the ranging may use.") +
                                           kPotentiostatNote);
    bindJob<SetCableOptionsJob>(control, "SetCableOptionsJob", "SetCableOptionsParametersPy",
                                std::string("Set the cable options, the additional counter electrode capacitance in "
                                            "farad.") + kPotentiostatNote);
    bindJob<SetDateTimeJob>(control, "SetDateTimeJob", "SetDateTimeParametersPy",
                            "Set the real-time clock of the RQ5 (ISO 8601 text).");
    bindJob<GetDateTimeJob>(control, "GetDateTimeJob", nullptr,
                            "Read the real-time clock; :meth:`get_job_result` returns the date and time as text.");
    bindJob<InitializeRtcJob>(control, "InitializeRtcJob", nullptr, "Initialize the real-time clock of the RQ5.");
    bindJob<GetAdcStateJob>(control, "GetAdcStateJob", "GetAdcStateParametersPy",
                            "Read the state of an ADC; :meth:`get_job_result` returns the "
                            ":class:`velmar_link.control.AdcStateInfo`.");
    bindJob<GetPotentiostatStateJob>(control, "GetPotentiostatStateJob", "GetPotentiostatStateParametersPy",
                                     std::string("Read the state of a potentiostat; :meth:`get_job_result` returns the "
                                                 ":class:`velmar_link.control.PotentiostatState`.") +
                                         kPotentiostatNote);
    bindJob<GetHardwareInfoJob>(control, "GetHardwareInfoJob", nullptr,
                                "Read the device tree; :meth:`get_job_result` returns the "
                                ":class:`velmar_link.HardwareInfo`.");
    bindJob<GetHardwarePropertyJob>(control, "GetHardwarePropertyJob", "GetHardwarePropertyParametersPy",
                                    "Read a hardware property; :meth:`get_job_result` returns a bool, int, float or "
                                    "str as the RQ5 sent it.");
    bindJob<SetHardwarePropertyJob>(control, "SetHardwarePropertyJob", "SetHardwarePropertyParametersPy",
                                    "Set a hardware property to a bool, int, float or str.");
    bindJob<GetHardwareSettingsJob>(control, "GetHardwareSettingsJob", nullptr,
                                    "Read the sampling configuration; :meth:`get_job_result` returns the "
                                    ":class:`velmar_link.HardwareSettings`.");

    bindJob<SetHardwareSettingsJob, JobArguments::NO_CONSTRUCTOR>(
        control, "SetHardwareSettingsJob", "SetHardwareSettingsParametersPy",
        "Set the sampling configuration: the channels to sample, the impedances to compute and the output "
        "potentiostats. :class:`velmar_link.HardwareSettingsHelper` builds the usual configurations.")
        .def(py::init([](std::vector<Channel> channels, std::vector<ImpedanceConfiguration> impedances,
                         std::vector<PotentiostatConfiguration> outputs) {
                 return std::make_shared<SetHardwareSettingsJob>(
                     SetHardwareSettingsParameters{std::move(outputs), std::move(channels), std::move(impedances)});
             }),
             "Create the job from the three lists.\n\n:param channels: list of :class:`velmar_link.Channel`\n"
             ":param impedance_configurations: list of :class:`velmar_link.ImpedanceConfiguration`\n"
             ":param output_potentiostats: list of :class:`velmar_link.PotentiostatConfiguration`",
             "channels"_a = std::vector<Channel>{}, "impedance_configurations"_a = std::vector<ImpedanceConfiguration>{},
             "output_potentiostats"_a = std::vector<PotentiostatConfiguration>{})
        .def(py::init([](const UserHardwareSettings& config) { return std::make_shared<SetHardwareSettingsJob>(config); }),
             "Create the job from a :class:`velmar_link.UserHardwareSettings`, for example one of "
             ":class:`velmar_link.HardwareSettingsHelper`.\n\n:param config: the configuration",
             "config"_a);

    bindJob<MeasureIntegralJob>(control, "MeasureIntegralJob", "MeasureIntegralParametersPy",
                                "Integrate a channel over the duration; :meth:`get_job_result` returns the value as "
                                "float.");
    bindJob<SetFirmwareUpdateJob>(control, "SetFirmwareUpdateJob", "SetFirmwareUpdateParametersPy",
                                  "Install a firmware update uploaded before as resource.");
    bindJob<RebootJob>(control, "RebootJob", nullptr, "Reboot the RQ5.");
    bindJob<ReenumerateHardwareJob>(control, "ReenumerateHardwareJob", nullptr,
                                    "Detect the connected potentiostats and cards again.");
}

}  // namespace velmar::python
