#include "workbench/desktop/notices/notice_strip.h"

#include "workbench/desktop/controls/guarded.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

namespace workbench {

TNoticeStrip::TNoticeStrip(const TNotice& notice, QWidget* parent)
    : QFrame(parent), FText(new QLabel(notice.Text, this)) {
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::ToolTipBase);
  setAccessibleName(notice.Text);
  auto* icon = new QLabel(this);
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(size));
  FText->setTextFormat(Qt::PlainText);
  FText->setTextInteractionFlags(Qt::TextSelectableByMouse);
  FText->setWordWrap(true);
  FText->setForegroundRole(QPalette::ToolTipText);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(8, 4, 4, 4);
  layout->addWidget(icon);
  layout->addWidget(FText, 1);
  for (const TNoticeAction& action : notice.Actions) {
    auto* button = new QPushButton(action.Text, this);
    button->setObjectName(action.Text);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this,
            [run = action.Run] { static_cast<void>(Guarded(run)); });
    layout->addWidget(button);
    FButtons.push_back(button);
  }
  auto* close = new QToolButton(this);
  close->setAutoRaise(true);
  close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
  close->setAccessibleName(tr("Close the notice"));
  close->setToolTip(close->accessibleName());
  connect(close, &QToolButton::clicked, this, &TNoticeStrip::Closed);
  layout->addWidget(close);
}

QString TNoticeStrip::Text() const {
  return FText->text();
}

void TNoticeStrip::SetWhyNot(const QString& action, const QString& reason) {
  for (QPushButton* button : FButtons) {
    if (button->objectName() != action)
      continue;
    button->setEnabled(reason.isEmpty());
    button->setToolTip(reason);
  }
}

} // namespace workbench
