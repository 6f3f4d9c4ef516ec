// Host unit Xml: the elements of an XML document as the package sees them.
#pragma once

#include "package/common/errors.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace deployment {

/// One element of a document that the host holds. Implemented by the host; the document owns its
/// nodes, so a node pointer is good as long as the document is. Names and values are UTF-8 with
/// entities resolved. Views stay good until the node is changed.
class IXMLNode {
public:
  /// The element's name as written, prefix included.
  virtual std::string_view NodeName() const = 0;
  /// The value of an attribute; nothing when the element does not carry it.
  virtual std::optional<std::string_view> GetAttribute(std::string_view name) const = 0;
  /// Number of attributes, and their names in document order.
  virtual std::size_t AttributeCount() const = 0;
  virtual std::string_view AttributeName(std::size_t index) const = 0;
  /// Sets an attribute; a new one goes behind the present ones.
  virtual void SetAttribute(std::string_view name, std::string_view value) = 0;
  /// The text directly inside the element, joined; empty when there is none.
  virtual std::string_view Text() const = 0;
  /// Replaces the element's text. Child elements stay.
  virtual void SetText(std::string_view text) = 0;
  /// True when the element has child elements. Never reads anything, unlike a walk, for which a
  /// host may have to fetch a long list.
  virtual bool HasChildren() const = 0;
  /// The first child element; null when there is none.
  virtual IXMLNode* FirstChild() = 0;
  /// The next element of the same parent; null behind the last one.
  virtual IXMLNode* NextSibling() = 0;
  /// Appends a new, empty child element and returns it.
  virtual IXMLNode& AddChild(std::string_view name) = 0;
  /// Removes all that stands inside the element; its attributes stay.
  virtual void RemoveChildren() = 0;
  /// Removes all attributes.
  virtual void RemoveAttributes() = 0;
  /// Where the element starts in its file; line 0 for an element that no file holds yet.
  virtual TErrorPlace Place() const = 0;

protected:
  ~IXMLNode() = default;
};

/// A parsed document. Implemented by the host, owned by whoever asked for it.
class IXMLDocument {
public:
  virtual ~IXMLDocument() = default;
  /// The root element; a document always has one.
  virtual IXMLNode& DocumentElement() = 0;
};

/// Makes documents. Implemented by the host.
class IXMLDocuments {
public:
  virtual ~IXMLDocuments() = default;
  /// Parses a text. `name` is what errors call the file. Throws TInputError when the text is not
  /// well-formed XML or breaks a limit of the host.
  virtual std::shared_ptr<IXMLDocument> LoadXMLData(std::string_view text,
                                                    std::string_view name) = 0;
  /// Reads and parses a file. Throws as above, and when the file cannot be read.
  virtual std::shared_ptr<IXMLDocument> LoadXMLFile(std::string_view fileName) = 0;
};

} // namespace deployment
