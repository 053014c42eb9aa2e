#include "game_flow.h"

namespace amorra {

void startFirstGame(Game &game)
{
    game.Restart(true);
    game.updatestats();
}

void playAgainFromMenu(Game &game)
{
    game.Restart(false);
    game.updatestats();
    game.view().EnableTakeHerOut(false);
}

void gameOverOk(Game &game)
{
    game.view().EnableMain(true);
    game.view().FocusMain();
}

void gameOverPlayAgain(Game &game)
{
    game.view().EnableMain(true);
    game.Restart(false);
    game.updatestats();
    game.view().FocusMain();
}

bool toggleSoundItem(GameState &state, bool itemChecked)
{
    state.sound_on = !itemChecked;
    return !itemChecked;
}

std::string soundFilePath(const std::string &programDir, const std::string &gamePath)
{
    std::string dir = programDir;
    while (dir.size() > 1 && dir.back() == '/')
        dir.pop_back();
    if (dir == "/")
        dir.clear();
    std::string rel = gamePath;
    for (char &c : rel)
        if (c == '\\')
            c = '/';
    if (!rel.empty() && rel.front() != '/')
        rel.insert(rel.begin(), '/');
    return dir + rel;
}

} // namespace amorra
