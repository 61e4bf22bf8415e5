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
    const auto known = Find(name);
    if (known != Entries.end()) {
        ++known->Count;
    } else {
        Entries.push_back(Entry{name, 1, nullptr});
        Install(name);
    }
    if (Listening)
        Listening(true, name);
}

void TranslationCenter::Unregister(const QString &name)
{
    const auto entry = Find(name);
    if (entry == Entries.end())
        return;
    if (--entry->Count == 0) {
        // The translator takes itself out of the application when it goes, which may lead back here.
        const std::unique_ptr<QTranslator> leaving = std::move(entry->Translator);
        Entries.erase(entry);
    }
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
    for (const QString &name : GetRegistered())
        Install(name);
}

std::vector<TranslationCenter::Entry>::iterator TranslationCenter::Find(const QString &name)
{
    return std::find_if(Entries.begin(), Entries.end(), [&name](const Entry &entry) { return entry.Name == name; });
}

/// Loads the catalogue of a registered name. The application tells everybody of a catalogue that comes or goes, and
/// some may register names in turn, so the entry is looked up anew.
void TranslationCenter::Install(const QString &name)
{
    if (!QCoreApplication::instance())
        return;
    std::unique_ptr<QTranslator> translator = Load(name);
    QTranslator *const loaded = translator.get();
    const auto entry = Find(name);
    if (entry == Entries.end())
        return;
    // Goes at the end: a catalogue that is not found any more does not stay.
    std::swap(entry->Translator, translator);
    if (loaded)
        QCoreApplication::installTranslator(loaded);
}

/// The catalogue from the first directory that has one; null without.
std::unique_ptr<QTranslator> TranslationCenter::Load(const QString &name) const
{
    QStringList directories = Directories;
    directories << QCoreApplication::applicationDirPath() + QLatin1String("/translations")
                << QStringLiteral(":/translations");
    auto translator = std::make_unique<QTranslator>();
    for (const QString &directory : qAsConst(directories)) {
        // Tries the name without a locale, too, at the end.
        if (translator->load(QLocale(), name, QStringLiteral("_"), directory, QStringLiteral(".qm")))
            return translator;
    }
    return nullptr;
}
