#include "actions.h"

namespace amorra {

void onWinOk(Game &game)
{
    // The main screen stays disabled: the Top 20 table's OK gives it back.
    game.state().result.result_pending = true;
    game.view().ShowHighScores();
}

void onLoseOk(Game &game)
{
    // Main, the hidden setup screen and this one; with more open, the
    // last of them gives the main screen back.
    if (game.view().LoadedScreenCount() <= 3) {
        game.view().EnableMain(true);
        game.view().FocusMain();
    }
}

} // namespace amorra
