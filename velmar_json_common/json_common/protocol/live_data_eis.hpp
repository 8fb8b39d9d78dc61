#pragma once

// Live data of impedance jobs: the header declares the column groups (meta columns, one group
// per impedance, synchronous path, asynchronous path and potentiostat); each row carries one
// number list per declared element, in header order.

#include "json_common/protocol/impedance_headers.hpp"
#include "json_common/protocol/live_data_header.hpp"

#include <cstdint>
#include <vector>

namespace velmar {

/// Rows of numbers, one list per declared element.
using NumberLists = std::vector<std::vector<double>>;

struct LiveDataHeaderEis : LiveDataHeader {
    static constexpr const char* MEASUREMENT_TYPE = "Electrochemical Impedance Spectroscopy";
    static constexpr const char* MEASUREMENT_TYPE_SHORT = "EIS";

    std::vector<ImpedanceDataHeader> impedances;
    std::vector<PathDataHeader> paths;
    std::vector<PathDataHeader> async_paths;
    std::vector<PotentiostatDataHeader> potentiostats;
    /// The meta columns (frequency, periods, time, wave_id, wave_size, ...).
    std::vector<ColumnHeader> meta;

    const std::vector<ImpedanceDataHeader>& getImpedancesHeaders() const { return impedances; }
    const std::vector<PathDataHeader>& getPathsDataHeaders() const { return paths; }
    const std::vector<PathDataHeader>& getAsyncPathsDataHeaders() const { return async_paths; }
    const std::vector<PotentiostatDataHeader>& getPotentiostatsDataHeaders() const { return potentiostats; }
    const std::vector<ColumnHeader>& getMetaDataHeader() const { return meta; }

    /// Every column in the order of the binary table: meta, then each impedance's, each
    /// synchronous path's, each asynchronous path's and each potentiostat's columns.
    std::vector<ColumnHeader> allColumns() const;
    /// The number of columns of allColumns().
    std::size_t totalColumnCount() const;

    friend bool operator==(const LiveDataHeaderEis&, const LiveDataHeaderEis&) = default;
};

/// One frequency point: one number list per declared element of the header, in header order.
struct LiveDataRowEis {
    NumberLists impedances;
    NumberLists paths;
    /// One wave per sync path; empty for a row that refers to a wave sent earlier.
    NumberLists paths_waves;
    NumberLists async_paths;
    NumberLists potentiostats;
    /// One list holding one number per meta column.
    NumberLists meta;

    /// The row's meta values (the one list of "meta"), empty when there is none.
    const std::vector<double>& getMeta() const;

    friend bool operator==(const LiveDataRowEis&, const LiveDataRowEis&) = default;
};

/// A preview fragment of the recorded waves: samples offset .. offset + length of each list.
struct LiveDataWavesEis {
    NumberLists paths_waves;
    std::uint64_t offset = 0;
    std::uint64_t full_wave_size = 0;

    friend bool operator==(const LiveDataWavesEis&, const LiveDataWavesEis&) = default;
};

/// Reads the texts (defaults MEASUREMENT_TYPE, MEASUREMENT_TYPE_SHORT), the four group lists
/// (arrays of group headers) and "meta" (a column list: "dimensions", "units", optional
/// "urns"); `columns` becomes allColumns(). Throws std::invalid_argument "the AC data table
/// does not match the declared header: ..." otherwise.
LiveDataHeaderEis tag_invoke(const boost::json::value_to_tag<LiveDataHeaderEis>&, const boost::json::value& jv);
/// Writes "measurement_type", "measurement_type_short", "dimensions" and "units" of
/// allColumns(), then the group lists and "meta".
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const LiveDataHeaderEis& header);

/// All six keys must be present arrays of number lists; otherwise std::invalid_argument
/// "the AC data table does not match the declared row layout: ...". (Whether the lists fit a
/// header is checked by checkRowAgainstHeader.)
LiveDataRowEis tag_invoke(const boost::json::value_to_tag<LiveDataRowEis>&, const boost::json::value& jv);
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const LiveDataRowEis& row);

/// "paths_waves" must be a list of number lists; "offset" and "full_wave_size" are unsigned
/// integers and 0 when absent.
LiveDataWavesEis tag_invoke(const boost::json::value_to_tag<LiveDataWavesEis>&, const boost::json::value& jv);
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const LiveDataWavesEis& waves);

/// Empty when the row fits the header: one list per declared impedance, path, async path and
/// potentiostat, each as long as that element's columns; "meta" one list as long as the meta
/// columns; "paths_waves" empty or one list per sync path. Otherwise the text that completes
/// "the AC data table does not match the declared " (e.g. "impedances: 2 lists for 1
/// impedances").
std::string checkRowAgainstHeader(const LiveDataRowEis& row, const LiveDataHeaderEis& header);
/// Same for a wave fragment: "paths_waves" one list per sync path, offset + length within
/// full_wave_size when full_wave_size is not 0.
std::string checkWavesAgainstHeader(const LiveDataWavesEis& waves, const LiveDataHeaderEis& header);

}  // namespace velmar
