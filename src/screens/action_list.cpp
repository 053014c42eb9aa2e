#include "action_list.h"

#include "widget_helpers.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>

#include <algorithm>

namespace amorra {

namespace {

constexpr int kColumnGap = 12;
constexpr int kTextMargin = 3;
constexpr double kSmallestPoints = 6;

int quarterPoints(const QFont &font)
{
    return qRound(font.pointSizeF() * 4);
}

class ColumnDelegate : public QStyledItemDelegate
{
public:
    explicit ColumnDelegate(ActionList *list)
        : QStyledItemDelegate(list)
        , m_list(list)
    {
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyleOptionViewItem opt = option;
        initStyleOption(&opt, index);
        const QString text = opt.text;
        opt.text.clear();
        const QWidget *widget = opt.widget;
        QStyle *style = widget ? widget->style() : nullptr;
        if (style)
            style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);

        const bool selected = opt.state & QStyle::State_Selected;
        painter->save();
        painter->setFont(opt.font);
        painter->setPen(opt.palette.color(opt.state & QStyle::State_Enabled ? QPalette::Normal : QPalette::Disabled,
                                          selected ? QPalette::HighlightedText : QPalette::Text));
        painter->setClipRect(opt.rect, Qt::IntersectClip);
        const int top = opt.rect.top() + (opt.rect.height() - QFontMetrics(opt.font).height()) / 2;
        const QStringList columns = rowColumns(text);
        const QVector<int> &starts = m_list->columnStarts();
        for (int c = 0; c < columns.size(); ++c) {
            const int x = opt.rect.left() + kTextMargin + (c < starts.size() ? starts[c] : 0);
            painter->drawStaticText(x, top, m_list->shapedText(columns[c]));
        }
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        // Every row is one line of the list's font: the style is asked its
        // height once, not to lay out each row's text again.
        if (m_heightFont != option.font || m_height < 0) {
            m_heightFont = option.font;
            m_height = QStyledItemDelegate::sizeHint(option, index).height();
        }
        const QStringList columns = rowColumns(index.data().toString());
        const QVector<int> &starts = m_list->columnStarts();
        const int last = int(columns.size()) - 1;
        const int start = last < starts.size() ? starts[last] : 0;
        return {2 * kTextMargin + start + m_list->textWidth(columns[last]), m_height};
    }

private:
    ActionList *m_list;
    mutable QFont m_heightFont;
    mutable int m_height = -1;
};

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
    : QListWidget(parent)
    , m_designFont(font())
{
    setItemDelegate(new ColumnDelegate(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setPressedLook(false);
    connect(this, &QListWidget::itemClicked, this, [this] { Q_EMIT rowChosen(); });
    connect(this, &QListWidget::currentRowChanged, this, [this](int r) {
        // Arrow keys choose a row as a click does. A mouse press makes a row
        // current before selecting it (the click follows), and gaining the
        // focus makes one current without selecting it at all.
        if (!m_filling && r >= 0 && item(r)->isSelected())
            Q_EMIT rowChosen();
    });
}

void ActionList::addRow(const QString &text)
{
    m_filling = true;
    auto *item = new QListWidgetItem(text, this);
    // Read aloud as columns, not as a string with tabs and padding in it.
    const QStringList columns = rowColumns(text);
    QStringList spoken;
    for (const QString &column : columns)
        spoken << column.trimmed();
    item->setData(Qt::AccessibleTextRole, spoken.join(QStringLiteral(", ")));
    m_filling = false;
    takeRow(columns);
    refit();
    viewport()->update();
}

void ActionList::clearRows()
{
    m_filling = true;
    clear();
    m_filling = false;
    useFont(m_designFont);
    viewport()->update();
}

int ActionList::selectedIndex() const
{
    const QList<QListWidgetItem *> chosen = selectedItems();
    return chosen.isEmpty() ? -1 : row(chosen.first());
}

QString ActionList::rowText(int r) const
{
    const QListWidgetItem *it = item(r);
    return it ? it->text() : QString();
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

void ActionList::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if ((key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) && currentItem()) {
        if (key != Qt::Key_Space && currentItem()->isSelected()) {
            Q_EMIT rowActivated();
            return;
        }
        currentItem()->setSelected(true);
        Q_EMIT rowChosen();
        return;
    }
    QListWidget::keyPressEvent(event);
}

void ActionList::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange && !m_fitting) {
        m_designFont = font();
        m_widths.clear();
        m_shaped.clear();
        m_widest.clear();
        m_columnStarts.clear();
        for (int r = 0; r < count(); ++r)
            takeRow(rowColumns(item(r)->text()));
        refit();
    }
    QListWidget::changeEvent(event);
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
    for (int r = 0; r < count(); ++r)
        takeRow(rowColumns(item(r)->text()));
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
