#pragma once

#include "ok_window.h"

namespace amorra {

// Shown by a mode button once the game has ended: "OK" leaves the ended game
// on the screen, "Play Again" starts a new one with the same girl.
class GameOverDialog : public OkWindow
{
    Q_OBJECT

public:
    explicit GameOverDialog(const QString &assetDir, QWidget *parent = nullptr);
};

} // namespace amorra
