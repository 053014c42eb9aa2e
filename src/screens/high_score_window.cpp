#include "high_score_window.h"

#include "widget_helpers.h"
#include "win_screen.h"

#include <QHeaderView>
#include <QPainter>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QStyledItemDelegate>
#include <QTableWidget>

namespace amorra {

namespace {
const char kCup[] = "champ.gif";
const char kBanner[] = "champlbl.gif";

constexpr int kColumnTwips[5] = {350, 3100, 1250, 1550, 1250};

QString qt(const std::string &s)
{
    return QString::fromStdString(s);
}

// The table's headings: flat darker lavender, each cell closed by a dark
// line on its right and below, on every desktop.
class FlatHeader : public QHeaderView
{
public:
    using QHeaderView::QHeaderView;

protected:
    void paintSection(QPainter *painter, const QRect &rect, int section) const override
    {
        if (!rect.isValid())
            return;
        painter->save();
        painter->fillRect(rect, QColor(128, 128, 255));
        painter->setPen(QColor(0, 0, 64));
        painter->drawLine(rect.topRight(), rect.bottomRight());
        painter->drawLine(rect.bottomLeft(), rect.bottomRight());
        painter->drawText(rect.adjusted(2, 0, -3, -1), Qt::AlignCenter | Qt::TextSingleLine,
                          model()->headerData(section, orientation()).toString());
        painter->restore();
    }
};

// The table's cells: their text in the cell's colour and alignment, and
// nothing for an empty one; the style's cells lay every text out afresh,
// two milliseconds of opening the window.
class PlainCells : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QString text = index.data(Qt::DisplayRole).toString();
        if (!text.isEmpty()) {
            const QVariant ink = index.data(Qt::ForegroundRole);
            painter->save();
            painter->setFont(option.font);
            painter->setPen(ink.isValid() ? ink.value<QBrush>().color() : option.palette.color(QPalette::Text));
            const int margin = option.widget->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
            const auto alignment = Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt());
            painter->drawText(option.rect.adjusted(margin, 0, -margin, 0), int(alignment) | Qt::TextSingleLine, text);
            painter->restore();
        }
        if (option.state & QStyle::State_HasFocus) {
            QStyleOptionFocusRect focus;
            focus.QStyleOption::operator=(option);
            option.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, option.widget);
        }
    }
};

QTableWidget *makeGrid(QWidget *parent, const HighScoreScreenData &data)
{
    auto *grid = new QTableWidget(kShownScores, 5, parent);
    grid->setHorizontalHeader(new FlatHeader(Qt::Horizontal, grid));
    grid->setItemDelegate(new PlainCells(grid));
    nameControl(grid, QStringLiteral("Score_list"), QStringLiteral("Top 20 table"));
    grid->setFont(sansSerifFont(8.25));
    grid->setGeometry(twipsRect(0, 0, 7380, 5130));
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setSelectionMode(QAbstractItemView::NoSelection);
    grid->setFocusPolicy(Qt::StrongFocus);
    grid->setWordWrap(false);
    // The design's font at most, smaller when a long name needs it: a name
    // shows whole, and its padding never turns into an ellipsis.
    grid->setTextElideMode(Qt::ElideNone);
    grid->verticalHeader()->hide(); // the rank is a column of its own
    grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setColours(grid, Qt::black, QColor(192, 192, 255));
    grid->setProperty("gridLineColor", QColor(128, 128, 255));

    QHeaderView *header = grid->horizontalHeader();
    header->setSectionsClickable(false);
    header->setHighlightSections(false);
    header->setMinimumSectionSize(1);
    header->setFixedHeight(16);
    for (int c = 0; c < 5; ++c) {
        header->resizeSection(c, twips(kColumnTwips[c]));
        const QString text = c < int(data.headers.size()) ? qt(data.headers[c]) : QString();
        auto *item = new QTableWidgetItem(text);
        item->setData(Qt::AccessibleTextRole, text.trimmed());
        grid->setHorizontalHeaderItem(c, item);
    }
    // The last column takes what the grid has left, so no scroll bar appears.
    header->setStretchLastSection(true);
    grid->verticalHeader()->setMinimumSectionSize(1);
    grid->verticalHeader()->setDefaultSectionSize(16);

    QString longestName;
    for (int r = 0; r < kShownScores; ++r) {
        const ScoreRow *row = r < int(data.rows.size()) ? &data.rows[size_t(r)] : nullptr;
        for (int c = 0; c < 5; ++c) {
            const QString text = row ? qt(row->cells[size_t(c)]) : QString();
            auto *item = new QTableWidgetItem(text);
            // Read without the name's padding.
            item->setData(Qt::AccessibleTextRole, text.trimmed());
            if (c == 1 && QFontMetrics(grid->font()).horizontalAdvance(text.trimmed()) >
                              QFontMetrics(grid->font()).horizontalAdvance(longestName))
                longestName = text.trimmed();
            item->setTextAlignment(c == 1 ? Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter) : Qt::Alignment(Qt::AlignCenter));
            if (row && row->red)
                item->setForeground(QColor(255, 0, 0));
            grid->setItem(r, c, item);
        }
    }
    const int textMargins = 2 * (grid->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, grid) + 1) + 1;
    grid->setFont(fittedFont(grid->font(), longestName, twips(kColumnTwips[1]) - textMargins));
    return grid;
}

} // namespace

std::vector<std::shared_ptr<LoopFrames>> HighScoreWindow::readAnimationsAhead(const QString &assetDir)
{
    return {readAnimationAhead(assetDir, QString::fromLatin1(kCup)),
            readAnimationAhead(assetDir, QString::fromLatin1(kBanner))};
}

HighScoreWindow::HighScoreWindow(const HighScoreScreenData &data, const QString &assetDir, QWidget *parent)
    : OkWindow(parent)
{
    setObjectName(QStringLiteral("Form5"));
    setWindowTitle(QStringLiteral("Amorra - Top 20 SWEELA getters"));
    setAccessibleName(windowTitle());
    setFixedSize(twips(9690), twips(5130));

    m_grid = makeGrid(this, data);

    auto *title = new QLabel(QStringLiteral("Ultimate SWEELA Getter..."), this);
    nameControl(title, QStringLiteral("Label2"), title->text());
    title->setFont(arialFont(8.25));
    title->setGeometry(twipsRect(7560, 0, 2055, 255));

    makeAnimation(this, assetDir, QString::fromLatin1(kCup), QStringLiteral("champ_gif"),
                  twipsRect(7440, 360, 2145, 2730));

    auto *champion = new QLabel(qt(data.champion), this);
    champion->setTextFormat(Qt::PlainText);
    champion->setAlignment(Qt::AlignCenter);
    champion->setGeometry(twipsRect(7440, 3120, 2175, 255));
    champion->setFont(arialFont(9, true));
    nameControl(champion, QStringLiteral("Label1"),
                champion->text().isEmpty() ? QStringLiteral("Champion") : QStringLiteral("Champion: ") + champion->text());

    // The banner's box would reach past the window's right edge: it keeps
    // its place, ends at the edge, and the picture shrinks to fit.
    makeAnimation(this, assetDir, QString::fromLatin1(kBanner), QStringLiteral("champlbl_gif"),
                  twipsRect(7440, 3480, 2400, 630).intersected(rect()));

    QPushButton *ok = makeButton(QStringLiteral("OK"), QStringLiteral("Command1"), Ok);
    ok->setGeometry(twipsRect(8160, 4440, 975, 375));
    setTabOrder(m_grid, ok);
    ok->setFocus();
}

} // namespace amorra
