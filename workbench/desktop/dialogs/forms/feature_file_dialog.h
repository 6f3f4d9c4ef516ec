// The dialog in which the user chooses optional files.
#pragma once

#include "package/host/api/forms.h"

#include <QDialog>

class QTreeView;

namespace workbench {

/// The form must outlive the dialog.
class TFeatureFileDialog final : public QDialog {
  Q_OBJECT

public:
  TFeatureFileDialog(deployment::IFeatureFileForm& form, QWidget* parent);

protected:
  void showEvent(QShowEvent* event) override;

private:
  void MakeTree();
  QWidget* MakeButtons();
  void ShowHelp();

  deployment::IFeatureFileForm& FForm;
  QTreeView* FTree;
};

} // namespace workbench
