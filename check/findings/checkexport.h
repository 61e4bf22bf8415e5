#pragma once

#include <QtGlobal>

/// Marks what liborbelcheck shows to its users.
#ifdef ORBEL_CHECK_LIBRARY
#define ORBEL_CHECK_EXPORT Q_DECL_EXPORT
#else
#define ORBEL_CHECK_EXPORT Q_DECL_IMPORT
#endif
