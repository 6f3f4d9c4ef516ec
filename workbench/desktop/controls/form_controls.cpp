#include "workbench/desktop/controls/form_controls.h"

#include "package/host/api/view_buttons.h"
#include "workbench/controls/project_identifier.h"
#include "workbench/desktop/controls/svg_icon.h"

#include <QLabel>
#include <QMenu>
#include <QToolBar>
#include <QVBoxLayout>

namespace workbench {
std::vector<std::string> TFormDialogs::OpenFiles(const deployment::TFileOpenOptions& options) {
  return FDropped.empty() ? FDialogs.OpenFiles(options) : FDropped;
}

TFormControls::TFormControls(deployment::ISettingsStore& settings, std::function<bool()> isBusy)
    : FIsBusy(std::move(isBusy)), FPage(new QWidget), FLayout(new QVBoxLayout(FPage)),
      FTop(new QVBoxLayout), FAboveRows(new QVBoxLayout), FEditors(settings), FDialogs(FPage),
      FMainThread(std::make_shared<TEventLoopQueue>(FIsBusy)) {
  FLayout->setContentsMargins(0, 0, 0, 0);
  FLayout->setSpacing(0);
  FLayout->addLayout(FTop);
  FLayout->addLayout(FAboveRows);
}

TFormControls::~TFormControls() {
  FMainThread->Close();
  delete FPage.data();
}

std::unique_ptr<deployment::IToolBar> TFormControls::CreateToolBar(deployment::TImageList images) {
  auto toolBar = std::make_unique<TToolBar>(images, FIsBusy, FPage);
  FToolBar = toolBar.get();
  FLayout->insertWidget(FLayout->indexOf(FAboveRows), &toolBar->Bar());
  toolBar->SetMayStart([this] { return StartCommand(); });
  connect(FToolBar, &TToolBar::Executed, this, [this](const QAction* action) {
    FCommand = {action->text(), action->objectName().toStdString()};
    emit CommandDone();
  });
  std::vector<QIcon> icons;
  icons.reserve(images.size());
  for (const std::string_view image : images)
    icons.push_back(SvgIcon(image));
  FEditors.SetIcons(std::move(icons));
  return toolBar;
}

std::unique_ptr<deployment::ITargetsComboBox> TFormControls::CreateTargetsComboBox() {
  auto targets = std::make_unique<TTargetsComboBox>(FPage);
  FTargets = targets.get();
  targets->SetMayChange([this] { return StartCommand(); });
  connect(FTargets, &TTargetsComboBox::Chosen, this, [this] {
    FCommand = {FTargets->Box().currentText(), {}, /*ChoosesTarget=*/true};
    emit CommandDone();
  });
  if (FToolBar)
    FToolBar->Bar().addWidget(&targets->Box());
  else
    FLayout->insertWidget(FLayout->indexOf(FAboveRows), &targets->Box());
  return targets;
}

std::unique_ptr<deployment::IVirtualStringTree>
TFormControls::CreateTree(const deployment::TTreeOptions& options,
                          deployment::TVirtualTreeEvents events) {
  auto tree = std::make_unique<TVirtualTree>(options, std::move(events), FPage);
  FTree = tree.get();
  FLayout->addWidget(CreateNotice());
  FLayout->addWidget(&tree->View(), 1);
  FPage->setFocusProxy(&tree->View());
  connect(FTree, &TVirtualTree::StateChanged, this, [this] {
    if (FToolBar)
      FToolBar->UpdateSoon();
    emit StateChanged();
  });
  connect(&tree->View(), &TTreeView::MenuWanted, this, &TFormControls::ShowMenu);
  return tree;
}

// Stands above the rows while there is something to say about them.
QLabel* TFormControls::CreateNotice() {
  constexpr int Margin = 8;
  auto* notice = new QLabel(FPage);
  notice->setObjectName("notice");
  notice->setTextFormat(Qt::PlainText);
  notice->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  notice->setWordWrap(true);
  notice->setMargin(Margin);
  notice->hide();
  connect(FTree, &TVirtualTree::NoticeChanged, notice, [notice](const QString& text) {
    notice->setText(text);
    notice->setVisible(!text.isEmpty());
  });
  return notice;
}

std::string TFormControls::GetIdentifier(const deployment::IOTAProject& project) const {
  return ProjectIdentifier(project);
}

bool TFormControls::CommitEditor() {
  return !FTree || FTree->View().Delegate().CommitEditor();
}

void TFormControls::AddOnTop(QWidget* bar) {
  FTop->addWidget(bar);
}

void TFormControls::AddAboveRows(QWidget* strip) {
  FAboveRows->addWidget(strip);
}

bool TFormControls::StartCommand() {
  if (!CommitEditor())
    return false;
  emit CommandStarts();
  return true;
}

void TFormControls::AddFiles(std::vector<std::string> files) {
  QAction* add = FToolBar ? FToolBar->Find(deployment::view_button::AddFiles) : nullptr;
  if (!add || files.empty())
    return;
  FDialogs.SetDropped(std::move(files));
  add->trigger();
  FDialogs.SetDropped({});
}

// The commands of the tool bar at the mouse.
void TFormControls::ShowMenu(const QPoint& place) {
  if (!FToolBar)
    return;
  QMenu menu(FPage);
  for (QAction* action : FToolBar->Actions()) {
    if (action->isSeparator() || !action->text().isEmpty())
      menu.addAction(action);
  }
  menu.exec(place);
}

} // namespace workbench
