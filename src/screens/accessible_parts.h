#pragma once

#include <QAccessible>
#include <QHash>

#include <functional>

namespace amorra {

// The parts of a widget the game draws itself (rows, cells) as screen
// readers know them: each made when first asked for, registered with Qt so
// it keeps one identity, and known by its place from then on.
class AccessibleParts
{
public:
    AccessibleParts() = default;
    AccessibleParts(const AccessibleParts &) = delete;
    AccessibleParts &operator=(const AccessibleParts &) = delete;
    ~AccessibleParts();

    QAccessibleInterface *part(int index, const std::function<QAccessibleInterface *()> &make);

private:
    QHash<int, QAccessible::Id> m_ids;
};

// Tells screen readers, if one listens, of `what` on `widget` or on its
// part `child`.
void tellScreenReaders(QObject *widget, QAccessible::Event what, int child = -1);

} // namespace amorra
