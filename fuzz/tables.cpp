// Platform tables: what was read can be written and reads back, and a table over itself is itself.
#include "fuzz/fuzz_input.h"
#include "package/common/errors.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/xml/xml_reader.h"
#include "workbench/xml/xml_writer.h"

#include <algorithm>

namespace workbench::fuzz {
namespace {

TPlatformTable TableOf(std::string_view text) {
  TXmlReader reader(text, "platforms.xml");
  return TPlatformTable::FromXml(reader.Root());
}

std::string TextOf(const TPlatformTable& table) {
  const auto truth = [](bool value) { return value ? "true" : "false"; };
  TXmlTree tree("platforms.xml");
  TXmlElement& root = tree.MakeRoot("Platforms");
  root.SetAttribute("Version", "1");
  for (const auto& each : table.Platforms()) {
    const TPlatformFacts& facts = each.Value.Facts();
    TXmlElement& platform = root.AddChild("Platform");
    platform.SetAttribute("Name", facts.Name);
    platform.SetAttribute("Mobile", truth(facts.Mobile));
    platform.SetAttribute("DefaultRemoteDir", facts.DefaultRemoteDir);
    platform.SetAttribute("RequiresProfile", truth(facts.RequiresProfile));
    platform.SetAttribute("IgnoresCase", truth(facts.IgnoresCase));
    for (const auto& [kind, naming] : facts.Outputs) {
      TXmlElement& output = platform.AddChild("Output");
      output.SetAttribute("Kind", kind);
      output.SetAttribute("Prefix", naming.Prefix);
      output.SetAttribute("Extension", naming.Extension);
    }
    for (const auto& [name, says] : facts.Personalities) {
      TXmlElement& personality = platform.AddChild("Personality");
      personality.SetAttribute("Name", name);
      personality.SetAttribute("SymbolExtension", says.SymbolExtension);
      personality.SetAttribute("RequiresProfile", truth(says.RequiresProfile));
    }
  }
  std::string text;
  AppendXmlElement(text, root, {}, "");
  return text;
}

void Check(std::string_view text) {
  TPlatformTable table = TableOf(text);
  const std::string written = TextOf(table);
  RequireEqual(TextOf(TableOf(written)), written, "a table reads back");
  for (const std::string& name : table.Names()) {
    const TPlatform* platform = table.FindPlatform(name);
    Require(platform && platform->GetName() == name, "a platform is found by its name", name);
    for (const auto& [kind, naming] : platform->Facts().Outputs)
      Require(platform->GetOutputPrefix(kind) == naming.Prefix &&
                  platform->GetOutputExtension(kind) == naming.Extension,
              "an output is named as the table says", kind);
  }
  table.Overlay(TableOf(written));
  RequireEqual(TextOf(table), written, "a table over itself changes nothing");
}

} // namespace
} // namespace workbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace workbench::fuzz;
  try {
    Check(TFuzzInput(data, size).Rest());
  } catch (const deployment::TInputError& error) {
    Require(error.Place().Line > 0, "a refusal names its line", error.what());
  }
  return 0;
}
