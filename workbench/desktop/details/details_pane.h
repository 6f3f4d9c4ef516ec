// Beside the list: what is known of the selected rows, and what they say about each platform.
#pragma once

#include "workbench/desktop/details/entry_facts.h"
#include "workbench/desktop/details/platform_matrix.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QTableView;
class QTextBrowser;

namespace workbench {

class TFormControls;
class TOpenProject;
class TRowList;
class TSession;

/// What the pane needs of the window.
struct TDetailsHost {
  /// Does a change of the project's list as a step of that name; false when it is refused.
  std::function<bool(const TOpenProject&, const QString& name, const std::function<void()>& edit)>
      Edit;
  /// Does work on the project that takes its time, while the window goes on painting.
  std::function<void(const TOpenProject&, const std::function<void()>& work)> Work;
  /// Why the entry is in the list; the list stays as it is.
  std::function<QStringList(TOpenProject&, const deployment::IProjectDeploymentFile&)> Reasons;
};

class TDetailsPane final : public QWidget {
  Q_OBJECT

public:
  /// The session must outlive the object.
  TDetailsPane(TSession& session, TDetailsHost host, QWidget* parent);

  /// Follows the selection of this list from now on; null: nothing is shown. The project must
  /// outlive that, the others need not.
  void Follow(TOpenProject* project, TFormControls* controls, TRowList* rows);
  /// Brings the pane up to date.
  void Update();

private:
  using TFile = TPlatformMatrix::TFile;
  using TFiles = TPlatformMatrix::TFiles;

  void MakeFields();
  void Place();
  bool IsReady() const;
  void KeepSelection();
  TFiles SelectedFiles() const;
  std::vector<TEntryFacts> FactsOf(const TFiles& files) const;
  deployment::TDeploymentTarget Target() const;
  QString BaseOfTarget() const;
  std::vector<std::string> Platforms() const;
  void ShowFacts();
  void ShowFields();
  void SetCondition();
  void SetRequired(bool required);
  void Compare();
  void Explain();
  void Forget();

  TSession& FSession;
  const TDetailsHost FHost;
  TOpenProject* FProject = nullptr;
  QPointer<TFormControls> FControls;
  QPointer<TRowList> FRows;
  TFiles FFiles; // that are shown
  int FSelected = 0;
  std::uint64_t FRevision = 0;
  std::vector<TEntryFacts> FFacts;
  QTextBrowser* FText;
  QPushButton* FCompare;
  QPushButton* FWhy;
  TPlatformMatrix* FMatrix;
  QTableView* FTable;
  QLineEdit* FCondition;
  QCheckBox* FRequired;
  QTimer FSoon;
};

} // namespace workbench
