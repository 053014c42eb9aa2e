#pragma once

#include "game.h"

namespace amorra {

// "&Play Again" on the File menu: same girl, same setup.
void playAgainFromMenu(Game &game);

// The game-over dialog's buttons; the dialog closes itself afterwards.
void gameOverOk(Game &game);
void gameOverPlayAgain(Game &game);

// The main screen's load: a new game with a new girl.
void startFirstGame(Game &game);

// The "Enabled" item of the Sounds menu. The check mark decides the
// direction; returns the new check state.
bool toggleSoundItem(GameState &state, bool itemChecked);

// Full file name of a game sound: the program's folder followed by the
// game's backslash path, e.g. ("/opt/amorra", "\\sounds\\car.wav") gives
// "/opt/amorra/sounds/car.wav".
std::string soundFilePath(const std::string &programDir, const std::string &gamePath);

} // namespace amorra
