#include "json_common/configuration/hardware_settings.hpp"

#include "json_common/detail/described_json.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>

namespace velmar {

VELMAR_DEFINE_DESCRIBED_JSON(UserPolynomial)
VELMAR_DEFINE_DESCRIBED_JSON(Channel)
VELMAR_DEFINE_DESCRIBED_JSON(ImpedanceConfiguration)
VELMAR_DEFINE_DESCRIBED_JSON(PotentiostatConfiguration)
VELMAR_DEFINE_DESCRIBED_JSON(UserHardwareSettings)
VELMAR_DEFINE_DESCRIBED_JSON(HardwareSettings)

std::string Mux4Connection::getPath() const {
    return fmt::format("MUX4:{}:CH{}~MUX4:{}:ADC{}", card_index, connector_index, card_index, connector_index);
}

std::string Mux4Connection::getChannelName() const {
    return fmt::format("MUX4-{}-CH{}", card_index, connector_index);
}

bool operator<(const Mux4Connection& a, const Mux4Connection& b) {
    return std::tie(a.card_index, a.connector_index, a.dimension, a.unit, a.polynomial) <
           std::tie(b.card_index, b.connector_index, b.dimension, b.unit, b.polynomial);
}

std::string Mux4ImpedanceConfiguration::getEffectiveName() const {
    if (!impedance_name.empty()) return impedance_name;
    return numerator.getChannelName() + "/" + denominator.getChannelName();
}

namespace {

enum class Signal { VOLTAGE, CURRENT };

// The potentiostat's own channel of the other signal: the first channel whose path names it.
const Channel* findPotentiostatChannel(const std::vector<Channel>& channels, Signal signal) {
    const auto [mux, pot] = signal == Signal::VOLTAGE ? std::pair{"MUX_U", "POT:U"} : std::pair{"MUX_I", "POT:I"};
    const auto found = std::find_if(channels.begin(), channels.end(), [&](const Channel& channel) {
        return channel.uri.find(mux) != std::string::npos || channel.uri.find(pot) != std::string::npos;
    });
    return found == channels.end() ? nullptr : &*found;
}

void addSyncChannels(UserHardwareSettings& settings, const std::vector<Mux4Connection>& connections,
                     Signal measured) {
    const bool voltage = measured == Signal::VOLTAGE;
    for (const auto& connection : connections) {
        Channel channel;
        channel.uri = connection.getPath();
        channel.dimension = !connection.dimension.empty()
                                ? connection.dimension
                                : fmt::format("{}-MUX4-{}-CH{}", voltage ? "voltage" : "current",
                                              connection.card_index, connection.connector_index);
        channel.unit = !connection.unit.empty() ? connection.unit : std::string(voltage ? "V" : "A");
        channel.polynomial = connection.polynomial;
        settings.channels.push_back(channel);

        // Found after the push so that the reference stays valid; the potentiostat's channels
        // come first, so a MUX4 channel is never its own partner.
        const Channel* partner =
            findPotentiostatChannel(settings.channels, voltage ? Signal::CURRENT : Signal::VOLTAGE);
        if (partner == nullptr) continue;
        ImpedanceConfiguration impedance;
        impedance.numerator = voltage ? channel.uri : partner->uri;
        impedance.denominator = voltage ? partner->uri : channel.uri;
        impedance.impedance_name = connection.getChannelName();
        settings.impedance_configurations.push_back(std::move(impedance));
    }
}

}  // namespace

void UserHardwareSettings::addSyncVoltageChannel(const std::vector<Mux4Connection>& connections) {
    addSyncChannels(*this, connections, Signal::VOLTAGE);
}

void UserHardwareSettings::addSyncCurrentChannel(const std::vector<Mux4Connection>& connections) {
    addSyncChannels(*this, connections, Signal::CURRENT);
}

void UserHardwareSettings::addChannel(const Channel& channel) { channels.push_back(channel); }

void UserHardwareSettings::removeDuplicatesFromChannels() {
    std::vector<Channel> unique;
    unique.reserve(channels.size());
    for (auto& channel : channels) {
        if (std::find(unique.begin(), unique.end(), channel) == unique.end()) unique.push_back(std::move(channel));
    }
    channels = std::move(unique);
}

}  // namespace velmar
