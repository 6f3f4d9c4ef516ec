#include "workbench/deploy/changes_in_place.h"

#include <optional>
#include <utility>

namespace workbench {
namespace {

// Nothing for a file of which rights and time are as they should be.
std::optional<TRemoteStamp> StampOf(const TPlannedFile& file) {
  TRemoteStamp stamp{.Name = file.Target};
  if (file.Action == TDeployAction::Mode)
    stamp.Mode = file.Mode;
  if (file.TimeDiffers)
    stamp.Time = file.Local.Time;
  return stamp.Mode || stamp.Time ? std::optional(std::move(stamp)) : std::nullopt;
}

} // namespace

std::vector<std::string> ChangeInPlace(IRemoteConnection& connection, const TDeployPlan& plan,
                                       std::span<const std::size_t> indexes) {
  std::vector<TRemoteName> names;
  std::vector<TRemoteStamp> stamps;
  std::vector<std::size_t> removed; // their places in the answer
  std::vector<std::size_t> stamped;
  for (std::size_t i = 0; i < indexes.size(); ++i) {
    const TPlannedFile& file = plan.Files[indexes[i]];
    if (file.Action == TDeployAction::Removed) {
      names.push_back(file.Target);
      removed.push_back(i);
    } else if (auto stamp = StampOf(file); stamp && file.Action != TDeployAction::Failed) {
      stamps.push_back(std::move(*stamp));
      stamped.push_back(i);
    }
  }
  std::vector<std::string> problems(indexes.size());
  const auto take = [&problems](std::vector<std::string> answers,
                                const std::vector<std::size_t>& places) {
    for (std::size_t i = 0; i < places.size(); ++i)
      problems[places[i]] = std::move(answers[i]);
  };
  if (!names.empty())
    take(connection.RemoveAll(names), removed);
  if (!stamps.empty())
    take(connection.Stamp(stamps), stamped);
  return problems;
}

} // namespace workbench
