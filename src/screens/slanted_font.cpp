#include "slanted_font.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QHash>
#include <QStringList>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace amorra {

QString uprightStyle(const QString &family, bool bold)
{
    static QHash<std::pair<QString, bool>, QString> known;
    const std::pair<QString, bool> key(family, bold);
    if (const auto found = known.constFind(key); found != known.constEnd())
        return *found;
    QString best;
    if (qGuiApp) {
        static const QStringList slantedOrNarrow = {QStringLiteral("Italic"), QStringLiteral("Oblique"),
                                                    QStringLiteral("Condensed"), QStringLiteral("Narrow")};
        const int wanted = bold ? QFont::Bold : QFont::Normal;
        int bestDistance = 0;
        for (const QString &style : QFontDatabase::styles(family)) {
            if (std::any_of(slantedOrNarrow.begin(), slantedOrNarrow.end(),
                            [&style](const QString &w) { return style.contains(w, Qt::CaseInsensitive); }))
                continue;
            const int distance = std::abs(QFontDatabase::weight(family, style) - wanted);
            if (best.isEmpty() || distance < bestDistance) {
                best = style;
                bestDistance = distance;
            }
        }
    }
    known.insert(key, best);
    return best;
}

QFont slanted(QFont font)
{
    font.setStyleName(uprightStyle(font.families().value(0, font.family()), font.bold()));
    font.setItalic(true);
    return font;
}

} // namespace amorra
