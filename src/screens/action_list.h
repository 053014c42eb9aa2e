#pragma once

#include <QHash>
#include <QListWidget>
#include <QStaticText>
#include <QVector>

#include <utility>

namespace amorra {

// The action list (Do_List). Each row keeps the exact text the game composed,
// tabs included; on screen the tab-separated columns line up under each
// other whatever the font, however many tabs a row uses between two columns.
class ActionList : public QListWidget
{
    Q_OBJECT

public:
    explicit ActionList(QWidget *parent = nullptr);

    void addRow(const QString &text);
    void clearRows();
    // Zero-based index of the selected row, -1 when none is.
    int selectedIndex() const;
    QString rowText(int row) const;
    // Where each column starts, in pixels from the row's text origin.
    const QVector<int> &columnStarts() const { return m_columnStarts; }
    // A column's text as the rows draw it, measured and laid out once.
    int textWidth(const QString &text) const;
    const QStaticText &shapedText(const QString &text) const;
    void setPressedLook(bool pressed);

Q_SIGNALS:
    // A row was chosen by mouse or keyboard.
    void rowChosen();
    // Enter on the row already chosen: the player wants its action.
    void rowActivated();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    // Widens the columns for one more row.
    void takeRow(const QStringList &columns);
    int widestRow() const;
    // A smaller font for all rows when the widest no longer fits.
    void refit();
    // All rows measured again in the list's font at this size.
    void layOutAt(double points);
    void useFont(const QFont &font);

    QVector<int> m_columnStarts;
    QVector<int> m_widest; // per column, in the font the rows now use
    QFont m_designFont;
    // The lists are filled again and again with the same few texts: each is
    // shaped once per font size rather than at every fill, layout and paint.
    using SizedText = std::pair<int, QString>; // quarter points, text
    mutable QHash<SizedText, int> m_widths;
    mutable QHash<SizedText, QStaticText> m_shaped;
    bool m_filling = false;
    bool m_fitting = false;
};

// The columns of a row: the text between runs of tabs.
QStringList rowColumns(const QString &row);

} // namespace amorra
