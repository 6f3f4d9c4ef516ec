#include "package/model/lost_content.h"

#include "package/common/text_trim.h"
#include "package/host/api/xmlutils.h"
#include "package/model/deployment_section.h"
#include "package/model/section_names.h"

#include <algorithm>
#include <array>

namespace deployment {
namespace {

using namespace section_names;

// What the readers and writers of the section know.
constexpr std::array SectionAttributes{Version};
constexpr std::array SectionElements{DeployFile, DeployClass, ProjectRoot};
constexpr std::array FileAttributes{LocalName, Configuration, Class, Condition, Required};
constexpr std::array ClassAttributes{Name, Description, Condition, Required};
constexpr std::array RootAttributes{Platform, Name};
constexpr std::array PlatformAttributes{Name};
constexpr std::array FileValues{RemoteDir, Overwrite,    Enabled,      RemoteName,
                                Operation, LocalCommand, RemoteCommand};
constexpr std::array ClassValues{RemoteDir, Operation, Extensions, LocalCommand, RemoteCommand};

// A person reads this many; a damaged list of a hundred thousand entries is told in one sentence.
constexpr std::size_t MostWarnings = 20;

constexpr std::string_view NotKept = " is not kept when the project is saved";

std::string Quoted(std::string_view name) {
  return "\"" + std::string(name) + "\"";
}

bool IsAmong(std::string_view name, std::span<const std::string_view> names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

void TLostContent::CheckSection(IXMLNode& node) {
  CheckAttributes(node, SectionAttributes);
  const auto version = node.GetAttribute(Version);
  if (version && ExpectInteger(node, Version, *version) > CurrentSectionVersion)
    FMessages.AddWarning("the list is of version " + std::string(*version) +
                             ", and this program knows version " +
                             std::to_string(CurrentSectionVersion) +
                             ": what is new in it is not kept when the project is saved",
                         node.Place());
  if (!Trimmed(node.Text()).empty())
    Report("the text in " + Quoted(node.NodeName()), node);
  for (IXMLNode* child = node.FirstChild(); child; child = child->NextSibling()) {
    if (!IsAmong(child->NodeName(), SectionElements))
      Report("unknown element " + Quoted(child->NodeName()) + " in " + Quoted(node.NodeName()),
             *child);
  }
}

void TLostContent::CheckFile(IXMLNode& node) {
  CheckEntry(node, FileAttributes, FileValues);
}

void TLostContent::CheckClass(IXMLNode& node) {
  CheckEntry(node, ClassAttributes, ClassValues);
}

void TLostContent::CheckProjectRoot(IXMLNode& node) {
  CheckAttributes(node, RootAttributes);
  if (IXMLNode* child = node.FirstChild())
    Report("unknown element " + Quoted(child->NodeName()) + " in " + Quoted(node.NodeName()),
           *child);
}

void TLostContent::AddReplaced(std::size_t replaced, const IXMLNode& section) {
  if (replaced > 0)
    FMessages.AddWarning(std::to_string(replaced) +
                             " file entries have the same configuration, platform and name as a "
                             "later one, which counts; the earlier ones are not kept when the "
                             "project is saved",
                         section.Place());
}

void TLostContent::Finish(const IXMLNode& section) {
  if (FFinds > MostWarnings)
    FMessages.AddWarning(std::to_string(FFinds - MostWarnings) +
                             " more unknown elements and attributes are not kept when the project "
                             "is saved",
                         section.Place());
}

void TLostContent::CheckAttributes(const IXMLNode& node, TNames known) {
  for (std::size_t i = 0; i < node.AttributeCount(); ++i) {
    if (!IsAmong(node.AttributeName(i), known))
      Report("unknown attribute " + Quoted(node.AttributeName(i)) + " of " +
                 Quoted(node.NodeName()),
             node);
  }
}

void TLostContent::CheckEntry(IXMLNode& node, TNames attributes, TNames values) {
  CheckAttributes(node, attributes);
  for (IXMLNode* child = node.FirstChild(); child; child = child->NextSibling()) {
    if (child->NodeName() == Platform)
      CheckPlatform(*child, values);
    else
      Report("unknown element " + Quoted(child->NodeName()) + " in " + Quoted(node.NodeName()),
             *child);
  }
}

void TLostContent::CheckPlatform(IXMLNode& node, TNames values) {
  CheckAttributes(node, PlatformAttributes);
  // Written into the entry itself, where nobody looks for it.
  if (node.GetAttribute(section_names::Name) == sAllPlatforms)
    Report("the record of an entry for " + Quoted(sAllPlatforms), node);
  std::array<bool, FileValues.size()> seen{};
  for (IXMLNode* child = node.FirstChild(); child; child = child->NextSibling()) {
    const std::string_view name = child->NodeName();
    const auto found = std::find(values.begin(), values.end(), name);
    if (found == values.end()) {
      Report("unknown element " + Quoted(name) + " in " + Quoted(node.NodeName()), *child);
      continue;
    }
    // Of several commands the last one is written, of other values the first one is read.
    bool& before = seen[static_cast<std::size_t>(found - values.begin())];
    if (before)
      Report("one of several elements " + Quoted(name) + " in one " + Quoted(node.NodeName()),
             *child);
    before = true;
    CheckValue(*child);
  }
}

void TLostContent::CheckValue(IXMLNode& value) {
  CheckAttributes(value, {});
  if (!value.HasChildren())
    return;
  if (IXMLNode* child = value.FirstChild())
    Report("unknown element " + Quoted(child->NodeName()) + " in " + Quoted(value.NodeName()),
           *child);
}

void TLostContent::Report(const std::string& text, const IXMLNode& node) {
  if (++FFinds <= MostWarnings)
    FMessages.AddWarning(text + std::string(NotKept), node.Place());
}

} // namespace deployment
