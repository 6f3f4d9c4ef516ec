// What a deploy would find, told from what a row of the list shows.
#pragma once

#include <QColor>
#include <QIcon>
#include <QString>
#include <array>
#include <cstddef>
#include <string_view>

namespace workbench {

/// In the order in which they are counted before the user's eyes.
enum class TRowState {
  Same,         ///< the target has this very file
  ToCopy,       ///< the target has none, or an older one
  ChangedThere, ///< the target's file is newer
  Kept,         ///< the target's file is another one, and is not to be overwritten
  MissingHere,  ///< there is no local file
  Off,          ///< not deployed to this target
  Unknown,      ///< the target was not asked, or did not tell
};

inline constexpr std::size_t RowStateCount = 7;
inline constexpr std::array<TRowState, RowStateCount> RowStates{
    TRowState::Same,        TRowState::ToCopy, TRowState::ChangedThere, TRowState::Kept,
    TRowState::MissingHere, TRowState::Off,    TRowState::Unknown};

/// What a row shows.
struct TRowLook {
  bool IsChecked = false;
  bool IsHere = false;           ///< the local file
  bool IsOverwritten = true;     ///< what is there already
  std::string_view RemoteStatus; ///< in the words of the list
};

TRowState StateOf(const TRowLook& look);

/// A word, such as "same".
QString StateWord(TRowState state);
/// So many files in the state: "3 to copy".
QString CountWords(TRowState state, int count);
/// A sentence about what it means.
QString StateHint(TRowState state);
/// A sign of its own shape and colour, which stands out from light and dark.
QIcon StateIcon(TRowState state);
QColor StateColor(TRowState state);

} // namespace workbench
