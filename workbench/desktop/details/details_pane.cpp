#include "workbench/desktop/details/details_pane.h"

#include "package/common/path_text.h"
#include "package/host/api/platformapi.h"
#include "package/host/api/platforms.h"
#include "workbench/desktop/controls/form_controls.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/details/entry_finder.h"
#include "workbench/desktop/list/row_list.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/files/machine_path.h"
#include "workbench/remote/profile/profile_entry.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QTextBrowser>
#include <algorithm>
#include <filesystem>
#include <utility>

namespace workbench {
namespace {

constexpr std::size_t MostFiles = 500; // that are looked at one by one
constexpr int SelectionPause = 40;     // milliseconds until the pane follows

} // namespace

TDetailsPane::TDetailsPane(TSession& session, TDetailsHost host, QWidget* parent)
    : QWidget(parent), FSession(session), FHost(std::move(host)), FText(new QTextBrowser(this)),
      FCompare(new QPushButton(tr("Compare &contents"), this)),
      FWhy(new QPushButton(tr("&Why is it here?"), this)),
      FMatrix(new TPlatformMatrix(
          [this](const QString& text, const std::function<void()>& command) {
            return FProject && FHost.Edit(*FProject, text, command);
          },
          this)),
      FTable(new QTableView(this)), FCondition(new QLineEdit(this)),
      FRequired(new QCheckBox(tr("&Required"), this)) {
  setObjectName("details");
  setAccessibleName(tr("Details"));
  MakeFields();
  Place();
  FSoon.setSingleShot(true);
  FSoon.setInterval(SelectionPause);
  connect(&FSoon, &QTimer::timeout, this, [this] { Guarded([this] { Update(); }); });
  Update();
}

void TDetailsPane::MakeFields() {
  FText->setObjectName("facts");
  FText->setAccessibleName(tr("What is known of the selected files"));
  FText->setFrameShape(QFrame::NoFrame);
  FText->setOpenLinks(false);
  FTable->setObjectName("platformMatrix");
  FTable->setAccessibleName(tr("What the selected files say about each platform"));
  FTable->setModel(FMatrix);
  FTable->setItemDelegate(new TMatrixDelegate(FTable));
  FTable->setTabKeyNavigation(false);
  FTable->setSelectionMode(QAbstractItemView::SingleSelection);
  FTable->horizontalHeader()->setHighlightSections(false);
  FCondition->setObjectName("condition");
  FCondition->setPlaceholderText(tr("no condition"));
  FRequired->setObjectName("required");
  FCompare->setObjectName("compare");
  FWhy->setObjectName("why");
  FCompare->setToolTip(tr("Reads the file here and the one on the target, and the record of the "
                          "last deploy"));
  FWhy->setToolTip(tr("Goes through the rules of the target once more"));
  connect(FCondition, &QLineEdit::editingFinished, this, &TDetailsPane::SetCondition);
  connect(FRequired, &QCheckBox::clicked, this, &TDetailsPane::SetRequired);
  connect(FCompare, &QPushButton::clicked, this, &TDetailsPane::Compare);
  connect(FWhy, &QPushButton::clicked, this, &TDetailsPane::Explain);
}

void TDetailsPane::Place() {
  constexpr int Margin = 4;
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(FCompare);
  buttons->addWidget(FWhy);
  buttons->addStretch();
  auto* top = new QWidget(this);
  auto* topLayout = new QVBoxLayout(top);
  topLayout->setContentsMargins(0, 0, 0, 0);
  topLayout->addWidget(FText, 1);
  topLayout->addLayout(buttons);
  auto* fields = new QFormLayout;
  fields->addRow(tr("C&ondition:"), FCondition);
  fields->addRow({}, FRequired);
  auto* bottom = new QWidget(this);
  auto* bottomLayout = new QVBoxLayout(bottom);
  bottomLayout->setContentsMargins(0, 0, 0, 0);
  bottomLayout->addWidget(FTable, 1);
  bottomLayout->addLayout(fields);
  auto* splitter = new QSplitter(Qt::Vertical, this);
  splitter->addWidget(top);
  splitter->addWidget(bottom);
  splitter->setChildrenCollapsible(false);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(Margin, Margin, Margin, Margin);
  layout->addWidget(splitter);
}

void TDetailsPane::Follow(TOpenProject* project, TFormControls* controls, TRowList* rows) {
  if (FProject == project && FControls == controls && FRows == rows)
    return;
  if (FRows)
    FRows->disconnect(&FSoon);
  if (FControls)
    FControls->disconnect(&FSoon);
  Forget();
  FProject = project;
  FControls = controls;
  FRows = rows;
  if (FRows && FControls) {
    connect(FRows, &TRowList::Changed, &FSoon, qOverload<>(&QTimer::start));
    connect(FControls, &TFormControls::StateChanged, &FSoon, qOverload<>(&QTimer::start));
  }
  FSoon.start();
}

void TDetailsPane::Forget() {
  FProject = nullptr;
  FFiles.clear();
  FFacts.clear();
  FSelected = 0;
  FMatrix->SetFiles({}, nullptr, {});
}

bool TDetailsPane::IsReady() const {
  return FProject && FControls && FControls->Tree() && FControls->TargetsComboBox() && FRows &&
         FRows->Index();
}

deployment::TDeploymentTarget TDetailsPane::Target() const {
  const TTargetsComboBox& box = *FControls->TargetsComboBox();
  const std::string platform = box.GetSelectedPlatform();
  return {box.GetSelectedConfiguration(),
          platform.empty() ? std::string(deployment::sAllPlatforms) : platform};
}

// Rows that were made anew are not selected any more, though they stand for the same files.
void TDetailsPane::KeepSelection() {
  const std::uint64_t revision = FRows->Tree().Model().Revision();
  const bool isAnew = std::exchange(FRevision, revision) != revision;
  TVirtualTree& tree = FRows->Tree();
  if (!isAnew || FFiles.empty() || tree.SelectedCount() > 0)
    return;
  for (const deployment::TNodeId node :
       TEntryFinder(*FProject, tree.Model(), Target()).RowsOf(FFiles)) {
    if (tree.Model().IndexOf(node).isValid())
      tree.SetSelected(node, true);
  }
  tree.Flush();
}

TDetailsPane::TFiles TDetailsPane::SelectedFiles() const {
  const std::vector<deployment::TNodeId> selected = FRows->Tree().GetSelected();
  TFiles files;
  if (selected.size() > MostFiles)
    return files;
  files.reserve(selected.size());
  const TEntryFinder finder(*FProject, FRows->Tree().Model(), Target());
  for (const deployment::TNodeId node : selected) {
    if (TFile file = finder.Find(node))
      files.push_back(std::move(file));
  }
  return files;
}

// Those of the project, and any other one that the entries speak of.
std::vector<std::string> TDetailsPane::Platforms() const {
  std::vector<std::string> names;
  if (const auto* platforms = FProject->Project().GetProjectPlatforms())
    names = platforms->GetSupportedPlatforms();
  for (const TFile& file : FFiles) {
    for (const std::string& platform : file->GetPlatforms()) {
      const bool isForAll =
          platform == deployment::FallbackPlatform || platform == deployment::sAllPlatforms;
      if (!isForAll && std::ranges::find(names, platform) == names.end())
        names.push_back(platform);
    }
  }
  return names;
}

void TDetailsPane::Update() {
  if (!isVisible() && FFiles.empty())
    return;
  if (!IsReady()) {
    if (!FProject || !FControls)
      ShowFacts();
    return;
  }
  KeepSelection();
  FSelected = static_cast<int>(FRows->Tree().SelectedCount());
  TFiles files = SelectedFiles();
  std::vector<TEntryFacts> facts = FactsOf(files);
  // What was asked of one file holds while it is shown and its rows are the same.
  if (files == FFiles && facts.size() == 1 && FFacts.size() == 1) {
    facts.front().Sides = FFacts.front().Sides;
    facts.front().Reasons = FFacts.front().Reasons;
  }
  FFiles = std::move(files);
  FFacts = std::move(facts);
  ShowFacts();
  ShowFields();
}

// Where relative paths begin; empty where there is no one place.
QString TDetailsPane::BaseOfTarget() const {
  const deployment::TDeploymentTarget target = Target();
  if (target.Platform == deployment::sAllPlatforms)
    return {};
  try {
    const TDestination destination =
        FSession.RemoteProfiles().Destinations().Find(FProject->Project(), target);
    return destination.Profile ? ToQString(ProfilePlace(*destination.Profile))
                               : PathToQString(destination.Staging);
  } catch (const TConnectionError&) {
    return tr("(no profile)");
  }
}

std::vector<TEntryFacts> TDetailsPane::FactsOf(const TFiles& files) const {
  std::vector<TEntryFacts> facts;
  facts.reserve(files.size());
  const deployment::TEntryPaths paths = FSession.PathsOf(*FProject, Target());
  const QString base = BaseOfTarget();
  const std::vector<deployment::TNodeId> nodes = FRows->Tree().GetSelected();
  for (std::size_t i = 0; i < files.size(); ++i) {
    const deployment::IProjectDeploymentFile& file = *files[i];
    TEntryFacts one{.LocalName = file.GetLocalName(),
                    .Class = file.GetDeploymentClass(),
                    .Configuration = file.GetConfiguration()};
    const std::filesystem::path local = ToMachinePath(paths.LocalFile(file));
    std::error_code ignored;
    one.LocalFile = PathToQString(local);
    one.IsHere = std::filesystem::exists(local, ignored);
    if (!base.isEmpty()) {
      const std::string remote = deployment::CanonicalizePath(paths.RemoteFile(file));
      const QString path = ToQString(remote).replace(u'\\', u'/');
      one.Landing = deployment::StandsForItself(remote) ? path : base + u'/' + path;
    }
    if (i < nodes.size())
      one.State = FRows->Index()->StateOf(nodes[i]);
    facts.push_back(std::move(one));
  }
  return facts;
}

void TDetailsPane::ShowFacts() {
  const bool isOne = FFacts.size() == 1 && FSelected == 1;
  if (isOne)
    FText->setHtml(FactsText(FFacts.front()));
  else if (FSelected > 0)
    FText->setHtml(SharedFactsText(FFacts, FSelected));
  else
    FText->setPlainText(tr("Select files to see where they come from, where they go and why."));
  FCompare->setEnabled(isOne && !FFacts.front().Landing.isEmpty());
  FWhy->setEnabled(isOne);
}

void TDetailsPane::ShowFields() {
  FMatrix->SetFiles(FFiles, &FProject->Deployment(), Platforms());
  FTable->setVisible(!FFiles.empty());
  FCondition->setEnabled(!FFiles.empty());
  FRequired->setEnabled(!FFiles.empty());
  const auto isShared = [this](auto value) {
    return std::ranges::all_of(
        FFiles, [&](const TFile& file) { return value(*file) == value(*FFiles.front()); });
  };
  using TEntry = deployment::IProjectDeploymentFile;
  const bool sameCondition =
      isShared([](const TEntry& file) -> const std::string& { return file.GetCondition(); });
  const bool sameRequired = isShared([](const TEntry& file) { return file.GetRequired(); });
  if (!FCondition->hasFocus() || !FCondition->isModified())
    FCondition->setText(!FFiles.empty() && sameCondition ? ToQString(FFiles.front()->GetCondition())
                                                         : QString());
  FCondition->setPlaceholderText(sameCondition ? tr("no condition") : tr("(different)"));
  FRequired->setTristate(!sameRequired);
  FRequired->setCheckState(!sameRequired                                      ? Qt::PartiallyChecked
                           : !FFiles.empty() && FFiles.front()->GetRequired() ? Qt::Checked
                                                                              : Qt::Unchecked);
}

void TDetailsPane::SetCondition() {
  if (!FProject || FFiles.empty() || !FCondition->isModified())
    return;
  FCondition->setModified(false);
  const TFiles files = FFiles;
  const std::string condition = ToStdString(FCondition->text());
  FHost.Edit(*FProject, tr("Condition"), [&] {
    for (const TFile& file : files)
      file->SetCondition(condition);
  });
}

void TDetailsPane::SetRequired(bool required) {
  if (!FProject || FFiles.empty())
    return;
  const TFiles files = FFiles;
  FHost.Edit(*FProject, tr("Required"), [&] {
    for (const TFile& file : files)
      file->SetRequired(required);
  });
}

void TDetailsPane::Compare() {
  if (!IsReady() || FFiles.size() != 1)
    return;
  const TFile file = FFiles.front();
  const deployment::TEntryPaths paths = FSession.PathsOf(*FProject, Target());
  const TSidesQuestion question{Target(), paths.LocalFile(*file), paths.RemoteFile(*file)};
  TBothSides sides;
  const bool asked = Guarded([&] {
    FHost.Work(*FProject, [&] { sides = LookAtBothSides(FSession, *FProject, question); });
  });
  if (!asked || FFiles.size() != 1 || FFiles.front() != file)
    return;
  FFacts.front().Sides = std::move(sides);
  ShowFacts();
}

void TDetailsPane::Explain() {
  if (!IsReady() || FFiles.size() != 1)
    return;
  const TFile file = FFiles.front();
  QStringList reasons;
  const bool asked = Guarded([&] { reasons = FHost.Reasons(*FProject, *file); });
  if (!asked || FFiles.size() != 1 || FFiles.front() != file)
    return;
  FFacts.front().Reasons = std::move(reasons);
  ShowFacts();
}

} // namespace workbench
