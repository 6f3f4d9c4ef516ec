#include "workbench/platforms/platform_table.h"

#include "workbench/platforms/platform_reader.h"

#include <array>
#include <utility>

namespace workbench {
namespace {

constexpr std::string_view Ardent = "Ardent.Personality";
constexpr std::string_view Corvane = "Corvane.Personality";

struct TNamingRow {
  std::string_view Prefix;
  std::string_view Extension;
};

struct TPlatformRow {
  std::string_view Name;
  bool Mobile;
  std::string_view DefaultRemoteDir;
  bool RequiresProfile;
  bool IgnoresCase;
  TNamingRow Application;
  TNamingRow Library;
  TNamingRow Package;
  std::string_view ArdentSymbols;
  std::string_view CorvaneSymbols;
};

// The same as ObjRepos/Deploy/platforms.xml, for an installation that has lost its data files.
constexpr std::array<TPlatformRow, 9> Rows = {{
    {"Win32", false, ".\\", true, true, {"", ".exe"}, {"", ".dll"}, {"", ".vpk"}, ".qds", ".vcp"},
    {"Win64", false, ".\\", true, true, {"", ".exe"}, {"", ".dll"}, {"", ".vpk"}, ".qds", ".vcp"},
    {"OSX32",
     false,
     "Contents\\MacOS\\",
     true,
     true,
     {"", ""},
     {"lib", ".dylib"},
     {"vpk", ".dylib"},
     ".qds",
     ".vcp"},
    {"iOSSimulator", true, ".\\", true, true, {"", ""}, {"lib", ".a"}, {"lib", ".a"}, "", ""},
    {"iOSDevice32", true, ".\\", true, false, {"", ""}, {"lib", ".a"}, {"lib", ".a"}, "", ""},
    {"iOSDevice64", true, ".\\", true, false, {"", ""}, {"lib", ".a"}, {"lib", ".a"}, "", ""},
    {"Android",
     true,
     "assets\\internal\\",
     false,
     false,
     {"lib", ".so"},
     {"lib", ".so"},
     {"vpk", ".so"},
     "",
     ""},
    {"Linux64",
     false,
     ".\\",
     true,
     false,
     {"", ""},
     {"lib", ".so"},
     {"vpk", ".so"},
     ".debug",
     ".debug"},
    {"LinuxARM64",
     false,
     ".\\",
     true,
     false,
     {"", ""},
     {"lib", ".so"},
     {"vpk", ".so"},
     ".debug",
     ".debug"},
}};

TOutputNaming Naming(const TNamingRow& row) {
  return {std::string(row.Prefix), std::string(row.Extension)};
}

TPlatformFacts Facts(const TPlatformRow& row) {
  TPlatformFacts facts;
  facts.Name = row.Name;
  facts.Mobile = row.Mobile;
  facts.DefaultRemoteDir = row.DefaultRemoteDir;
  facts.RequiresProfile = row.RequiresProfile;
  facts.IgnoresCase = row.IgnoresCase;
  facts.Outputs.Set("Application", Naming(row.Application));
  facts.Outputs.Set("Library", Naming(row.Library));
  facts.Outputs.Set("Package", Naming(row.Package));
  facts.Personalities.Set(Ardent, {std::string(row.ArdentSymbols), false});
  facts.Personalities.Set(Corvane, {std::string(row.CorvaneSymbols), false});
  return facts;
}

} // namespace

const TOutputNaming* TPlatform::FindOutput(std::string_view kind) const {
  const TOutputNaming* naming = FFacts.Outputs.Find(kind);
  return !naming && kind == "Console" ? FFacts.Outputs.Find("Application") : naming;
}

std::string TPlatform::GetOutputPrefix(std::string_view outputKind) const {
  const TOutputNaming* naming = FindOutput(outputKind);
  return naming ? naming->Prefix : std::string();
}

std::string TPlatform::GetOutputExtension(std::string_view outputKind) const {
  const TOutputNaming* naming = FindOutput(outputKind);
  return naming ? naming->Extension : std::string();
}

bool TPlatform::RequiresProfile(std::string_view /*personality*/) const {
  return FFacts.RequiresProfile;
}

bool TPlatform::PersonalityRequiresProfile(std::string_view personality) const {
  const TPlatformPersonality* found = FFacts.Personalities.Find(personality);
  return found && found->RequiresProfile;
}

std::string TPlatform::SymbolExtension(std::string_view personality) const {
  const TPlatformPersonality* found = FFacts.Personalities.Find(personality);
  return found ? found->SymbolExtension : std::string();
}

TPlatformTable TPlatformTable::BuiltIn() {
  TPlatformTable table;
  for (const TPlatformRow& row : Rows)
    table.FPlatforms.Set(row.Name, TPlatform(Facts(row)));
  return table;
}

TPlatformTable TPlatformTable::FromXml(deployment::IXMLNode& root) {
  TPlatformTable table;
  for (TPlatformFacts& facts : ReadPlatforms(root)) {
    const std::string name = facts.Name;
    table.FPlatforms.Set(name, TPlatform(std::move(facts)));
  }
  return table;
}

void TPlatformTable::Overlay(TPlatformTable other) {
  for (const std::string& name : other.Names())
    FPlatforms.Set(name, std::move(*other.FPlatforms.Find(name)));
}

bool TPlatformTable::IsStaged(std::string_view platform, std::string_view personality) const {
  const TPlatform* facts = FindPlatform(platform);
  return platform == "Android" || (facts && !facts->RequiresProfile(personality) &&
                                   !facts->PersonalityRequiresProfile(personality));
}

std::vector<std::string> TPlatformTable::Names() const {
  std::vector<std::string> names;
  for (const auto& [name, platform] : FPlatforms)
    names.push_back(name);
  return names;
}

} // namespace workbench
