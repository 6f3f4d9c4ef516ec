#include "package/reconcile/rebuilt_entries.h"

#include <cstddef>
#include <unordered_map>

namespace deployment {
namespace {

bool RecordIsAsMade(const TFileData& record, const TDefaultEntry& wanted) {
  return record.Enabled == wanted.EnabledOnCreation && record.Overwrite &&
         record.RemoteDir == wanted.RemoteDir.value_or("") &&
         record.RemoteName == wanted.RemoteName.value_or("") &&
         record.Operation == TDeployOperation::Default && record.LocalCommands.empty() &&
         record.RemoteCommands.empty();
}

bool IsAsMade(IProjectDeploymentFile& file, const TDefaultEntry& wanted,
              const TReconcileTarget& target) {
  return file.GetConfiguration() == target.Configuration() &&
         file.GetDeploymentClass() == wanted.ClassName && file.GetCondition().empty() &&
         !file.GetRequired() && file.GetPlatforms() == std::vector{target.Platform()} &&
         RecordIsAsMade(*file.GetFileData(target.Platform(), /*create=*/false), wanted);
}

} // namespace

void RebuildEntries(TReconcileContext& context, const TDeploymentFiles& present,
                    const std::vector<TDefaultEntry>& wanted) {
  std::unordered_map<std::string_view, std::size_t> byName;
  for (std::size_t i = 0; i < wanted.size(); ++i)
    byName.insert_or_assign(wanted[i].LocalName, i);
  std::vector<bool> isThere(wanted.size());
  for (const auto& file : present) {
    const auto found = byName.find(file->GetLocalName());
    const bool stays = found != byName.end() && !isThere[found->second] &&
                       IsAsMade(*file, wanted[found->second], context.Target);
    if (stays) {
      isThere[found->second] = true;
      context.Entries.Keep(file, wanted[found->second].Reason);
    } else {
      context.Entries.Remove(file, {TReconcileStep::Packages,
                                    TReasonSource::PackageService,
                                    {},
                                    {},
                                    TReasonCause::NoLongerNamed});
    }
  }
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    if (byName.at(wanted[i].LocalName) == i && !isThere[i])
      context.Entries.Add(wanted[i]);
  }
}

} // namespace deployment
