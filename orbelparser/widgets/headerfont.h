#pragma once

class QTableView;

namespace KV218
{

/// Has the headers of a table follow its font: Qt's own lose the first change that comes after columns were added.
void KeepHeaderFont(QTableView *table);

} // namespace KV218
