#include "selectionitem.h"

SelectionItem::SelectionItem(const QString &name, double value, long key) : Name(name), Value(value), Key(key) { }

SelectionItem::~SelectionItem() = default;

bool SelectionItem::operator==(const SelectionItem &other) const
{
    return Name == other.Name && Value == other.Value && Key == other.Key;
}
