#pragma once

#include <QAbstractScrollArea>
#include <QHash>
#include <QStaticText>
#include <QStringList>
#include <QVector>

#include <utility>

namespace amorra {

// The action list (Do_List). Each row keeps the exact text the game composed,
// tabs included; on screen the tab-separated columns line up under each
// other whatever the font, however many tabs a row uses between two columns.
//
// Drawn by the game rather than by Qt's item views: their models, selection
// models, delegates and headers, for this list and the Top 20 table, held
// 0.6 MB of the program's memory. Keys, mouse and screen readers meet it as
// a list box.
class ActionList : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit ActionList(QWidget *parent = nullptr);

    void addRow(const QString &text);
    void clearRows();
    // Invokable by name, for tools that drive the game from outside its code.
    Q_INVOKABLE int count() const { return int(m_rows.size()); }
    Q_INVOKABLE QString rowText(int row) const { return m_rows.value(row); }
    // A row as a screen reader says it: its columns, without tabs or padding.
    QString spokenText(int row) const;
    // Zero-based index of the selected row, -1 when none is.
    int selectedIndex() const { return m_selected; }
    // The row with the keyboard's focus frame, -1 when none has it.
    int currentRow() const { return m_current; }
    // Chooses a row as the arrow keys do.
    void setCurrentRow(int row);
    // Where a row is, in the viewport's coordinates; empty when out of view.
    Q_INVOKABLE QRect rowRect(int row) const;
    Q_INVOKABLE void scrollToRow(int row);
    // The room the widest row takes, margins included.
    int rowsWidth() const;
    // Where each column starts, in pixels from the row's text origin.
    const QVector<int> &columnStarts() const { return m_columnStarts; }
    void setPressedLook(bool pressed);

Q_SIGNALS:
    // A row was chosen by mouse or keyboard.
    void rowChosen();
    // Enter on the row already chosen: the player wants its action.
    void rowActivated();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    int rowHeight() const;
    int rowAt(int y) const;
    // Makes `row` current and selected, and tells the player's choice.
    void choose(int row);
    void rowsChanged();
    void updateScrollBar();
    // A column's text as the rows draw it, measured and laid out once.
    int textWidth(const QString &text) const;
    const QStaticText &shapedText(const QString &text) const;
    // Widens the columns for one more row.
    void takeRow(const QStringList &columns);
    int widestRow() const;
    // A smaller font for all rows when the widest no longer fits.
    void refit();
    // All rows measured again in the list's font at this size.
    void layOutAt(double points);
    void useFont(const QFont &font);

    QStringList m_rows;
    int m_current = -1;
    int m_selected = -1;
    int m_pressed = -1;
    QVector<int> m_columnStarts;
    QVector<int> m_widest; // per column, in the font the rows now use
    QFont m_designFont;
    // The lists are filled again and again with the same few texts: each is
    // shaped once per font size rather than at every fill, layout and paint.
    using SizedText = std::pair<int, QString>; // quarter points, text
    mutable QHash<SizedText, int> m_widths;
    mutable QHash<SizedText, QStaticText> m_shaped;
    bool m_fitting = false;
};

// The columns of a row: the text between runs of tabs.
QStringList rowColumns(const QString &row);

} // namespace amorra
