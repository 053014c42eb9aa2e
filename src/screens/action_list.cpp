#include "action_list.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>

namespace amorra {

namespace {

constexpr int kColumnGap = 12;
constexpr int kTextMargin = 3;

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
        const QStringList columns = rowColumns(text);
        const QVector<int> &starts = m_list->columnStarts();
        for (int c = 0; c < columns.size(); ++c) {
            const int x = opt.rect.left() + kTextMargin + (c < starts.size() ? starts[c] : 0);
            const QRect cell(x, opt.rect.top(), opt.rect.right() - x, opt.rect.height());
            painter->drawText(cell, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, columns[c]);
        }
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        const QStringList columns = rowColumns(index.data().toString());
        const QVector<int> &starts = m_list->columnStarts();
        const int last = int(columns.size()) - 1;
        const int start = last < starts.size() ? starts[last] : 0;
        size.setWidth(2 * kTextMargin + start + option.fontMetrics.horizontalAdvance(columns[last]));
        return size;
    }

private:
    ActionList *m_list;
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
    QStringList columns = rowColumns(text);
    for (QString &column : columns)
        column = column.trimmed();
    item->setData(Qt::AccessibleTextRole, columns.join(QStringLiteral(", ")));
    m_filling = false;
    recomputeColumns();
}

void ActionList::clearRows()
{
    m_filling = true;
    clear();
    m_filling = false;
    recomputeColumns();
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
        recomputeColumns();
    }
    QListWidget::changeEvent(event);
}

void ActionList::recomputeColumns()
{
    // Column c starts a gap after the widest text any row has in column c - 1.
    // The rows take the design's font, or a smaller one where a wider
    // stand-in font would push the longest row past the scroll bar.
    const int room = width() - 2 * frameWidth() - style()->pixelMetric(QStyle::PM_ScrollBarExtent) - 2 * kTextMargin;
    QFont fitted = m_designFont;
    for (;;) {
        const QFontMetrics metrics(fitted);
        QVector<int> widest;
        int widestRow = 0;
        for (int r = 0; r < count(); ++r) {
            const QStringList columns = rowColumns(item(r)->text());
            if (widest.size() < columns.size())
                widest.resize(columns.size());
            for (int c = 0; c < columns.size(); ++c)
                widest[c] = std::max(widest[c], metrics.horizontalAdvance(columns[c]));
        }
        m_columnStarts.fill(0, widest.size());
        for (int c = 1; c < widest.size(); ++c)
            m_columnStarts[c] = m_columnStarts[c - 1] + widest[c - 1] + kColumnGap;
        if (!widest.isEmpty())
            widestRow = m_columnStarts.last() + widest.last();
        if (widestRow <= room || fitted.pointSizeF() <= 6)
            break;
        fitted.setPointSizeF(fitted.pointSizeF() - 0.25);
    }
    if (fitted != font()) {
        m_fitting = true;
        setFont(fitted);
        m_fitting = false;
    }
    viewport()->update();
}

} // namespace amorra
