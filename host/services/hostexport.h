#pragma once

#include <QtGlobal>

/// Marks what liborbelhost shows to its users.
#ifdef ORBEL_HOST_LIBRARY
#define ORBEL_HOST_EXPORT Q_DECL_EXPORT
#else
#define ORBEL_HOST_EXPORT Q_DECL_IMPORT
#endif
