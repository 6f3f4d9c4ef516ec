#include "workbench/desktop/dialogs/forms/row_table.h"

#include <QHeaderView>
#include <QTableView>

namespace workbench {

void SetUpRowTable(QTableView& table, int wide) {
  table.setSelectionBehavior(QAbstractItemView::SelectRows);
  table.setSelectionMode(QAbstractItemView::SingleSelection);
  table.setTabKeyNavigation(false);
  table.setShowGrid(false);
  table.setWordWrap(false);
  table.verticalHeader()->hide();
  table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().lineSpacing() * 3 / 2);
  table.horizontalHeader()->setHighlightSections(false);
  table.horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  table.horizontalHeader()->setSectionResizeMode(wide, QHeaderView::Stretch);
}

} // namespace workbench
