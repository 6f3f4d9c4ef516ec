#include "workbench/cli/entries/value_sources.h"

#include "package/common/convert.h"
#include "package/common/delimited_list.h"
#include "workbench/cli/entries/entry_text.h"

#include <algorithm>

namespace workbench {
namespace {

using deployment::FallbackPlatform;
using deployment::IProjectDeploymentFile;
using deployment::IProjectDeploymentItem;
using deployment::TDeployOperation;

bool HasRecord(const IProjectDeploymentItem& item, std::string_view platform) {
  const std::vector<std::string> platforms = item.GetPlatforms();
  return std::find(platforms.begin(), platforms.end(), platform) != platforms.end();
}

// Whose record answers for the platform; empty when there is none.
std::string RecordOf(const IProjectDeploymentItem& item, std::string_view platform,
                     const std::string& owner) {
  if (HasRecord(item, platform))
    return owner + " record for " + std::string(platform);
  if (HasRecord(item, FallbackPlatform))
    return owner + " record for \"" + std::string(FallbackPlatform) + "\"";
  return {};
}

class TValueList {
public:
  TValueList(IProjectDeploymentFile& file, std::string_view platform,
             const deployment::IDeploymentClassList& classes)
      : FFile(file), FPlatform(platform), FClasses(classes),
        FClass(classes.FindClass(file.GetDeploymentClass())),
        FOwn(RecordOf(file, platform, "the entry's")),
        FClassRecord(
            FClass ? RecordOf(*FClass, platform, "the class \"" + FClass->GetClassId() + "\", its")
                   : std::string()) {}

  std::vector<TSourcedValue> Values();

private:
  void AddOwn(const char* name, std::string value) {
    FValues.push_back({name, std::move(value), FOwn.empty() ? Default : FOwn});
  }
  // Of a value that the class has when the entry leaves it open.
  void AddInherited(const char* name, std::string value, bool isOwn, bool isOfClass,
                    const char* otherwise = Default) {
    const std::string source = isOwn ? FOwn : isOfClass ? FClassRecord : std::string();
    FValues.push_back({name, std::move(value), source.empty() ? otherwise : source});
  }
  void AddCommands(const char* name, const deployment::TCommandList& commands,
                   const deployment::TCommandList* own);

  static constexpr const char* Default = "the default, since no record says otherwise";

  IProjectDeploymentFile& FFile;
  const std::string_view FPlatform;
  const deployment::IDeploymentClassList& FClasses;
  const std::shared_ptr<deployment::IProjectDeploymentClass> FClass;
  const std::string FOwn;
  const std::string FClassRecord;
  std::vector<TSourcedValue> FValues;
};

void TValueList::AddCommands(const char* name, const deployment::TCommandList& commands,
                             const deployment::TCommandList* own) {
  if (!commands.empty())
    AddInherited(name, deployment::JoinDelimited(commands, "; "), own && !own->empty(), true);
}

std::vector<TSourcedValue> TValueList::Values() {
  AddOwn("enabled", std::string(deployment::BooleanToText(FFile.GetEnabled(FPlatform))));
  AddOwn("overwrite", std::string(deployment::BooleanToText(FFile.GetOverwrite(FPlatform))));
  const std::string directory = deployment::GetDeploymentRemoteDir(FFile, FPlatform, FClasses);
  AddInherited("remoteDir", directory, !FFile.GetRemoteDir(FPlatform).empty(), !directory.empty(),
               "no record: the project's own directory on the target");
  const deployment::TFileData* record = FFile.GetFileData(FPlatform, /*create=*/false);
  AddInherited("remoteName", FFile.GetRemoteName(FPlatform), record && !record->RemoteName.empty(),
               false, "no record: the name of the local file");
  const TDeployOperation operation = deployment::GetDeploymentOperation(FFile, FPlatform, FClasses);
  AddInherited("operation", OperationName(operation),
               FFile.GetOperation(FPlatform) != TDeployOperation::Default,
               operation != TDeployOperation::Default);
  const bool required = deployment::GetDeploymentRequired(FFile, FClasses);
  FValues.push_back({"required", std::string(deployment::BooleanToText(required)),
                     FFile.GetRequired() ? "the entry"
                     : required          ? "the class \"" + FClass->GetClassId() + "\""
                                         : Default});
  AddCommands("localCommands", deployment::GetDeploymentLocalCommands(FFile, FPlatform, FClasses),
              FFile.GetLocalCommands(FPlatform));
  AddCommands("remoteCommands", deployment::GetDeploymentRemoteCommands(FFile, FPlatform, FClasses),
              FFile.GetRemoteCommands(FPlatform));
  return std::move(FValues);
}

} // namespace

std::vector<TSourcedValue> SourcedValues(IProjectDeploymentFile& file, std::string_view platform,
                                         const deployment::IDeploymentClassList& classes) {
  return TValueList(file, platform, classes).Values();
}

} // namespace workbench
