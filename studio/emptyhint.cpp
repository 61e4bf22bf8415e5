#include "emptyhint.h"

#include <QAbstractItemView>
#include <QEvent>

namespace Orbel
{

EmptyHint::EmptyHint(QAbstractItemView *view, const QString &text) : QLabel(text, view->viewport()), View(view)
{
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(12);
    // As grey as the hints in empty fields.
    setForegroundRole(QPalette::PlaceholderText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    view->viewport()->installEventFilter(this);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(view->model(), signal, this, &EmptyHint::ShowIfEmpty);
    connect(view->model(), &QAbstractItemModel::modelReset, this, &EmptyHint::ShowIfEmpty);
    ShowIfEmpty();
}

bool EmptyHint::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        ShowIfEmpty();
    return false;
}

void EmptyHint::ShowIfEmpty()
{
    setGeometry(View->viewport()->rect());
    setVisible(View->model()->rowCount() == 0);
}

} // namespace Orbel
