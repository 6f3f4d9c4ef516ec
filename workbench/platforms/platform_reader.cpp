#include "workbench/platforms/platform_reader.h"

#include "package/common/path_text.h"
#include "package/host/api/xmlutils.h"
#include "workbench/text/quoted_text.h"

#include <string>
#include <unordered_set>

namespace workbench {
namespace {

using deployment::IXMLNode;

constexpr int TableVersion = 1;

[[noreturn]] void Fail(const IXMLNode& node, const std::string& text) {
  throw deployment::TInputError("element \"" + std::string(node.NodeName()) + "\": " + text,
                                node.Place());
}

// A name that an entry of a table is found by.
std::string ExpectName(const IXMLNode& node, std::string_view attribute) {
  const std::string_view name = deployment::ExpectAttribute(node, attribute);
  if (name.find_first_not_of(" \t\r\n") == std::string_view::npos)
    Fail(node, "attribute " + Quoted(attribute) + " is empty");
  return std::string(name);
}

bool ReadBoolean(const IXMLNode& node, std::string_view attribute) {
  return deployment::ExpectBoolean(node, attribute, deployment::ExpectAttribute(node, attribute));
}

std::string ReadRemoteDir(const IXMLNode& node) {
  constexpr std::string_view Attribute = "DefaultRemoteDir";
  const std::string_view directory = deployment::ExpectAttribute(node, Attribute);
  const std::string canonical = deployment::CanonicalizePath(directory);
  const bool leaves = deployment::IsAbsolutePath(directory) || directory.starts_with('~') ||
                      canonical == ".." || canonical.starts_with("..\\");
  if (leaves)
    Fail(node, "attribute " + Quoted(Attribute) + " is " + Quoted(directory) +
                   ", which leaves the project's directory on the target");
  return std::string(directory);
}

void ReadOutput(const IXMLNode& node, TPlatformFacts& facts) {
  const std::string kind = ExpectName(node, "Kind");
  if (facts.Outputs.Find(kind))
    Fail(node,
         "the platform " + Quoted(facts.Name) + " has the output kind " + Quoted(kind) + " twice");
  facts.Outputs.Set(kind, {std::string(deployment::ExpectAttribute(node, "Prefix")),
                           std::string(deployment::ExpectAttribute(node, "Extension"))});
}

void ReadPersonality(const IXMLNode& node, TPlatformFacts& facts) {
  const std::string name = ExpectName(node, "Name");
  if (facts.Personalities.Find(name))
    Fail(node,
         "the platform " + Quoted(facts.Name) + " has the personality " + Quoted(name) + " twice");
  facts.Personalities.Set(name, {std::string(deployment::ExpectAttribute(node, "SymbolExtension")),
                                 ReadBoolean(node, "RequiresProfile")});
}

TPlatformFacts ReadPlatform(IXMLNode& node) {
  TPlatformFacts facts;
  facts.Name = ExpectName(node, "Name");
  if (facts.Name == deployment::sAllPlatforms || facts.Name == "All")
    Fail(node, Quoted(facts.Name) + " stands for every platform and cannot name one");
  facts.Mobile = ReadBoolean(node, "Mobile");
  facts.DefaultRemoteDir = ReadRemoteDir(node);
  facts.RequiresProfile = ReadBoolean(node, "RequiresProfile");
  facts.IgnoresCase = ReadBoolean(node, "IgnoresCase");
  for (IXMLNode* child = node.FirstChild(); child; child = child->NextSibling()) {
    if (child->NodeName() == "Output")
      ReadOutput(*child, facts);
    else if (child->NodeName() == "Personality")
      ReadPersonality(*child, facts);
    else
      Fail(*child, "a platform has no such element");
  }
  return facts;
}

} // namespace

std::vector<TPlatformFacts> ReadPlatforms(IXMLNode& root) {
  if (root.NodeName() != "Platforms")
    Fail(root, "the root of a platform table is \"Platforms\"");
  const int version =
      deployment::ExpectInteger(root, "Version", deployment::ExpectAttribute(root, "Version"));
  if (version != TableVersion)
    Fail(root, "attribute \"Version\" is \"" + std::to_string(version) + "\", known is \"" +
                   std::to_string(TableVersion) + "\"");
  std::vector<TPlatformFacts> platforms;
  std::unordered_set<std::string> names;
  for (IXMLNode* child = root.FirstChild(); child; child = child->NextSibling()) {
    if (child->NodeName() != "Platform")
      Fail(*child, "a platform table has no such element");
    platforms.push_back(ReadPlatform(*child));
    if (!names.insert(platforms.back().Name).second)
      Fail(*child, "the platform " + Quoted(platforms.back().Name) + " stands in the table twice");
  }
  if (platforms.empty())
    Fail(root, "the table has no platform");
  return platforms;
}

} // namespace workbench
