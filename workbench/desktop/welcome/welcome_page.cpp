#include "workbench/desktop/welcome/welcome_page.h"

#include <QCommandLinkButton>
#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

namespace workbench {
namespace {

constexpr int RecentShown = 6;
constexpr int ContentWidth = 620;
constexpr int Gap = 10;

QCommandLinkButton* MakeLink(const QString& text, const QString& description, QWidget* parent) {
  QString shown = text;
  auto* link =
      new QCommandLinkButton(shown.replace(u'&', QStringLiteral("&&")), description, parent);
  link->setAccessibleName(text);
  link->setAccessibleDescription(description);
  return link;
}

} // namespace

TWelcomePage::TWelcomePage(const std::vector<TExampleProject>& examples, bool hasGuide,
                           QWidget* parent)
    : QWidget(parent) {
  auto* area = new QScrollArea(this);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  auto* column = new QWidget(area);
  column->setMaximumWidth(ContentWidth);
  FContent = new QVBoxLayout(column);
  area->setWidget(column);
  area->setAlignment(Qt::AlignHCenter);
  auto* outer = new QVBoxLayout(this);
  outer->addWidget(area);

  auto* hint = new QLabel(tr("Open a project to see which files go to which platform.\n"
                             "A project file can also be dropped here."),
                          column);
  hint->setAlignment(Qt::AlignCenter);
  hint->setMargin(Gap / 2); // the dots of a capital letter need more than its line has
  auto* create = new QPushButton(tr("&New Project…"), column);
  auto* open = new QPushButton(tr("&Open Project…"), column);
  connect(create, &QPushButton::clicked, this, &TWelcomePage::NewWanted);
  connect(open, &QPushButton::clicked, this, &TWelcomePage::OpenWanted);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(create);
  buttons->addWidget(open);
  if (hasGuide) {
    auto* guide = new QPushButton(tr("&User Guide"), column);
    connect(guide, &QPushButton::clicked, this, &TWelcomePage::GuideWanted);
    buttons->addWidget(guide);
  }
  buttons->addStretch();
  FContent->addSpacing(2 * Gap);
  FContent->addWidget(hint);
  FContent->addSpacing(Gap);
  FContent->addLayout(buttons);
  FContent->addSpacing(Gap);
  FRecent = AddGroup(tr("Recent projects"));
  FRecentGroup = FRecent->parentWidget();
  FRecentGroup->hide();
  if (!examples.empty()) {
    QVBoxLayout* group = AddGroup(tr("Examples"));
    for (const TExampleProject& example : examples) {
      QCommandLinkButton* link = MakeLink(example.Name, example.Description, group->parentWidget());
      connect(link, &QPushButton::clicked, this, [this, example] { emit ExampleWanted(example); });
      group->addWidget(link);
    }
  }
  FContent->addStretch();
}

QVBoxLayout* TWelcomePage::AddGroup(const QString& title) {
  auto* group = new QGroupBox(title, FContent->parentWidget());
  auto* layout = new QVBoxLayout(group);
  layout->setSpacing(0);
  FContent->addWidget(group);
  return layout;
}

// A project that is gone stays away: its name would only lead to an error.
void TWelcomePage::SetRecent(const QStringList& files) {
  while (QLayoutItem* item = FRecent->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  for (const QString& file : files) {
    const QFileInfo info(file);
    if (FRecent->count() >= RecentShown || !info.exists())
      continue;
    QCommandLinkButton* link =
        MakeLink(info.fileName(), QDir::toNativeSeparators(info.path()), FRecentGroup);
    connect(link, &QPushButton::clicked, this, [this, file] { emit RecentWanted(file); });
    FRecent->addWidget(link);
  }
  FRecentGroup->setVisible(FRecent->count() > 0);
}

} // namespace workbench
