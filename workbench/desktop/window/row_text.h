// Rows of a list as text, for other programs.
#pragma once

#include <QItemSelectionModel>
#include <QString>

namespace workbench {

/// The selected rows with the titles of their columns above; cells are parted by tabs.
QString SelectedRowsAsText(const QItemSelectionModel& selection);

} // namespace workbench
