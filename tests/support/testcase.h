#pragma once

#include "orbeltestcase.h"
#include "rows.h"
#include "testsupport.h"

#include <QtTest>
#include <QtWidgets>

#include <functional>

using Orbel::LeftOver;
using Orbel::TestCase;

/// What the file at the path holds; empty for a file that cannot be read.
QByteArray BytesOf(const QString &path);

/// Writes a file into a folder; gives its path, or nothing.
QString WriteFile(const QTemporaryDir &folder, const QString &name, const QByteArray &content);

/// A number that an environment variable states, or another one.
int FromEnvironment(const char *name, int otherwise);
