// Every entry and every class of the examples, asked for every target: the explanation says what
// the list shows.
#include "package/common/path_text.h"
#include "tests/support/sanitized.h"
#include "tests/workbench/session/session_fixture.h"
#include "workbench/cli/context/terminal_interaction.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/explain/explanation.h"
#include "workbench/project/project_settings.h"

#include <algorithm>
#include <set>

namespace workbench {
namespace {

using testing::TSessionTest;

// What the list shows of an entry.
struct TShown {
  std::string LocalName;
  std::string ClassName;
  std::string Configuration;
  bool Checked = false;
};

std::string KeyOf(const std::string& localName, const std::string& className,
                  const std::string& configuration) {
  return localName + " [" + className + ", " + configuration + "]";
}

class ExplanationSweep : public TSessionTest, public ::testing::WithParamInterface<const char*> {
protected:
  void SetUp() override {
    TSessionTest::SetUp();
    const std::filesystem::path example = std::filesystem::path("examples") / GetParam();
    std::filesystem::copy(example.parent_path(), FDirectory / "example",
                          std::filesystem::copy_options::recursive);
    FProject = FDirectory / "example" / example.filename();
  }

  std::vector<TShown> ListOf(const deployment::TDeploymentTarget& target) {
    TOpenProject& project = Host().Open(FProject, TOpenPurpose::Look);
    std::vector<TShown> shown;
    {
      TCommandContext context{FOptions, Host(), FOutput, FInteraction};
      TDeploymentView view(context);
      const bool all = target.Platform == deployment::sAllPlatforms;
      view.Open(project, {target.Configuration, all ? "" : target.Platform, all});
      for (const TViewRow& row : view.Rows())
        shown.push_back({row.Texts[0] + row.Texts[1], row.Texts[2], row.Texts[3], row.Checked});
    }
    Host().Close(project);
    return shown;
  }

  // Asks about every name that is on the list of any target, and every class.
  std::size_t Sweep(const deployment::TDeploymentTarget& target) {
    const std::vector<TShown> shown = ListOf(target);
    TOpenProject& project = Host().Open(FProject, TOpenPurpose::Look);
    TExplainer explainer(Host(), project, target);
    std::set<std::string> names;
    std::set<std::string> classes;
    for (const auto& file : project.Deployment().GetFiles()) {
      names.insert(file->GetLocalName());
      classes.insert(file->GetDeploymentClass());
    }
    for (const auto& known : project.Deployment().GetClasses())
      classes.insert(known->GetClassId());
    names.insert(FNames.begin(), FNames.end());
    FNames = names;
    for (const std::string& name : names)
      Compare(explainer.Explain(name), shown, target,
              [&](const TShown& each) { return deployment::SameFileName(each.LocalName, name); });
    for (const std::string& name : classes)
      Compare(explainer.Explain(name), shown, target,
              [&](const TShown& each) { return each.ClassName == name; });
    Host().Close(project);
    return names.size() + classes.size();
  }

  template <class TIsMeant>
  static void Compare(const TExplanation& explanation, const std::vector<TShown>& shown,
                      const deployment::TDeploymentTarget& target, TIsMeant isMeant) {
    const std::string question =
        explanation.Name + " for " + target.Configuration + ", " + target.Platform;
    std::set<std::string> expected;
    std::set<std::string> deployed;
    for (const TShown& each : shown) {
      if (isMeant(each))
        expected.insert(KeyOf(each.LocalName, each.ClassName, each.Configuration));
      if (isMeant(each) && each.Checked)
        deployed.insert(KeyOf(each.LocalName, each.ClassName, each.Configuration));
    }
    std::set<std::string> said;
    std::set<std::string> saidDeployed;
    for (const TExplainedEntry& entry : explanation.Entries) {
      const std::string key = KeyOf(entry.File->GetLocalName(), entry.File->GetDeploymentClass(),
                                    entry.File->GetConfiguration());
      said.insert(key);
      if (entry.IsDeployed)
        saidDeployed.insert(key);
      ExpectReasons(entry, question);
    }
    for (const std::string& key : said)
      EXPECT_TRUE(std::ranges::any_of(shown,
                                      [&](const TShown& each) {
                                        return KeyOf(each.LocalName, each.ClassName,
                                                     each.Configuration) == key;
                                      }))
          << question << ": " << key;
    // The view reconciles the project's active target before it shows one that is never built, and
    // so may show more of it. A name that a decision mentions too may bring further entries.
    const bool isBuilt = target.Platform != deployment::sAllPlatforms &&
                         target.Configuration != deployment::BaseConfiguration;
    if (isBuilt) {
      EXPECT_TRUE(std::ranges::includes(said, expected)) << question;
      EXPECT_TRUE(std::ranges::includes(saidDeployed, deployed)) << question;
      for (const std::string& key : saidDeployed)
        EXPECT_TRUE(std::ranges::any_of(shown,
                                        [&](const TShown& each) {
                                          return each.Checked &&
                                                 KeyOf(each.LocalName, each.ClassName,
                                                       each.Configuration) == key;
                                        }))
            << question << ": " << key;
    }
    if (explanation.Entries.empty()) {
      EXPECT_FALSE(explanation.Reasons.empty()) << question;
    }
    for (const std::string& reason : explanation.Reasons)
      EXPECT_EQ(reason.find("does not work for this platform"), std::string::npos) << question;
  }

  static void ExpectReasons(const TExplainedEntry& entry, const std::string& question) {
    ASSERT_FALSE(entry.Reasons.empty()) << question;
    const bool byHand =
        std::ranges::find(entry.Reasons, "it was added by hand") != entry.Reasons.end();
    if (byHand) {
      EXPECT_EQ(entry.File->GetDeploymentClass(), "File") << question;
    }
    EXPECT_FALSE(entry.Landings.empty()) << question;
  }

  std::filesystem::path FProject;
  std::set<std::string> FNames;
  TCommonOptions FOptions;
  TOutput FOutput{/*json=*/false, /*quiet=*/true, /*noColor=*/true};
  TTerminalInteraction FInteraction{FOutput};
};

TEST_P(ExplanationSweep, AgreesWithTheListOfEveryTarget) {
  std::vector<deployment::TDeploymentTarget> targets;
  TOpenProject& project = Host().Open(FProject, TOpenPurpose::Look);
  for (const auto& configuration : project.Settings().Configurations()) {
    for (const TProjectPlatform& platform : project.Settings().Platforms())
      targets.push_back({configuration->GetName(), platform.Name});
    targets.push_back({configuration->GetName(), std::string(deployment::sAllPlatforms)});
  }
  Host().Close(project);
  constexpr std::size_t Step = testing_support::IsSanitized ? 5 : 1;
  std::size_t questions = 0;
  for (std::size_t i = 0; i < targets.size(); i += Step)
    questions += Sweep(targets[i]);
  EXPECT_GT(questions, 500U / Step);
}

INSTANTIATE_TEST_SUITE_P(Examples, ExplanationSweep,
                         ::testing::Values("sky-chart/SkyChart.vproj",
                                           "tide-logger/TideLogger.vproj"),
                         [](const auto& each) {
                           return std::filesystem::path(each.param).stem().string();
                         });

} // namespace
} // namespace workbench
