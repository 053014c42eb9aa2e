#pragma once

#include <QAccessible>
#include <QHash>
#include <QPointer>
#include <QWidget>
#include <QWindow>

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

// One such part: no parts of its own, no text to set, known through the
// widget that draws it.
template <typename Owner>
class AccessiblePart : public QAccessibleInterface
{
public:
    explicit AccessiblePart(Owner *owner)
        : m_owner(owner)
    {
    }

    bool isValid() const override { return m_owner; }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_owner ? m_owner->window()->windowHandle() : nullptr; }
    QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(m_owner.data()); }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    void setText(QAccessible::Text, const QString &) override {}

protected:
    Owner *owner() const { return m_owner.data(); }

private:
    QPointer<Owner> m_owner;
};

// Tells screen readers, if one listens, of `what` on `widget` or on its
// part `child`.
void tellScreenReaders(QObject *widget, QAccessible::Event what, int child = -1);

// Tells them that the keyboard is on part `child` of `widget`, which has
// just gained the focus: after Qt has told them of the widget itself, so
// that they read the part, not only the widget's name.
void tellFocusedPart(QWidget *widget, int child);

} // namespace amorra
