#pragma once

#include <QWidget>

class QPushButton;

namespace amorra {

// A modeless window of the game that ends with a button. Its owner reacts
// to `finished` while the window is still open (so it still counts as a
// loaded screen); the window closes right after. The close box and Escape
// act as the first button ("OK"), so no penalty is skipped and the main
// screen is never left locked. Screen readers know it as a dialog.
class OkWindow : public QWidget
{
    Q_OBJECT

public:
    enum Choice { Ok = 0, PlayAgain = 1 };

    explicit OkWindow(QWidget *parent = nullptr);

    // True from creation until the window has finished.
    bool isOpen() const { return !m_closed; }

Q_SIGNALS:
    void finished(int choice);
    // The window has closed; it no longer counts as open.
    void closed();

protected:
    // Runs the owner's reaction, then closes the window. Only the first call counts.
    void finish(int choice);
    // A push button that answers Space and Enter and ends the window with `choice`.
    QPushButton *makeButton(const QString &caption, const QString &objectName, int choice);
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    bool m_fitted = false;
    bool m_finishing = false;
    bool m_closed = false;
};

} // namespace amorra
