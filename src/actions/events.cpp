#include "action_steps.h"
#include "actions.h"

namespace amorra {

namespace {
// Int(L * Rnd + 1) with L counted in 16 bits and then taken as a float.
int drawOneIn(Game &game, long long count)
{
    return game.draw(static_cast<float>(saturate16(count)));
}

// The notice whose OK is being handled still counts: main, the hidden setup
// screen and this notice make three. More means another window is open,
// and that one will give the main screen back when it closes.
void giveMainBack(Game &game)
{
    GameView &view = game.view();
    if (view.LoadedScreenCount() <= 3) {
        view.EnableMain(true);
        view.FocusMain();
    }
}

void lowerHeart(Game &game, int by)
{
    game.set_heart(static_cast<long long>(game.state().heart) - by);
}
} // namespace

void speeding_fine_event(Game &game)
{
    GameState &s = game.state();
    const int x = drawOneIn(game, static_cast<long long>(s.player.luck) + 10);
    if (x == 3 && s.money > 60 && !s.game_over) {
        game.view().EnableMain(false);
        game.add_money(-60);
        game.play_sound("\\sounds\\police.wav", SoundMode::Async);
        game.view().ShowNotice(NoticeKind::SpeedingFine, "");
    }
}

void found_money_event(Game &game)
{
    GameState &s = game.state();
    const int x = drawOneIn(game, 100 - static_cast<long long>(s.player.luck) + 10);
    if (x == 9 && !s.game_over) {
        game.view().EnableMain(false);
        game.play_sound("\\sounds\\found.wav", SoundMode::Async);
        game.add_money(100);
        game.view().ShowNotice(NoticeKind::FoundMoney, "");
    }
}

void cat_event(Game &game)
{
    GameState &s = game.state();
    const int x = drawOneIn(game, static_cast<long long>(s.player.luck) + 10);
    if (x == 3 && !s.game_over) {
        // The yowl is heard out before the notice appears.
        game.play_sound("\\sounds\\cat.wav", SoundMode::Wait);
        game.view().EnableMain(false);
        game.view().ShowNotice(NoticeKind::Cat, "");
    }
}

void complain(Game &game, char kind)
{
    GameState &s = game.state();
    game.play_sound("\\sounds\\sigh.wav", SoundMode::Async);
    // Her words are composed here, so the notice window needs no game state.
    if (kind == 'b' && !s.game_over) {
        game.view().ShowNotice(NoticeKind::Boring,
                               s.girl.Gname + ":" + " You are getting a bit BORING!! we do the samething alot");
        game.view().EnableMain(false);
    }
    if (kind == 'w' && !s.game_over) {
        game.view().ShowNotice(NoticeKind::Ignoring,
                               s.girl.Gname + ":" + " You are IGNORING me!! You only care about work work work...");
        game.view().EnableMain(false);
    }
}

void OnNoticeOk(Game &game, NoticeKind kind)
{
    switch (kind) {
    case NoticeKind::Cat:
        giveMainBack(game);
        lowerHeart(game, 5);
        break;
    case NoticeKind::Ignoring:
        giveMainBack(game);
        lowerHeart(game, 10);
        break;
    case NoticeKind::Boring:
        // Penalty first: if it ends the game, the lose screen keeps main disabled.
        lowerHeart(game, 10);
        giveMainBack(game);
        break;
    case NoticeKind::FoundMoney:
    case NoticeKind::SpeedingFine:
        giveMainBack(game);
        break;
    case NoticeKind::TextNotice:
        // A refusal never stacks up penalties: main comes back at once.
        game.view().EnableMain(true);
        game.view().FocusMain();
        break;
    }
}

} // namespace amorra
