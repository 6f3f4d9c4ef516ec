// The tool bar: its buttons, their words and when they are enabled.
#include "package/view/button_images.h"
#include "tests/package/view/frame_world.h"

#include <set>

namespace deployment {
namespace {

using ToolBar = FrameWorld;

TEST_F(ToolBar, HoldsTheCommandsInTheirOrder) {
  Open();
  EXPECT_EQ(Controls.ToolBar()->Layout(),
            (std::vector<std::string_view>{
                "tbReconcile", "tbAddFiles", "tbDeleteFile", "tbAddFeature", "tbDeploy",
                "tbConnect", "tbRevert", "", "tbCheckAll", "tbUncheckAll", "tbCheckSelection",
                "tbUncheckSelection", "", "tbChangeRemotePath", "tbChangeOverwrite", ""}));
}

TEST_F(ToolBar, GivesEachCommandItsWordsAndItsImage) {
  Open();
  TTexts rows;
  for (const std::string_view name : Controls.ToolBar()->Layout()) {
    if (name.empty())
      continue;
    const TToolButton& button = Button(name).Description();
    rows.push_back(std::string(button.Action)
                       .append("|")
                       .append(button.Caption)
                       .append("|")
                       .append(button.Hint)
                       .append("|")
                       .append(std::to_string(button.ImageIndex)));
  }
  EXPECT_EQ(rows, (TTexts{
                      "sbReconcile|Reconcile|Reconcile|4",
                      "sbAdd|Add Files|Add Files|0",
                      "sbDelete|Delete Files|Delete Selected Files|1",
                      "sbAddFeature|Add Feature Files|Add Featured Files|2",
                      "sbDeploy|Deploy|Deploy|3",
                      "sbConnect|Connect|Connect to Remote Machine|5",
                      "sbResetDefault|sbResetDefault|Revert to Default|7",
                      "sbCheckAll|sbCheckAll|Check All Items|8",
                      "sbUncheckAll|sbUncheckAll|Uncheck All Items|9",
                      "sbCheckSelection|sbCheckSelection|Check Selected Items|10",
                      "sbUncheckSelection|sbUncheckSelection|Uncheck Selected Items|11",
                      "sbChangeRemotePath|sbChangeRemotePath|Change Remote Path for Selected "
                      "Items|12",
                      "sbChangeOverwrite|sbChangeOverwrite|Change Overwrite value for selected "
                      "items|13",
                  }));
}

TEST_F(ToolBar, HasOneButtonThatStaysDown) {
  Open();
  for (const std::string_view name : Controls.ToolBar()->Layout()) {
    if (!name.empty()) {
      EXPECT_EQ(Button(name).Description().Style == TToolButtonStyle::Check, name == "tbConnect");
    }
  }
}

TEST_F(ToolBar, ShowsImagesOfItsOwn) {
  Open();
  EXPECT_EQ(Controls.ToolBar()->Images().size(), 14U);
  std::set<std::string_view> different;
  for (const std::string_view image : ButtonImages()) {
    EXPECT_TRUE(
        image.starts_with("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16 16\""));
    EXPECT_TRUE(image.ends_with("</svg>"));
    different.insert(image);
  }
  EXPECT_EQ(different.size(), 14U);
}

TEST_F(ToolBar, StartsWithDeleteDisabled) {
  Frame = std::make_unique<TDeploymentFrame>(Host, Controls, Threads);
  EXPECT_FALSE(Button("tbDeleteFile").GetEnabled());
  EXPECT_TRUE(Button("tbAddFiles").GetEnabled());
}

TEST_F(ToolBar, EnablesCommandsOnTheSelectionWhileThereIsOne) {
  Add("a");
  Open();
  const std::vector<std::string_view> names{"tbCheckSelection", "tbUncheckSelection",
                                            "tbChangeRemotePath", "tbChangeOverwrite"};
  for (const std::string_view name : names)
    EXPECT_FALSE(IsEnabled(name));
  Select({"a"});
  for (const std::string_view name : names)
    EXPECT_TRUE(IsEnabled(name));
}

TEST_F(ToolBar, EnablesDeleteForClassesOfTheUser) {
  Add("file");
  Add("service")->SetDeploymentClass("AndroidServiceOutput");
  Add("output")->SetDeploymentClass("ProjectOutput");
  Add("lower")->SetDeploymentClass("file");
  Open();
  EXPECT_FALSE(IsEnabled("tbDeleteFile"));
  Select({"output", "lower"});
  EXPECT_FALSE(IsEnabled("tbDeleteFile"));
  Select({"service"});
  EXPECT_TRUE(IsEnabled("tbDeleteFile"));
  Frame->RefreshFiles();
  Select({"output", "file"});
  EXPECT_TRUE(IsEnabled("tbDeleteFile"));
}

TEST_F(ToolBar, EnablesConnectWhereAProfileIsNeeded) {
  Module->Platforms.Supported = {"Win32", "Win64", "OSX32", "Android"};
  Open();
  EXPECT_TRUE(IsEnabled("tbConnect"));
  EXPECT_TRUE(Frame->RequiresProfile("Win64"));
  EXPECT_FALSE(Frame->RequiresProfile("OSX32"));
  EXPECT_FALSE(Frame->RequiresProfile(""));
  EXPECT_FALSE(Frame->RequiresProfile("All Platforms"));
  EXPECT_FALSE(Frame->RequiresProfile("Amiga"));
  Host.PlatformManager.Platforms[2].PersonalityWithProfile = "Ardent.Personality";
  EXPECT_TRUE(Frame->RequiresProfile("OSX32"));
  Module->Personality = "Corvane.Personality";
  EXPECT_FALSE(Frame->RequiresProfile("OSX32"));
  Host.PlatformManager.Platforms[2].NeedsProfile = true;
  EXPECT_TRUE(Frame->RequiresProfile("OSX32"));
  Choose("Debug", "Android");
  EXPECT_FALSE(IsEnabled("tbConnect"));
}

} // namespace
} // namespace deployment
