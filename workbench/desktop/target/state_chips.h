// How many rows are in each state; a chip shows those of its state alone.
#pragma once

#include "workbench/desktop/list/row_list.h"

#include <QPointer>
#include <QToolBar>
#include <array>

namespace workbench {

class TStateChips final : public QToolBar {
  Q_OBJECT

public:
  /// The rows may go before the chips do.
  TStateChips(TRowList& rows, QWidget* parent);

  /// `areCounted` is false where states mean nothing, as for all platforms at once.
  void Update(bool areCounted);
  QAction* Chip(TRowState state) const { return FChips[static_cast<std::size_t>(state)]; }

private:
  QPointer<TRowList> FRows;
  std::array<QAction*, RowStateCount> FChips{};
};

} // namespace workbench
