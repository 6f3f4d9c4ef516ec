// The two dialogs of the view.
#include "package/view/revert_to_default_form.h"
#include "package/view/select_form.h"
#include "package/view/select_platform.h"
#include "tests/package/view/frame_world.h"

#include <algorithm>

namespace deployment {
namespace {

TSelectForm FormOf(std::initializer_list<bool> boxes) {
  TSelectForm form;
  int number = 0;
  for (const bool checked : boxes)
    form.AddPlatform("P" + std::to_string(number++), checked);
  return form;
}

TEST(SelectForm, SaysHowItLooks) {
  const TSelectForm form;
  const TFormLayout& layout = form.GetLayout();
  EXPECT_EQ(layout.Caption, "Select Platforms");
  EXPECT_EQ(layout.ClientWidth, 295);
  EXPECT_EQ(layout.ClientHeight, 273);
  EXPECT_EQ(layout.Position, TFormPosition::MainFormCenter);
  ASSERT_EQ(layout.Buttons.size(), 2U);
  EXPECT_EQ(layout.Buttons[0].Caption, "OK");
  EXPECT_EQ(layout.Buttons[0].Result, TModalResult::OK);
  EXPECT_EQ(layout.Buttons[1].Caption, "Cancel");
  EXPECT_EQ(layout.Buttons[1].Result, TModalResult::Cancel);
}

TEST(SelectForm, KeepsTheLastTick) {
  auto form = FormOf({true, false});
  form.SetChecked(0, false);
  EXPECT_TRUE(form.IsChecked(0));
  form.SetChecked(1, true);
  form.SetChecked(0, false);
  EXPECT_FALSE(form.IsChecked(0));
  form.SetChecked(1, false);
  EXPECT_TRUE(form.IsChecked(1));
}

TEST(SelectForm, MayStartWithoutATick) {
  auto form = FormOf({false, false});
  form.SetChecked(1, true);
  EXPECT_FALSE(form.IsChecked(0));
  EXPECT_TRUE(form.IsChecked(1));
}

TEST(RevertToDefaultForm, SaysHowItLooks) {
  const TRevertToDefaultForm form;
  EXPECT_EQ(form.GetLayout().Caption, "Please specify the action");
  EXPECT_EQ(form.GetLayout().Position, TFormPosition::ScreenCenter);
  EXPECT_EQ(form.GetWarning(), "Warning: This action could remove any file entry that you manually "
                               "added to the target configurations and platforms.");
  EXPECT_EQ(form.GetGroupCaption(), "Revert to default options:");
  ASSERT_EQ(form.GetOptions().size(), 2U);
  EXPECT_EQ(form.GetOptions()[0].Caption, "Revert for all configurations of the active platform");
  EXPECT_EQ(form.GetOptions()[1].Caption, "Revert for all configurations and platforms");
  EXPECT_EQ(form.GetKeepAddedFilesCaption(), "Keep added files");
}

TEST(RevertToDefaultForm, StartsWithTheActivePlatformAndKeepsAddedFiles) {
  const TRevertToDefaultForm form;
  EXPECT_EQ(form.GetScope(), TRevertScope::ActivePlatform);
  EXPECT_TRUE(form.GetKeepAddedFiles());
}

TEST(RevertToDefaultForm, CancelsOnEnterAndOnEscape) {
  const TRevertToDefaultForm form;
  for (const TFormButton& button : form.GetLayout().Buttons) {
    EXPECT_EQ(button.Default, button.Result == TModalResult::Cancel);
    EXPECT_EQ(button.Cancel, button.Result == TModalResult::Cancel);
  }
}

class SelectPlatforms : public FrameWorld {
protected:
  /// What the dialog answers while the user clicks these rows and leaves it with `result`.
  bool Run(const std::vector<std::pair<std::size_t, bool>>& clicks, TModalResult result) {
    Forms.OnSelectPlatforms = [&](ISelectForm& form) {
      Shown = form.GetPlatforms();
      Ticked.clear();
      for (std::size_t row = 0; row < Shown.size(); ++row)
        Ticked.push_back(form.IsChecked(row));
      for (const auto& [row, checked] : clicks)
        form.SetChecked(row, checked);
      return result;
    };
    return SelectPlatform(*Frame, *Module, *File, &Forms);
  }

  std::shared_ptr<IProjectDeploymentFile> File = Add(R"(data\a.dat)");
  TTexts Shown;
  std::vector<bool> Ticked;
};

TEST_F(SelectPlatforms, ListsTheProjectsPlatformsAndTicksThoseOfTheFile) {
  Open();
  EXPECT_TRUE(Run({}, TModalResult::OK));
  EXPECT_EQ(Shown, (TTexts{"Win32", "Android"}));
  EXPECT_EQ(Ticked, (std::vector<bool>{true, false}));
  EXPECT_EQ(File->GetPlatforms(), TTexts{"Win32"});
}

TEST_F(SelectPlatforms, AddsAndRemovesPlatforms) {
  Open();
  EXPECT_TRUE(Run({{1, true}, {0, false}}, TModalResult::OK));
  EXPECT_EQ(File->GetPlatforms(), TTexts{"Android"});
  EXPECT_EQ(File->GetRemoteName("Android"), R"(data\a.dat)");
}

TEST_F(SelectPlatforms, ChangesNothingOnCancel) {
  Open();
  EXPECT_FALSE(Run({{1, true}, {0, false}}, TModalResult::Cancel));
  EXPECT_FALSE(Run({{1, true}}, TModalResult::None));
  EXPECT_EQ(File->GetPlatforms(), TTexts{"Win32"});
}

TEST_F(SelectPlatforms, ChangesNothingWithoutProjectPlatforms) {
  Open();
  Module->HasPlatforms = false;
  EXPECT_FALSE(Run({}, TModalResult::OK));
  EXPECT_TRUE(Shown.empty());
  EXPECT_EQ(File->GetPlatforms(), TTexts{"Win32"});
}

TEST_F(SelectPlatforms, ChangesNothingWhereNobodyCanAnswer) {
  Open();
  EXPECT_FALSE(SelectPlatform(*Frame, *Module, *File, nullptr));
  EXPECT_EQ(File->GetPlatforms(), TTexts{"Win32"});
}

TEST_F(SelectPlatforms, TicksByTheExactNameAndHoldsByAnyCase) {
  File->RemovePlatform("Win32");
  File->SetEnabled("WIN32", true);
  Open();
  EXPECT_TRUE(Run({{0, true}}, TModalResult::OK));
  EXPECT_EQ(Ticked, (std::vector<bool>{false, false}));
  EXPECT_EQ(File->GetPlatforms(), TTexts{"WIN32"});
}

} // namespace
} // namespace deployment
