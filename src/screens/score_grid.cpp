#include "score_grid.h"

#include "accessible_parts.h"
#include "widget_helpers.h"

#include <QAccessibleTableInterface>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <algorithm>

namespace amorra {

namespace {

constexpr int kColumnTwips[ScoreGrid::kColumns] = {350, 3100, 1250, 1550, 1250};
const QColor kHeading(128, 128, 255);
const QColor kHeadingInk(0, 0, 64);
const QColor kLines(128, 128, 255);

QString qt(const std::string &s)
{
    return QString::fromStdString(s);
}

// Cells are children after the five headings, row by row.
int partIndex(int row, int column)
{
    return (row + 1) * ScoreGrid::kColumns + column;
}

// A heading (row -1) or a cell, read without the name's padding.
class CellAccessible : public AccessiblePart<ScoreGrid>, public QAccessibleTableCellInterface
{
public:
    CellAccessible(ScoreGrid *grid, int row, int column)
        : AccessiblePart(grid)
        , m_row(row)
        , m_column(column)
    {
    }

    QAccessible::Role role() const override { return m_row < 0 ? QAccessible::ColumnHeader : QAccessible::Cell; }

    QString text(QAccessible::Text t) const override
    {
        const ScoreGrid *grid = owner();
        if (!grid || t != QAccessible::Name)
            return {};
        return (m_row < 0 ? grid->headerText(m_column) : grid->cellText(m_row, m_column)).trimmed();
    }

    QRect rect() const override
    {
        const ScoreGrid *grid = owner();
        if (!grid)
            return {};
        const QRect r = grid->cellRect(m_row, m_column).intersected(grid->contentsRect());
        return {grid->mapToGlobal(r.topLeft()), r.size()};
    }

    QAccessible::State state() const override
    {
        QAccessible::State s;
        const ScoreGrid *grid = owner();
        if (!grid || m_row < 0)
            return s;
        s.focusable = true;
        s.focused = grid->hasFocus() && m_row == grid->currentRow() && m_column == grid->currentColumn();
        return s;
    }

    void *interface_cast(QAccessible::InterfaceType t) override
    {
        return t == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface *>(this) : nullptr;
    }

    bool isSelected() const override { return false; }
    QList<QAccessibleInterface *> columnHeaderCells() const override;
    QList<QAccessibleInterface *> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return m_column; }
    int rowIndex() const override { return m_row; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface *table() const override { return parent(); }

private:
    int m_row;
    int m_column;
};

class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit GridAccessible(ScoreGrid *grid)
        : QAccessibleWidget(grid, QAccessible::Table)
    {
    }

    int childCount() const override { return partIndex(grid()->rowCount(), 0); }

    QAccessibleInterface *child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        const int row = index / ScoreGrid::kColumns - 1;
        const int column = index % ScoreGrid::kColumns;
        return m_cells.part(index, [this, row, column] { return new CellAccessible(grid(), row, column); });
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        const QAccessibleTableCellInterface *cell =
            child ? const_cast<QAccessibleInterface *>(child)->tableCellInterface() : nullptr;
        return cell && child->parent() == this ? partIndex(cell->rowIndex(), cell->columnIndex()) : -1;
    }

    QAccessibleInterface *childAt(int x, int y) const override
    {
        const QPoint at = grid()->mapFromGlobal(QPoint(x, y));
        for (int i = 0; i < childCount(); ++i)
            if (grid()->cellRect(i / ScoreGrid::kColumns - 1, i % ScoreGrid::kColumns).contains(at))
                return child(i);
        return nullptr;
    }

    QAccessibleInterface *focusChild() const override
    {
        return grid()->hasFocus() && grid()->currentRow() >= 0
                   ? child(partIndex(grid()->currentRow(), grid()->currentColumn()))
                   : nullptr;
    }

    void *interface_cast(QAccessible::InterfaceType t) override
    {
        if (t == QAccessible::TableInterface)
            return static_cast<QAccessibleTableInterface *>(this);
        return QAccessibleWidget::interface_cast(t);
    }

    // Read only, nothing to select.
    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    QAccessibleInterface *cellAt(int row, int column) const override
    {
        return row >= 0 && row < rowCount() && column >= 0 && column < columnCount() ? child(partIndex(row, column))
                                                                                      : nullptr;
    }
    int selectedCellCount() const override { return 0; }
    QList<QAccessibleInterface *> selectedCells() const override { return {}; }
    QString columnDescription(int column) const override { return grid()->headerText(column).trimmed(); }
    int columnCount() const override { return ScoreGrid::kColumns; }
    int selectedColumnCount() const override { return 0; }
    QList<int> selectedColumns() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    QString rowDescription(int) const override { return {}; }
    int rowCount() const override { return grid()->rowCount(); }
    int selectedRowCount() const override { return 0; }
    QList<int> selectedRows() const override { return {}; }
    bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent *) override {}

private:
    ScoreGrid *grid() const { return static_cast<ScoreGrid *>(widget()); }

    mutable AccessibleParts m_cells;
};

QList<QAccessibleInterface *> CellAccessible::columnHeaderCells() const
{
    QAccessibleInterface *grid = parent();
    return m_row >= 0 && grid ? QList<QAccessibleInterface *>{grid->child(m_column)} : QList<QAccessibleInterface *>{};
}

QAccessibleInterface *scoreGridFactory(const QString &className, QObject *object)
{
    if (className == QLatin1String("amorra::ScoreGrid") && object && object->isWidgetType())
        return new GridAccessible(static_cast<ScoreGrid *>(object));
    return nullptr;
}

} // namespace

ScoreGrid::ScoreGrid(const HighScoreScreenData &data, QWidget *parent)
    : QFrame(parent)
{
    static const bool factoryInstalled = [] {
        QAccessible::installFactory(scoreGridFactory);
        return true;
    }();
    Q_UNUSED(factoryInstalled);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setFocusPolicy(Qt::StrongFocus);
    nameControl(this, QStringLiteral("Score_list"), QStringLiteral("Top 20 table"));
    setColours(this, Qt::black, QColor(192, 192, 255));
    setGeometry(twipsRect(0, 0, 7380, 5130));
    setFont(sansSerifFont(8.25));

    for (int c = 0; c < kColumns; ++c)
        m_headers[size_t(c)] = c < int(data.headers.size()) ? qt(data.headers[size_t(c)]) : QString();
    m_cells.resize(kShownScores);
    m_red.resize(kShownScores);
    QString longestName;
    for (int r = 0; r < kShownScores; ++r) {
        const ScoreRow *row = r < int(data.rows.size()) ? &data.rows[size_t(r)] : nullptr;
        for (int c = 0; c < kColumns && row; ++c)
            m_cells[size_t(r)][size_t(c)] = qt(row->cells[size_t(c)]);
        m_red[size_t(r)] = row && row->red;
        const QString name = m_cells[size_t(r)][1].trimmed();
        if (fontMetrics().horizontalAdvance(name) > fontMetrics().horizontalAdvance(longestName))
            longestName = name;
    }

    // The design's columns are wider than the grid: its edge cuts the last.
    m_columnLefts[0] = frameWidth();
    for (int c = 0; c < kColumns; ++c)
        m_columnLefts[size_t(c) + 1] = m_columnLefts[size_t(c)] + twips(kColumnTwips[c]);

    // The design's font at most, smaller when a long name needs it: a name
    // shows whole, and its padding never turns into an ellipsis.
    const int textMargins = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1) + 1;
    setFont(fittedFont(font(), longestName, twips(kColumnTwips[1]) - textMargins));
}

QColor ScoreGrid::cellColour(int row) const
{
    return m_red[size_t(row)] ? QColor(255, 0, 0) : palette().color(QPalette::Text);
}

QRect ScoreGrid::cellRect(int row, int column) const
{
    // Each cell's line is its last pixel column and its last pixel row.
    const int top = frameWidth() + (row + 1) * kLineHeight;
    return QRect(m_columnLefts[size_t(column)], top, m_columnLefts[size_t(column) + 1] - m_columnLefts[size_t(column)] - 1,
                 kLineHeight - 1);
}

void ScoreGrid::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.setClipRect(contentsRect());
    const int left = m_columnLefts[0];
    const int right = std::min(m_columnLefts[kColumns], contentsRect().right() + 1) - 1;
    const int top = frameWidth() + kLineHeight;
    const int bottom = top + rowCount() * kLineHeight - 1;

    for (int c = 0; c < kColumns; ++c) {
        const QRect heading = cellRect(-1, c).adjusted(0, 0, 1, 1);
        painter.fillRect(heading, kHeading);
        painter.setPen(kHeadingInk);
        painter.drawLine(heading.topRight(), heading.bottomRight());
        painter.drawLine(heading.bottomLeft(), heading.bottomRight());
        painter.drawText(heading.adjusted(2, 0, -3, -1), Qt::AlignCenter | Qt::TextSingleLine, m_headers[size_t(c)]);
    }

    painter.setPen(kLines);
    for (int r = 0; r < rowCount(); ++r)
        painter.drawLine(left, top + r * kLineHeight + kLineHeight - 1, right, top + r * kLineHeight + kLineHeight - 1);
    for (int c = 1; c <= kColumns; ++c)
        painter.drawLine(m_columnLefts[size_t(c)] - 1, top, m_columnLefts[size_t(c)] - 1, bottom);

    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    for (int r = 0; r < rowCount(); ++r) {
        painter.setPen(cellColour(r));
        for (int c = 0; c < kColumns; ++c) {
            const QString &text = m_cells[size_t(r)][size_t(c)];
            if (!text.isEmpty())
                painter.drawText(cellRect(r, c).adjusted(margin, 0, -margin, 0),
                                 (c == 1 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter) | Qt::TextSingleLine,
                                 text);
        }
    }

    if (hasFocus() && m_row >= 0) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = cellRect(m_row, m_column);
        focus.backgroundColor = palette().color(QPalette::Base);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

void ScoreGrid::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        moveTo(m_row - 1, m_column);
        break;
    case Qt::Key_Down:
        moveTo(m_row + 1, m_column);
        break;
    case Qt::Key_Left:
        moveTo(m_row, m_column - 1);
        break;
    case Qt::Key_Right:
        moveTo(m_row, m_column + 1);
        break;
    case Qt::Key_Home:
        moveTo(m_row, 0);
        break;
    case Qt::Key_End:
        moveTo(m_row, kColumns - 1);
        break;
    case Qt::Key_PageUp:
        moveTo(0, m_column);
        break;
    case Qt::Key_PageDown:
        moveTo(rowCount() - 1, m_column);
        break;
    default:
        QFrame::keyPressEvent(event);
    }
}

void ScoreGrid::mousePressEvent(QMouseEvent *event)
{
    for (int r = 0; r < rowCount(); ++r)
        for (int c = 0; c < kColumns; ++c)
            if (cellRect(r, c).adjusted(0, 0, 1, 1).contains(event->position().toPoint()))
                moveTo(r, c);
}

void ScoreGrid::focusInEvent(QFocusEvent *event)
{
    // The keyboard arrives on the first cell, as in any table.
    if (m_row < 0)
        m_row = m_column = 0;
    tellFocusedPart(this, partIndex(m_row, m_column));
    update();
    QFrame::focusInEvent(event);
}

void ScoreGrid::focusOutEvent(QFocusEvent *event)
{
    update();
    QFrame::focusOutEvent(event);
}

void ScoreGrid::moveTo(int row, int column)
{
    row = std::clamp(row, 0, rowCount() - 1);
    column = std::clamp(column, 0, kColumns - 1);
    if (row == m_row && column == m_column)
        return;
    m_row = row;
    m_column = column;
    update();
    if (hasFocus())
        tellScreenReaders(this, QAccessible::Focus, partIndex(row, column));
}

} // namespace amorra
