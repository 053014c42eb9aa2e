#pragma once

#include "screen_fakes.h"
#include "support/scripted_random.h"

#include "screens/app_controller.h"

#include <QObject>

#include <memory>

namespace amorra::testing {

// Draws that raise no chance event: x lands on L, never on 3 or 9.
inline constexpr double kCalm = 0.999;

// The whole program on fakes of the desktop and the sound, with scripted
// dice, in a temporary working directory; and the clicks of a player.
class FlowFixture : public QObject
{
protected:
    void initFlow();
    void cleanupFlow();

    void startApp(const QString &assetDir = QStringLiteral(AMORRA_TEST_ASSETS));
    // Types the name and presses START; a new game draws picture 1, Lisa and a threshold of 21.
    void enterGame(const QString &name = QStringLiteral("Tom"));
    void click(const QString &accessibleName);
    // Clicks a row of the action list, then the action button.
    void choose(int row);
    void menu(const char *objectName);
    QWidget *window(const char *objectName) const;
    void pressOk(const char *objectName);
    void closeBox(const char *objectName);
    QString talk() { return QString::fromStdString(m_app->mainScreen().GetTalk()); }
    GameState &state() { return m_app->game().state(); }
    bool mainEnabled() { return m_app->mainScreen().isEnabled(); }

    std::unique_ptr<WorkingDir> m_dir;
    RecordingDesktop m_desktop;
    RecordingSoundPlayer m_sound;
    ScriptedRandom m_random;
    std::unique_ptr<AppController> m_app;
};

} // namespace amorra::testing
