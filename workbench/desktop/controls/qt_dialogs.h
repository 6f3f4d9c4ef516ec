// Questions to the user that need no form of their own, as Qt shows them.
#pragma once

#include "package/host/api/dialogs.h"

#include <QCoreApplication>
#include <string>
#include <string_view>
#include <vector>

class QWidget;

namespace workbench {

/// Message box, input box and file-open dialog. Each runs an event loop of its own until it is
/// left.
class TDialogs final : public deployment::IDialogs {
  Q_DECLARE_TR_FUNCTIONS(TDialogs)

public:
  /// Dialogs stand before `parent`, which must outlive the object; null: before the desktop.
  explicit TDialogs(QWidget* parent) : FParent(parent) {}

  /// The text is shown as it is, without markup. A box that is closed answers with its Cancel, or
  /// its No, or the only button there is.
  deployment::TMessageAnswer ShowMessage(const deployment::TMessageBox& message) override;
  bool InputBox(std::string_view caption, std::string_view prompt, std::string& value) override;
  /// Several files can be chosen among existing ones only. There is no box "read-only" to hide.
  std::vector<std::string> OpenFiles(const deployment::TFileOpenOptions& options) override;

private:
  QWidget* FParent;
};

} // namespace workbench
