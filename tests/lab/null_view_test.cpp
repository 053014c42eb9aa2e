#include "her_tastes.h"
#include "player.h"

#include <gtest/gtest.h>

using namespace amorra;
using namespace amorra::lab;

namespace {

// The lab's player on its null view asks every question; what he learns
// from her answers must be what the game wrote down.
TEST(Lab, herTastesAsThePlayerReadsThemAreWhatTheGameRecorded)
{
    const auto opinion = [](const std::string &mark) { return mark == "+" ? 1 : mark == "-" ? -1 : 0; };
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        Player p;
        p.startGame(seed, Ratings{});
        HerTastes t;
        for (int q = 0; q < kQuestionCount; ++q) {
            p.confirmWindows();
            ASSERT_TRUE((p.listTitle() == "Things to ask her" && p.rowCount() > 0) || p.press(Button::CallHer));
            p.confirmWindows();
            ASSERT_TRUE(p.pickRow(q) && p.press(Button::Action));
            ASSERT_NE(HerTastes::answerShown(q, p.talk()), 0) << "question " << q;
            t.learn(q, p.talk());
        }
        for (size_t i = 1; i <= 11; ++i) {
            EXPECT_EQ(t.gift[i], opinion(p.game().state().gifts[i].extra)) << "gift " << i;
            EXPECT_EQ(t.place[i], opinion(p.game().state().places[i].extra)) << "place " << i;
        }
    }
}

} // namespace
