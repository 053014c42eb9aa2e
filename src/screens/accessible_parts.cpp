#include "accessible_parts.h"

#include <QPointer>
#include <QWidget>

namespace amorra {

AccessibleParts::~AccessibleParts()
{
    for (const QAccessible::Id id : std::as_const(m_ids))
        QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface *AccessibleParts::part(int index, const std::function<QAccessibleInterface *()> &make)
{
    if (const auto found = m_ids.constFind(index); found != m_ids.constEnd())
        return QAccessible::accessibleInterface(*found);
    QAccessibleInterface *made = make();
    m_ids.insert(index, QAccessible::registerAccessibleInterface(made));
    return made;
}

void tellScreenReaders(QObject *widget, QAccessible::Event what, int child)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(widget, what);
    if (child >= 0)
        event.setChild(child);
    QAccessible::updateAccessibility(&event);
}

void tellFocusedPart(QWidget *widget, int child)
{
    if (!QAccessible::isActive())
        return;
    QMetaObject::invokeMethod(
        widget,
        [target = QPointer<QWidget>(widget), child] {
            if (target && target->hasFocus())
                tellScreenReaders(target, QAccessible::Focus, child);
        },
        Qt::QueuedConnection);
}

} // namespace amorra
