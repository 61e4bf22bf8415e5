#include "orbelcommand.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    // Sharp icons and controls of a usable size on dense screens; only counts before there is an application.
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    return Orbel::RunOrbel(argc, argv);
}
