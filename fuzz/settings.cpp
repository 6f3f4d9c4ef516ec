// JSON, settings, consents and profiles: what is kept reads back, and what is damaged is refused
// with its file and stays.
#include "fuzz/fuzz_input.h"
#include "fuzz/scratch_directory.h"
#include "package/common/errors.h"
#include "workbench/json/json.h"
#include "workbench/remote/profile/profile_json.h"
#include "workbench/remote/profile/profile_store.h"
#include "workbench/settings/command_consent.h"

#include <optional>

namespace workbench::fuzz {
namespace {

std::optional<TJson> Parsed(std::string_view text) {
  try {
    return ParseJson(text);
  } catch (const deployment::TInputError& error) {
    Require(!std::string_view(error.what()).empty(), "a refusal gives a reason");
    return std::nullopt;
  }
}

void CheckJson(const TJson& value) {
  if (!IsStorableJson(value))
    return;
  for (const int indent : {-1, 2}) {
    const std::string text = JsonText(value, indent);
    const auto again = Parsed(text);
    Require(again.has_value(), "what is written is JSON", text);
    RequireEqual(JsonText(*again, indent), text, "what is written reads back");
  }
}

void CheckProfile(const TJson& value) {
  try {
    const TProfile profile = ProfileFromJson(value);
    const TJson written = ProfileToJson(profile);
    const TProfile again = ProfileFromJson(written);
    if (profile.Kind == TProfileKind::Ssh) // a folder profile drops what is for other machines
      Require(again == profile, "a profile reads back", JsonText(written));
    RequireEqual(JsonText(ProfileToJson(again)), JsonText(written), "it is written the same");
    Require(!profile.Host.starts_with('-') && !profile.User.starts_with('-'),
            "no field is an option of the client", JsonText(written));
  } catch (const deployment::TInputError& error) {
    Require(!std::string_view(error.what()).empty(), "a refusal gives a reason");
  }
}

void CheckSettings(const TScratchDirectory& scratch, std::string_view text) {
  const std::filesystem::path file = scratch.Path() / "settings.json";
  TScratchDirectory::WriteFile(file, text);
  try {
    const TSettings settings(file);
    for (const auto& [key, value] : settings.List())
      Require(settings.Get(key) == value, "a setting is found by its key", key);
    for (const TConsent& consent : ListConsents(settings))
      Require(settings.Get(consent.Key).has_value(), "a consent is a setting", consent.Key);
  } catch (const deployment::TInputError& error) {
    Require(error.Place().File == file, "a refusal names the settings file", error.what());
  }
}

void CheckProfiles(const TScratchDirectory& scratch, std::string_view text) {
  const std::filesystem::path file = scratch.Path() / "profiles.json";
  TScratchDirectory::WriteFile(file, text);
  try {
    const TProfileStore store(file);
    for (const TProfile& profile : store.List())
      Require(store.Find(profile.Name) != nullptr, "a profile is found by its name");
  } catch (const deployment::TInputError& error) {
    Require(error.Place().File == file, "a refusal names the profiles file", error.what());
  }
}

// Yes to some commands is no yes to others.
void CheckConsent(const TScratchDirectory& scratch, TFuzzInput input) {
  const std::filesystem::path file = scratch.Path() / "consent.json";
  TScratchDirectory::WriteFile(file, "{}");
  TSettings settings(file);
  const std::string place(input.Text());
  const std::vector<std::string> commands{std::string(input.Text()), std::string(input.Text())};
  try {
    Allow(settings, "/tree/demo.vproj", place, commands);
  } catch (const deployment::TInputError&) {
    return; // no UTF-8, or with controls where a key cannot have them
  }
  const TSettings again(file);
  const bool isText = IsStorableJson(TJson(commands));
  Require(!isText || IsAllowed(again, "/tree/demo.vproj", place, commands), "a yes is kept");
  Require(!IsAllowed(again, "/tree/other.vproj", place, commands), "it is that of one project");
  Require(!IsAllowed(again, "/tree/demo.vproj", place + "x", commands), "it is that of one place");
  Require(!IsAllowed(again, "/tree/demo.vproj", place, {commands[0] + " ", commands[1]}),
          "it is that of these very commands");
}

} // namespace
} // namespace workbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace workbench::fuzz;
  static const TScratchDirectory scratch;
  const std::string_view text = TFuzzInput(data, size).Rest();
  if (text.starts_with('C')) {
    CheckConsent(scratch, TFuzzInput(data + 1, size - 1));
    return 0;
  }
  if (const auto value = Parsed(text)) {
    CheckJson(*value);
    if (value->IsObject())
      CheckProfile(*value);
  }
  if (text.starts_with('{') && size % 4 == 0) { // files are slow
    CheckSettings(scratch, text);
    CheckProfiles(scratch, text);
  }
  return 0;
}
