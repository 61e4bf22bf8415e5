#include "sharedicon.h"

#include <QHash>

namespace KV218
{

QIcon SharedIcon(const QString &name)
{
    // Never destroyed: at the end of the process the application goes before it, and what icons stand on.
    static auto *const icons = new QHash<QString, QIcon>;
    QIcon &icon = (*icons)[name];
    if (icon.isNull())
        icon = QIcon(QStringLiteral(":/OrbelParser/%1.svg").arg(name));
    return icon;
}

} // namespace KV218
