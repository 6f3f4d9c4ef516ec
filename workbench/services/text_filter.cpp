#include "workbench/services/text_filter.h"

#include "workbench/files/file_reader.h"
#include "workbench/files/machine_path.h"
#include "workbench/services/variable_references.h"

namespace workbench {
namespace {

std::string EscapeForXML(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    switch (c) {
    case '&':
      escaped += "&amp;";
      break;
    case '<':
      escaped += "&lt;";
      break;
    case '>':
      escaped += "&gt;";
      break;
    case '"':
      escaped += "&quot;";
      break;
    case '\'':
      escaped += "&apos;";
      break;
    default:
      escaped.push_back(c);
    }
  }
  return escaped;
}

} // namespace

void TTextFilter::SetVariable(std::string_view name, std::string_view value) {
  FEscapedValues.insert_or_assign(std::string(name), EscapeForXML(value));
}

std::string TTextFilter::Filter(std::string_view fileName) const {
  const TFileContent content = ReadWholeFile(ToMachinePath(fileName), MaximumFileSize, "template");
  return ReplaceVariables(content.Text(), [this](std::string_view name) {
    const auto found = FEscapedValues.find(name);
    return found == FEscapedValues.end() ? std::nullopt : std::optional(found->second);
  });
}

} // namespace workbench
