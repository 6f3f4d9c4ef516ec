// The forms of the package as dialogs of the window.
#pragma once

#include "package/host/api/forms.h"

#include <cstddef>
#include <functional>
#include <utility>

class QWidget;

namespace workbench {

/// Shows each form until it is left. State and rules stay in the form.
class TModalDialogs final : public deployment::IModalForms {
public:
  /// Dialogs stand before `parent`, which must outlive the object; null: before the desktop.
  explicit TModalDialogs(QWidget* parent) : FParent(parent) {}

  deployment::TModalResult ShowFeatureFiles(deployment::IFeatureFileForm& form) override;
  deployment::TModalResult ShowSelectPlatforms(deployment::ISelectForm& form) override;
  deployment::TModalResult ShowRevertToDefault(deployment::IRevertToDefaultForm& form) override;

  /// Asked before a form that offers optional files is shown. True: it is offered in another way,
  /// and nobody has answered yet. Empty: every form is shown.
  void SetOffers(std::function<bool(const deployment::IFeatureFileForm&)> offers) {
    FOffers = std::move(offers);
  }

  /// How many forms that ask for optional files were answered so far; a form that was closed
  /// counts, since the package keeps that answer too.
  std::size_t AnswerCount() const { return FAnswerCount; }

private:
  QWidget* FParent;
  std::function<bool(const deployment::IFeatureFileForm&)> FOffers;
  std::size_t FAnswerCount = 0;
};

} // namespace workbench
