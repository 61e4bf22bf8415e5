#include "headerfont.h"

#include "lookwatch.h"

#include <QHeaderView>
#include <QTableView>

namespace KV218
{

void KeepHeaderFont(QTableView *table)
{
    new LookWatch(table, [table] {
        for (QHeaderView *header : {table->horizontalHeader(), table->verticalHeader()}) {
            if (!header->testAttribute(Qt::WA_SetFont) && header->font() != table->font())
                header->setFont(QFont());
        }
    });
}

} // namespace KV218
