#pragma once

#include <QAccessible>
#include <QHash>

#include <functional>

class QWidget;

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

// Tells them that the keyboard is on part `child` of `widget`, which has
// just gained the focus: after Qt has told them of the widget itself, so
// that they read the part, not only the widget's name.
void tellFocusedPart(QWidget *widget, int child);

} // namespace amorra
