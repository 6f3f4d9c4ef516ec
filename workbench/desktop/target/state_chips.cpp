#include "workbench/desktop/target/state_chips.h"

#include <QAction>
#include <QToolButton>

namespace workbench {
namespace {

constexpr int SignSize = 14;

} // namespace

TStateChips::TStateChips(TRowList& rows, QWidget* parent) : QToolBar(parent), FRows(&rows) {
  setObjectName("stateChips");
  setAccessibleName(tr("States of the files"));
  setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  setIconSize(QSize(SignSize, SignSize));
  for (const TRowState state : RowStates) {
    QAction* chip = addAction(StateIcon(state), QString());
    chip->setCheckable(true);
    chip->setVisible(false);
    chip->setToolTip(StateHint(state) + QLatin1Char('\n') +
                     tr("Click to see these files alone, and again to see all."));
    connect(chip, &QAction::triggered, this, [this, state] {
      if (FRows)
        FRows->ToggleState(state);
    });
    if (QWidget* button = widgetForAction(chip))
      button->setFocusPolicy(Qt::TabFocus);
    FChips[static_cast<std::size_t>(state)] = chip;
  }
}

// A state that rows are filtered by keeps its chip, so that the filter can be taken back.
void TStateChips::Update(bool areCounted) {
  TRowIndex* index = FRows ? FRows->Index() : nullptr;
  if (!index)
    return;
  bool isAnyShown = false;
  for (const TRowState state : RowStates) {
    QAction* chip = Chip(state);
    const std::size_t count = index->Counts()[static_cast<std::size_t>(state)];
    const bool isFilter = FRows->Filter().States.contains(state);
    const bool isKnown = state != TRowState::Unknown || index->IsConnected();
    chip->setText(CountWords(state, static_cast<int>(count)));
    chip->setChecked(isFilter);
    const bool isShown = isFilter || (areCounted && isKnown && count > 0);
    chip->setVisible(isShown);
    isAnyShown = isAnyShown || isShown;
  }
  setVisible(isAnyShown);
}

} // namespace workbench
