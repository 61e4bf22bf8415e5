#pragma once

#include <QtGlobal>

/// Marks what liborbelsession shows to its users.
#ifdef ORBEL_SESSION_LIBRARY
#define ORBEL_SESSION_EXPORT Q_DECL_EXPORT
#else
#define ORBEL_SESSION_EXPORT Q_DECL_IMPORT
#endif
