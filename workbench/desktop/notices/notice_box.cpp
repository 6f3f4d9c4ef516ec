#include "workbench/desktop/notices/notice_box.h"

#include <QVBoxLayout>

namespace workbench {

TNoticeBox::TNoticeBox(QWidget* parent) : QWidget(parent), FLayout(new QVBoxLayout(this)) {
  FLayout->setContentsMargins(0, 0, 0, 0);
  FLayout->setSpacing(1);
  hide();
}

TNoticeStrip& TNoticeBox::Show(const std::string& subject, const TNotice& notice) {
  Remove(subject);
  auto* strip = new TNoticeStrip(notice, this);
  FStrips[subject] = strip;
  connect(strip, &TNoticeStrip::Closed, this, [this, subject] { Remove(subject); });
  FLayout->addWidget(strip);
  show();
  return *strip;
}

// A button of the strip may have asked for it.
void TNoticeBox::Remove(const std::string& subject) {
  const auto found = FStrips.find(subject);
  if (found == FStrips.end())
    return;
  if (TNoticeStrip* strip = found->second) {
    strip->hide();
    FLayout->removeWidget(strip);
    strip->deleteLater();
  }
  FStrips.erase(found);
  setVisible(!FStrips.empty());
}

TNoticeStrip* TNoticeBox::Find(const std::string& subject) const {
  const auto found = FStrips.find(subject);
  return found == FStrips.end() ? nullptr : found->second.data();
}

} // namespace workbench
