#include "action_list.h"

#include "accessible_parts.h"
#include "widget_helpers.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <algorithm>
#include <cmath>

namespace amorra {

namespace {

constexpr int kColumnGap = 12;
constexpr int kTextMargin = 3;
constexpr double kSmallestPoints = 6;

int quarterPoints(const QFont &font)
{
    return qRound(font.pointSizeF() * 4);
}

// One row as screen readers meet it: a list item, read as its columns.
class RowAccessible : public AccessiblePart<ActionList>
{
public:
    RowAccessible(ActionList *list, int row)
        : AccessiblePart(list)
        , m_row(row)
    {
    }

    int row() const { return m_row; }
    bool isValid() const override { return owner() && m_row < owner()->count(); }
    QString text(QAccessible::Text t) const override
    {
        return isValid() && t == QAccessible::Name ? owner()->spokenText(m_row) : QString();
    }
    QAccessible::Role role() const override { return QAccessible::ListItem; }

    QRect rect() const override
    {
        const QRect r = isValid() ? owner()->rowRect(m_row) : QRect();
        return r.isEmpty() ? QRect() : QRect(owner()->viewport()->mapToGlobal(r.topLeft()), r.size());
    }

    QAccessible::State state() const override
    {
        QAccessible::State s;
        if (!isValid())
            return s;
        const ActionList *list = owner();
        s.selectable = true;
        s.focusable = true;
        s.selected = m_row == list->selectedIndex();
        s.focused = list->hasFocus() && m_row == list->currentRow();
        s.offscreen = list->rowRect(m_row).isEmpty();
        s.disabled = !list->isEnabled();
        return s;
    }

private:
    int m_row;
};

class ActionListAccessible : public QAccessibleWidget
{
public:
    explicit ActionListAccessible(ActionList *list)
        : QAccessibleWidget(list, QAccessible::List)
    {
    }

    int childCount() const override { return list()->count(); }

    // Rows are known by their place: row 3 is whatever the list shows third.
    QAccessibleInterface *child(int index) const override
    {
        if (index < 0 || index >= list()->count())
            return nullptr;
        return m_rows.part(index, [this, index] { return new RowAccessible(list(), index); });
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        if (!child || child->role() != QAccessible::ListItem || child->parent() != this)
            return -1;
        return static_cast<const RowAccessible *>(child)->row();
    }

    QAccessibleInterface *childAt(int x, int y) const override
    {
        const QPoint at = list()->viewport()->mapFromGlobal(QPoint(x, y));
        for (int r = 0; r < list()->count(); ++r)
            if (list()->rowRect(r).contains(at))
                return child(r);
        return nullptr;
    }

    QAccessibleInterface *focusChild() const override
    {
        return list()->hasFocus() ? child(list()->currentRow()) : nullptr;
    }

private:
    ActionList *list() const { return static_cast<ActionList *>(widget()); }

    mutable AccessibleParts m_rows;
};

QAccessibleInterface *actionListFactory(const QString &className, QObject *object)
{
    if (className == QLatin1String("amorra::ActionList") && object && object->isWidgetType())
        return new ActionListAccessible(static_cast<ActionList *>(object));
    return nullptr;
}

} // namespace

QStringList rowColumns(const QString &row)
{
    QStringList columns;
    QString current;
    bool inTabs = false;
    for (QChar ch : row) {
        if (ch == QLatin1Char('\t')) {
            if (!inTabs)
                columns << current;
            current.clear();
            inTabs = true;
        } else {
            current += ch;
            inTabs = false;
        }
    }
    columns << current;
    return columns;
}

ActionList::ActionList(QWidget *parent)
    : QAbstractScrollArea(parent)
    , m_designFont(font())
{
    static const bool factoryInstalled = [] {
        QAccessible::installFactory(actionListFactory);
        return true;
    }();
    Q_UNUSED(factoryInstalled);
    setFocusPolicy(Qt::StrongFocus);
    setPressedLook(false);
    verticalScrollBar()->setSingleStep(1);
}

void ActionList::addRow(const QString &text)
{
    m_rows << text;
    takeRow(rowColumns(text));
    refit();
    rowsChanged();
}

void ActionList::clearRows()
{
    m_rows.clear();
    m_current = m_selected = m_pressed = -1;
    useFont(m_designFont);
    rowsChanged();
}

QString ActionList::spokenText(int row) const
{
    QStringList spoken;
    for (const QString &column : rowColumns(rowText(row)))
        spoken << column.trimmed();
    return spoken.join(QStringLiteral(", "));
}

void ActionList::setCurrentRow(int row)
{
    if (row >= 0 && row < count())
        choose(row);
}

QRect ActionList::rowRect(int row) const
{
    const int top = (row - verticalScrollBar()->value()) * rowHeight();
    if (row < 0 || row >= count() || top >= viewport()->height() || top + rowHeight() <= 0)
        return {};
    return {0, top, viewport()->width(), rowHeight()};
}

void ActionList::scrollToRow(int row)
{
    QScrollBar *bar = verticalScrollBar();
    const int shown = std::max(1, viewport()->height() / rowHeight());
    if (row < bar->value())
        bar->setValue(row);
    else if (row >= bar->value() + shown)
        bar->setValue(row - shown + 1);
}

int ActionList::rowsWidth() const
{
    return 2 * kTextMargin + widestRow();
}

void ActionList::setPressedLook(bool pressed)
{
    // The list's white (or red) is the game's, so are its text colours,
    // whatever the desktop's palette.
    QPalette pal = palette();
    pal.setColor(QPalette::Base, pressed ? QColor(255, 0, 0) : QColor(255, 255, 255));
    pal.setColor(QPalette::Text, Qt::black);
    pal.setColor(QPalette::Disabled, QPalette::Text, QColor(96, 96, 96));
    pal.setColor(QPalette::Highlight, QColor(0, 0, 128));
    pal.setColor(QPalette::HighlightedText, Qt::white);
    setPalette(pal);
}

void ActionList::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Normal : QPalette::Disabled;
    const int textTop = (rowHeight() - fontMetrics().height()) / 2;
    for (int r = verticalScrollBar()->value(); r < count(); ++r) {
        const QRect area = rowRect(r);
        if (area.isEmpty())
            break;
        if (!area.intersects(event->rect()))
            continue;
        const bool selected = r == m_selected;
        if (selected)
            painter.fillRect(area, palette().brush(group, QPalette::Highlight));
        // The keyboard's frame goes under the text, as list boxes draw it.
        if (r == m_current && hasFocus()) {
            QStyleOptionFocusRect focus;
            focus.initFrom(this);
            focus.rect = area;
            focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
            focus.backgroundColor = palette().color(group, selected ? QPalette::Highlight : QPalette::Window);
            style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
        }
        painter.setPen(palette().color(group, selected ? QPalette::HighlightedText : QPalette::Text));
        const QStringList columns = rowColumns(m_rows[r]);
        for (int c = 0; c < columns.size(); ++c) {
            const int x = area.left() + kTextMargin + (c < m_columnStarts.size() ? m_columnStarts[c] : 0);
            painter.drawStaticText(x, area.top() + textTop, shapedText(columns[c]));
        }
    }
}

void ActionList::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    const int shown = std::max(1, viewport()->height() / rowHeight());
    int to = -1;
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (m_current < 0)
            break;
        if (key != Qt::Key_Space && m_current == m_selected)
            Q_EMIT rowActivated();
        else
            choose(m_current);
        return;
    case Qt::Key_Up:
        to = m_current - 1;
        break;
    case Qt::Key_Down:
        to = m_current + 1;
        break;
    case Qt::Key_PageUp:
        to = m_current - shown;
        break;
    case Qt::Key_PageDown:
        to = m_current + shown;
        break;
    case Qt::Key_Home:
        to = 0;
        break;
    case Qt::Key_End:
        to = count() - 1;
        break;
    default: {
        // A letter goes to the next row that starts with it, as in any list box.
        const QString typed = event->text();
        if (typed.size() == 1 && typed[0].isLetterOrNumber() && !(event->modifiers() & ~Qt::ShiftModifier)) {
            for (int step = 1; step <= count(); ++step) {
                const int r = (m_current + step) % count();
                if (m_rows[r].startsWith(typed, Qt::CaseInsensitive)) {
                    if (r != m_current)
                        choose(r);
                    return;
                }
            }
        }
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    }
    // As in any list box, only a move chooses: Down on the last row keeps her answer in view.
    if (count() == 0)
        return;
    if (const int row = std::clamp(to, 0, count() - 1); row != m_current)
        choose(row);
}

void ActionList::mousePressEvent(QMouseEvent *event)
{
    m_pressed = event->button() == Qt::LeftButton ? rowAt(event->position().toPoint().y()) : -1;
    if (m_pressed < 0)
        return;
    // Pressed is chosen on screen; the choice counts once the button comes up over it.
    m_current = m_selected = m_pressed;
    viewport()->update();
    tellScreenReaders(this, QAccessible::Focus, m_current);
    tellScreenReaders(this, QAccessible::Selection, m_current);
}

void ActionList::mouseReleaseEvent(QMouseEvent *event)
{
    const int pressed = std::exchange(m_pressed, -1);
    if (pressed >= 0 && event->button() == Qt::LeftButton && rowAt(event->position().toPoint().y()) == pressed)
        Q_EMIT rowChosen();
}

void ActionList::focusInEvent(QFocusEvent *event)
{
    // The keyboard arrives on the first row, framed but not chosen.
    if (m_current < 0 && count() > 0 && event->reason() != Qt::MouseFocusReason)
        m_current = 0;
    viewport()->update();
    if (m_current >= 0)
        tellFocusedPart(this, m_current);
    QAbstractScrollArea::focusInEvent(event);
}

void ActionList::focusOutEvent(QFocusEvent *event)
{
    viewport()->update();
    QAbstractScrollArea::focusOutEvent(event);
}

void ActionList::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBar();
}

void ActionList::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange && !m_fitting) {
        m_designFont = font();
        m_widths.clear();
        m_shaped.clear();
        m_widest.clear();
        m_columnStarts.clear();
        for (const QString &row : std::as_const(m_rows))
            takeRow(rowColumns(row));
        refit();
        updateScrollBar();
    }
    QAbstractScrollArea::changeEvent(event);
}

int ActionList::rowHeight() const
{
    // One line of the font, as list boxes space their rows.
    return std::max(1, int(std::ceil(QFontMetricsF(font()).height())));
}

int ActionList::rowAt(int y) const
{
    const int r = verticalScrollBar()->value() + y / rowHeight();
    return y >= 0 && r < count() ? r : -1;
}

void ActionList::choose(int row)
{
    const bool moved = row != m_current;
    const bool newlySelected = row != m_selected;
    m_current = m_selected = row;
    scrollToRow(row);
    viewport()->update();
    if (moved && hasFocus())
        tellScreenReaders(this, QAccessible::Focus, row);
    if (newlySelected)
        tellScreenReaders(this, QAccessible::Selection, row);
    Q_EMIT rowChosen();
}

void ActionList::rowsChanged()
{
    updateScrollBar();
    viewport()->update();
    tellScreenReaders(this, QAccessible::ObjectReorder);
}

void ActionList::updateScrollBar()
{
    // Scrolled a row at a time, so a row is never cut at the top.
    const int shown = std::max(1, viewport()->height() / rowHeight());
    QScrollBar *bar = verticalScrollBar();
    bar->setRange(0, std::max(0, count() - shown));
    bar->setPageStep(shown);
}

int ActionList::textWidth(const QString &text) const
{
    const SizedText key(quarterPoints(font()), text);
    auto found = m_widths.constFind(key);
    if (found == m_widths.constEnd())
        found = m_widths.insert(key, fontMetrics().horizontalAdvance(text));
    return *found;
}

const QStaticText &ActionList::shapedText(const QString &text) const
{
    const SizedText key(quarterPoints(font()), text);
    auto found = m_shaped.find(key);
    if (found == m_shaped.end()) {
        QStaticText shaped(text);
        shaped.setTextFormat(Qt::PlainText);
        shaped.prepare(QTransform(), font());
        found = m_shaped.insert(key, shaped);
    }
    return *found;
}

void ActionList::takeRow(const QStringList &columns)
{
    // Column c starts a gap after the widest text any row has in column c - 1.
    if (m_widest.size() < columns.size())
        m_widest.resize(columns.size());
    for (int c = 0; c < columns.size(); ++c)
        m_widest[c] = std::max(m_widest[c], textWidth(columns[c]));
    m_columnStarts.fill(0, m_widest.size());
    for (int c = 1; c < m_widest.size(); ++c)
        m_columnStarts[c] = m_columnStarts[c - 1] + m_widest[c - 1] + kColumnGap;
}

int ActionList::widestRow() const
{
    return m_widest.isEmpty() ? 0 : m_columnStarts.last() + m_widest.last();
}

void ActionList::refit()
{
    // The rows take the design's font, or the largest quarter-point size
    // below it at which a wider stand-in font keeps the longest row clear of
    // the scroll bar.
    const int room = width() - 2 * frameWidth() - style()->pixelMetric(QStyle::PM_ScrollBarExtent) - 2 * kTextMargin;
    const double fits = fittingPoints(font().pointSizeF(), widestRow(), room, kSmallestPoints, [this](double points) {
        layOutAt(points);
        return widestRow();
    });
    if (font().pointSizeF() != fits)
        layOutAt(fits);
}

void ActionList::layOutAt(double points)
{
    QFont sized = font();
    sized.setPointSizeF(points);
    useFont(sized);
    for (const QString &row : std::as_const(m_rows))
        takeRow(rowColumns(row));
}

void ActionList::useFont(const QFont &font)
{
    m_widest.clear();
    m_columnStarts.clear();
    if (font == this->font())
        return;
    m_fitting = true;
    setFont(font);
    m_fitting = false;
}

} // namespace amorra
