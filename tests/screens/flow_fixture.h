#pragma once

#include "support/scripted_random.h"
#include "support/temp_dir.h"

#include "screens/action_list.h"
#include "screens/score_grid.h"
#include "screens/app_controller.h"
#include "screens/desktop.h"
#include "screens/sound_player.h"

#include <QAccessible>
#include <QDir>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

#include <memory>

namespace amorra::testing {

// Draws that raise no chance event: x lands on L, never on 3 or 9.
inline constexpr double kCalm = 0.999;

// Remembers every sound instead of playing it: "cat.wav", "(wait)" after one that is waited for.
struct RecordingSoundPlayer : SoundPlayer
{
    QStringList played;
    void play(const QString &file, SoundMode mode) override { played << file.section('/', -1) + (mode == SoundMode::Wait ? " (wait)" : ""); }
};

// A desktop of a chosen size that records its messages ("title: text", "!"
// before one with an exclamation icon), the web pages it opens and the end.
struct RecordingDesktop : Desktop
{
    QSize size{1024, 768};
    bool urlOpens = true;
    QStringList messages;
    QList<QUrl> urls;
    int quits = 0;
    QSize screenSize() const override { return size; }
    void showMessage(QWidget *, const QString &text, const QString &title, bool warn) override { messages << (warn ? "!" : "") + title + ": " + text; }
    bool openUrl(const QUrl &url) override { return urls << url, urlOpens; }
    void quit() override { ++quits; }
};

// What a screen reader calls a widget.
inline QString spokenName(QWidget *w)
{
    return QAccessible::queryAccessibleInterface(w)->text(QAccessible::Name);
}

// The T under `root` that a screen reader knows by this name.
template<class T>
T *named(QWidget *root, const QString &name)
{
    for (T *w : root->findChildren<T *>())
        if (spokenName(w) == name)
            return w;
    return nullptr;
}

// The whole program on fakes of the desktop and the sound, with scripted
// dice, in a temporary working directory; and the clicks of a player.
class FlowFixture : public QObject
{
protected:
    void initFlow() // also to start afresh between the rows of one test
    {
        cleanupFlow();
        m_dir = std::make_unique<TempDir>();
        QDir::setCurrent(QString::fromStdString(m_dir->path()));
        m_desktop = RecordingDesktop();
        m_sound = RecordingSoundPlayer();
        m_random = ScriptedRandom();
    }
    void cleanupFlow()
    {
        m_app.reset();
        QDir::setCurrent(QDir::tempPath());
        m_dir.reset();
        QVERIFY2(!m_random.overrun, "the game drew more often than the test scripted");
    }
    void startApp(const QString &assetDir = QStringLiteral(AMORRA_TEST_ASSETS))
    {
        m_app = std::make_unique<AppController>(m_random, m_sound, m_desktop, assetDir);
        m_app->start();
    }
    // Types the name and presses START; a new game draws picture 1, Lisa and a threshold of 21.
    void enterGame(const QString &name = QStringLiteral("Tom"))
    {
        if (!m_app)
            startApp();
        named<QLineEdit>(m_app->setupScreen(), "Your name")->setText(name);
        m_random.push({pick(1, 11), pick(2, 10), pick(1, 15)});
        QTest::mouseClick(named<QPushButton>(m_app->setupScreen(), "START"), Qt::LeftButton);
    }
    void click(const QString &name) { QTest::mouseClick(named<QAbstractButton>(&m_app->mainScreen(), name), Qt::LeftButton); }
    // Chooses a row of the action list, then presses the action button.
    void choose(int row)
    {
        auto *list = m_app->mainScreen().findChild<ActionList *>();
        QVERIFY(row < list->count());
        list->scrollToRow(row);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->rowRect(row).center());
        QCOMPARE(m_app->mainScreen().GetListIndex(), row);
        QTest::mouseClick(m_app->mainScreen().findChild<QPushButton *>("cmd_ok"), Qt::LeftButton);
    }
    void menu(const char *objectName)
    {
        // A disabled main screen disables its menu bar; a player could not get there.
        QVERIFY(m_app->mainScreen().menuBar()->isEnabled());
        m_app->mainScreen().findChild<QAction *>(QLatin1String(objectName))->trigger();
    }
    // An open window besides the main and setup screens, and its OK button.
    QWidget *window(const char *objectName) const
    {
        for (QWidget *w : m_app->openWindows())
            if (w->objectName() == QLatin1String(objectName))
                return w;
        return nullptr;
    }
    void pressOk(const char *objectName) { QTest::mouseClick(named<QPushButton>(window(objectName), "OK"), Qt::LeftButton); }
    QString talk() { return QString::fromStdString(m_app->mainScreen().GetTalk()); }
    GameState &state() { return m_app->game().state(); }
    bool mainEnabled() { return m_app->mainScreen().isEnabled(); }

    std::unique_ptr<TempDir> m_dir; // the working directory, where the game keeps its files
    RecordingDesktop m_desktop;
    RecordingSoundPlayer m_sound;
    ScriptedRandom m_random;
    std::unique_ptr<AppController> m_app;
};

} // namespace amorra::testing
