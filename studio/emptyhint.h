#pragma once

#include <QLabel>

class QAbstractItemModel;
class QAbstractItemView;

namespace Orbel
{

/// A sentence in the middle of a list that has no rows, which tells why, or how to come to some.
class EmptyHint : public QLabel
{
    Q_OBJECT

public:
    /// Belongs to the view, whose model stays the same.
    EmptyHint(QAbstractItemView *view, const QString &text);

private:
    void ShowIfEmpty();

    QAbstractItemModel *const Model;
};

} // namespace Orbel
