#include "tests/workbench/session/session_fixture.h"
#include "workbench/explain/explanation.h"

#include <algorithm>

namespace workbench {
namespace {

using TSentences = std::vector<std::string>;

bool HasSentence(const TSentences& sentences, std::string_view wanted) {
  return std::ranges::any_of(sentences, [&](const std::string& sentence) {
    return sentence.find(wanted) != std::string::npos;
  });
}

class Explanation : public testing::TSessionTest {
protected:
  TOpenProject& OpenExample(const std::filesystem::path& example) {
    std::filesystem::copy(std::filesystem::path("examples") / example.parent_path(),
                          FDirectory / "example", std::filesystem::copy_options::recursive);
    return Host().Open(FDirectory / "example" / example.filename(), TOpenPurpose::Look);
  }
  TExplanation Explain(TOpenProject& project, const deployment::TDeploymentTarget& target,
                       const std::string& name) {
    return TExplainer(Host(), project, target).Explain(name);
  }
};

TEST_F(Explanation, SaysWhichOfTwoConfigurationsInherits) {
  TOpenProject& project = OpenExample("tide-logger/TideLogger.vproj");
  project.Deployment().AddFile("Release", "Win32", "above.dat")->SetEnabled("Win32", true);
  project.Deployment().AddFile("Field", "Win32", "below.dat")->SetEnabled("Win32", true);
  const TExplanation above = Explain(project, {"Field", "Win32"}, "above.dat");
  ASSERT_EQ(above.Entries.size(), 1U);
  EXPECT_TRUE(HasSentence(above.Entries[0].Reasons,
                          "it is an entry of \"Release\", which \"Field\" inherits from"));
  const TExplanation below = Explain(project, {"Release", "Win32"}, "below.dat");
  ASSERT_EQ(below.Entries.size(), 1U);
  EXPECT_TRUE(HasSentence(below.Entries[0].Reasons,
                          "it is an entry of \"Field\", which inherits from \"Release\": it is "
                          "shown here and deployed there"));
}

TEST_F(Explanation, OfAClassHasItsEntriesAndWhatWasDecidedAboutIt) {
  TOpenProject& project = OpenExample("sky-chart/SkyChart.vproj");
  const deployment::TDeploymentTarget target{"Release", "OSX32"};
  const TExplanation files = Explain(project, target, "ProjectOutput");
  ASSERT_FALSE(files.Entries.empty());
  for (const TExplainedEntry& entry : files.Entries)
    EXPECT_EQ(entry.File->GetDeploymentClass(), "ProjectOutput");
  const TExplanation symbols = Explain(project, target, "DebugSymbols");
  EXPECT_TRUE(symbols.Entries.empty());
  EXPECT_TRUE(HasSentence(symbols.Reasons, "makes no entry of class \"DebugSymbols\""));
}

TEST_F(Explanation, OfANameWithoutADirectoryIsThatOfAFileInAnyDirectory) {
  TOpenProject& project = OpenExample("sky-chart/SkyChart.vproj");
  const deployment::TDeploymentTarget target{"Release", "OSX32"};
  EXPECT_EQ(Explain(project, target, "SkyChart.qds").Journal.size(), 1U);
  EXPECT_EQ(Explain(project, target, "OSX32\\Release\\SkyChart.qds").Journal.size(), 1U);
  EXPECT_EQ(Explain(project, target, "elsewhere\\SkyChart.qds").Journal.size(), 0U);
}

TEST_F(Explanation, GivesNoEntryTheReasonsOfAnotherClass) {
  TOpenProject& project = OpenText(testing::ProjectWith(""));
  const deployment::TDeploymentTarget target{"Debug", "Win32"};
  project.Deployment().Reconcile(target.Configuration, target.Platform, false);
  const std::string output = project.Deployment().GetFiles().at(0)->GetLocalName();
  const auto own = project.Deployment().AddFile("Base", "Win32", output);
  own->SetDeploymentClass("File");
  own->SetEnabled("Win32", true);
  const TExplanation explanation = Explain(project, target, output);
  ASSERT_EQ(explanation.Entries.size(), 2U);
  for (const TExplainedEntry& entry : explanation.Entries)
    EXPECT_EQ(entry.Reasons.at(0) == "it was added by hand",
              entry.File->GetDeploymentClass() == "File")
        << entry.Reasons[0];
  EXPECT_EQ(Explain(project, target, "File").Entries.size(), 1U);
}

TEST_F(Explanation, LeavesOutTheStepsThatWorkForOtherPlatforms) {
  TOpenProject& project = OpenText(testing::ProjectWith(""));
  EXPECT_EQ(
      Explain(project, {"Debug", "Win32"}, "nothing.dat").Reasons,
      TSentences{"no step of a reconcile asks for it; \"deploymgr add\" puts it on the list"});
}

} // namespace
} // namespace workbench
