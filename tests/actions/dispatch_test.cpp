#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using ModeButton = void (*)(Game &);

using Dispatch = PlayFixture;

struct ModeCase
{
    const char *name;
    ModeButton press;
    int draws; // chance draws the button makes when nothing happens
    const char *title;
    const char *caption;
    const char *tip;
    size_t rows;
    const char *firstRow;
    const char *lastRow;
    const char *talk;
    std::vector<std::string> sounds;
};

void PrintTo(const ModeCase &c, std::ostream *os)
{
    *os << c.name;
}

struct ModeButtons : PlayFixture, ::testing::WithParamInterface<ModeCase>
{
};

TEST_P(ModeButtons, fillTheirListAndCountOnePressEachTime)
{
    const ModeCase c = GetParam();
    newGame();
    for (int press = 1; press <= 2; ++press) {
        for (int i = 0; i < c.draws; ++i)
            random.push(kCalm);
        c.press(game);

        EXPECT_EQ(view.listTitle, c.title);
        EXPECT_EQ(view.okCaption, c.caption);
        EXPECT_EQ(view.listTip, c.tip);
        ASSERT_EQ(view.rows.size(), c.rows) << "press " << press; // refilled, not appended
        EXPECT_EQ(view.rows.front(), c.firstRow);
        EXPECT_EQ(view.rows.back(), c.lastRow);
        EXPECT_EQ(view.talk, c.talk);
        EXPECT_FALSE(view.okShown); // waits for a row to be picked
        EXPECT_EQ(state().action_count, press);
        expectDrawsUsedUp();
    }
    std::vector<std::string> twice = c.sounds;
    twice.insert(twice.end(), c.sounds.begin(), c.sounds.end());
    EXPECT_EQ(sounds(), twice);
}

const char *const kGreeting = "Lisa:  Hello?\r\nTom: Hi Lisa this is Tom\r\nLisa: Ohh .... How are you???";

INSTANTIATE_TEST_SUITE_P(
    AllFive, ModeButtons,
    ::testing::Values(
        ModeCase{"buy_a_gift", onBuyGift, 1, "Things to Get", "BUY", "Available gifts you can buy her", 11,
                 "Flowers        \t$40", "Tickets to Hawaii\t$2200", "", {}},
        ModeCase{"call_her", onCallHer, 0, "Things to ask her", "ASK", "Topics you can talk about", 24,
                 "So do you like living here?", "Do you smoke?", kGreeting, {"\\sounds\\phonet.wav"}},
        ModeCase{"take_her_out", onTakeHerOut, 2, "Places to Go", "GO", "Places you can take her", 11,
                 "High class restaurant\t\t\t$120", "Go to the local Pub   \t\t\t$50", "Lisa: I'm coming...",
                 {"\\sounds\\doorbell.wav"}},
        ModeCase{"go_to_work", onGoToWork, 8, "Job Noticeboard", "WORK", "List of jobs", 6,
                 "Pizza Delivery\t$20\tavailable", "Stock Broker \t$300\tavailable", "", {"\\sounds\\car.wav"}},
        ModeCase{"go_shopping", onGoShopping, 2, "Things to Buy", "BUY", "Items you can buy for your self", 11,
                 " Latest Sunglasses\t\t$150", " New Shoes\t\t$70", "", {}}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(Dispatch, takeHerOutRunsItsStepsInOrder)
{
    newGame();
    random.push({kCalm, kCalm});
    onTakeHerOut(game);
    std::vector<std::string> got = calls();
    EXPECT_EQ(got.size(), 8u + 11u); // the calm events add nothing
    got.resize(9);
    const std::vector<std::string> head = {
        "ShowOk(false)",
        "ShowAskOut(false)",
        "SetListTip(Places you can take her)",
        "PlaySound(\\sounds\\doorbell.wav|Async)",
        "SetListTitle(Places to Go)",
        "SetOkCaption(GO)",
        "SetTalk(Lisa: I'm coming...)",
        "ClearList()",
        "AddListRow(High class restaurant\t\t\t$120)",
    };
    EXPECT_EQ(got, head);
}

struct GameOverCase
{
    const char *name;
    ModeButton press;
    bool hidesAskOut;
};

void PrintTo(const GameOverCase &c, std::ostream *os)
{
    *os << c.name;
}

struct GameOverGuard : PlayFixture, ::testing::WithParamInterface<GameOverCase>
{
};

TEST_P(GameOverGuard, opensOnlyTheDialogAndCountsNothing)
{
    const GameOverCase c = GetParam();
    newGame();
    random.push({kCalm, kCalm});
    onTakeHerOut(game); // something on screen that must stay
    state().game_over = true;
    const auto before = view.rows;
    const int count = state().action_count;
    view.clearCalls();

    c.press(game);

    std::vector<std::string> expected = {"ShowOk(false)"};
    if (c.hidesAskOut)
        expected.push_back("ShowAskOut(false)");
    expected.push_back("EnableMain(false)");
    expected.push_back("ShowGameOver()");
    EXPECT_EQ(calls(), expected);
    EXPECT_EQ(state().action_count, count);
    EXPECT_EQ(view.rows, before);
    EXPECT_EQ(view.listTitle, "Places to Go");
    EXPECT_EQ(view.talk, "Lisa: I'm coming...");
    expectDrawsUsedUp(); // no events drawn
}

INSTANTIATE_TEST_SUITE_P(AllFive, GameOverGuard,
                         ::testing::Values(GameOverCase{"buy_a_gift", onBuyGift, true},
                                           GameOverCase{"call_her_leaves_the_ask_out_button", onCallHer, false},
                                           GameOverCase{"take_her_out", onTakeHerOut, true},
                                           GameOverCase{"go_to_work", onGoToWork, true},
                                           GameOverCase{"go_shopping", onGoShopping, true}),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(Dispatch, clickingARowEmptiesTheTalkAndShowsTheActionButton)
{
    newGame();
    random.push({kCalm, kCalm});
    onTakeHerOut(game);
    view.clearCalls();
    onListClick(game);
    EXPECT_EQ(calls(), (std::vector<std::string>{"SetTalk()", "ShowOk(true)"}));
}

struct NoRowCase
{
    const char *name;
    ModeButton press;
    int draws;
};

void PrintTo(const NoRowCase &c, std::ostream *os)
{
    *os << c.name;
}

struct NoRowSelected : PlayFixture, ::testing::WithParamInterface<NoRowCase>
{
};

// A new game empties the list but leaves the mode and the action button:
// a press then must count and change nothing else.
TEST_P(NoRowSelected, pressIsCountedAndOtherwiseHarmless)
{
    const NoRowCase c = GetParam();
    newGame();
    for (int i = 0; i < c.draws; ++i)
        random.push(kCalm);
    c.press(game);
    onListClick(game);
    view.selectRow(0);
    random.push(pick(9, 15));
    playAgainFromMenu(game);
    const GameState before = state();
    view.clearCalls();

    onActionButton(game);

    EXPECT_EQ(calls(), (std::vector<std::string>{"ShowOk(false)", "SetStatBars(50|50|50)", "SetSpentLabel($0)"}));
    EXPECT_EQ(state().action_count, 1);
    EXPECT_EQ(state().money, before.money);
    EXPECT_EQ(state().heart, before.heart);
    EXPECT_EQ(state().day, before.day);
    EXPECT_EQ(state().work_streak, before.work_streak);
    expectDrawsUsedUp();
}

INSTANTIATE_TEST_SUITE_P(AllFive, NoRowSelected,
                         ::testing::Values(NoRowCase{"gift", onBuyGift, 1}, NoRowCase{"phone", onCallHer, 0},
                                           NoRowCase{"date", onTakeHerOut, 2}, NoRowCase{"work", onGoToWork, 8},
                                           NoRowCase{"shop", onGoShopping, 2}),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(Dispatch, actionButtonBeforeAnyModeOnlyCountsAndRedrawsTheBars)
{
    newGame();
    onActionButton(game);
    EXPECT_EQ(calls(), (std::vector<std::string>{"ShowOk(false)", "SetStatBars(50|50|50)", "SetSpentLabel($0)"}));
    EXPECT_EQ(state().action_count, 1);
}

TEST(ActionMode, isKnownByTheExactTitle)
{
    EXPECT_EQ(modeFromTitle("Things to Get"), ActionMode::Gift);
    EXPECT_EQ(modeFromTitle("Things to ask her"), ActionMode::Phone);
    EXPECT_EQ(modeFromTitle("Places to Go"), ActionMode::Date);
    EXPECT_EQ(modeFromTitle("Job Noticeboard"), ActionMode::Work);
    EXPECT_EQ(modeFromTitle("Things to Buy"), ActionMode::Shop);
    EXPECT_EQ(modeFromTitle(""), ActionMode::None);
    EXPECT_EQ(modeFromTitle("places to go"), ActionMode::None);
}

} // namespace
