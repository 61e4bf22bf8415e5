#include "outputfile.h"

#include "failure.h"

#include <QSaveFile>

#include <cstdio>

namespace Orbel
{

void WriteWhole(const QString &path, const QByteArray &bytes)
{
    if (path == QLatin1String("-")) {
        std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
        return;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw InputFailure(path, file.errorString());
}

} // namespace Orbel
