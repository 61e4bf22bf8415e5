#pragma once

class QTableWidget;

namespace KV218
{

/// Commits what the operator is typing into a cell, as leaving the cell does; handlers may end the table. The cells are
/// a CellItemDelegate's. A null table is none.
void FinishCellEdit(QTableWidget *table);

} // namespace KV218
