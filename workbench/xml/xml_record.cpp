#include "workbench/xml/xml_record.h"

#include <cstring>

namespace workbench {
namespace {

// Stands where the name of a start tag would.
constexpr const TXmlName* EndMark = nullptr;

} // namespace

void TXmlRecorder::Start(const TXmlName& name, std::uint32_t offset, std::size_t attributes) {
  Put(&name, offset, static_cast<std::uint32_t>(attributes));
}

void TXmlRecorder::Attribute(const TXmlName& name, std::string_view value) {
  Put(&name, static_cast<std::uint32_t>(value.size()));
  FRecord += value;
}

void TXmlRecorder::End(std::string_view text) {
  Put(EndMark, static_cast<std::uint32_t>(text.size()));
  FRecord += text;
}

template <class TValue>
TValue TXmlRecordReader::Take() {
  TValue value;
  std::memcpy(&value, FRest.data(), sizeof(value));
  FRest.remove_prefix(sizeof(value));
  return value;
}

std::string_view TXmlRecordReader::TakeText() {
  const auto length = Take<std::uint32_t>();
  const std::string_view text = FRest.substr(0, length);
  FRest.remove_prefix(length);
  return text;
}

bool TXmlRecordReader::TakeStart(const TXmlName*& name, std::uint32_t& offset,
                                 std::size_t& attributes) {
  name = Take<const TXmlName*>();
  if (name == EndMark)
    return false;
  offset = Take<std::uint32_t>();
  attributes = Take<std::uint32_t>();
  return true;
}

void TXmlRecordReader::TakeAttribute(const TXmlName*& name, std::string_view& value) {
  name = Take<const TXmlName*>();
  value = TakeText();
}

std::string_view TXmlRecordReader::TakeEnd() {
  return TakeText();
}

} // namespace workbench
