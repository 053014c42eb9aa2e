#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Events = PlayFixture;

// One draw x = Int(Rnd x L + 1); the fine and the cat need x = 3, the bill
// x = 9. The lowest and highest draws that give it must fire, the draws
// just outside must not: that pins L. An ended game, or sound switched
// off, silences what it should.
TEST_F(Events, chanceEventsFollowLuckAndTheBalance)
{
    struct Row
    {
        const char *name;
        Button event;
        int luck, money;
        int x, L;
        const char *notice; // nullptr: never fires
        int moneyAfter;
        const char *sound;
    };
    const Row table[] = {
        {"fine at luck 0", speeding_fine_event, 0, 100, 3, 10, "SpeedingFine", 40, "PlaySound(\\sounds\\police.wav|Async)"},
        {"fine at luck 100", speeding_fine_event, 100, 100, 3, 110, "SpeedingFine", 40, "PlaySound(\\sounds\\police.wav|Async)"},
        {"no fine with $60", speeding_fine_event, 50, 60, 3, 60, nullptr, 60, nullptr},
        {"a fine with $61 leaves $1", speeding_fine_event, 50, 61, 3, 60, "SpeedingFine", 1, "PlaySound(\\sounds\\police.wav|Async)"},
        {"bill at luck 100", found_money_event, 100, 0, 9, 10, "FoundMoney", 100, "PlaySound(\\sounds\\found.wav|Async)"},
        {"bill at luck 0, even when broke", found_money_event, 0, -20, 9, 110, "FoundMoney", 80, "PlaySound(\\sounds\\found.wav|Async)"},
        {"cat at luck 0", cat_event, 0, 0, 3, 10, "Cat", 0, "PlaySound(\\sounds\\cat.wav|Wait)"},
        {"cat at luck 50", cat_event, 50, 0, 3, 60, "Cat", 0, "PlaySound(\\sounds\\cat.wav|Wait)"},
    };
    const double lowest = 1e-9, inside = 2e-9;
    for (const Row &c : table) {
        const double from = (c.x - 1.0) / c.L, to = c.x / static_cast<double>(c.L);
        const struct
        {
            const char *what;
            double r;
            bool fires, over, sound;
        } draws[] = {{"lowest", from + lowest, true, false, true},   {"highest", to - inside, true, false, true},
                     {"below", from - lowest, false, false, true},   {"above", to + lowest, false, false, true},
                     {"game over", from + lowest, false, true, true}, {"sound off", to - inside, true, false, false}};
        for (const auto &d : draws) {
            SCOPED_TRACE(std::string(c.name) + ", " + d.what);
            newGame();
            state().player.luck = static_cast<i16>(c.luck);
            state().money = static_cast<i16>(c.money);
            state().game_over = d.over;
            state().sound_on = d.sound;
            random.push(d.r);
            c.event(game);
            const bool fired = d.fires && c.notice;
            EXPECT_EQ(calls({"ShowNotice"}), fired ? std::vector<std::string>{std::string("ShowNotice(") + c.notice + "|)"}
                                                   : std::vector<std::string>{});
            EXPECT_EQ(calls({"PlaySound"}), fired && d.sound ? std::vector<std::string>{c.sound} : std::vector<std::string>{});
            EXPECT_EQ(view.mainEnabled, !fired);
            EXPECT_EQ(state().money, fired ? c.moneyAfter : c.money);
            expectDrawsUsedUp();
        }
    }
}

TEST_F(Events, herComplaintsSighEvenAfterTheEndButOpenANoticeOnlyBefore)
{
    for (const bool over : {false, true}) {
        for (const char kind : {'b', 'w'}) {
            SCOPED_TRACE(std::string(1, kind) + (over ? " after the end" : ""));
            newGame();
            state().game_over = over;
            complain(game, kind);
            const std::string notice = kind == 'b' ? "ShowNotice(Boring|Lisa: You are getting a bit BORING!! we do the samething alot)"
                                                   : "ShowNotice(Ignoring|Lisa: You are IGNORING me!! You only care about work work work...)";
            std::vector<std::string> expected = {"PlaySound(\\sounds\\sigh.wav|Async)"};
            if (!over)
                expected.insert(expected.end(), {notice, "EnableMain(false)"});
            EXPECT_EQ(calls(), expected);
        }
    }
}

// The main screen comes back with the OK of the last open window only
// (main, the hidden setup screen and this one make three); the penalties
// wait for the OK, and the order decides whether a loss keeps main locked.
TEST_F(Events, anOkAppliesItsPenaltyAndGivesMainBackOnlyWhenNothingElseIsOpen)
{
    struct Row
    {
        const char *name;
        void (*ok)(Game &);
        std::vector<std::string> open;
        int heart, heartAfter;
        std::vector<std::string> calls;
    };
    const Row table[] = {
        {"cat costs five after main is back", [](Game &g) { OnNoticeOk(g, NoticeKind::Cat); }, {"Cat"}, 30, 25,
         {"EnableMain(true)", "FocusMain()", "SetHeartBar(5)", "SetHeartLabel(25)"}},
        {"cat with the bill still open", [](Game &g) { OnNoticeOk(g, NoticeKind::Cat); }, {"FoundMoney", "Cat"}, 30, 25,
         {"SetHeartBar(5)", "SetHeartLabel(25)"}},
        {"ignoring costs ten after main is back", [](Game &g) { OnNoticeOk(g, NoticeKind::Ignoring); }, {"Ignoring"}, 30, 20,
         {"EnableMain(true)", "FocusMain()", "SetHeartBar(4)", "SetHeartLabel(20)"}},
        {"boring costs ten before main is back", [](Game &g) { OnNoticeOk(g, NoticeKind::Boring); }, {"Boring"}, 30, 20,
         {"SetHeartBar(4)", "SetHeartLabel(20)", "EnableMain(true)", "FocusMain()"}},
        {"boring to zero keeps main locked", [](Game &g) { OnNoticeOk(g, NoticeKind::Boring); }, {"Boring"}, 10, 0,
         {"SetHeartBar(0)", "SetHeartLabel(0)", "EnableMain(false)", "ShowLose()"}},
        {"cat to zero locks it again", [](Game &g) { OnNoticeOk(g, NoticeKind::Cat); }, {"Cat"}, 5, 0,
         {"EnableMain(true)", "FocusMain()", "SetHeartBar(0)", "SetHeartLabel(0)", "EnableMain(false)", "ShowLose()"}},
        {"the bill costs nothing", [](Game &g) { OnNoticeOk(g, NoticeKind::FoundMoney); }, {"FoundMoney"}, 30, 30, {"EnableMain(true)", "FocusMain()"}},
        {"the fine costs nothing more", [](Game &g) { OnNoticeOk(g, NoticeKind::SpeedingFine); }, {"Cat", "SpeedingFine"}, 30, 30, {}},
        {"a text notice gives main back whatever is open", [](Game &g) { OnNoticeOk(g, NoticeKind::TextNotice); }, {"Cat", "TextNotice"}, 30, 30,
         {"EnableMain(true)", "FocusMain()"}},
        {"lose screen alone", onLoseOk, {"Lose"}, 0, 0, {"EnableMain(true)", "FocusMain()"}},
        {"lose screen over the cat", onLoseOk, {"Cat", "Lose"}, 0, 0, {}},
        {"win screen hands on to the Top 20, main stays locked", onWinOk, {"Win"}, 100, 100, {"ShowHighScores()"}},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        newGame();
        state().heart = static_cast<i16>(c.heart);
        state().game_over = c.heart <= 0 || c.heart >= 100;
        view.openScreens = c.open;
        view.mainEnabled = false;
        c.ok(game);
        EXPECT_EQ(state().heart, c.heartAfter);
        EXPECT_EQ(calls(), c.calls);
        EXPECT_EQ(state().result.result_pending, c.ok == onWinOk);
    }
}

} // namespace
