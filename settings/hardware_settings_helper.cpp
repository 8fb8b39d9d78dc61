#include "settings/hardware_settings_helper.hpp"

#include <fmt/format.h>

namespace velmar {

namespace {
Channel makeChannel(std::string uri, std::string_view dimension, std::string_view unit, UserPolynomial polynomial = {}) {
    return Channel{std::move(uri), std::string(dimension), std::string(unit), std::move(polynomial)};
}
}  // namespace

std::string HardwareSettingsHelper::getPotentiostatUrl(const PotConnection& connection) {
    return fmt::format("QLC:{}:EXT{}:POT", connection.card_index, connection.connector_index);
}

std::string HardwareSettingsHelper::getPotentiostatUrn(std::string_view serialNumber) {
    if (serialNumber.find(MAIN_POTENTIOSTAT) != std::string_view::npos) return std::string(serialNumber);
    return std::string(serialNumber) + ":POT";
}

std::string HardwareSettingsHelper::getPotentiostatPath(std::string_view potentiostat, std::string_view signal,
                                                        std::string_view samplingPath) {
    return fmt::format("{}:{}~{}", potentiostat, signal, samplingPath);
}

UserHardwareSettings HardwareSettingsHelper::configFor(std::string_view potentiostat) {
    UserHardwareSettings settings;
    auto voltage = getPotentiostatPath(potentiostat, "U", "MUX:1:MUX_U");
    auto current = getPotentiostatPath(potentiostat, "I", "MUX:1:MUX_I");
    settings.channels.push_back(makeChannel(voltage, "voltage", "V"));
    settings.channels.push_back(makeChannel(current, "current", "A"));
    settings.impedance_configurations.push_back(ImpedanceConfiguration{std::move(voltage), std::move(current), {}});
    settings.output_potentiostats.push_back(PotentiostatConfiguration{std::string(potentiostat), {}, {}});
    return settings;
}

UserHardwareSettings HardwareSettingsHelper::withChannelImpedances(
    UserHardwareSettings settings, const std::vector<Mux4ImpedanceConfiguration>& impedances) {
    for (const auto& impedance : impedances) {
        for (const auto* connection : {&impedance.numerator, &impedance.denominator}) {
            settings.addChannel(makeChannel(connection->getPath(),
                                            connection->dimension.empty() ? connection->getChannelName()
                                                                          : connection->dimension,
                                            connection->unit, connection->polynomial));
        }
        settings.impedance_configurations.push_back(ImpedanceConfiguration{
            impedance.numerator.getPath(), impedance.denominator.getPath(), impedance.getEffectiveName()});
    }
    settings.removeDuplicatesFromChannels();
    return settings;
}

UserHardwareSettings HardwareSettingsHelper::getConfigForMainPotentiostat() { return configFor(MAIN_POTENTIOSTAT); }

UserHardwareSettings HardwareSettingsHelper::getConfigForPotentiostat(const PotConnection& connection) {
    return configFor(getPotentiostatUrl(connection));
}

UserHardwareSettings HardwareSettingsHelper::getConfigForPotentiostat(std::string_view serialNumber) {
    return configFor(getPotentiostatUrn(serialNumber));
}

UserHardwareSettings HardwareSettingsHelper::getConfigForMainWithSyncVoltageChannel(
    const std::vector<Mux4Connection>& connections) {
    auto settings = getConfigForMainPotentiostat();
    settings.addSyncVoltageChannel(connections);
    return settings;
}

UserHardwareSettings HardwareSettingsHelper::getConfigForPotentiostatWithSyncVoltageChannel(
    const PotConnection& connection, const std::vector<Mux4Connection>& connections) {
    auto settings = getConfigForPotentiostat(connection);
    settings.addSyncVoltageChannel(connections);
    return settings;
}

UserHardwareSettings HardwareSettingsHelper::getConfigForPotentiostatWithSyncVoltageChannel(
    std::string_view serialNumber, const std::vector<Mux4Connection>& connections) {
    auto settings = getConfigForPotentiostat(serialNumber);
    settings.addSyncVoltageChannel(connections);
    return settings;
}

UserHardwareSettings HardwareSettingsHelper::getConfigForMainWithSyncCurrentChannel(
    const std::vector<Mux4Connection>& connections) {
    auto settings = getConfigForMainPotentiostat();
    settings.addSyncCurrentChannel(connections);
    return settings;
}

UserHardwareSettings HardwareSettingsHelper::getConfigForPotentiostatWithSyncCurrentChannel(
    const PotConnection& connection, const std::vector<Mux4Connection>& connections) {
    auto settings = getConfigForPotentiostat(connection);
    settings.addSyncCurrentChannel(connections);
    return settings;
}

UserHardwareSettings HardwareSettingsHelper::getConfigForPotentiostatWithSyncCurrentChannel(
    std::string_view serialNumber, const std::vector<Mux4Connection>& connections) {
    auto settings = getConfigForPotentiostat(serialNumber);
    settings.addSyncCurrentChannel(connections);
    return settings;
}

UserHardwareSettings HardwareSettingsHelper::getConfigForMainWithSyncChannelImpedance(
    const std::vector<Mux4ImpedanceConfiguration>& impedances) {
    return withChannelImpedances(getConfigForMainPotentiostat(), impedances);
}

UserHardwareSettings HardwareSettingsHelper::getConfigForPotentiostatWithSyncChannelImpedance(
    const PotConnection& connection, const std::vector<Mux4ImpedanceConfiguration>& impedances) {
    return withChannelImpedances(getConfigForPotentiostat(connection), impedances);
}

UserHardwareSettings HardwareSettingsHelper::getConfigForPotentiostatWithSyncChannelImpedance(
    std::string_view serialNumber, const std::vector<Mux4ImpedanceConfiguration>& impedances) {
    return withChannelImpedances(getConfigForPotentiostat(serialNumber), impedances);
}

}  // namespace velmar
