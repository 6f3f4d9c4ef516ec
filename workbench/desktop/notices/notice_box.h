// The strips above the rows of one project.
#pragma once

#include "workbench/desktop/notices/notice_strip.h"

#include <QPointer>
#include <QWidget>
#include <map>
#include <string>

class QVBoxLayout;

namespace workbench {

/// One strip for each subject; what is said anew about a subject replaces what was said before.
class TNoticeBox final : public QWidget {
  Q_OBJECT

public:
  explicit TNoticeBox(QWidget* parent);

  TNoticeStrip& Show(const std::string& subject, const TNotice& notice);
  void Remove(const std::string& subject);
  /// Null when nothing is said about it.
  TNoticeStrip* Find(const std::string& subject) const;

private:
  QVBoxLayout* FLayout;
  std::map<std::string, QPointer<TNoticeStrip>> FStrips;
};

} // namespace workbench
