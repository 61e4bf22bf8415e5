#pragma once

#include <QtGlobal>

/// Marks what liborbelparser shows to its users.
#ifdef ORBEL_PARSER_LIBRARY
#define ORBEL_EXPORT Q_DECL_EXPORT
#else
#define ORBEL_EXPORT Q_DECL_IMPORT
#endif
