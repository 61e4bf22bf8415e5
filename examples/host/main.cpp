// A host application at its smallest: it shows the form of a definition file, keeps text size and collapsed groups from
// one run to the next, and prints the parameters whenever the operator applies them.

#include "orbelformular.h"
#include "orbelparser.h"

#include <QApplication>
#include <QSettings>
#include <QTextStream>
#include <QVBoxLayout>
#include <QWidget>

namespace
{

/// The form keeps its configuration in dynamic properties of an object of the host; these are what lasts.
const char *const ConfigurationKeys[] = {"form-fontsize", "form-collapsed"};

void Load(QObject &configuration, const QSettings &settings)
{
    for (const char *key : ConfigurationKeys)
        configuration.setProperty(key, settings.value(key));
}

void Save(const QObject &configuration, QSettings &settings)
{
    for (const char *key : ConfigurationKeys) {
        const QVariant value = configuration.property(key);
        if (value.isValid())
            settings.setValue(key, value);
        else
            settings.remove(key);
    }
}

} // namespace

int main(int argc, char **argv)
{
    // Sharp icons and controls of a usable size on dense screens; only counts before there is an application.
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QString path = QCoreApplication::arguments().value(1);
    const QExplicitlySharedDataPointer<KV218::OrbelFormular> form(KV218::OrbelParser().ParseORBELFile(path));
    if (!form) {
        err << "usage: orbel-examplehost FILE.orbel (\"" << path << "\" holds no form)\n";
        return 2;
    }

    QSettings settings("OrbelParser", "examplehost");
    QObject configuration;
    Load(configuration, settings);

    form->CreateValueTree("/ExampleHost");
    form->SetConfigObject(&configuration, "form");
    form->CreateGUI(true);
    QObject::connect(form.data(), &KV218::OrbelFormular::si_parametersModified, &application, [&] {
        out << form->GetXmlString(true).trimmed() << '\n' << Qt::flush;
    });

    // A text size is set on the widget around the form, which therefore holds nothing else.
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(form->GetGUI());
    window.setWindowTitle(path);
    window.resize(500, 800);
    window.show();
    const int status = QApplication::exec();
    Save(configuration, settings);
    return status;
}
