#include "main_screen.h"

#include "action_list.h"
#include "heart_meter.h"
#include "screen_host.h"
#include "widget_helpers.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QGroupBox>
#include <QLabel>
#include <QTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTextCursor>
#include <QToolButton>

namespace amorra {

namespace {

QString qt(const std::string &s)
{
    return QString::fromStdString(s);
}

// Lines in the talk box are joined by CR LF; the text box wants plain line feeds.
QString talkForDisplay(const std::string &text)
{
    QString shown = qt(text);
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    shown.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return shown;
}

} // namespace

MainScreen::MainScreen(ScreenHost &host, const QString &assetDir, QWidget *parent)
    : QWidget(parent)
    , m_host(host)
    , m_assetDir(assetDir)
{
    announceWindowRoles();
    setObjectName(QStringLiteral("Form1"));
    setWindowTitle(gameTitle());
    setAccessibleName(gameTitle());
    buildScreen();
    buildMenus();
    fitTexts(this);
    resetToDesignState();
    keepWindowSize(this);
    adjustSize();
    setFixedSize(sizeHint());

    // Remember where the keyboard was, to give it back after a notice.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        if (now && now->window() == this)
            m_lastFocus = now;
    });
}

void MainScreen::resetToDesignState()
{
    m_talkText.clear();
    m_talk->clear();
    m_listTitle.clear();
    m_listFrame->setTitle(QString());
    m_listFrame->setAccessibleName(QStringLiteral("Actions"));
    m_list->setAccessibleName(QStringLiteral("Action list"));
    m_list->clearRows();
    setTip(m_list, QString());
    m_ok->setText(QStringLiteral("GO"));
    m_ok->setAccessibleName(QStringLiteral("GO"));
    m_ok->hide();
    m_askOut->hide();
    m_takeHerOut->setEnabled(false);
    m_heart->setLit(0);
    m_heart->setNumber(QStringLiteral("0"));
    SetDayLabel("Day 1");
    SetMoneyLabel("Bank Balance: $50");
    SetSpentLabel("$0");
    m_looks->setValue(0);
    m_brains->setValue(0);
    m_luck->setValue(0);
    // Her face comes with the game, before the screen is ever seen: a
    // picture read here would be thrown away unseen, on the START click.
    m_face->clear();
    setTip(m_face, QString());
    m_soundItem->setChecked(true);
    setEnabled(true);
}

void MainScreen::setSoundChecked(bool checked)
{
    m_soundItem->setChecked(checked);
}

bool MainScreen::soundChecked() const
{
    return m_soundItem->isChecked();
}

void MainScreen::SetTalk(const std::string &text)
{
    m_talkText = text;
    m_talk->setPlainText(talkForDisplay(text));
    // Her newest line is the one to see when a long question wraps.
    m_talk->moveCursor(QTextCursor::End);
    m_talk->ensureCursorVisible();
    m_talk->verticalScrollBar()->setValue(m_talk->verticalScrollBar()->maximum());
}

std::string MainScreen::GetTalk() const
{
    return m_talkText;
}

void MainScreen::SetListTitle(const std::string &text)
{
    m_listTitle = text;
    m_listFrame->setTitle(qt(text));
    m_listFrame->setAccessibleName(text.empty() ? QStringLiteral("Actions") : qt(text));
    // Read as what it holds, "Places to Go".
    m_list->setAccessibleName(text.empty() ? QStringLiteral("Action list") : qt(text));
}

std::string MainScreen::GetListTitle() const
{
    return m_listTitle;
}

void MainScreen::ClearList()
{
    m_list->clearRows();
}

void MainScreen::AddListRow(const std::string &text)
{
    m_list->addRow(qt(text));
}

int MainScreen::GetListIndex() const
{
    return m_list->selectedIndex();
}

void MainScreen::SetListTip(const std::string &text)
{
    setTip(m_list, qt(text));
}

void MainScreen::SetOkCaption(const std::string &text)
{
    m_ok->setText(qt(text));
    m_ok->setAccessibleName(qt(text));
}

void MainScreen::ShowOk(bool shown)
{
    m_ok->setVisible(shown);
}

void MainScreen::ShowAskOut(bool shown)
{
    m_askOut->setVisible(shown);
    if (!shown)
        m_list->setPressedLook(false);
}

void MainScreen::EnableTakeHerOut(bool enabled)
{
    m_takeHerOut->setEnabled(enabled);
}

void MainScreen::SetMoneyLabel(const std::string &text)
{
    setFittedText(m_money, qt(text));
    m_money->repaint();
}

void MainScreen::SetDayLabel(const std::string &text)
{
    setFittedText(m_day, qt(text));
}

void MainScreen::SetSpentLabel(const std::string &text)
{
    setFittedText(m_spent, qt(text));
    m_spent->setAccessibleName(QStringLiteral("Total Money spent on her ") + qt(text));
}

void MainScreen::SetStatBars(int looks, int brains, int luck)
{
    // The ratings arrive unclamped; a bar shows 0 to 100.
    m_looks->setValue(qBound(0, looks, 100));
    m_brains->setValue(qBound(0, brains, 100));
    m_luck->setValue(qBound(0, luck, 100));
}

void MainScreen::SetHeartBar(int lit)
{
    m_heart->setLit(lit);
}

void MainScreen::SetHeartLabel(const std::string &text)
{
    m_heart->setNumber(qt(text));
}

void MainScreen::SetFace(const std::string &picture, const std::string &tooltip)
{
    const QPixmap face = loadPicture(m_assetDir, qt(picture));
    m_face->setPixmap(face.isNull() ? defaultFace() : face);
    setTip(m_face, qt(tooltip));
}

QPixmap MainScreen::defaultFace() const
{
    // Only where her picture is missing; not kept.
    return loadPicture(m_assetDir, QStringLiteral("pictures/face_default.png"));
}

void MainScreen::EnableMain(bool enabled)
{
    setEnabled(enabled);
}

void MainScreen::FocusMain()
{
    show();
    raise();
    activateWindow();
    QWidget *target = m_lastFocus;
    if (!target || !target->isVisible() || !target->isEnabled())
        target = keyboardHome();
    target->setFocus(Qt::ActiveWindowFocusReason);
}

QWidget *MainScreen::keyboardHome() const
{
    if (m_list->count() > 0)
        return m_list;
    if (m_lastMode && m_lastMode->isEnabled())
        return m_lastMode;
    return m_modeButtons[0];
}

int MainScreen::LoadedScreenCount() const
{
    return m_host.loadedScreenCount();
}

void MainScreen::ShowNotice(NoticeKind kind, const std::string &text)
{
    m_host.showNotice(kind, text);
}

void MainScreen::ShowGameOver()
{
    m_host.showGameOver();
}

void MainScreen::ShowWin(const std::string &moneyText, const std::string &daysText, const std::string &scoreText)
{
    m_host.showWin(moneyText, daysText, scoreText);
}

void MainScreen::ShowLose(const std::string &text)
{
    m_host.showLose(text);
}

void MainScreen::ShowHighScores()
{
    m_host.showHighScores();
}

void MainScreen::ShowSetup()
{
    m_host.showSetup();
}

void MainScreen::ShowTutorial()
{
    m_host.showTutorial();
}

void MainScreen::ShowAbout()
{
    m_host.showAbout();
}

void MainScreen::ShowMessage(const std::string &text, const std::string &title, bool exclamation)
{
    m_host.showMessage(text, title, exclamation);
}

void MainScreen::PlaySound(const std::string &path, SoundMode mode)
{
    m_host.playSound(path, mode);
}

void MainScreen::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (isVisible())
        Q_EMIT resized();
}

void MainScreen::closeEvent(QCloseEvent *event)
{
    // Only the player closes this window; a new game merely hides it.
    event->accept();
    Q_EMIT closedByPlayer();
}

} // namespace amorra
