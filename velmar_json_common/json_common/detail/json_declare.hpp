#pragma once

#include <boost/json/fwd.hpp>

// Declares the JSON conversions of a record in its header; the record family's .cpp defines
// them with VELMAR_DEFINE_DESCRIBED_JSON (json_common/detail/described_json.hpp).
#define VELMAR_DECLARE_JSON(Type)                                                             \
    void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const Type& record); \
    Type tag_invoke(const boost::json::value_to_tag<Type>&, const boost::json::value& jv)
