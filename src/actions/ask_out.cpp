#include "action_steps.h"
#include "actions.h"

namespace amorra {

namespace {
struct Exchange
{
    const char *hers;
    const char *his; // brings its own colon
};

const Exchange kRefusals[6] = {
    {"You hardly know me.", ": I know a lot about you."},
    {"I'm busy these few days.", ": OK. Then."},
    {"I realy dont know you.", ": What better way to get to know me."},
    {"I'm not looking for a relationship right now.", ": OK."},
    {"Nope.", ": OK."},
    {"I don't know. Some other time.", ": OK."},
};

const Exchange kAcceptance = {"OK. Come pick me up at 8.00 this Friday.", ": See you at 8.00."};
} // namespace

void onAskOut(Game &game)
{
    GameState &s = game.state();
    GameView &view = game.view();

    Exchange reply = kAcceptance;
    if (s.heart < s.girl.askout_need) {
        int r = game.draw(6);
        r = r < 1 ? 1 : r > 6 ? 6 : r;
        reply = kRefusals[r - 1];
    } else {
        s.date_agreed = true;
        view.EnableTakeHerOut(true);
    }

    view.SetTalk(s.player.player_name + ": " + " Do you want to go out some time?" + kCrLf + s.girl.Gname + ": " +
                 reply.hers + kCrLf + s.player.player_name + reply.his);
    view.ShowAskOut(false);
}

} // namespace amorra
