#include "package/view/view_strings.h"

#include "package/host/api/platforms.h"

#include <array>
#include <cstddef>

namespace deployment {
namespace {

// In the order of the ids.
constexpr std::array<std::string_view, 16> Texts{
    sAllPlatforms,
    "Not Connected",
    "Unknown",
    "Newer",
    "Older",
    "Same",
    "Not Found",
    "A connection profile is required for deployment. Would you like to create one and assign it "
    "to the \"%s\" platform?",
    "Are you sure you want to delete file \"%s\"?",
    "The active platform is \"%s\". Would you like to set the \"%s\" platform as the active "
    "platform?",
    "Remote Path",
    "Enter the new Remote Path",
    "Are you sure you want to change the value for the selected items ?",
    "Always",
    "Never",
    "Deployment",
};

} // namespace

std::string_view LoadText(TViewString id) {
  return Texts[static_cast<std::size_t>(id) - static_cast<std::size_t>(TViewString::AllPlatforms)];
}

std::string FormatText(TViewString id, std::initializer_list<std::string_view> values) {
  constexpr std::string_view Placeholder = "%s";
  std::string_view rest = LoadText(id);
  std::string text;
  for (const std::string_view value : values) {
    const std::size_t at = rest.find(Placeholder);
    if (at == std::string_view::npos)
      break;
    text.append(rest.substr(0, at)).append(value);
    rest.remove_prefix(at + Placeholder.size());
  }
  return text.append(rest);
}

} // namespace deployment
