#pragma once

#include "hostexport.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

class QTranslator;

/// Makes translation catalogues available to QCoreApplication::translate(). The catalogue of a name is the first of
/// NAME_LOCALE.qm, with the default locale's languages and their usual shortening, and NAME.qm. Directories: those that
/// the host added, in that order, `translations` beside the application, `:/translations`. A directory is searched for
/// both before the next one. Without a catalogue, texts stay as they are.
class ORBEL_HOST_EXPORT TranslationCenter
{
public:
    /// Called at each Register() with true and at each Unregister() with false.
    using Listener = std::function<void(bool registered, const QString &name)>;

    /// The one centre of the process.
    static TranslationCenter &Instance();

    TranslationCenter(const TranslationCenter &) = delete;
    TranslationCenter &operator=(const TranslationCenter &) = delete;

    /// Registrations are counted by name. A name that comes before the application object is installed as soon as that
    /// exists. An empty name does nothing.
    void Register(const QString &name);
    /// The last registration's end withdraws the catalogue. A name that is not registered does nothing.
    void Unregister(const QString &name);
    /// Adds a directory to search, for the names that are registered already, too.
    void AddDirectory(const QString &directory);

    /// The registered names in the order of their first registration.
    QStringList GetRegistered() const;
    /// An empty function listens no more.
    void SetListener(Listener listener);
    /// Loads all catalogues anew, as after a change of the default locale. Called by itself when an application starts.
    void Reload();

private:
    struct Entry {
        QString Name;
        int Count = 0;
        std::unique_ptr<QTranslator> Translator;
    };

    TranslationCenter();
    ~TranslationCenter();
    std::vector<Entry>::iterator Find(const QString &name);
    void Install(const QString &name);
    std::unique_ptr<QTranslator> Load(const QString &name) const;

    std::vector<Entry> Entries;
    QStringList Directories;
    Listener Listening;
};
