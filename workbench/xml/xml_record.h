// What stands inside an element, as a compact record of the parser's events. A list of a hundred
// thousand entries is kept so, and each entry becomes elements only while somebody looks at it.
#pragma once

#include "workbench/xml/arena.h"
#include "workbench/xml/xml_tree.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace workbench {

/// Writes a record.
class TXmlRecorder {
public:
  /// A start tag at that offset, with the number of attributes that follow.
  void Start(const TXmlName& name, std::uint32_t offset, std::size_t attributes);
  void Attribute(const TXmlName& name, std::string_view value);
  /// The end of the innermost element, with its text.
  void End(std::string_view text);

  std::string_view Record() const { return FRecord; }
  void Clear() { FRecord.clear(); }

private:
  template <class... TValues>
  void Put(const TValues&... values) {
    std::array<char, (sizeof(TValues) + ...)> bytes;
    char* at = bytes.data();
    ((std::memcpy(at, &values, sizeof(values)), at += sizeof(values)), ...);
    FRecord.append(bytes.data(), bytes.size());
  }

  std::string FRecord;
};

/// Reads a record.
class TXmlRecordReader {
public:
  explicit TXmlRecordReader(std::string_view record) : FRest(record) {}

  bool AtEnd() const { return FRest.empty(); }
  /// True and the start tag's values when one comes next; false at the end of an element.
  bool TakeStart(const TXmlName*& name, std::uint32_t& offset, std::size_t& attributes);
  void TakeAttribute(const TXmlName*& name, std::string_view& value);
  /// The text of the element that ends. It points into the record.
  std::string_view TakeEnd();

private:
  template <class TValue>
  TValue Take();
  std::string_view TakeText();

  std::string_view FRest;
};

} // namespace workbench
