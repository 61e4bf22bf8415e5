#include "emptyhint.h"

#include <QAbstractItemView>
#include <QVBoxLayout>

namespace Orbel
{

EmptyHint::EmptyHint(QAbstractItemView *view, const QString &text) : QLabel(text), Model(view->model())
{
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    // So it is grey in any palette, and the view has the mouse.
    setEnabled(false);
    (new QVBoxLayout(view->viewport()))->addWidget(this);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(Model, signal, this, &EmptyHint::ShowIfEmpty);
    connect(Model, &QAbstractItemModel::modelReset, this, &EmptyHint::ShowIfEmpty);
    ShowIfEmpty();
}

void EmptyHint::ShowIfEmpty()
{
    setVisible(Model->rowCount() == 0);
}

} // namespace Orbel
