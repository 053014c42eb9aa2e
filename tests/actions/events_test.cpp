#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Events = PlayFixture;

using EventFn = void (*)(Game &);

struct OddsCase
{
    const char *name;
    EventFn event;
    int luck;
    int money;
    double r;
    const char *notice; // nullptr: nothing happens
};

void PrintTo(const OddsCase &c, std::ostream *os)
{
    *os << c.name;
}

struct EventOdds : Events, ::testing::WithParamInterface<OddsCase>
{
};

// One draw x in 1..L; the fine and the cat need x = 3, the money x = 9.
TEST_P(EventOdds, followLuck)
{
    const OddsCase c = GetParam();
    newGame();
    state().player.luck = static_cast<i16>(c.luck);
    state().money = static_cast<i16>(c.money);
    random.push(c.r);
    c.event(game);
    if (c.notice) {
        ASSERT_EQ(view.countCalls("ShowNotice"), 1);
        EXPECT_EQ(view.callsNamed("ShowNotice").front().args.at(0), c.notice);
        EXPECT_FALSE(view.mainEnabled);
    } else {
        EXPECT_EQ(calls(), std::vector<std::string>{});
    }
    expectDrawsUsedUp();
}

INSTANTIATE_TEST_SUITE_P(
    Draws, EventOdds,
    ::testing::Values(OddsCase{"fine_luck0_one_in_ten", speeding_fine_event, 0, 100, pick(3, 10), "SpeedingFine"},
                      OddsCase{"fine_luck0_other_draw", speeding_fine_event, 0, 100, pick(4, 10), nullptr},
                      OddsCase{"fine_luck50_one_in_sixty", speeding_fine_event, 50, 100, pick(3, 60), "SpeedingFine"},
                      OddsCase{"fine_luck100_one_in_110", speeding_fine_event, 100, 100, pick(3, 110), "SpeedingFine"},
                      OddsCase{"fine_luck100_slot_of_luck50", speeding_fine_event, 100, 100, pick(3, 60), nullptr},
                      OddsCase{"fine_needs_more_than_60", speeding_fine_event, 50, 60, pick(3, 60), nullptr},
                      OddsCase{"fine_at_61", speeding_fine_event, 50, 61, pick(3, 60), "SpeedingFine"},
                      OddsCase{"money_luck100_one_in_ten", found_money_event, 100, 0, pick(9, 10), "FoundMoney"},
                      OddsCase{"money_luck0_one_in_110", found_money_event, 0, 0, pick(9, 110), "FoundMoney"},
                      OddsCase{"money_luck0_slot_of_luck100", found_money_event, 0, 0, pick(9, 10), nullptr},
                      OddsCase{"money_even_when_broke", found_money_event, 50, -20, pick(9, 60), "FoundMoney"},
                      OddsCase{"cat_luck0_one_in_ten", cat_event, 0, 0, pick(3, 10), "Cat"},
                      OddsCase{"cat_luck50_one_in_sixty", cat_event, 50, 0, pick(3, 60), "Cat"},
                      OddsCase{"cat_luck50_other_draw", cat_event, 50, 0, pick(2, 60), nullptr}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(Events, eachEventRunsItsStepsInOrder)
{
    newGame();
    state().money = 61;
    random.push({pick(3, 60), pick(9, 60), pick(3, 60)});
    speeding_fine_event(game);
    found_money_event(game);
    cat_event(game);
    EXPECT_EQ(calls(), (std::vector<std::string>{
                           "EnableMain(false)",
                           "SetMoneyLabel(Bank Balance: $1)",
                           "PlaySound(\\sounds\\police.wav|Async)",
                           "ShowNotice(SpeedingFine|)",
                           "EnableMain(false)",
                           "PlaySound(\\sounds\\found.wav|Async)",
                           "SetMoneyLabel(Bank Balance: $101)",
                           "ShowNotice(FoundMoney|)",
                           "PlaySound(\\sounds\\cat.wav|Wait)", // heard out before the notice
                           "EnableMain(false)",
                           "ShowNotice(Cat|)",
                       }));
}

TEST_F(Events, anEndedGameRaisesNoNoticeButTheComplaintStillSighs)
{
    newGame();
    state().money = 500;
    state().game_over = true;
    random.push({pick(3, 60), pick(9, 60), pick(3, 60)});
    speeding_fine_event(game);
    found_money_event(game);
    cat_event(game);
    complain(game, 'b');
    complain(game, 'w');
    EXPECT_EQ(calls(), (std::vector<std::string>{"PlaySound(\\sounds\\sigh.wav|Async)", "PlaySound(\\sounds\\sigh.wav|Async)"}));
    EXPECT_EQ(state().money, 500);
}

TEST_F(Events, soundOffSilencesEveryEvent)
{
    newGame();
    state().sound_on = false;
    state().money = 500;
    random.push({pick(3, 60), pick(9, 60), pick(3, 60)});
    speeding_fine_event(game);
    found_money_event(game);
    cat_event(game);
    complain(game, 'w');
    EXPECT_EQ(view.countCalls("PlaySound"), 0);
    EXPECT_EQ(view.countCalls("ShowNotice"), 4);
}

// Take Her Out can bring both the bill and the cat; main comes back only
// with the last OK, whichever that is.
TEST_F(Events, severalNoticesGiveMainBackOnlyAtTheLastOk)
{
    for (bool catFirst : {false, true}) {
        SCOPED_TRACE(catFirst ? "cat confirmed first" : "money confirmed first");
        view.openScreens.clear();
        newGame();
        random.push({pick(9, 60), pick(3, 60)});
        onTakeHerOut(game);
        ASSERT_EQ(view.openScreens, (std::vector<std::string>{"FoundMoney", "Cat"}));
        EXPECT_FALSE(view.mainEnabled);

        const NoticeKind first = catFirst ? NoticeKind::Cat : NoticeKind::FoundMoney;
        const NoticeKind second = catFirst ? NoticeKind::FoundMoney : NoticeKind::Cat;
        OnNoticeOk(game, first);
        view.closeScreen(noticeKindName(first));
        EXPECT_FALSE(view.mainEnabled);
        OnNoticeOk(game, second);
        view.closeScreen(noticeKindName(second));
        EXPECT_TRUE(view.mainEnabled);
        EXPECT_EQ(view.calls.back().name, catFirst ? "FocusMain" : "SetHeartLabel");
        EXPECT_EQ(state().heart, 5); // the cat's 5 points, taken at its OK
        EXPECT_EQ(state().money, 150);
    }
}

struct PenaltyCase
{
    const char *name;
    NoticeKind kind;
    int heart;
    int heartAfter;
    std::vector<std::string> calls;
};

void PrintTo(const PenaltyCase &c, std::ostream *os)
{
    *os << c.name;
}

struct NoticeOk : Events, ::testing::WithParamInterface<PenaltyCase>
{
};

TEST_P(NoticeOk, appliesItsPenaltyAndGivesMainBackInItsOrder)
{
    const PenaltyCase c = GetParam();
    newGame();
    state().heart = static_cast<i16>(c.heart);
    view.openScreens = {noticeKindName(c.kind)};
    view.mainEnabled = false;
    OnNoticeOk(game, c.kind);
    EXPECT_EQ(state().heart, c.heartAfter);
    EXPECT_EQ(calls(), c.calls);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, NoticeOk,
    ::testing::Values(
        PenaltyCase{"cat_costs_five_after_main_is_back", NoticeKind::Cat, 30, 25,
                    {"EnableMain(true)", "FocusMain()", "SetHeartBar(5)", "SetHeartLabel(25)"}},
        PenaltyCase{"ignoring_costs_ten_after_main_is_back", NoticeKind::Ignoring, 30, 20,
                    {"EnableMain(true)", "FocusMain()", "SetHeartBar(4)", "SetHeartLabel(20)"}},
        PenaltyCase{"boring_costs_ten_before_main_is_back", NoticeKind::Boring, 30, 20,
                    {"SetHeartBar(4)", "SetHeartLabel(20)", "EnableMain(true)", "FocusMain()"}},
        PenaltyCase{"found_money_costs_nothing", NoticeKind::FoundMoney, 30, 30, {"EnableMain(true)", "FocusMain()"}},
        PenaltyCase{"fine_costs_nothing_more", NoticeKind::SpeedingFine, 30, 30, {"EnableMain(true)", "FocusMain()"}},
        // The boring penalty opens the lose screen first, which keeps main disabled.
        PenaltyCase{"boring_to_zero_keeps_main_disabled", NoticeKind::Boring, 10, 0,
                    {"SetHeartBar(0)", "SetHeartLabel(0)", "EnableMain(false)", "ShowLose()"}},
        // The cat gives main back first; the loss takes it away again.
        PenaltyCase{"cat_to_zero_ends_disabled", NoticeKind::Cat, 5, 0,
                    {"EnableMain(true)", "FocusMain()", "SetHeartBar(0)", "SetHeartLabel(0)", "EnableMain(false)", "ShowLose()"}}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(Events, aTextNoticeGivesMainBackWhateverElseIsOpen)
{
    newGame();
    view.openScreens = {"Cat", "TextNotice"};
    OnNoticeOk(game, NoticeKind::TextNotice);
    EXPECT_EQ(calls(), (std::vector<std::string>{"EnableMain(true)", "FocusMain()"}));
    EXPECT_EQ(state().heart, 10);
}

TEST_F(Events, loseScreenOkGivesMainBackOnlyWhenItIsTheLastWindow)
{
    newGame();
    state().heart = 10;
    random.push({pick(3, 60)});
    cat_event(game);
    complain(game, 'w');
    OnNoticeOk(game, NoticeKind::Ignoring); // heart 0: lose screen over the cat notice
    view.closeScreen("Ignoring");
    ASSERT_EQ(view.openScreens, (std::vector<std::string>{"Cat", "Lose"}));

    onLoseOk(game);
    view.closeScreen("Lose");
    EXPECT_FALSE(view.mainEnabled);
    OnNoticeOk(game, NoticeKind::Cat); // the last window brings it back
    view.closeScreen("Cat");
    EXPECT_TRUE(view.mainEnabled);

    view.clearCalls();
    game.set_heart(-1); // no second lose screen in the same game
    view.openScreens = {"Lose"};
    onLoseOk(game);
    EXPECT_EQ(calls({"EnableMain", "FocusMain"}), (std::vector<std::string>{"EnableMain(true)", "FocusMain()"}));
}

TEST_F(Events, winScreenOkHandsTheResultToTheTopTwenty)
{
    newGame();
    state().action_count = 3;
    state().spent_total = 40;
    game.set_heart(100);
    view.clearCalls();
    onWinOk(game);
    EXPECT_TRUE(state().result.result_pending);
    EXPECT_EQ(calls(), std::vector<std::string>{"ShowHighScores()"}); // main stays disabled
    EXPECT_FALSE(view.mainEnabled);
}

} // namespace
