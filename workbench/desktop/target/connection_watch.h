// How a list stands to its target, told from what the list shows.
#pragma once

#include <QDateTime>
#include <QString>
#include <cstdint>
#include <optional>

namespace workbench {

enum class TConnectionLook { NotConnected, Connecting, Connected, Lost };

/// What can be seen of a list.
struct TConnectionSigns {
  bool IsButtonDown = false;  ///< that of the connection
  bool HasAnswers = false;    ///< the rows show answers of a target
  bool HasRows = false;       ///< without rows nothing shows answers
  std::uint64_t Revision = 0; ///< of the rows; asked anew, they are others
};

/// Keeps when the connection was made and when the answers came. Used on the main thread.
class TConnectionWatch {
public:
  /// To be called whenever a sign may have changed.
  void Look(const TConnectionSigns& signs, const QDateTime& now);
  /// The files could not be asked about; holds until they are asked about again.
  void Lose(const QString& reason);

  TConnectionLook State() const { return FState; }
  /// Of a connection.
  const QDateTime& Since() const { return FSince; }
  const QDateTime& AnswersOf() const { return FAnswersOf; }
  const QString& LostBecause() const { return FLost; }

private:
  void Enter(TConnectionLook state, const TConnectionSigns& signs, const QDateTime& now);

  TConnectionLook FState = TConnectionLook::NotConnected;
  QDateTime FSince;
  QDateTime FAnswersOf;
  QString FLost;
  std::optional<std::uint64_t> FLostRevision; // of the rows, when it was said
  std::uint64_t FRevision = 0;
};

/// The state in words, with the age of the answers.
QString ConnectionWords(const TConnectionWatch& watch, const QString& profile,
                        const QDateTime& now);

} // namespace workbench
