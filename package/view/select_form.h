// The dialog "Select Platforms": which platforms one file is deployed to.
#pragma once

#include "package/host/api/forms.h"

#include <cstddef>
#include <string>
#include <vector>

namespace deployment {

/// A check list in which one platform at least stays chosen.
class TSelectForm final : public ISelectForm {
public:
  const TFormLayout& GetLayout() const override { return FLayout; }
  const std::vector<std::string>& GetPlatforms() const override { return FPlatforms; }
  bool IsChecked(std::size_t row) const override { return FChecked[row]; }
  void SetChecked(std::size_t row, bool checked) override;

  /// Appends a row.
  void AddPlatform(std::string platform, bool checked);

private:
  void cbPlatformsClickCheck(std::size_t row);

  TFormLayout FLayout{.Caption = "Select Platforms",
                      .ClientWidth = 295,
                      .ClientHeight = 273,
                      .Position = TFormPosition::MainFormCenter,
                      .Buttons = {{.Caption = "OK", .Result = TModalResult::OK},
                                  {.Caption = "Cancel", .Result = TModalResult::Cancel}}};
  std::vector<std::string> FPlatforms;
  std::vector<bool> FChecked; ///< one for each platform
};

} // namespace deployment
