#include "her_tastes.h"
#include "lab.h"

#include <gtest/gtest.h>

using namespace amorra;
using namespace amorra::lab;

namespace {

LabConfig smallRun(std::uint64_t seed)
{
    LabConfig c;
    c.games = 150;
    c.seed = seed;
    return c;
}

TEST(LabRun, sameSeedPlaysTheSameGames)
{
    const std::string first = formatCsv(runLab(smallRun(42)).rows);
    const std::string second = formatCsv(runLab(smallRun(42)).rows);
    EXPECT_EQ(first, second);
    // The seed must reach the games: another seed gives other games.
    EXPECT_NE(first, formatCsv(runLab(smallRun(43)).rows));
}

// A player who leaves a notice unanswered, or a strategy that stops
// clicking, would leave games hanging at the click limit.
TEST(LabRun, everyGameOfEveryStrategyEndsOnAnEndScreen)
{
    LabConfig c = smallRun(7);
    c.games = 300;
    const LabRun run = runLab(c);
    ASSERT_EQ(run.rows.size(), 4u * 300u);
    for (const GameRow &r : run.rows) {
        ASSERT_NE(r.outcome, Outcome::Stuck) << r.strategy << " game " << r.game;
        if (r.outcome == Outcome::LostMonth) {
            EXPECT_EQ(r.days, 30) << r.strategy << " game " << r.game;
        }
        if (r.outcome == Outcome::Won) {
            EXPECT_GT(r.score, 0) << r.strategy << " game " << r.game;
        }
    }
}

TEST(LabRun, bestStrategyWinsMoreAndScoresHigherThanTheSweetTalker)
{
    LabConfig c = smallRun(3);
    c.games = 400;
    c.strategies = {"sweet-talker", "best"};
    const auto s = summarise(runLab(c).rows);
    ASSERT_EQ(s.size(), 2u);
    EXPECT_GT(s[1].wins, s[0].wins);
    EXPECT_GT(s[1].medianScore, s[0].medianScore);
}

TEST(Player, canOnlyClickWhatTheScreenShows)
{
    Player p;
    p.startGame(1, Ratings{});
    // At the start the action and ask-out buttons are hidden and dates locked.
    EXPECT_FALSE(p.press(Button::Action));
    EXPECT_FALSE(p.press(Button::AskOut));
    EXPECT_FALSE(p.press(Button::TakeHerOut));
    EXPECT_FALSE(p.pickRow(0));
    EXPECT_EQ(p.presses(), 0);

    ASSERT_TRUE(p.press(Button::GoShopping));
    EXPECT_EQ(p.rowCount(), 11);
    EXPECT_FALSE(p.pickRow(11));
    p.confirmWindows(); // a found-money or speeding notice may be up
    ASSERT_TRUE(p.pickRow(10));
    EXPECT_TRUE(p.press(Button::Action));
    EXPECT_EQ(p.presses(), 2);
}

TEST(Player, confirmingEveryWindowGivesTheMainScreenBack)
{
    // Working four days in a row without a word to her opens her complaint.
    Player p;
    p.startGame(5, Ratings{});
    for (int day = 0; day < 4; ++day) {
        p.confirmWindows();
        ASSERT_TRUE(p.press(Button::GoToWork));
    }
    EXPECT_FALSE(p.screen().mainEnabled);
    EXPECT_FALSE(p.press(Button::CallHer));
    p.confirmWindows();
    EXPECT_TRUE(p.screen().openScreens.empty());
    EXPECT_TRUE(p.screen().mainEnabled);
    EXPECT_EQ(p.heart(), 0) << "the complaint's OK costs her 10 of her 10";
    EXPECT_EQ(p.ending(), NullView::Ending::LostHeart);
}

struct AnswerCase
{
    const char *name;
    int question;
    int answer; // 1..3
    std::vector<int> likedGifts, dislikedGifts, likedPlaces, dislikedPlaces;
};

void PrintTo(const AnswerCase &c, std::ostream *os)
{
    *os << c.name;
}

class HerAnswers : public ::testing::TestWithParam<AnswerCase>
{
};

TEST_P(HerAnswers, teachWhatSheLikes)
{
    const AnswerCase &c = GetParam();
    const QuestionRec q = makeQuestions()[static_cast<size_t>(c.question)];
    const std::string talk = "Tom: " + q.question + "\r\nLisa: " + q.answer[static_cast<size_t>(c.answer - 1)] +
                             "\r\nLisa: I have to go now. BYE!!";
    HerTastes t;
    t.learn(c.question, talk);
    EXPECT_TRUE(t.asked[static_cast<size_t>(c.question)]);
    for (int g = 1; g <= kGiftCount; ++g) {
        const bool liked = std::count(c.likedGifts.begin(), c.likedGifts.end(), g) > 0;
        const bool disliked = std::count(c.dislikedGifts.begin(), c.dislikedGifts.end(), g) > 0;
        EXPECT_EQ(t.gift[static_cast<size_t>(g)], liked ? 1 : disliked ? -1 : 0) << "gift " << g;
    }
    for (int p = 1; p <= kPlaceCount; ++p) {
        const bool liked = std::count(c.likedPlaces.begin(), c.likedPlaces.end(), p) > 0;
        const bool disliked = std::count(c.dislikedPlaces.begin(), c.dislikedPlaces.end(), p) > 0;
        EXPECT_EQ(t.place[static_cast<size_t>(p)], liked ? 1 : disliked ? -1 : 0) << "place " << p;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, HerAnswers,
    ::testing::Values(AnswerCase{"bookLovedMeansTheBook", 6, 3, {3}, {}, {}, {}},
                      AnswerCase{"readingIsBoringMeansNoBook", 6, 1, {}, {3}, {}, {}},
                      AnswerCase{"middleAnswerTellsNothing", 6, 2, {}, {}, {}, {}},
                      AnswerCase{"diamondsLikedMeansRingAndJewellery", 12, 3, {10, 7}, {}, {}, {}},
                      AnswerCase{"sexistMeansOnlyNoJewellery", 12, 1, {}, {7}, {}, {}},
                      AnswerCase{"noHollywoodMeansNoMovie", 8, 1, {}, {}, {}, {2}},
                      AnswerCase{"smokingSexyMeansTheNightclub", 23, 3, {}, {}, {10}, {}},
                      AnswerCase{"catQuestionTellsNothing", 2, 3, {}, {}, {}, {}}),
    [](const ::testing::TestParamInfo<AnswerCase> &info) { return std::string(info.param.name); });

int opinion(const std::string &mark)
{
    return mark == "+" ? 1 : mark == "-" ? -1 : 0;
}

// What the lab's players believe she said must be what the game wrote down.
TEST(HerTastesInTheGame, matchTheOpinionsTheGameRecordsAfterEveryQuestion)
{
    for (std::uint64_t seed = 1; seed <= 120; ++seed) {
        Player p;
        p.startGame(seed, Ratings{});
        HerTastes t;
        for (int q = 0; q < kQuestionCount; ++q) {
            if (p.listTitle() != "Things to ask her" || p.rowCount() == 0) {
                p.confirmWindows();
                ASSERT_TRUE(p.press(Button::CallHer));
            }
            p.confirmWindows();
            ASSERT_TRUE(p.pickRow(q));
            ASSERT_TRUE(p.press(Button::Action));
            t.learn(q, p.talk());
            ASSERT_NE(HerTastes::answerShown(q, p.talk()), 0) << "seed " << seed << " question " << q;
        }
        const GameState &s = p.game().state();
        for (int g = 1; g <= kGiftCount; ++g)
            ASSERT_EQ(t.gift[static_cast<size_t>(g)], opinion(s.gifts[static_cast<size_t>(g)].extra)) << "seed " << seed << " gift " << g;
        for (int pl = 1; pl <= kPlaceCount; ++pl)
            ASSERT_EQ(t.place[static_cast<size_t>(pl)], opinion(s.places[static_cast<size_t>(pl)].extra)) << "seed " << seed << " place " << pl;
    }
}

TEST(RowPrice, readsTheAmountAfterTheDollar)
{
    EXPECT_EQ(rowPrice("Flowers        \t$40"), 40);
    EXPECT_EQ(rowPrice("Bank Teller \t$200\tNOT available today"), 200);
    EXPECT_EQ(rowPrice("Do you smoke?"), -1);
}

} // namespace
