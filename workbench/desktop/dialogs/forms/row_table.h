// Tables in which whole rows are chosen, one at a time.
#pragma once

class QTableView;

namespace workbench {

/// Makes the table, which has its model, look and work like the others; `wide` is the column that
/// takes the room that is left.
void SetUpRowTable(QTableView& table, int wide);

} // namespace workbench
