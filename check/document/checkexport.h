#pragma once

#include <QtGlobal>

/// Marks what liborbelcheck shows to its users.
#ifdef ORBEL_CHECK_LIBRARY
#define ORBEL_CHECK_EXPORT Q_DECL_EXPORT
#else
#define ORBEL_CHECK_EXPORT Q_DECL_IMPORT
#endif

/// Marks what the command `orbel` takes besides. Headers with it are not installed.
#define ORBEL_CHECK_INTERNAL ORBEL_CHECK_EXPORT
