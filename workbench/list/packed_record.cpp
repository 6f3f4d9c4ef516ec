#include "workbench/list/packed_record.h"

#include "workbench/list/record_fields.h"

#include <cstddef>

namespace workbench {
namespace {

using deployment::TCommandList;
using deployment::TDeployOperation;

class TPacker {
public:
  void Key(const char* /*name*/, const std::string& text) { Text(text); }
  void Platform(const std::string& text) { Text(text); }
  void Field(const char* /*name*/, const std::string& text, std::string_view /*absent*/) {
    Text(text);
  }
  void Field(const char* /*name*/, bool value, bool /*absent*/) {
    Bytes.push_back(static_cast<char>(value));
  }
  void Field(const char* /*name*/, TDeployOperation value, TDeployOperation /*absent*/) {
    Bytes.push_back(static_cast<char>(value));
  }
  void Field(const char* /*name*/, const TCommandList& texts, const TCommandList& /*absent*/) {
    Number(texts.size());
    for (const std::string& text : texts)
      Text(text);
  }
  void Platforms(const std::vector<TFilePlatformRecord>& records) {
    Number(records.size());
    for (const TFilePlatformRecord& record : records)
      VisitFields(*this, record);
  }

  std::string Bytes;

private:
  void Number(std::size_t value) {
    constexpr unsigned BitsPerByte = 7;
    for (; value >= 0x80U; value >>= BitsPerByte)
      Bytes.push_back(static_cast<char>((value & 0x7fU) | 0x80U));
    Bytes.push_back(static_cast<char>(value));
  }
  void Text(const std::string& text) {
    Number(text.size());
    Bytes += text;
  }
};

class TUnpacker {
public:
  explicit TUnpacker(std::string_view bytes) : FBytes(bytes) {}

  void Key(const char* /*name*/, std::string& text) { text = Take(Number()); }
  void Platform(std::string& text) { text = Take(Number()); }
  void Field(const char* /*name*/, std::string& text, std::string_view /*absent*/) {
    text = Take(Number());
  }
  void Field(const char* /*name*/, bool& value, bool /*absent*/) { value = Take(1).front() != 0; }
  void Field(const char* /*name*/, TDeployOperation& value, TDeployOperation /*absent*/) {
    value = static_cast<TDeployOperation>(Take(1).front());
  }
  void Field(const char* /*name*/, TCommandList& texts, const TCommandList& /*absent*/) {
    texts.resize(Number());
    for (std::string& text : texts)
      text = Take(Number());
  }
  void Platforms(std::vector<TFilePlatformRecord>& records) {
    records.resize(Number());
    for (TFilePlatformRecord& record : records)
      VisitFields(*this, record);
  }

private:
  std::size_t Number() {
    std::size_t value = 0;
    for (unsigned shift = 0;; shift += 7U) {
      const auto byte = static_cast<unsigned char>(Take(1).front());
      value |= static_cast<std::size_t>(byte & 0x7fU) << shift;
      if (byte < 0x80U)
        return value;
    }
  }
  std::string_view Take(std::size_t count) {
    const std::string_view taken = FBytes.substr(0, count);
    FBytes.remove_prefix(count);
    return taken;
  }

  std::string_view FBytes;
};

} // namespace

std::string Pack(const TEntryRecord& record) {
  TPacker packer;
  VisitFields(packer, record);
  packer.Bytes.shrink_to_fit();
  return std::move(packer.Bytes);
}

TEntryRecord Unpack(std::string_view bytes) {
  TUnpacker unpacker(bytes);
  TEntryRecord record;
  VisitFields(unpacker, record);
  return record;
}

} // namespace workbench
