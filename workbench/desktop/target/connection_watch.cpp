#include "workbench/desktop/target/connection_watch.h"

#include <QCoreApplication>
#include <QLocale>

namespace workbench {
namespace {

QString Clock(const QDateTime& time) {
  return QLocale().toString(time.time(), QLocale::ShortFormat);
}

QString AgeWords(const QDateTime& then, const QDateTime& now) {
  constexpr qint64 Minute = 60;
  const auto minutes = static_cast<int>(then.secsTo(now) / Minute);
  return minutes < 1 ? QCoreApplication::translate("TTargetBar", "answers of just now")
                     : QCoreApplication::translate("TTargetBar", "answers %n minute(s) old",
                                                   nullptr, minutes);
}

} // namespace

void TConnectionWatch::Look(const TConnectionSigns& signs, const QDateTime& now) {
  TConnectionLook state = TConnectionLook::NotConnected;
  if (signs.IsButtonDown)
    state = signs.HasAnswers || !signs.HasRows ? TConnectionLook::Connected
                                               : TConnectionLook::Connecting;
  // What was said of rows that have gone holds for those that came of it.
  if (FLostRevision && signs.Revision != *FLostRevision && state == TConnectionLook::Connected) {
    FLostRevision.reset();
    FRevision = signs.Revision;
    FState = TConnectionLook::Lost;
    return;
  }
  const bool wasAskedAnew = signs.Revision != FRevision;
  if (FState == TConnectionLook::Lost && state == TConnectionLook::Connected && !wasAskedAnew)
    return;
  if (state != FState)
    Enter(state, signs, now);
  else if (wasAskedAnew)
    FAnswersOf = now;
  FRevision = signs.Revision;
}

void TConnectionWatch::Enter(TConnectionLook state, const TConnectionSigns& signs,
                             const QDateTime& now) {
  const bool isBack = FState == TConnectionLook::Lost && state == TConnectionLook::Connected;
  FState = state;
  FLost.clear();
  FLostRevision.reset();
  FRevision = signs.Revision;
  FAnswersOf = now;
  if (!isBack)
    FSince = now;
}

void TConnectionWatch::Lose(const QString& reason) {
  FLost = reason;
  FLostRevision = FRevision;
}

QString ConnectionWords(const TConnectionWatch& watch, const QString& profile,
                        const QDateTime& now) {
  switch (watch.State()) {
  case TConnectionLook::Connecting:
    return QCoreApplication::translate("TTargetBar", "Connecting to %1 …").arg(profile);
  case TConnectionLook::Connected:
    return QCoreApplication::translate("TTargetBar", "Connected since %1, %2")
        .arg(Clock(watch.Since()), AgeWords(watch.AnswersOf(), now));
  case TConnectionLook::Lost:
    return QCoreApplication::translate("TTargetBar", "Connection lost: %1")
        .arg(watch.LostBecause());
  case TConnectionLook::NotConnected:
    break;
  }
  return QCoreApplication::translate("TTargetBar", "Not connected");
}

} // namespace workbench
