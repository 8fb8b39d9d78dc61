#pragma once

// Sampling configuration records of the RQ5: which signal paths are sampled, which quotients
// of them are computed as impedances and on which potentiostat the excitation is output.
// Member names are the JSON keys.

#include "json_common/detail/json_declare.hpp"

#include <boost/describe/class.hpp>

#include <string>
#include <vector>

namespace velmar {

/// A polynomial, coefficient of degree 0 first; the identity is [0.0, 1.0].
struct UserPolynomial {
    std::vector<double> coefficients{0.0, 1.0};
    friend bool operator==(const UserPolynomial&, const UserPolynomial&) = default;
    friend auto operator<=>(const UserPolynomial&, const UserPolynomial&) = default;
};
BOOST_DESCRIBE_STRUCT(UserPolynomial, (), (coefficients))

/// One sampled signal path with the polynomial that computes its DC value.
struct Channel {
    std::string uri;
    std::string dimension;
    std::string unit;
    UserPolynomial polynomial;
    friend bool operator==(const Channel&, const Channel&) = default;
};
BOOST_DESCRIBE_STRUCT(Channel, (), (uri, dimension, unit, polynomial))

/// numerator / denominator as a complex number; an empty name lets the device name it
/// "numerator/denominator".
struct ImpedanceConfiguration {
    std::string numerator;
    std::string denominator;
    std::string impedance_name;
    friend bool operator==(const ImpedanceConfiguration&, const ImpedanceConfiguration&) = default;
};
BOOST_DESCRIBE_STRUCT(ImpedanceConfiguration, (), (numerator, denominator, impedance_name))

/// The potentiostat that outputs the excitation.
struct PotentiostatConfiguration {
    std::string uri;
    UserPolynomial potentiostatic_polynomial;
    UserPolynomial galvanostatic_polynomial;
    friend bool operator==(const PotentiostatConfiguration&, const PotentiostatConfiguration&) = default;
};
BOOST_DESCRIBE_STRUCT(PotentiostatConfiguration, (), (uri, potentiostatic_polynomial, galvanostatic_polynomial))

/// An external potentiostat by its QLC card and connector.
struct PotConnection {
    int card_index = 1;
    int connector_index = 1;
    friend bool operator==(const PotConnection&, const PotConnection&) = default;
};
BOOST_DESCRIBE_STRUCT(PotConnection, (), (card_index, connector_index))

/// An input channel of a MUX4 card. A non-empty dimension or unit replaces the ones that the
/// sync-channel operations would choose.
struct Mux4Connection {
    int card_index = 1;
    int connector_index = 1;
    UserPolynomial polynomial;
    std::string dimension;
    std::string unit;

    /// "MUX4:{card}:CH{connector}~MUX4:{card}:ADC{connector}".
    std::string getPath() const;
    /// "MUX4-{card}-CH{connector}".
    std::string getChannelName() const;

    friend bool operator==(const Mux4Connection&, const Mux4Connection&) = default;
    /// Ordered by card, connector, dimension, unit, then polynomial.
    friend bool operator<(const Mux4Connection& a, const Mux4Connection& b);
};
BOOST_DESCRIBE_STRUCT(Mux4Connection, (), (card_index, connector_index, polynomial, dimension, unit))

/// An impedance between two MUX4 channels; an empty name is derived as
/// "MUX4-{card}-CH{connector}/MUX4-{card}-CH{connector}".
struct Mux4ImpedanceConfiguration {
    Mux4Connection numerator;
    Mux4Connection denominator;
    std::string impedance_name;

    std::string getEffectiveName() const;
};
BOOST_DESCRIBE_STRUCT(Mux4ImpedanceConfiguration, (), (numerator, denominator, impedance_name))

/// The editable sampling configuration passed to the set-hardware-settings job. Channels are
/// given synchronous and asynchronous together; the device splits them.
struct UserHardwareSettings {
    std::vector<Channel> channels;
    std::vector<ImpedanceConfiguration> impedance_configurations;
    std::vector<PotentiostatConfiguration> output_potentiostats;

    /// Per connection: a channel "voltage-MUX4-{}-CH{}" and an impedance over the
    /// potentiostat's current channel (skipped when there is none).
    void addSyncVoltageChannel(const std::vector<Mux4Connection>& connections);
    /// Per connection: a channel "current-MUX4-{}-CH{}" and an impedance of the potentiostat's
    /// voltage channel over it (skipped when there is none).
    void addSyncCurrentChannel(const std::vector<Mux4Connection>& connections);
    void addChannel(const Channel& channel);
    /// Keeps the first occurrence of each channel, in order. Impedances are left alone.
    void removeDuplicatesFromChannels();
};
BOOST_DESCRIBE_STRUCT(UserHardwareSettings, (), (channels, impedance_configurations, output_potentiostats))

/// The settings adopted by the RQ5, as the get-hardware-settings job reports them.
/// Asynchronous channels can only be measured sequentially.
struct HardwareSettings {
    std::vector<Channel> sync_channels;
    std::vector<Channel> async_channels;
    std::vector<ImpedanceConfiguration> impedance_configurations;
    std::vector<PotentiostatConfiguration> output_potentiostats;
};
BOOST_DESCRIBE_STRUCT(HardwareSettings, (),
                      (sync_channels, async_channels, impedance_configurations, output_potentiostats))

VELMAR_DECLARE_JSON(UserPolynomial);
VELMAR_DECLARE_JSON(Channel);
VELMAR_DECLARE_JSON(ImpedanceConfiguration);
VELMAR_DECLARE_JSON(PotentiostatConfiguration);
VELMAR_DECLARE_JSON(UserHardwareSettings);
VELMAR_DECLARE_JSON(HardwareSettings);

}  // namespace velmar
