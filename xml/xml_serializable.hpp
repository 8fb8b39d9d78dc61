#pragma once

// The interface of everything that has an XML form, and the state handed to writers and
// readers. Light: tinyxml2 is only forward-declared, so dataset headers may include it.

#include "json_common/logging/error_object.hpp"

#include <limits>
#include <utility>

namespace tinyxml2 {
class XMLDocument;
class XMLElement;
}  // namespace tinyxml2

namespace VXml {

/// Carries the document that writers create their elements in, and receives the element that
/// a writer produced. Single-threaded; lives for one serialisation.
class XmlSerializer {
public:
    explicit XmlSerializer(tinyxml2::XMLDocument& document) : document_(document) {}

    tinyxml2::XMLDocument& document() const { return document_; }
    /// Called by acceptSerializer with the element it created (not yet linked into the tree).
    void setProduced(tinyxml2::XMLElement* element) { produced_ = element; }
    /// The element of the last acceptSerializer call, or nullptr.
    tinyxml2::XMLElement* produced() const { return produced_; }
    /// Called by acceptSerializer instead of setProduced when the object cannot be written
    /// (a dataset whose tracks do not have its shape).
    void setError(velmar::ErrorObject error) { error_ = std::move(error); }
    /// NONE unless a writer failed.
    const velmar::ErrorObject& error() const { return error_; }

private:
    tinyxml2::XMLDocument& document_;
    tinyxml2::XMLElement* produced_ = nullptr;
    velmar::ErrorObject error_;
};

/// Reading options and what the file frame tells the readers of the payload.
struct DeserializationContext {
    /// The version of a file info that was not read.
    static constexpr unsigned INVALID_FILE_VERSION = std::numeric_limits<unsigned>::max();

    /// The `file-version` of the file being read; the wave-table reader picks its layout by it.
    unsigned file_version = INVALID_FILE_VERSION;
    /// Read files of a newer version with the current layout instead of refusing them.
    bool ignore_protocol_version_mismatch = false;
};

/// What can be written as an XML element.
class XmlSerializable {
public:
    virtual ~XmlSerializable() = default;
    /// Creates the object's element in the serializer's document and hands it to
    /// XmlSerializer::setProduced. Does not link it into the tree.
    virtual void acceptSerializer(XmlSerializer& serializer) const = 0;

protected:
    XmlSerializable() = default;
    XmlSerializable(const XmlSerializable&) = default;
    XmlSerializable(XmlSerializable&&) noexcept = default;
    XmlSerializable& operator=(const XmlSerializable&) = default;
    XmlSerializable& operator=(XmlSerializable&&) noexcept = default;
};

/// Builds a T from its element: specialised for Measurement and for DataSet (which reads the
/// kind the element's `type` attribute names).
template <class T>
struct XmlDeserializer;

}  // namespace VXml
