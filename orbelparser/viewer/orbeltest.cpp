#include "orbeltest.h"

#include "componentlist.h"
#include "formfactory.h"
#include "orbelformular.h"
#include "orbelparser.h"
#include "orbeltestmain.h"

#include <QDebug>
#include <QFile>
#include <QTabWidget>
#include <QVBoxLayout>

namespace KV218
{

namespace
{

enum Argument { PathArgument = 4, OptionArgument = 5 };

/// Not through a logging category, whose messages a system-wide rule may hold back.
void WriteDebugOutput(const QString &text)
{
    QMessageLogger(nullptr, 0, nullptr, "orbel.viewer").debug().noquote().nospace() << text;
}

/// The text size that an operator picks is set on the form's parent: here it changes nothing else.
QWidget *NewHolder(QWidget *form)
{
    auto *holder = new QWidget;
    auto *layout = new QVBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(form);
    return holder;
}

} // namespace

OrbelTest::OrbelTest(QString name) : IDllInstance(name), MainWindow(new OrbelTestMain) { }

bool OrbelTest::Init(int argc, const char **argv)
{
    if (argc <= PathArgument)
        return true;
    const QString path = QString::fromLocal8Bit(argv[PathArgument]);
    const QString option = argc > OptionArgument ? QString::fromLocal8Bit(argv[OptionArgument]) : QString();
    if (path.endsWith(QLatin1String(".orbel")))
        LoadOrbel(path, option);
    else
        LoadComponents(path);
    return true;
}

void OrbelTest::LoadOrbel(const QString &path, const QString &option)
{
    CurrentFormular = OrbelParser().ParseORBELFile(path);
    if (!CurrentFormular) {
        WriteDebugOutput(QStringLiteral("** LoadOrbel: Cannot load %1\n").arg(path));
        return;
    }
    connect(CurrentFormular, &OrbelFormular::si_scriptFailed, this, [this, path](int line, const QString &text) {
        const int inFile = line > 0 ? CurrentFormular->GetScript().GetLine() + line - 1 : line;
        WriteDebugOutput(QStringLiteral("%1:%2: %3").arg(path, QString::number(inFile), text));
    });
    if (option == QLatin1String("debug"))
        CurrentFormular->DebugScript();
    CurrentFormular->CreateValueTree(QStringLiteral("/OrbelTest"));
    CurrentFormular->CreateGUI(true);
    connect(CurrentFormular, &OrbelFormular::si_parametersModified, this, &OrbelTest::sl_parametersModified);
    MainWindow->setCentralWidget(NewHolder(CurrentFormular->GetGUI()));
    CurrentFormular->Show();
    MainWindow->show();
}

void OrbelTest::sl_parametersModified()
{
    if (CurrentFormular)
        WriteDebugOutput(QStringLiteral("sl_parametersModified:\n%1\n").arg(CurrentFormular->GetXmlString(false)));
}

void OrbelTest::LoadComponents(const QString &path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    auto *tabs = new QTabWidget;
    MainWindow->setCentralWidget(tabs);
    QXmlStreamReader list(&file);
    int count = 0;
    ForEachDefinition(list, [&](const QString &component, const QString &definition) {
        QXmlStreamReader reader(definition);
        OrbelFormular *formular = NewFormular(reader);
        if (!formular)
            return;
        formular->CreateValueTree(QStringLiteral("/OrbelTest/Form_%1").arg(++count));
        formular->CreateGUI(false);
        // Meant: the forms of a list are held by nobody, their changes go nowhere, and they live as long as the
        // process.
        tabs->addTab(NewHolder(formular->GetGUI()), component);
        formular->Show();
    });
    MainWindow->show();
}

} // namespace KV218
