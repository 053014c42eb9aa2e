#pragma once

#include <QFont>
#include <QString>

namespace amorra {

// Italic drawn as the upright face slanted, as Qt draws it for a family
// without an italic face: the italic faces' files and tables (some 300 kB
// each) are never loaded.
QFont slanted(QFont font);

// The style name that picks `family`'s upright face nearest to that weight
// ("Book", "Regular", "Bold"); empty when it has none, or without a GUI.
QString uprightStyle(const QString &family, bool bold);

} // namespace amorra
