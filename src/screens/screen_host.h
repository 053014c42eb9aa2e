#pragma once

#include "view/game_view.h"

#include <string>

namespace amorra {

// What the main screen hands on: opening the other windows, the message
// box, sounds, and knowing which screens are loaded. The application
// controller provides it.
class ScreenHost
{
public:
    virtual ~ScreenHost() = default;
    virtual int loadedScreenCount() const = 0;
    virtual void showNotice(NoticeKind kind, const std::string &text) = 0;
    virtual void showGameOver() = 0;
    virtual void showWin(const std::string &moneyText, const std::string &daysText, const std::string &scoreText) = 0;
    virtual void showLose(const std::string &text) = 0;
    virtual void showHighScores() = 0;
    virtual void showSetup() = 0;
    virtual void showTutorial() = 0;
    virtual void showAbout() = 0;
    virtual void showMessage(const std::string &text, const std::string &title, bool exclamation) = 0;
    virtual void playSound(const std::string &path, SoundMode mode) = 0;
};

} // namespace amorra
