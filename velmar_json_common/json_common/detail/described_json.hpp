#pragma once

// Generic JSON conversion of records described with BOOST_DESCRIBE_STRUCT: each member maps
// one-to-one to the key of the same name. Included by .cpp files only.
//
// Writing: members in declaration order; an empty std::optional is omitted.
// Reading: every non-optional member must be present and of a fitting kind, otherwise the JSON
// library's error (or std::out_of_range for a missing key) is thrown; unknown keys are ignored;
// an optional member that is absent or null stays empty. Numbers: a double member accepts any
// JSON number, an integer member only a number that converts exactly.
// std::optional<DriftCorrection> reads leniently: an unknown text counts as absent.

#include "json_common/job_parameters/drift_correction.hpp"

#include <boost/describe/members.hpp>
#include <boost/json.hpp>
#include <boost/mp11/algorithm.hpp>

#include <optional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

namespace velmar::detail {

template <class T>
struct IsVector : std::false_type {};
template <class T, class A>
struct IsVector<std::vector<T, A>> : std::true_type {};
template <class T>
struct IsOptional : std::false_type {};
template <class T>
struct IsOptional<std::optional<T>> : std::true_type {};
template <class T>
struct IsVariant : std::false_type {};
template <class... T>
struct IsVariant<std::variant<T...>> : std::true_type {};

template <class T>
inline constexpr bool isDescribed = boost::describe::has_describe_members<T>::value;

template <class T>
boost::json::object describedToJson(const T& record);
template <class T>
T describedFromJson(const boost::json::value& jv);

template <class T>
boost::json::value memberToJson(const T& value) {
    if constexpr (IsVector<T>::value) {
        boost::json::array array;
        array.reserve(value.size());
        for (const auto& element : value) array.push_back(memberToJson(element));
        return array;
    } else if constexpr (IsVariant<T>::value) {
        return std::visit([](const auto& alternative) { return memberToJson(alternative); }, value);
    } else if constexpr (isDescribed<T>) {
        return describedToJson(value);
    } else if constexpr (std::is_same_v<T, DriftCorrection>) {
        return boost::json::string(driftCorrectionName(value));
    } else {
        return boost::json::value_from(value);
    }
}

/// A variant takes the first alternative that fits the JSON kind (bool, integer, double, text).
template <class V, std::size_t I = 0>
V variantFromJson(const boost::json::value& jv) {
    if constexpr (I == std::variant_size_v<V>) {
        throw std::invalid_argument("no alternative of the variant matches the JSON kind");
    } else {
        using A = std::variant_alternative_t<I, V>;
        if constexpr (std::is_same_v<A, bool>) {
            if (jv.is_bool()) return V(std::in_place_index<I>, jv.get_bool());
        } else if constexpr (std::is_integral_v<A>) {
            if (jv.is_int64() || jv.is_uint64()) return V(std::in_place_index<I>, jv.to_number<A>());
        } else if constexpr (std::is_floating_point_v<A>) {
            if (jv.is_number()) return V(std::in_place_index<I>, jv.to_number<A>());
        } else if constexpr (std::is_same_v<A, std::string>) {
            if (jv.is_string()) return V(std::in_place_index<I>, std::string(jv.get_string()));
        }
        return variantFromJson<V, I + 1>(jv);
    }
}

template <class T>
T memberFromJson(const boost::json::value& jv) {
    if constexpr (IsVector<T>::value) {
        const auto& array = jv.as_array();
        T out;
        out.reserve(array.size());
        for (const auto& element : array) out.push_back(memberFromJson<typename T::value_type>(element));
        return out;
    } else if constexpr (IsVariant<T>::value) {
        return variantFromJson<T>(jv);
    } else if constexpr (isDescribed<T>) {
        return describedFromJson<T>(jv);
    } else if constexpr (std::is_same_v<T, bool>) {
        return jv.as_bool();
    } else if constexpr (std::is_arithmetic_v<T>) {
        return jv.to_number<T>();
    } else if constexpr (std::is_same_v<T, std::string>) {
        return std::string(jv.as_string());
    } else if constexpr (std::is_same_v<T, boost::json::value>) {
        return jv;
    } else {
        return boost::json::value_to<T>(jv);
    }
}

template <class T>
boost::json::object describedToJson(const T& record) {
    using Members = boost::describe::describe_members<T, boost::describe::mod_public>;
    boost::json::object object;
    object.reserve(boost::mp11::mp_size<Members>::value);
    boost::mp11::mp_for_each<Members>([&](auto member) {
        const auto& value = record.*member.pointer;
        using M = std::remove_cvref_t<decltype(value)>;
        if constexpr (IsOptional<M>::value) {
            if (value) object[member.name] = memberToJson(*value);
        } else {
            object[member.name] = memberToJson(value);
        }
    });
    return object;
}

template <class T>
T describedFromJson(const boost::json::value& jv) {
    using Members = boost::describe::describe_members<T, boost::describe::mod_public>;
    const auto& object = jv.as_object();
    T record{};
    boost::mp11::mp_for_each<Members>([&](auto member) {
        auto& value = record.*member.pointer;
        using M = std::remove_cvref_t<decltype(value)>;
        const auto* found = object.if_contains(member.name);
        if constexpr (std::is_same_v<M, std::optional<DriftCorrection>>) {
            value = found != nullptr && found->is_string() ? driftCorrectionFromName(found->get_string())
                                                           : std::nullopt;
        } else if constexpr (IsOptional<M>::value) {
            if (found != nullptr && !found->is_null()) value = memberFromJson<typename M::value_type>(*found);
        } else {
            if (found == nullptr) throw std::out_of_range(std::string("key not found: ") + member.name);
            value = memberFromJson<M>(*found);
        }
    });
    return record;
}

}  // namespace velmar::detail

// Defines the conversions declared by VELMAR_DECLARE_JSON through the described members.
#define VELMAR_DEFINE_DESCRIBED_JSON(Type)                                                           \
    void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const Type& record) { \
        jv = ::velmar::detail::describedToJson(record);                                              \
    }                                                                                                \
    Type tag_invoke(const boost::json::value_to_tag<Type>&, const boost::json::value& jv) {           \
        return ::velmar::detail::describedFromJson<Type>(jv);                                         \
    }
