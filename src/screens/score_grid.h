#pragma once

#include "scores/score_table.h"

#include <QFrame>

#include <array>
#include <vector>

namespace amorra {

// The Top 20 table (Score_list): a row of headings over twenty rows of five
// cells, in lavender with blue lines, the newest win in red. Drawn by the
// game, like the action list, rather than by Qt's item views. The keyboard
// walks its cells with the arrow keys; screen readers meet it as a table
// with column headings.
class ScoreGrid : public QFrame
{
    Q_OBJECT

public:
    static constexpr int kColumns = 5;
    static constexpr int kLineHeight = 16;

    explicit ScoreGrid(const HighScoreScreenData &data, QWidget *parent = nullptr);

    int rowCount() const { return int(m_cells.size()); }
    QString headerText(int column) const { return m_headers[size_t(column)]; }
    QString cellText(int row, int column) const { return m_cells[size_t(row)][size_t(column)]; }
    QColor cellColour(int row) const;
    // Where a cell is, inside its lines; row -1 is the headings. The last
    // column runs on past the grid's edge, as the design's widths have it.
    QRect cellRect(int row, int column) const;
    int currentRow() const { return m_row; }
    int currentColumn() const { return m_column; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void moveTo(int row, int column);

    std::array<QString, kColumns> m_headers;
    std::vector<std::array<QString, kColumns>> m_cells;
    std::vector<bool> m_red;
    std::array<int, kColumns + 1> m_columnLefts{}; // and the right end of the last
    int m_row = -1;
    int m_column = -1;
};

} // namespace amorra
