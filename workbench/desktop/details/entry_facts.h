// What is known of one entry, as a text for people.
#pragma once

#include "workbench/desktop/details/both_sides.h"
#include "workbench/desktop/list/row_state.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <string>

namespace workbench {

struct TEntryFacts {
  std::string LocalName = {};
  std::string Class = {};
  std::string Configuration = {};
  QString LocalFile = {}; ///< full
  bool IsHere = false;
  QString Landing = {}; ///< in full; empty where there is no one target
  TRowState State = TRowState::Unknown;
  std::optional<TBothSides> Sides = std::nullopt; ///< as soon as they were asked
  QStringList Reasons = {};                       ///< sentences; none: not asked yet
};

/// As rich text, every name of the user's in it as it is.
QString FactsText(const TEntryFacts& facts);

/// What several files share: how many there are, their classes and configurations.
QString SharedFactsText(const std::vector<TEntryFacts>& facts, int selected);

} // namespace workbench
