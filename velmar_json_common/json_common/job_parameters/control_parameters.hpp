#pragma once

// Parameter records of the control and information kinds. Member names are the JSON keys.
// Potentiostats and channels are resource paths such as "MAIN:1:POT".

#include "json_common/configuration/hardware_settings.hpp"
#include "json_common/detail/json_declare.hpp"
#include "json_common/job_parameters/potentiostat_coupling.hpp"

#include <boost/describe/class.hpp>

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace velmar {

/// The value of a hardware property: whichever JSON kind the device uses.
using HardwarePropertyValue = std::variant<bool, std::int32_t, double, std::string>;

struct BeepParameters {
    double frequency = 1000.0;
    double duration = 0.2;
};
BOOST_DESCRIBE_STRUCT(BeepParameters, (), (frequency, duration))

struct SleepParameters {
    double duration = 1.0;
};
BOOST_DESCRIBE_STRUCT(SleepParameters, (), (duration))

/// Values 0 to 255; only the lower RGB LED can be set.
struct SetLedColorParameters {
    int red = 0;
    int green = 0;
    int blue = 0;
};
BOOST_DESCRIBE_STRUCT(SetLedColorParameters, (), (red, green, blue))

struct SwitchOnParameters {
    std::string potentiostat = "MAIN:1:POT";
    PotentiostatCoupling coupling = PotentiostatCoupling::POTENTIOSTATIC;
    double bias = 0.0;
    int voltage_range_index = 0;
    int compliance_range_index = 0;
};
BOOST_DESCRIBE_STRUCT(SwitchOnParameters, (),
                      (potentiostat, coupling, bias, voltage_range_index, compliance_range_index))

struct SwitchOnQuickParameters {
    std::string potentiostat = "MAIN:1:POT";
    PotentiostatCoupling coupling = PotentiostatCoupling::POTENTIOSTATIC;
    double bias = 0.0;
    int voltage_range_index = 0;
    int compliance_range_index = 0;
};
BOOST_DESCRIBE_STRUCT(SwitchOnQuickParameters, (),
                      (potentiostat, coupling, bias, voltage_range_index, compliance_range_index))

struct SwitchOffParameters {
    std::string potentiostat = "MAIN:1:POT";
};
BOOST_DESCRIBE_STRUCT(SwitchOffParameters, (), (potentiostat))

struct SetBiasParameters {
    std::string potentiostat = "MAIN:1:POT";
    double bias = 0.0;
};
BOOST_DESCRIBE_STRUCT(SetBiasParameters, (), (potentiostat, bias))

/// Index 0 is the smallest range; applies only while the potentiostat is off.
struct SetVoltageRangeParameters {
    std::string potentiostat = "MAIN:1:POT";
    int index = 0;
};
BOOST_DESCRIBE_STRUCT(SetVoltageRangeParameters, (), (potentiostat, index))

struct SetActiveGainsParameters {
    std::string adc;
    std::vector<int> indexes;
};
BOOST_DESCRIBE_STRUCT(SetActiveGainsParameters, (), (adc, indexes))

struct SetActiveCurrentRangesParameters {
    std::string potentiostat = "MAIN:1:POT";
    std::vector<int> indexes;
};
BOOST_DESCRIBE_STRUCT(SetActiveCurrentRangesParameters, (), (potentiostat, indexes))

struct SetCableOptionsParameters {
    std::string potentiostat = "MAIN:1:POT";
    double additional_ce_capacitance = 0.0;
};
BOOST_DESCRIBE_STRUCT(SetCableOptionsParameters, (), (potentiostat, additional_ce_capacitance))

struct SetDateTimeParameters {
    std::string datetime;
};
BOOST_DESCRIBE_STRUCT(SetDateTimeParameters, (), (datetime))

struct GetAdcStateParameters {
    std::string adc;
};
BOOST_DESCRIBE_STRUCT(GetAdcStateParameters, (), (adc))

struct GetPotentiostatStateParameters {
    std::string potentiostat = "MAIN:1:POT";
};
BOOST_DESCRIBE_STRUCT(GetPotentiostatStateParameters, (), (potentiostat))

struct GetHardwarePropertyParameters {
    std::string uri;
    std::string key;
};
BOOST_DESCRIBE_STRUCT(GetHardwarePropertyParameters, (), (uri, key))

struct SetHardwarePropertyParameters {
    std::string uri;
    std::string key;
    HardwarePropertyValue value = false;
};
BOOST_DESCRIBE_STRUCT(SetHardwarePropertyParameters, (), (uri, key, value))

struct MeasureIntegralParameters {
    std::string channel;
    double duration = 1.0;
};
BOOST_DESCRIBE_STRUCT(MeasureIntegralParameters, (), (channel, duration))

struct SetFirmwareUpdateParameters {
    std::string resource_id;
};
BOOST_DESCRIBE_STRUCT(SetFirmwareUpdateParameters, (), (resource_id))

struct SetHardwareSettingsParameters {
    std::vector<PotentiostatConfiguration> output_potentiostats;
    std::vector<Channel> channels;
    std::vector<ImpedanceConfiguration> impedance_configurations;
};
BOOST_DESCRIBE_STRUCT(SetHardwareSettingsParameters, (), (output_potentiostats, channels, impedance_configurations))

VELMAR_DECLARE_JSON(BeepParameters);
VELMAR_DECLARE_JSON(SleepParameters);
VELMAR_DECLARE_JSON(SetLedColorParameters);
VELMAR_DECLARE_JSON(SwitchOnParameters);
VELMAR_DECLARE_JSON(SwitchOnQuickParameters);
VELMAR_DECLARE_JSON(SwitchOffParameters);
VELMAR_DECLARE_JSON(SetBiasParameters);
VELMAR_DECLARE_JSON(SetVoltageRangeParameters);
VELMAR_DECLARE_JSON(SetActiveGainsParameters);
VELMAR_DECLARE_JSON(SetActiveCurrentRangesParameters);
VELMAR_DECLARE_JSON(SetCableOptionsParameters);
VELMAR_DECLARE_JSON(SetDateTimeParameters);
VELMAR_DECLARE_JSON(GetAdcStateParameters);
VELMAR_DECLARE_JSON(GetPotentiostatStateParameters);
VELMAR_DECLARE_JSON(GetHardwarePropertyParameters);
VELMAR_DECLARE_JSON(SetHardwarePropertyParameters);
VELMAR_DECLARE_JSON(MeasureIntegralParameters);
VELMAR_DECLARE_JSON(SetFirmwareUpdateParameters);
VELMAR_DECLARE_JSON(SetHardwareSettingsParameters);

}  // namespace velmar
