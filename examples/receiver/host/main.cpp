// A host to start from: two forms on a receiver that answers over the network.

#include "mainwindow.h"

#include <translationcenter.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QStandardPaths>

int main(int argc, char **argv)
{
    // For dense screens; only counts before there is an application.
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName("OrbelParser");
    QCoreApplication::setApplicationName("receiverhost");
    QApplication::setStyle("fusion");
    TranslationCenter::Instance().Register("receiverhost");

    QCommandLineParser parser;
    parser.setApplicationDescription("Two forms on a receiver, as simreceiver plays it.");
    parser.addHelpOption();
    parser.addOptions({
        {"host", "Connects to <HOST>.", "HOST", "127.0.0.1"},
        {"port", "Connects to port <P>.", "P", "5025"},
        {"forms", "Takes the definitions from <DIR>, and again whenever they are edited.", "DIR", RECEIVER_FORMS},
        {"presets", "Keeps presets in <DIR>.", "DIR",
            QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/presets"},
    });
    parser.process(application);

    MainWindow window(parser.value("forms"), parser.value("presets"));
    window.Open(parser.value("host"), quint16(parser.value("port").toUInt()));
    window.show();
    return QApplication::exec();
}
