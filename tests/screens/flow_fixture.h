#pragma once

#include "support/scripted_random.h"
#include "support/temp_dir.h"

#include "screens/app_controller.h"
#include "screens/desktop.h"
#include "screens/screen_host.h"
#include "screens/sound_player.h"

#include <QObject>
#include <QStringList>
#include <QUrl>

#include <memory>

namespace amorra::testing {

// Draws that raise no chance event: x lands on L, never on 3 or 9.
inline constexpr double kCalm = 0.999;

// Remembers every sound instead of playing it.
struct RecordingSoundPlayer : SoundPlayer
{
    QStringList files;
    QList<SoundMode> modes;
    void play(const QString &file, SoundMode mode) override { files << file, modes << mode; }
    QStringList names() const // without their folder, e.g. "doorbell.wav"
    {
        QStringList out;
        for (const QString &file : files)
            out << file.section(QLatin1Char('/'), -1);
        return out;
    }
};

// A desktop of a chosen size that records messages ("title: text", "!"
// before one with an exclamation icon), web pages and the end.
struct RecordingDesktop : Desktop
{
    QSize size{1024, 768};
    bool urlOpens = true;
    QStringList messages;
    QList<QUrl> urls;
    int quits = 0;
    QSize screenSize() const override { return size; }
    void showMessage(QWidget *, const QString &text, const QString &title, bool exclamation) override
    {
        messages << (exclamation ? QStringLiteral("!") : QString()) + title + QStringLiteral(": ") + text;
    }
    bool openUrl(const QUrl &url) override { return urls << url, urlOpens; }
    void quit() override { ++quits; }
};

// A main screen's host that opens nothing.
struct NoHost : ScreenHost
{
    int loadedScreenCount() const override { return 2; }
    void showNotice(NoticeKind, const std::string &) override {}
    void showGameOver() override {}
    void showWin(const std::string &, const std::string &, const std::string &) override {}
    void showLose(const std::string &) override {}
    void showHighScores() override {}
    void showSetup() override {}
    void showTutorial() override {}
    void showAbout() override {}
    void showMessage(const std::string &, const std::string &, bool) override {}
    void playSound(const std::string &, SoundMode) override {}
};

// What a screen reader calls a widget.
QString spokenName(QWidget *w);

// The T under `root` (or `root` itself) that a screen reader knows by this name.
template<class T>
T *named(QWidget *root, const QString &name)
{
    QList<T *> all = root ? root->findChildren<T *>() : QList<T *>();
    if (auto *self = qobject_cast<T *>(root))
        all.prepend(self);
    for (T *w : all)
        if (spokenName(w) == name)
            return w;
    return nullptr;
}

// The whole program on fakes of the desktop and the sound, with scripted
// dice, in a temporary working directory; and the clicks of a player.
class FlowFixture : public QObject
{
protected:
    void initFlow(); // also between the rows of one test

    void cleanupFlow();

    void startApp(const QString &assetDir = QStringLiteral(AMORRA_TEST_ASSETS));
    // Types the name and presses START; a new game draws picture 1, Lisa and a threshold of 21.
    void enterGame(const QString &name = QStringLiteral("Tom"));
    void click(const QString &name);
    // Chooses a row of the action list, then presses the action button.
    void choose(int row);
    void menu(const char *objectName);
    // An open window besides the main and setup screens; its OK button.
    QWidget *window(const char *objectName) const;
    void pressOk(const char *objectName);
    QString talk() { return QString::fromStdString(m_app->mainScreen().GetTalk()); }
    GameState &state() { return m_app->game().state(); }
    bool mainEnabled() { return m_app->mainScreen().isEnabled(); }

    std::unique_ptr<TempDir> m_dir; // the working directory, where the game keeps its files
    QString m_previousDir;
    RecordingDesktop m_desktop;
    RecordingSoundPlayer m_sound;
    ScriptedRandom m_random;
    std::unique_ptr<AppController> m_app;
};

} // namespace amorra::testing
