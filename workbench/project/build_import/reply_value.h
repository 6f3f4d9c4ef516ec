// What a build tool tells about itself in JSON, read with errors that name the file and the member.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

class TJson;

/// A value in a file of a build tool. Cheap to copy; the file's content lives as long as one of its
/// values. Reading what is not there, or is of another kind, throws TInputError with the file.
class TReplyValue {
public:
  /// Reads a file; `what` says what it is, such as "the install plan of Meson". Throws TInputError
  /// with file and line.
  static TReplyValue Read(const std::filesystem::path& file, const std::string& what);

  const std::string& File() const;
  bool IsText() const;
  bool Has(std::string_view member) const;
  TReplyValue At(std::string_view member) const;
  /// A value of an array.
  TReplyValue At(std::size_t index) const;

  std::string AsText() const;
  std::string Text(std::string_view member) const { return At(member).AsText(); }
  /// A text that may be absent, or null.
  std::string TextOr(std::string_view member, std::string_view absent) const;
  /// A Boolean that may be absent.
  bool BooleanOr(std::string_view member, bool absent) const;
  std::size_t Number(std::string_view member) const;
  std::size_t NumberOr(std::string_view member, std::size_t absent) const;
  std::vector<TReplyValue> Array(std::string_view member) const;
  /// None where there is no such member.
  std::vector<TReplyValue> ArrayOrNone(std::string_view member) const;
  std::vector<TReplyValue> Values() const;
  std::vector<std::pair<std::string, TReplyValue>> Members() const;

  /// Says that this value cannot be.
  [[noreturn]] void Refuse(const std::string& why) const;

private:
  struct TContent;
  TReplyValue(std::shared_ptr<const TContent> content, const TJson* value, std::string name);

  std::shared_ptr<const TContent> FContent;
  const TJson* FValue;
  std::string FName; // where in the file, for messages
};

} // namespace workbench
