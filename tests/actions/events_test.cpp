#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Events = PlayFixture;

// One draw x = Int(Rnd x L + 1); the fine and the cat need x = 3, the bill
// x = 9. The lowest and highest draws that give it must fire, the draws just
// outside must not: that pins L. An ended game and sound switched off
// silence what they should.
TEST_F(Events, chanceEventsFollowLuckAndTheBalance)
{
    struct Row { const char *name; Button event; int luck, money, x, L; const char *notice; int moneyAfter; const char *sound; };
    const char *const police = "PlaySound(\\sounds\\police.wav|Async)", *const cat = "PlaySound(\\sounds\\cat.wav|Wait)";
    const Row table[] = {
        {"fine at luck 0", speeding_fine_event, 0, 100, 3, 10, "SpeedingFine", 40, police},
        {"fine at luck 100", speeding_fine_event, 100, 100, 3, 110, "SpeedingFine", 40, police},
        {"no fine with $60", speeding_fine_event, 50, 60, 3, 60, nullptr, 60, nullptr},
        {"a fine with $61 leaves $1", speeding_fine_event, 50, 61, 3, 60, "SpeedingFine", 1, police},
        {"bill at luck 100", found_money_event, 100, 0, 9, 10, "FoundMoney", 100, "PlaySound(\\sounds\\found.wav|Async)"},
        {"bill at luck 0, even when broke", found_money_event, 0, -20, 9, 110, "FoundMoney", 80, "PlaySound(\\sounds\\found.wav|Async)"},
        {"cat at luck 0", cat_event, 0, 0, 3, 10, "Cat", 0, cat},
        {"cat at luck 50", cat_event, 50, 0, 3, 60, "Cat", 0, cat},
    };
    for (const Row &c : table) {
        const double from = (c.x - 1.0) / c.L + 1e-9, to = c.x / static_cast<double>(c.L) - 1e-9;
        const struct { const char *what; double r; bool fires, over, sound; } draws[] = {
            {"lowest", from, true, false, true},         {"highest", to, true, false, true},
            {"below", from - 2e-9, false, false, true},  {"above", to + 2e-9, false, false, true},
            {"game over", from, false, true, true},      {"sound off", to, true, false, false}};
        for (const auto &d : draws) {
            SCOPED_TRACE(std::string(c.name) + ", " + d.what);
            newGame(10, c.money, 50, c.luck).game_over = d.over;
            state().sound_on = d.sound;
            random.push(d.r);
            c.event(game);
            const bool fired = d.fires && c.notice;
            EXPECT_EQ(calls({"ShowNotice"}), fired ? Strings{std::string("ShowNotice(") + c.notice + "|)"} : Strings{});
            EXPECT_EQ(calls({"PlaySound"}), fired && d.sound ? Strings{c.sound} : Strings{});
            EXPECT_EQ(view.mainEnabled, !fired);
            EXPECT_EQ(state().money, fired ? c.moneyAfter : c.money);
            expectDrawsUsedUp();
        }
    }
}

// Her sigh is heard even once the game is over (a boring date can end the
// month), but her complaint then opens no notice.
TEST_F(Events, herComplaintsOnlySighOnceTheGameIsOver)
{
    for (const char kind : {'b', 'w'}) {
        newGame().game_over = true;
        complain(game, kind);
        EXPECT_EQ(calls(), Strings{"PlaySound(\\sounds\\sigh.wav|Async)"}) << kind;
    }
}

template <NoticeKind kind>
void ok(Game &game)
{
    OnNoticeOk(game, kind);
}

// The main screen comes back with the OK of the last open window only (main,
// the hidden setup screen and this one make three); penalties wait for the
// OK, and their order decides whether a loss keeps main locked.
TEST_F(Events, anOkAppliesItsPenaltyAndGivesMainBackOnlyWhenNothingElseIsOpen)
{
    struct Row { const char *name; void (*ok)(Game &); Strings open; int heart, heartAfter; Strings calls; };
    const auto cat = ok<NoticeKind::Cat>, boring = ok<NoticeKind::Boring>;
    const Strings mainBack = {"EnableMain(true)", "FocusMain()"};
    const Row table[] = {
        {"cat costs five after main is back", cat, {"Cat"}, 30, 25, {"EnableMain(true)", "FocusMain()", "SetHeartBar(5)", "SetHeartLabel(25)"}},
        {"cat with the bill still open", cat, {"FoundMoney", "Cat"}, 30, 25, {"SetHeartBar(5)", "SetHeartLabel(25)"}},
        {"cat to zero locks main again", cat, {"Cat"}, 5, 0, {"EnableMain(true)", "FocusMain()", "SetHeartBar(0)", "SetHeartLabel(0)", "EnableMain(false)", "ShowLose()"}},
        {"ignoring costs ten after main is back", ok<NoticeKind::Ignoring>, {"Ignoring"}, 30, 20, {"EnableMain(true)", "FocusMain()", "SetHeartBar(4)", "SetHeartLabel(20)"}},
        {"boring costs ten before main is back", boring, {"Boring"}, 30, 20, {"SetHeartBar(4)", "SetHeartLabel(20)", "EnableMain(true)", "FocusMain()"}},
        {"boring to zero keeps main locked", boring, {"Boring"}, 10, 0, {"SetHeartBar(0)", "SetHeartLabel(0)", "EnableMain(false)", "ShowLose()"}},
        {"the bill costs nothing", ok<NoticeKind::FoundMoney>, {"FoundMoney"}, 30, 30, mainBack},
        {"the fine with the cat still open", ok<NoticeKind::SpeedingFine>, {"Cat", "SpeedingFine"}, 30, 30, {}},
        {"a text notice gives main back whatever is open", ok<NoticeKind::TextNotice>, {"Cat", "TextNotice"}, 30, 30, mainBack},
        {"the lose screen alone", onLoseOk, {"Lose"}, 0, 0, mainBack},
        {"the lose screen over the cat", onLoseOk, {"Cat", "Lose"}, 0, 0, {}},
        {"the win screen hands on to the Top 20", onWinOk, {"Win"}, 100, 100, {"ShowHighScores()"}},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        newGame(c.heart).game_over = c.heart <= 0 || c.heart >= 100;
        view.openScreens = c.open;
        view.mainEnabled = false;
        c.ok(game);
        EXPECT_EQ(state().heart, c.heartAfter);
        EXPECT_EQ(calls(), c.calls);
        EXPECT_EQ(state().result.result_pending, c.ok == onWinOk);
    }
}

} // namespace
