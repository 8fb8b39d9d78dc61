#pragma once

// Generic XML form of records described with BOOST_DESCRIBE_STRUCT, the counterpart of
// json_common/detail/described_json.hpp. Included by xml/*.cpp only.
//
// A record is an element; its plain members are attributes named as the members (numbers in
// decimal, doubles with 17 significant digits, booleans "true"/"false", texts as they are); a
// record member is a child element named as the member; a list member is a child element named
// as the member holding one element per item, named as the list without its last character
// ("paths" holds "path" items). Reading looks up the same names; a missing attribute or child,
// or a value that does not convert, is an error naming the element.

#include "xml/detail/xml_elements.hpp"

#include <boost/describe/members.hpp>
#include <boost/mp11/algorithm.hpp>

#include <string>
#include <type_traits>
#include <vector>

namespace VXml {

namespace detail {

template <class T>
struct IsVector : std::false_type {};
template <class T, class A>
struct IsVector<std::vector<T, A>> : std::true_type {};

template <class T>
inline constexpr bool isDescribed = boost::describe::has_describe_members<T>::value;

/// "paths" -> "path".
inline std::string itemName(const char* listName) {
    std::string name(listName);
    if (!name.empty()) name.pop_back();
    return name;
}

template <class T>
void setValueAttribute(tinyxml2::XMLElement* element, const char* name, const T& value) {
    if constexpr (std::is_same_v<T, bool>) {
        element->SetAttribute(name, value ? "true" : "false");
    } else if constexpr (std::is_floating_point_v<T>) {
        setDoubleAttribute(element, name, static_cast<double>(value));
    } else if constexpr (std::is_integral_v<T>) {
        setStringAttribute(element, name, std::to_string(value));
    } else {
        static_assert(std::is_same_v<T, std::string>, "a plain member must be a number, a boolean or a text");
        setStringAttribute(element, name, value);
    }
}

template <class T>
ErrorObject readValueAttribute(const tinyxml2::XMLElement* element, const char* name, T& value) {
    if constexpr (std::is_same_v<T, bool>) {
        auto text = requireAttribute(element, name);
        if (!text) return text.error();
        if (*text != "true" && *text != "false") {
            return contentError(messages::ATTRIBUTE_NOT_A_BOOLEAN, elementName(element), name, *text);
        }
        value = *text == "true";
    } else if constexpr (std::is_arithmetic_v<T>) {
        auto number = numberAttribute<T>(element, name);
        if (!number) return number.error();
        value = *number;
    } else {
        auto text = requireAttribute(element, name);
        if (!text) return text.error();
        value = std::string(*text);
    }
    return {};
}

}  // namespace detail

/// Writes the record's members into `element` (attributes and child elements).
template <class T>
void described_object_to_element(const T& record, tinyxml2::XMLElement* element) {
    using Members = boost::describe::describe_members<T, boost::describe::mod_public>;
    boost::mp11::mp_for_each<Members>([&](auto member) {
        const auto& value = record.*member.pointer;
        using M = std::remove_cvref_t<decltype(value)>;
        if constexpr (detail::IsVector<M>::value) {
            auto* list = detail::appendChild(element, member.name);
            const std::string item = detail::itemName(member.name);
            for (const auto& entry : value) described_object_to_element(entry, detail::appendChild(list, item.c_str()));
        } else if constexpr (detail::isDescribed<M>) {
            described_object_to_element(value, detail::appendChild(element, member.name));
        } else {
            detail::setValueAttribute(element, member.name, value);
        }
    });
}

/// Reads the record's members from `element`; the first missing or malformed one fails.
template <class T>
velmar::ErrorObject described_object_from_element(const tinyxml2::XMLElement* element, T& record) {
    using Members = boost::describe::describe_members<T, boost::describe::mod_public>;
    velmar::ErrorObject error;
    boost::mp11::mp_for_each<Members>([&](auto member) {
        if (error) return;
        auto& value = record.*member.pointer;
        using M = std::remove_cvref_t<decltype(value)>;
        if constexpr (detail::IsVector<M>::value) {
            auto list = detail::requireChild(element, member.name);
            if (!list) {
                error = list.error();
                return;
            }
            const std::string item = detail::itemName(member.name);
            value.clear();
            for (const auto* entry = (*list)->FirstChildElement(item.c_str()); entry != nullptr && !error;
                 entry = entry->NextSiblingElement(item.c_str())) {
                error = described_object_from_element(entry, value.emplace_back());
            }
        } else if constexpr (detail::isDescribed<M>) {
            auto child = detail::requireChild(element, member.name);
            if (!child) {
                error = child.error();
                return;
            }
            error = described_object_from_element(*child, value);
        } else {
            error = detail::readValueAttribute(element, member.name, value);
        }
    });
    return error;
}

}  // namespace VXml
