#pragma once

#include <QString>
#include <QStringList>

namespace amorra {

// Where the game looks for its pictures, animations and sounds, best first:
// an installed share folder beside the program, the same seen from a
// nested bin folder, and an assets folder right next to the program (the
// build tree links one there).
QStringList assetDirCandidates(const QString &programDir);

// The first candidate that exists, as a clean absolute path; when none
// does, the last one, so that every picture is simply missing.
QString locateAssetDir(const QString &programDir);

} // namespace amorra
