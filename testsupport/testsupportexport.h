#pragma once

#include <QtGlobal>

/// Marks what liborbeltestsupport shows to its users.
#ifdef ORBEL_TESTSUPPORT_LIBRARY
#define ORBEL_TESTSUPPORT_EXPORT Q_DECL_EXPORT
#else
#define ORBEL_TESTSUPPORT_EXPORT Q_DECL_IMPORT
#endif
