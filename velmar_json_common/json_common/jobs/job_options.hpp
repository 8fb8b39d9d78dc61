#pragma once

#include <boost/json/fwd.hpp>

namespace velmar {

/// Options that apply to the execution of a job, not to its measurement parameters. Only
/// options that are set are transmitted; an absent option means false.
struct JobOptions {
    /// Run the job at once instead of appending it to the device's queue.
    bool bypass_queue = false;
    /// The device does not keep the job's result data.
    bool discard_result_data = false;

    friend bool operator==(const JobOptions&, const JobOptions&) = default;
};

/// Reads an options object: each key is taken when present and a boolean; a value that is
/// not an object gives both false.
JobOptions jobOptionsFromJson(const boost::json::value& jv);

/// Writes each option as the literal true only when it is set.
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const JobOptions& options);
JobOptions tag_invoke(const boost::json::value_to_tag<JobOptions>&, const boost::json::value& jv);

/// Merges the set options into the top level of a job request.
void mergeJobOptions(boost::json::object& request, const JobOptions& options);

}  // namespace velmar
