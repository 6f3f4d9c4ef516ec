// How the values that files and classes share stand in XML: reading and writing side by side.
#include "package/common/convert.h"
#include "package/host/api/platforms.h"
#include "package/host/api/xmlutils.h"
#include "package/model/deployment_item.h"
#include "package/model/section_names.h"

#include <array>

namespace deployment {
namespace {

TDeployOperation ReadOperation(const IXMLNode& node) {
  const int ordinal = ExpectInteger(node, section_names::Operation, node.Text());
  if (ordinal < 0 || ordinal >= DeployOperationCount)
    throw TInputError("element \"Operation\": its text is \"" + std::string(node.Text()) +
                          "\", which is not an operation (0 to " +
                          std::to_string(DeployOperationCount - 1) + ")",
                      node.Place());
  return static_cast<TDeployOperation>(ordinal);
}

void WriteOperation(IXMLNode& node, TDeployOperation operation) {
  if (operation != TDeployOperation::Default)
    SetChildValue(node, section_names::Operation, std::to_string(static_cast<int>(operation)));
}

void ReadCommands(IXMLNode* first, std::string_view name, TCommandList& commands) {
  for (IXMLNode* child = first; child; child = FirstNamed(child->NextSibling(), name))
    commands.emplace_back(child->Text());
}

void WriteCommands(IXMLNode& node, std::string_view name, const TCommandList& commands) {
  // An element holds one command of each kind: of several, the last one is kept.
  if (!commands.empty())
    SetChildValue(node, name, commands.back());
}

} // namespace

void TDeploymentItem::Read(IXMLNode& node) {
  for (IXMLNode* child = FindChild(node, section_names::Platform); child;
       child = FirstNamed(child->NextSibling(), section_names::Platform))
    ReadPlatformData(*child, ExpectAttribute(*child, section_names::Name));
  if (const auto condition = node.GetAttribute(section_names::Condition))
    SetCondition(*condition);
  if (const auto required = node.GetAttribute(section_names::Required))
    SetRequired(ExpectBoolean(node, section_names::Required, *required));
}

void TDeploymentItem::Write(IXMLNode& node) const {
  if (!FCondition.empty())
    node.SetAttribute(section_names::Condition, FCondition);
  if (FRequired)
    node.SetAttribute(section_names::Required, BooleanToText(true));
  for (const auto& [platform, data] : FPlatforms) {
    if (platform == sAllPlatforms) {
      WritePlatformData(node, *data, platform);
      continue;
    }
    IXMLNode& child = node.AddChild(section_names::Platform);
    child.SetAttribute(section_names::Name, platform);
    WritePlatformData(child, *data, platform);
  }
}

void TDeploymentItem::ReadPlatformData(IXMLNode& node, std::string_view platform) {
  constexpr std::array Names{section_names::RemoteDir, section_names::Operation,
                             section_names::LocalCommand, section_names::RemoteCommand};
  std::array<IXMLNode*, Names.size()> found{};
  FindChildren(node, Names, found);
  const auto [remoteDir, operation, localCommand, remoteCommand] = found;
  // An empty element counts as absent: it does not even give the platform a record.
  if (remoteDir && !remoteDir->Text().empty())
    SetRemoteDir(platform, remoteDir->Text());
  if (operation)
    SetOperation(platform, ReadOperation(*operation));
  if (localCommand)
    ReadCommands(localCommand, section_names::LocalCommand,
                 GetData(platform, /*create=*/true)->LocalCommands);
  if (remoteCommand)
    ReadCommands(remoteCommand, section_names::RemoteCommand,
                 GetData(platform, /*create=*/true)->RemoteCommands);
}

void TDeploymentItem::WritePlatformData(IXMLNode& node, const TDeployData& data,
                                        [[maybe_unused]] std::string_view platform) const {
  if (!data.RemoteDir.empty())
    SetChildValue(node, section_names::RemoteDir, data.RemoteDir);
  WriteOperation(node, data.Operation);
  WriteCommands(node, section_names::LocalCommand, data.LocalCommands);
  WriteCommands(node, section_names::RemoteCommand, data.RemoteCommands);
}

} // namespace deployment
