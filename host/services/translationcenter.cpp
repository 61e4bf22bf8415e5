#include "translationcenter.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <algorithm>

TranslationCenter::TranslationCenter() = default;

TranslationCenter::~TranslationCenter() = default;

TranslationCenter &TranslationCenter::Instance()
{
    // Never destroyed: a library that is unloaded at the very end still withdraws its names.
    static TranslationCenter *const instance = new TranslationCenter;
    return *instance;
}

static void InstallAtStart()
{
    TranslationCenter::Instance().Reload();
}
Q_COREAPP_STARTUP_FUNCTION(InstallAtStart)

void TranslationCenter::Register(const QString &name)
{
    if (name.isEmpty())
        return;
    auto entry = Find(name);
    if (entry == Entries.end()) {
        entry = Entries.insert(entry, Entry{name, 0, nullptr});
        Install(*entry);
    }
    ++entry->Count;
    if (Listening)
        Listening(true, name);
}

void TranslationCenter::Unregister(const QString &name)
{
    const auto entry = Find(name);
    if (entry == Entries.end())
        return;
    // The translator takes itself out of the application when it is deleted with its entry.
    if (--entry->Count == 0)
        Entries.erase(entry);
    if (Listening)
        Listening(false, name);
}

void TranslationCenter::AddDirectory(const QString &directory)
{
    Directories << directory;
    Reload();
}

QStringList TranslationCenter::GetRegistered() const
{
    QStringList names;
    for (const Entry &entry : Entries)
        names << entry.Name;
    return names;
}

void TranslationCenter::SetListener(Listener listener)
{
    Listening = std::move(listener);
}

void TranslationCenter::Reload()
{
    for (Entry &entry : Entries)
        Install(entry);
}

std::vector<TranslationCenter::Entry>::iterator TranslationCenter::Find(const QString &name)
{
    return std::find_if(Entries.begin(), Entries.end(), [&name](const Entry &entry) { return entry.Name == name; });
}

void TranslationCenter::Install(Entry &entry) const
{
    if (!QCoreApplication::instance())
        return;
    // First, so that a catalogue that is not found any more does not stay.
    entry.Translator.reset();
    QStringList directories = Directories;
    directories << QCoreApplication::applicationDirPath() + QLatin1String("/translations")
                << QStringLiteral(":/translations");
    auto translator = std::make_unique<QTranslator>();
    for (const QString &directory : directories) {
        // Tries the name without a locale, too, at the end.
        if (translator->load(QLocale(), entry.Name, QStringLiteral("_"), directory, QStringLiteral(".qm"))) {
            QCoreApplication::installTranslator(translator.get());
            entry.Translator = std::move(translator);
            break;
        }
    }
}
