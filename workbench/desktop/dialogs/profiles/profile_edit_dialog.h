// The dialog in which the user makes or changes one profile.
#pragma once

#include "workbench/remote/target/profile.h"

#include <QDialog>
#include <QStringList>
#include <functional>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QStackedWidget;

namespace workbench {

class TProfilePage;

/// Stays open until the profile could be kept, or the user gives up.
class TProfileEditDialog final : public QDialog {
  Q_OBJECT

public:
  /// Keeps a profile. What it throws is shown as a sentence, and the dialog stays.
  using TKeep = std::function<void(const TProfile&)>;

  /// Begins with the fields of `start`.
  TProfileEditDialog(const QStringList& platforms, const TProfile& start, TKeep keep,
                     QWidget* parent);

  /// The profile as it was kept.
  const TProfile& Profile() const { return FProfile; }

public slots:
  void accept() override;

private:
  void MakeFields(const QStringList& platforms);
  QWidget* MakeButtons();
  void ShowKind(int index);
  void AlignLabels();
  TProfilePage& Page() const;
  bool HasAllFields();
  TProfile Entered() const;
  void Refuse(const QString& problem);

  TProfile FProfile;
  TKeep FKeep;
  QLineEdit* FName;
  QComboBox* FPlatform;
  QComboBox* FKind;
  QStackedWidget* FPages;
  QCheckBox* FDefault;
  QCheckBox* FAllowOutside;
  QFormLayout* FForm; // above the pages
  QLabel* FProblem;
};

} // namespace workbench
