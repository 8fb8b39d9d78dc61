#pragma once

#include "json_common/configuration/hardware_settings.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace velmar {

/// Builds the usual sampling configurations: the potentiostat's voltage and current channels,
/// their impedance and the output potentiostat, optionally with MUX4 channels. Every operation
/// returns a new UserHardwareSettings.
class HardwareSettingsHelper {
public:
    static UserHardwareSettings getConfigForMainPotentiostat();
    static UserHardwareSettings getConfigForPotentiostat(const PotConnection& connection);
    static UserHardwareSettings getConfigForPotentiostat(std::string_view serialNumber);

    static UserHardwareSettings getConfigForMainWithSyncVoltageChannel(const std::vector<Mux4Connection>& connections);
    static UserHardwareSettings getConfigForPotentiostatWithSyncVoltageChannel(
        const PotConnection& connection, const std::vector<Mux4Connection>& connections);
    static UserHardwareSettings getConfigForPotentiostatWithSyncVoltageChannel(
        std::string_view serialNumber, const std::vector<Mux4Connection>& connections);

    static UserHardwareSettings getConfigForMainWithSyncCurrentChannel(const std::vector<Mux4Connection>& connections);
    static UserHardwareSettings getConfigForPotentiostatWithSyncCurrentChannel(
        const PotConnection& connection, const std::vector<Mux4Connection>& connections);
    static UserHardwareSettings getConfigForPotentiostatWithSyncCurrentChannel(
        std::string_view serialNumber, const std::vector<Mux4Connection>& connections);

    static UserHardwareSettings getConfigForMainWithSyncChannelImpedance(
        const std::vector<Mux4ImpedanceConfiguration>& impedances);
    static UserHardwareSettings getConfigForPotentiostatWithSyncChannelImpedance(
        const PotConnection& connection, const std::vector<Mux4ImpedanceConfiguration>& impedances);
    static UserHardwareSettings getConfigForPotentiostatWithSyncChannelImpedance(
        std::string_view serialNumber, const std::vector<Mux4ImpedanceConfiguration>& impedances);

    /// "QLC:{card}:EXT{connector}:POT".
    static std::string getPotentiostatUrl(const PotConnection& connection);
    /// The text unchanged when it contains "MAIN:1:POT", otherwise text + ":POT".
    static std::string getPotentiostatUrn(std::string_view serialNumber);
    /// potentiostat + ":" + signal + "~" + sampling path.
    static std::string getPotentiostatPath(std::string_view potentiostat, std::string_view signal,
                                           std::string_view samplingPath);

    static constexpr std::string_view MAIN_POTENTIOSTAT = "MAIN:1:POT";

private:
    /// Voltage and current channels of `potentiostat`, their impedance and the output.
    static UserHardwareSettings configFor(std::string_view potentiostat);
    static UserHardwareSettings withChannelImpedances(UserHardwareSettings settings,
                                                      const std::vector<Mux4ImpedanceConfiguration>& impedances);
};

}  // namespace velmar
