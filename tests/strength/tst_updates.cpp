// Updates that arrive while a notification runs.
#include "testmain.h"
#include <QtTest>
class TestUpdates : public QObject { Q_OBJECT };
ORBEL_TEST_MAIN(TestUpdates)
#include "tst_updates.moc"
