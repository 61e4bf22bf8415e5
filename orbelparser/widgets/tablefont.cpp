#include "tablefont.h"

#include "lookwatch.h"

#include <QHeaderView>
#include <QTableView>

namespace KV218
{

void FollowTableFont(QTableView *table)
{
    new Orbel::LookWatch(table, table, [table] {
        for (QHeaderView *header : {table->horizontalHeader(), table->verticalHeader()}) {
            if (!header->testAttribute(Qt::WA_SetFont) && header->font() != table->font())
                header->setFont(QFont());
        }
        QHeaderView *rows = table->verticalHeader();
        if (rows->defaultSectionSize() < rows->minimumSectionSize())
            rows->setDefaultSectionSize(rows->minimumSectionSize());
    });
}

} // namespace KV218
