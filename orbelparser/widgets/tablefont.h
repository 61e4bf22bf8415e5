#pragma once

class QTableView;

namespace KV218
{

/// Has the headers and the rows of a table follow its font: Qt's headers lose the first change that comes after columns
/// were added, and its rows stay as low as they were.
void FollowTableFont(QTableView *table);

} // namespace KV218
