// The user guide, in a window of its own.
#pragma once

#include <QDialog>
#include <filesystem>

namespace workbench {

/// The file of the guide below the root directory of the installation; empty when it is not there.
std::filesystem::path FindGuide(const std::filesystem::path& root);

/// Does not block the window that it belongs to.
class TGuideDialog final : public QDialog {
  Q_OBJECT

public:
  /// Shows a text in Markdown; its pictures stand beside it.
  TGuideDialog(const std::filesystem::path& file, QWidget* parent);
};

} // namespace workbench
