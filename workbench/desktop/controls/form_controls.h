// The controls of one form, on a page that a window shows.
#pragma once

#include "package/host/api/controls.h"
#include "workbench/desktop/controls/cell_editors.h"
#include "workbench/desktop/controls/event_loop_queue.h"
#include "workbench/desktop/controls/qt_dialogs.h"
#include "workbench/desktop/controls/targets_combo_box.h"
#include "workbench/desktop/controls/tool_bar.h"
#include "workbench/desktop/controls/virtual_tree.h"

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

class QLabel;
class QVBoxLayout;

namespace workbench {

/// The visual style of the window tells trees no colour of their own.
class TWindowStyle final : public deployment::IVisualStyle {
public:
  std::optional<deployment::TTextColor> GetTreeItemTextColor() const override {
    return std::nullopt;
  }
};

/// Dialogs of the form. Files that were dropped on it answer its question for files.
class TFormDialogs final : public deployment::IDialogs {
public:
  explicit TFormDialogs(QWidget* parent) : FDialogs(parent) {}

  deployment::TMessageAnswer ShowMessage(const deployment::TMessageBox& message) override {
    return FDialogs.ShowMessage(message);
  }
  bool InputBox(std::string_view caption, std::string_view prompt, std::string& value) override {
    return FDialogs.InputBox(caption, prompt, value);
  }
  std::vector<std::string> OpenFiles(const deployment::TFileOpenOptions& options) override;
  /// The answer to the questions for files until it is taken back with none.
  void SetDropped(std::vector<std::string> files) { FDropped = std::move(files); }

private:
  TDialogs FDialogs;
  std::vector<std::string> FDropped;
};

/// What the user did to a form last.
struct TFormCommand {
  QString Text;               ///< of the button; empty for a change in the rows themselves
  std::string Button;         ///< its name
  bool ChoosesTarget = false; ///< in the target box, and Text says which one
  bool WasAsked = false;      ///< a form was answered meanwhile, so what came of it is the user's
};

/// The page outlives what the form makes on it: tool bar with the target box, and the tree below.
class TFormControls final : public QObject, public deployment::IControls {
  Q_OBJECT

public:
  /// The settings keep histories and must outlive the object. While `isBusy` says so, what threads
  /// post waits; empty: never.
  explicit TFormControls(deployment::ISettingsStore& settings,
                         std::function<bool()> isBusy = nullptr);
  ~TFormControls() override;

  std::unique_ptr<deployment::IToolBar> CreateToolBar(deployment::TImageList images) override;
  std::unique_ptr<deployment::ITargetsComboBox> CreateTargetsComboBox() override;
  std::unique_ptr<deployment::IVirtualStringTree>
  CreateTree(const deployment::TTreeOptions& options,
             deployment::TVirtualTreeEvents events) override;
  deployment::ICellEditors& GetCellEditors() override { return FEditors; }
  deployment::IDialogs& GetDialogs() override { return FDialogs; }
  const deployment::IVisualStyle& GetStyle() const override { return FStyle; }
  std::shared_ptr<deployment::IMainThreadQueue> GetMainThread() override { return FMainThread; }
  std::string GetIdentifier(const deployment::IOTAProject& project) const override;

  /// Null when a window took it away with itself. A page without a window goes with the controls.
  QWidget* Page() const { return FPage; }
  /// What the form made; null before, and when the form is gone.
  TToolBar* ToolBar() const { return FToolBar; }
  TTargetsComboBox* TargetsComboBox() const { return FTargets; }
  TVirtualTree* Tree() const { return FTree; }

  /// Stands over everything else of the page, the tool bar too. Owned by the page.
  void AddOnTop(QWidget* bar);
  /// Stands between the tool bar and the rows, below what was added before. Owned by the page.
  void AddAboveRows(QWidget* strip);

  /// Lets the form add these files, as if the user had chosen them in its file dialog.
  void AddFiles(std::vector<std::string> files);

  /// The command that the user gave last; asked for once.
  TFormCommand TakeCommand() { return std::exchange(FCommand, {}); }
  /// Takes the text of a cell editor over that is open. False when the form refuses it.
  bool CommitEditor();

signals:
  /// A command is about to be done; what happened before it is over.
  void CommandStarts();
  /// The command is done.
  void CommandDone();
  /// Rows or the selection changed.
  void StateChanged();

private:
  QLabel* CreateNotice();
  void ShowMenu(const QPoint& place);
  bool StartCommand();

  const std::function<bool()> FIsBusy;
  QPointer<QWidget> FPage;
  QVBoxLayout* FLayout;
  QVBoxLayout* FTop;       // over the tool bar
  QVBoxLayout* FAboveRows; // below it
  TCellEditors FEditors;
  TFormDialogs FDialogs;
  TWindowStyle FStyle;
  std::shared_ptr<TEventLoopQueue> FMainThread;
  TFormCommand FCommand;
  QPointer<TToolBar> FToolBar;
  QPointer<TTargetsComboBox> FTargets;
  QPointer<TVirtualTree> FTree;
};

} // namespace workbench
