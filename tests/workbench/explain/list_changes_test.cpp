#include "tests/workbench/session/session_fixture.h"
#include "workbench/explain/change_reasons.h"
#include "workbench/explain/list_changes.h"

#include <algorithm>

namespace workbench {
namespace {

using deployment::TReconcileOutcome;

class ListChanges : public testing::TSessionTest {
protected:
  deployment::IProjectDeployment& List() { return OpenText(testing::ProjectWith("")).Deployment(); }
};

TEST_F(ListChanges, NameWhatOneTargetBroughtAndALaterOneTook) {
  deployment::IProjectDeployment& list = List();
  TListChanges changes(list);
  changes.StartTarget();
  const auto lost = list.AddFile("Debug", "Win32", "lost.dat");
  lost->SetEnabled("Win32", true);
  list.AddFile("Debug", "Win32", "stays.dat");
  changes.StartTarget();
  list.RemoveFileEntry(*lost);
  const std::vector<TTargetChanges> found = changes.Finish();
  ASSERT_EQ(found.size(), 2U);
  ASSERT_EQ(found[0].Added.size(), 1U);
  EXPECT_EQ(found[0].Added[0].LocalName, "stays.dat");
  EXPECT_TRUE(found[1].IsEmpty());
  ASSERT_EQ(changes.Lost().size(), 1U);
  EXPECT_EQ(changes.Lost()[0].LocalName, "lost.dat");
  EXPECT_EQ(changes.Lost()[0].Target, "Debug, Win32");
}

TEST_F(ListChanges, NameNothingThatOneTargetBroughtAndTookItself) {
  deployment::IProjectDeployment& list = List();
  TListChanges changes(list);
  changes.StartTarget();
  list.RemoveFileEntry(*list.AddFile("Debug", "Win32", "passing.dat"));
  changes.Finish();
  EXPECT_TRUE(changes.Lost().empty());
}

// The reasons are heard from a reconcile that finds the entries there already.
TEST_F(ListChanges, AreToldAsTheyHappenedNotAsTheyAreFound) {
  deployment::IProjectDeployment& list = List();
  list.Reconcile("Debug", "Win32", /*reconcileInternally=*/false);
  const deployment::TDeploymentFiles files = list.GetFiles();
  const auto output = std::ranges::find_if(
      files, [](const auto& file) { return file->GetDeploymentClass() == "ProjectOutput"; });
  ASSERT_NE(output, files.end());
  const TChangeReasons reasons(list, {"Debug", "Win32"});
  const TChangedEntry entry{(*output)->GetLocalName(), "ProjectOutput", "Debug, Win32"};
  const auto first = [&](TReconcileOutcome happened) { return reasons.Of(entry, happened).at(0); };
  EXPECT_NE(first(TReconcileOutcome::Added).find("\"project output\" adds it"), std::string::npos)
      << first(TReconcileOutcome::Added);
  EXPECT_NE(first(TReconcileOutcome::Updated).find("\"project output\" brings it up to date"),
            std::string::npos);
}

} // namespace
} // namespace workbench
