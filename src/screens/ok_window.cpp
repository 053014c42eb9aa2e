#include "ok_window.h"

#include "widget_helpers.h"

#include <QCloseEvent>
#include <QPushButton>
#include <QShortcut>

namespace amorra {

OkWindow::OkWindow(QWidget *parent)
    : QWidget(parent, Qt::Dialog)
{
    announceWindowRoles();
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(gameTitle());
    keepWindowSize(this);
    // The design's font, so that a larger desktop font cannot push text out of its box.
    setFont(sansSerifFont(8.25));
    // Escape does what the close box does.
    auto *escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, [this] { close(); });
}

void OkWindow::finish(int choice)
{
    if (m_finishing)
        return;
    m_finishing = true;
    // Off the screen before whatever the choice opens, and its drawing
    // buffer and pictures let go, so that the next window takes their
    // memory rather than adding to it. It still counts as open meanwhile.
    hide();
    destroy();
    Q_EMIT finished(choice);
    close();
}

QPushButton *OkWindow::makeButton(const QString &caption, const QString &objectName, int choice)
{
    auto *button = new QPushButton(caption, this);
    QString name = caption;
    nameControl(button, objectName, name.remove(QLatin1Char('&')).trimmed());
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, [this, choice] { finish(choice); });
    return button;
}

void OkWindow::showEvent(QShowEvent *event)
{
    if (!m_fitted) {
        m_fitted = true;
        fitTexts(this);
    }
    QWidget::showEvent(event);
}

void OkWindow::closeEvent(QCloseEvent *event)
{
    if (!m_finishing) {
        // The close box: the same as "OK".
        m_finishing = true;
        Q_EMIT finished(Ok);
    }
    m_closed = true;
    event->accept();
    Q_EMIT closed();
}

} // namespace amorra
