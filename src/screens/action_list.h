#pragma once

#include <QListWidget>
#include <QVector>

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
    void recomputeColumns();

    QVector<int> m_columnStarts;
    QFont m_designFont;
    bool m_filling = false;
    bool m_fitting = false;
};

// The columns of a row: the text between runs of tabs.
QStringList rowColumns(const QString &row);

} // namespace amorra
