// The dialog in which the user keeps the remote profiles.
#pragma once

#include "workbench/desktop/dialogs/profiles/profile_model.h"

#include <QDialog>
#include <functional>
#include <string>
#include <string_view>
#include <thread>

class QLabel;
class QPushButton;
class QTableView;
class QVBoxLayout;

namespace workbench {

class TOpenProject;
class TSession;

/// Each change is written at once. What goes wrong is said in the dialog.
class TProfileManagerDialog final : public QDialog {
  Q_OBJECT

public:
  /// `current` is the project that profiles can be assigned to; null: none is open. Session and
  /// project must outlive the dialog.
  TProfileManagerDialog(TSession& session, TOpenProject* current, QWidget* parent);
  ~TProfileManagerDialog() override;

public slots:
  /// Leaves the dialog; while a test runs, as soon as it has ended.
  void done(int result) override;

private:
  void MakeTable();
  QVBoxLayout* MakeButtons();
  QPushButton* AddButton(QVBoxLayout& column, const QString& text,
                         void (TProfileManagerDialog::*run)());
  void Refresh(std::string_view select);
  void ShowState();
  /// The profile of the current row; null for none.
  const TProfile* Current() const;
  void Try(const std::function<void()>& work);
  void Say(const QString& text);

  void Add();
  void Edit();
  void Duplicate();
  void Remove();
  void ToggleDefault();
  void Test();
  void TestDone(const QString& name, bool connected, const std::string& message);
  void Assign();

  TSession& FSession;
  TOpenProject* FProject;
  TProfileModel FModel;
  QTableView* FTable;
  QLabel* FStatus;
  QPushButton* FEdit = nullptr;
  QPushButton* FDuplicate = nullptr;
  QPushButton* FRemove = nullptr;
  QPushButton* FDefault = nullptr;
  QPushButton* FTest = nullptr;
  QPushButton* FAssign = nullptr;
  std::thread FTester;
  bool FIsTesting = false;
  bool FWantsToLeave = false;
  int FResult = 0; // with which it wants to leave
};

/// Lets the user make a profile for a platform and assigns it to the project; false when the user
/// gives up or the project cannot take it, which is said then. `name` stands in the form at first.
bool CreateAndAssignProfile(TSession& session, TOpenProject& project, std::string_view platform,
                            QWidget* parent, std::string_view name = {});

} // namespace workbench
