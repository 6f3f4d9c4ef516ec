#include "package/view/select_form.h"

#include <algorithm>
#include <utility>

namespace deployment {

void TSelectForm::AddPlatform(std::string platform, bool checked) {
  FPlatforms.push_back(std::move(platform));
  FChecked.push_back(checked);
}

void TSelectForm::SetChecked(std::size_t row, bool checked) {
  FChecked[row] = checked;
  cbPlatformsClickCheck(row);
}

// The box that was the last one ticked takes its tick back.
void TSelectForm::cbPlatformsClickCheck(std::size_t row) {
  if (std::find(FChecked.begin(), FChecked.end(), true) == FChecked.end())
    FChecked[row] = true;
}

} // namespace deployment
