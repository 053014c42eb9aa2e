#include "ok_window.h"

#include "widget_helpers.h"

#include <QCloseEvent>
#include <QPushButton>

namespace amorra {

OkWindow::OkWindow(QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(gameTitle());
}

void OkWindow::finish(int choice)
{
    if (m_finishing)
        return;
    m_finishing = true;
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

void OkWindow::closeEvent(QCloseEvent *event)
{
    if (!m_finishing) {
        // The close box: the same as "OK".
        m_finishing = true;
        Q_EMIT finished(Ok);
    }
    m_closed = true;
    event->accept();
}

} // namespace amorra
