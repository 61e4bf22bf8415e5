#include "languages.h"

#include "translationcenter.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace Orbel
{

QStringList LanguagesOf(const QString &form)
{
    const QFileInfo info(form);
    const QString base = info.completeBaseName() + QLatin1Char('_');
    QStringList languages{QLocale().name(), QStringLiteral("en")};
    for (const QString &file : info.absoluteDir().entryList({base + QLatin1String("*.qm")}, QDir::Files))
        languages.append(file.mid(base.size()).section(QLatin1Char('.'), 0, 0));
    languages.removeDuplicates();
    return languages;
}

void SwitchLanguage(const QString &name)
{
    QLocale::setDefault(QLocale(name));
    TranslationCenter::Instance().Reload();
}

} // namespace Orbel
