#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Shops = PlayFixture;

// Unmarked gifts give price / (21 under $100, 50 up to $500, 70 above) plus
// looks / 25; a gift she said she likes gives 12 + looks / 25, once.
TEST_F(Shops, aGiftPleasesHerByPriceLooksAndWhatSheSaid)
{
    struct Row { const char *name; int gift, price; const char *opinion; int heart; double looks; int heartAfter; const char *reply, *opinionAfter; };
    const char *const likeIt = " I like it thank you!", *const remembered = " Thank you so much. You remembered!";
    const Row table[] = {
        {"flowers: 10 + 40/21 + 40/25 = 13.5 rounds up", 1, 40, "n", 10, 40, 14, likeIt, "n"},
        {"a CD under $100 counts a 21st", 4, 80, "n", 30, 0, 34, likeIt, "n"},
        {"perfume at $100 counts a 50th", 5, 100, "n", 30, 50, 34, likeIt, "n"},
        {"a phone at $300 counts a 50th", 8, 300, "n", 30, 13, 37, likeIt, "n"},
        {"a dress above $500 counts a 70th", 9, 700, "n", 30, 50, 42, likeIt, "n"},
        {"a liked gift pays twelve, once", 2, 40, "+", 20, 0, 32, remembered, "n"},
        {"a liked ring with looks", 10, 1200, "+", 20, 100, 36, remembered, "n"},
        {"chocolates she is allergic to", 2, 40, "-", 30, 100, 23, " But I told you I'm allergic to chocolates!!! ", "-"},
        {"a sexist jewel", 7, 200, "-", 30, 100, 28, " Thanks, didn't I tell you this is such a sexist gift.", "-"},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        auto &s = newGame(c.heart, 5000, c.looks);
        s.gifts[c.gift].extra = c.opinion;
        onBuyGift(game);
        view.clearCalls();
        choose(c.gift - 1);
        EXPECT_EQ(s.heart, c.heartAfter);
        EXPECT_EQ(view.heartLabel, std::to_string(c.heartAfter));
        EXPECT_EQ(view.talk, std::string("Tom: I got something for you.\r\nLisa:") + c.reply);
        EXPECT_EQ(s.gifts[c.gift].extra, c.opinionAfter);
        EXPECT_EQ(std::vector<int>({s.money, s.spent_total, s.gift_spent}), std::vector<int>({5000 - c.price, c.price, c.price}));
        EXPECT_EQ(sounds(), Strings{"\\sounds\\cashrg.wav"});
        EXPECT_TRUE(view.rows.empty());
    }
}

// She feels bought when over 80 % of the money spent on her went on gifts
// and her heart is 66 or more: 10 off, and gift spending forgiven in part.
TEST_F(Shops, tooMuchOnGiftsWithAHighHeartFeelsLikeBuyingHerOff)
{
    struct Row { const char *name; int heart, spent, giftSpent, heartAfter, giftSpentAfter; }; // before the $40 flowers, +2 at looks 0
    const Row table[] = {
        // 2500 spent, 2300 on gifts, heart 70: down to 60, and 2300 - 2300/7.5 = 1993.33.
        {"the worked example", 68, 2460, 2260, 60, 1993}, {"heart 65 is not high enough", 63, 2460, 2260, 65, 2300},
        {"heart 66 is", 64, 2460, 2260, 56, 1971},        {"exactly 80 percent is fine", 88, 1960, 1560, 90, 1600},
        {"just over 80 percent", 88, 1960, 1561, 80, 1441},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        auto &s = newGame(c.heart, 5000, 0);
        s.spent_total = static_cast<i16>(c.spent);
        s.gift_spent = static_cast<i16>(c.giftSpent);
        onBuyGift(game);
        choose(0);
        const bool boughtOff = c.heartAfter < c.heart;
        EXPECT_EQ(s.heart, c.heartAfter);
        EXPECT_EQ(s.gift_spent, c.giftSpentAfter);
        EXPECT_EQ(calls({"ShowNotice"}), boughtOff ? Strings{"ShowNotice(TextNotice|Lisa: Are you tring to buy me off!!!)"} : Strings{});
        EXPECT_EQ(sounds().size(), boughtOff ? 2u : 1u); // and a sigh
    }
}

// An item closes price/1000 of the way to 100 of its own rating only; luck
// is kept whole, rounded half to even. It is paid even when nothing changes.
TEST_F(Shops, anItemRaisesItsOwnRatingTowardsAHundred)
{
    struct Row { const char *name; int item, price, before; double looks, smart; int luck; };
    const Row table[] = {
        {"an encyclopaedia closes a quarter", 6, 250, 40, 40, 55, 40},      {"a second one a quarter of the rest", 6, 250, 55, 55, 66.25, 55},
        {"a new jacket keeps looks unrounded", 2, 350, 30, 54.5, 30, 30},   {"a lucky stone at 50 rounds 52.5 down", 10, 50, 50, 50, 50, 52},
        {"a lucky stone at 51 rounds 53.45 down", 10, 50, 51, 51, 51, 53}, {"a lucky stone at 90 changes nothing", 10, 50, 90, 90, 90, 90},
        {"a rabbit's paw from nothing", 3, 380, 0, 0, 0, 38},               {"crystals at 100", 5, 250, 100, 100, 100, 100},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        auto &p = newGame(10, 5000, c.before, c.before).player;
        p.smart = c.before;
        onGoShopping(game);
        view.clearCalls();
        choose(c.item - 1);
        EXPECT_EQ(std::vector<double>({p.looks, p.smart, static_cast<double>(p.luck)}), std::vector<double>({c.looks, c.smart, static_cast<double>(c.luck)}));
        EXPECT_EQ(state().money, 5000 - c.price);
        EXPECT_EQ(state().spent_total, 0); // not money spent on her
        EXPECT_EQ(sounds(), Strings{"\\sounds\\cashrg.wav"});
    }
}

} // namespace
