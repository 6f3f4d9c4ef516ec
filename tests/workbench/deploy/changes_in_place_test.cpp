#include "workbench/deploy/changes_in_place.h"
#include "workbench/deploy/fleet/blank_target.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

namespace workbench {
namespace {

constexpr deployment::TFileTime Noon{std::chrono::seconds(1'000'000)};

// A target that remembers what it was asked for, and refuses what is called "refused".
class TAskedTarget final : public TBlankTarget {
public:
  TAskedTarget() : TBlankTarget("/target") {}

  std::vector<std::string> RemoveAll(std::span<const TRemoteName> names) override {
    ++Calls;
    std::vector<std::string> problems;
    for (const TRemoteName& name : names)
      problems.push_back(Ask("remove " + name.Name, name));
    return problems;
  }
  std::vector<std::string> Stamp(std::span<const TRemoteStamp> stamps) override {
    ++Calls;
    std::vector<std::string> problems;
    for (const TRemoteStamp& stamp : stamps)
      problems.push_back(Ask("stamp " + stamp.Name.Name +
                                 (stamp.Mode ? " " + std::to_string(*stamp.Mode) : "") +
                                 (stamp.Time == Noon ? " noon" : ""),
                             stamp.Name));
    return problems;
  }

  int Calls = 0;
  std::vector<std::string> Asked;

private:
  std::string Ask(std::string what, const TRemoteName& name) {
    Asked.push_back(std::move(what));
    return name.Name == "refused" ? "it is refused" : "";
  }
};

TPlannedFile Planned(const std::string& name, TDeployAction action, bool timeDiffers = false) {
  TPlannedFile file;
  file.Target = {"/target", name};
  file.Action = action;
  file.Mode = 0750;
  file.Local.Time = Noon;
  file.TimeDiffers = timeDiffers;
  return file;
}

std::vector<std::string> ChangeAll(TAskedTarget& target, std::vector<TPlannedFile> files) {
  TDeployPlan plan;
  plan.Files = std::move(files);
  std::vector<std::size_t> indexes(plan.Files.size());
  std::iota(indexes.begin(), indexes.end(), 0);
  return ChangeInPlace(target, plan, indexes);
}

TEST(ChangesInPlace, AreRightsTimesAndRemovalsAndNothingElse) {
  TAskedTarget target;
  const auto problems = ChangeAll(
      target,
      {Planned("same", TDeployAction::Unchanged), Planned("older", TDeployAction::Unchanged, true),
       Planned("rights", TDeployAction::Mode), Planned("both", TDeployAction::Mode, true),
       Planned("gone", TDeployAction::Removed), Planned("failed", TDeployAction::Failed, true),
       Planned("kept", TDeployAction::Kept)});
  EXPECT_EQ(target.Asked, (std::vector<std::string>{"remove gone", "stamp older noon",
                                                    "stamp rights 488", "stamp both 488 noon"}));
  EXPECT_EQ(problems, std::vector<std::string>(7));
}

TEST(ChangesInPlace, ThatAreRefusedSayWhyAtTheirOwnPlace) {
  TAskedTarget target;
  const std::vector<std::string> problems =
      ChangeAll(target, {Planned("a", TDeployAction::Removed), Planned("b", TDeployAction::Mode),
                         Planned("refused", TDeployAction::Unchanged, true),
                         Planned("refused", TDeployAction::Removed)});
  EXPECT_EQ(problems, (std::vector<std::string>{"", "", "it is refused", "it is refused"}));
}

TEST(ChangesInPlace, AskATargetThatIsFarAwayOnceForMany) {
  TAskedTarget target;
  std::vector<TPlannedFile> files;
  for (int i = 0; i < 100; ++i) {
    files.push_back(Planned("f" + std::to_string(i), TDeployAction::Unchanged, true));
    files.push_back(Planned("g" + std::to_string(i), TDeployAction::Removed));
  }
  ChangeAll(target, std::move(files));
  EXPECT_EQ(target.Asked.size(), 200U);
  EXPECT_EQ(target.Calls, 2);
  ChangeAll(target, {Planned("same", TDeployAction::Unchanged)});
  EXPECT_EQ(target.Calls, 2);
}

} // namespace
} // namespace workbench
