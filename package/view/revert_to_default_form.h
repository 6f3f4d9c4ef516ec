// The dialog of the revert command: how far the revert goes.
#pragma once

#include "package/host/api/forms.h"

#include <string_view>
#include <vector>

namespace deployment {

/// Enter cancels, since a revert may cost the user entries.
class TRevertToDefaultForm final : public IRevertToDefaultForm {
public:
  const TFormLayout& GetLayout() const override { return FLayout; }
  std::string_view GetWarning() const override {
    return "Warning: This action could remove any file entry that you manually added to the target "
           "configurations and platforms.";
  }
  std::string_view GetGroupCaption() const override { return "Revert to default options:"; }
  const std::vector<TRevertOption>& GetOptions() const override { return FOptions; }
  TRevertScope GetScope() const override { return FScope; }
  void SetScope(TRevertScope scope) override { FScope = scope; }
  std::string_view GetKeepAddedFilesCaption() const override { return "Keep added files"; }
  bool GetKeepAddedFiles() const override { return FKeepAddedFiles; }
  void SetKeepAddedFiles(bool keep) override { FKeepAddedFiles = keep; }

private:
  TFormLayout FLayout{
      .Caption = "Please specify the action",
      .Position = TFormPosition::ScreenCenter,
      .Buttons = {
          {.Caption = "OK", .Result = TModalResult::OK},
          {.Caption = "Cancel", .Result = TModalResult::Cancel, .Default = true, .Cancel = true}}};
  std::vector<TRevertOption> FOptions{
      {TRevertScope::ActivePlatform, "Revert for all configurations of the active platform"},
      {TRevertScope::AllPlatforms, "Revert for all configurations and platforms"}};
  TRevertScope FScope = TRevertScope::ActivePlatform;
  bool FKeepAddedFiles = true;
};

} // namespace deployment
