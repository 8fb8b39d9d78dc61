#pragma once

// The device tree reported by the get-hardware-info job. Member names are the JSON keys.

#include "json_common/detail/json_declare.hpp"

#include <boost/describe/class.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace velmar {

struct CurrentRange {
    int index = 0;
    /// Maximum current in amperes.
    double max_current = 0.0;
    /// Nominal shunt resistance in ohm.
    double resistance = 0.0;
};
BOOST_DESCRIBE_STRUCT(CurrentRange, (), (index, max_current, resistance))

struct VoltageRange {
    int index = 0;
    double max_voltage = 0.0;
};
BOOST_DESCRIBE_STRUCT(VoltageRange, (), (index, max_voltage))

struct ComplianceRange {
    int index = 0;
    double max_voltage = 0.0;
};
BOOST_DESCRIBE_STRUCT(ComplianceRange, (), (index, max_voltage))

struct GainRange {
    int index = 0;
    double nominal_gain = 1.0;
    bool enabled = true;
};
BOOST_DESCRIBE_STRUCT(GainRange, (), (index, nominal_gain, enabled))

struct FilterRange {
    int index = 0;
    /// Maximum impedance frequency in hertz.
    double max_frequency = 0.0;
};
BOOST_DESCRIBE_STRUCT(FilterRange, (), (index, max_frequency))

struct BandwidthRange {
    int index = 0;
};
BOOST_DESCRIBE_STRUCT(BandwidthRange, (), (index))

/// One signal path. "sampling" is "simultan", "acq" or "high_precision"; "source" is "shunt",
/// "voltage" or "input"; "relevance" runs from 1.0 (best) to 0 (worst).
struct PathInfo {
    std::string url;
    std::string urn;
    std::string sampling;
    std::string source;
    double relevance = 0.0;
    std::vector<GainRange> gain_ranges;
    std::vector<FilterRange> filter_ranges;
    std::vector<BandwidthRange> bandwidth_ranges;
};
BOOST_DESCRIBE_STRUCT(PathInfo, (),
                      (url, urn, sampling, source, relevance, gain_ranges, filter_ranges, bandwidth_ranges))

struct PotentiostatInfo {
    std::string identifier;
    std::string serialnumber;
    /// Without calibration data no measurements are possible.
    bool has_calibration_data = false;
    std::string software;
    /// Bits of the output converter.
    int dac_resolution = 0;
    std::vector<CurrentRange> current_ranges;
    std::vector<VoltageRange> voltage_ranges;
    std::vector<ComplianceRange> compliance_ranges;
    std::vector<BandwidthRange> bandwidth_ranges;
};
BOOST_DESCRIBE_STRUCT(PotentiostatInfo, (),
                      (identifier, serialnumber, has_calibration_data, software, dac_resolution, current_ranges,
                       voltage_ranges, compliance_ranges, bandwidth_ranges))

struct CardInfo {
    std::string name;
    std::string symbol;
    std::string serialnumber;
    std::string firmware;
    std::string hardware;
};
BOOST_DESCRIBE_STRUCT(CardInfo, (), (name, symbol, serialnumber, firmware, hardware))

/// The device tree. URN and URL of a path are converted through the "paths" list: the pair of
/// the path that carries the given notation; an unknown path converts to an empty string.
struct HardwareInfo {
    std::string workstation;
    std::string software;
    std::vector<PathInfo> paths;
    std::vector<PotentiostatInfo> potentiostats;
    std::vector<CardInfo> cards;

    bool constainsUrn(std::string_view urn) const;
    bool constainsUrl(std::string_view url) const;
    std::string convertUrnToUrl(std::string_view urn) const;
    std::string convertUrlToUrn(std::string_view url) const;
};
BOOST_DESCRIBE_STRUCT(HardwareInfo, (), (workstation, software, paths, potentiostats, cards))

VELMAR_DECLARE_JSON(HardwareInfo);

}  // namespace velmar
