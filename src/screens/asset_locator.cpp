#include "asset_locator.h"

#include <QDir>
#include <QFileInfo>

namespace amorra {

QStringList assetDirCandidates(const QString &programDir)
{
    const QDir dir(programDir);
    return {
        QDir::cleanPath(dir.absoluteFilePath(QStringLiteral("../share/amorra"))),
        QDir::cleanPath(dir.absoluteFilePath(QStringLiteral("../../share/amorra"))),
        QDir::cleanPath(dir.absoluteFilePath(QStringLiteral("assets"))),
    };
}

QString locateAssetDir(const QString &programDir)
{
    const QStringList candidates = assetDirCandidates(programDir);
    for (const QString &candidate : candidates) {
        if (QFileInfo(candidate).isDir())
            return candidate;
    }
    return candidates.back();
}

} // namespace amorra
