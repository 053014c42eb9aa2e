#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

struct Shops : PlayFixture
{
    void atTheGiftShop(int heart, double looks, int money = 5000)
    {
        newGame();
        state().heart = static_cast<i16>(heart);
        state().player.looks = looks;
        state().money = static_cast<i16>(money);
        random.push(kCalm);
        onBuyGift(game);
        view.clearCalls();
    }

    void atTheMall(int money = 5000)
    {
        newGame();
        state().money = static_cast<i16>(money);
        random.push({kCalm, kCalm});
        onGoShopping(game);
        view.clearCalls();
    }
};

struct GiftCase
{
    const char *name;
    int gift;
    const char *opinion;
    int heart;
    double looks;
    int heartAfter;
    const char *reply;
    const char *opinionAfter;
};

void PrintTo(const GiftCase &c, std::ostream *os)
{
    *os << c.name;
}

struct GiftReactions : Shops, ::testing::WithParamInterface<GiftCase>
{
};

TEST_P(GiftReactions, dependOnPriceLooksAndWhatSheSaid)
{
    const GiftCase c = GetParam();
    atTheGiftShop(c.heart, c.looks);
    auto &s = state();
    s.gifts[c.gift].extra = c.opinion;
    s.work_streak = 2;
    const int price = s.gifts[c.gift].amount;

    choose(c.gift - 1);

    EXPECT_EQ(s.heart, c.heartAfter);
    EXPECT_EQ(view.talk, std::string("Tom: I got something for you.\r\nLisa:") + c.reply);
    EXPECT_EQ(s.gifts[c.gift].extra, c.opinionAfter);
    EXPECT_EQ(s.money, 5000 - price);
    EXPECT_EQ(s.spent_total, price);
    EXPECT_EQ(s.gift_spent, price);
    EXPECT_EQ(s.work_streak, 0);
    EXPECT_EQ(sounds(), std::vector<std::string>{"\\sounds\\cashrg.wav"});
    EXPECT_TRUE(view.rows.empty());
}

const char *const kLikeIt = " I like it thank you!";

INSTANTIATE_TEST_SUITE_P(
    Gifts, GiftReactions,
    ::testing::Values(
        // 10 + 40/21 + 40/25 = 13.505
        GiftCase{"flowers_heart10_looks40_gives_14", 1, "n", 10, 40, 14, kLikeIt, "n"},
        GiftCase{"cds_under_100_count_a_21st", 4, "n", 30, 0, 34, kLikeIt, "n"},
        GiftCase{"perfume_at_100_counts_a_50th", 5, "n", 30, 50, 34, kLikeIt, "n"},
        GiftCase{"phone_at_300_counts_a_50th", 8, "n", 30, 0, 36, kLikeIt, "n"},
        GiftCase{"dress_above_500_counts_a_70th", 9, "n", 30, 50, 42, kLikeIt, "n"},
        GiftCase{"hawaii", 11, "n", 30, 0, 61, kLikeIt, "n"},
        GiftCase{"liked_gift_pays_twelve_once", 2, "+", 20, 0, 32, " Thank you so much. You remembered!", "n"},
        GiftCase{"liked_ring_with_looks", 10, "+", 20, 100, 36, " Thank you so much. You remembered!", "n"},
        GiftCase{"chocolates_she_is_allergic_to", 2, "-", 30, 100, 23, " But I told you I'm allergic to chocolates!!! ", "-"},
        GiftCase{"book_she_will_not_read", 3, "-", 30, 100, 26, " Thanks, but I told you I don't like reading! ", "-"},
        GiftCase{"cds_she_will_not_hear", 4, "-", 30, 100, 27, " Thanks, but I told you I don't like listening to this stuff.", "-"},
        GiftCase{"sexist_jewellery", 7, "-", 30, 100, 28, " Thanks, didn't I tell you this is such a sexist gift.", "-"}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(Shops, aDislikedGiftCanEndTheGame)
{
    atTheGiftShop(5, 50);
    state().gifts[2].extra = "-";
    choose(1);
    EXPECT_EQ(state().heart, -2);
    EXPECT_EQ(view.heartLabel, "0");
    EXPECT_EQ(view.countCalls("ShowLose"), 1);
    EXPECT_TRUE(state().game_over);
}

TEST_F(Shops, aGiftHeCannotPayIsRefusedAndStillCountsAsSeeingHer)
{
    atTheGiftShop(30, 50, 39);
    state().work_streak = 3;
    choose(0);
    EXPECT_EQ(calls({"PlaySound", "ShowNotice", "EnableMain", "ClearList"}),
              (std::vector<std::string>{"PlaySound(\\sounds\\humpf.wav|Async)", "ShowNotice(TextNotice|You ain't got the dough Bro!)",
                                        "EnableMain(false)", "ClearList()"}));
    EXPECT_EQ(state().money, 39);
    EXPECT_EQ(state().heart, 30);
    EXPECT_EQ(state().work_streak, 0);
}

TEST_F(Shops, aGiftAtExactlyTheBalanceLeavesNothing)
{
    atTheGiftShop(30, 0, 40);
    choose(0);
    EXPECT_EQ(state().money, 0);
    EXPECT_EQ(view.countCalls("ShowNotice"), 0);
}

struct BuyOffCase
{
    const char *name;
    int heartBefore;     // the flowers add 2 at looks 0
    int spentBefore;     // spent_total before the $40 flowers
    int giftSpentBefore;
    bool buyOff;
    int heartAfter;
    int giftSpentAfter;
};

void PrintTo(const BuyOffCase &c, std::ostream *os)
{
    *os << c.name;
}

struct BuyingHerOff : Shops, ::testing::WithParamInterface<BuyOffCase>
{
};

TEST_P(BuyingHerOff, needsMostSpendingOnGiftsAndAHighHeart)
{
    const BuyOffCase c = GetParam();
    atTheGiftShop(c.heartBefore, 0);
    state().spent_total = static_cast<i16>(c.spentBefore);
    state().gift_spent = static_cast<i16>(c.giftSpentBefore);
    choose(0);

    EXPECT_EQ(state().heart, c.heartAfter);
    EXPECT_EQ(state().gift_spent, c.giftSpentAfter);
    if (c.buyOff) {
        EXPECT_EQ(sounds(), (std::vector<std::string>{"\\sounds\\cashrg.wav", "\\sounds\\sigh.wav"}));
        EXPECT_EQ(calls({"ShowNotice"}), std::vector<std::string>{"ShowNotice(TextNotice|Lisa: Are you tring to buy me off!!!)"});
        EXPECT_FALSE(view.mainEnabled);
    } else {
        EXPECT_EQ(view.countCalls("ShowNotice"), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Totals, BuyingHerOff,
    ::testing::Values(
        // 2500 spent, 2300 on gifts, heart 70: down to 60, and 2300 - 2300/7.5 = 1993.33.
        BuyOffCase{"the_worked_example", 68, 2460, 2260, true, 60, 1993},
        BuyOffCase{"heart_65_is_not_high_enough", 63, 2460, 2260, false, 65, 2300},
        BuyOffCase{"heart_66_is", 64, 2460, 2260, true, 56, 1971},
        BuyOffCase{"exactly_80_percent_is_fine", 88, 1960, 1560, false, 90, 1600},
        BuyOffCase{"just_over_80_percent", 88, 1960, 1561, true, 80, 1441}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(Shops, fourEncyclopaediasCloseAQuarterOfTheGapEachTime)
{
    atTheMall();
    std::vector<double> smart;
    std::vector<int> bars;
    for (int i = 0; i < 5; ++i) {
        random.push({kCalm, kCalm});
        onGoShopping(game);
        choose(5);
        smart.push_back(state().player.smart);
        bars.push_back(view.brainsBar);
    }
    EXPECT_EQ(smart, (std::vector<double>{55, 66.25, 74.6875, 81.015625, 85.76171875}));
    EXPECT_EQ(bars, (std::vector<int>{65, 76, 85, 91, 96}));
    EXPECT_EQ(state().money, 5000 - 5 * 250);
    EXPECT_EQ(state().spent_total, 0); // not money spent on her
    EXPECT_EQ(sounds(), std::vector<std::string>(5, "\\sounds\\cashrg.wav"));
}

TEST_F(Shops, aNewJacketKeepsLooksUnrounded)
{
    atTheMall();
    state().player.looks = 30;
    choose(1);
    EXPECT_EQ(state().player.looks, 54.5);
    EXPECT_EQ(view.looksBar, 54); // shown rounded half to even
}

struct LuckCase
{
    int item;
    int luck;
    int after;
};

void PrintTo(const LuckCase &c, std::ostream *os)
{
    *os << "item" << c.item << "_luck" << c.luck;
}

struct LuckyCharms : Shops, ::testing::WithParamInterface<LuckCase>
{
};

TEST_P(LuckyCharms, raiseLuckToAWholeNumber)
{
    const LuckCase c = GetParam();
    atTheMall();
    state().player.luck = static_cast<i16>(c.luck);
    const int price = state().self_items[c.item].amount;
    choose(c.item - 1);
    EXPECT_EQ(state().player.luck, c.after);
    EXPECT_EQ(state().money, 5000 - price); // paid even when nothing changes
}

INSTANTIATE_TEST_SUITE_P(Items, LuckyCharms,
                         ::testing::Values(LuckCase{10, 50, 52}, LuckCase{10, 51, 53}, LuckCase{10, 90, 90}, LuckCase{10, 95, 95},
                                           LuckCase{3, 0, 38}, LuckCase{5, 50, 62}, LuckCase{5, 100, 100}),
                         [](const auto &info) { return "item" + std::to_string(info.param.item) + "_luck" + std::to_string(info.param.luck); });

TEST_F(Shops, anItemHeCannotPayIsRefused)
{
    atTheMall(349);
    state().player.looks = 30;
    choose(1);
    EXPECT_EQ(calls({"PlaySound", "ShowNotice", "ClearList"}),
              (std::vector<std::string>{"PlaySound(\\sounds\\humpf.wav|Async)",
                                        "ShowNotice(TextNotice|Are you expecting your mother to pay for this!!)", "ClearList()"}));
    EXPECT_EQ(state().player.looks, 30);
    EXPECT_EQ(state().money, 349);
}

TEST_F(Shops, anItemAtExactlyTheBalanceIsBought)
{
    atTheMall(70);
    state().player.looks = 0;
    choose(10);
    EXPECT_EQ(state().money, 0);
    EXPECT_DOUBLE_EQ(state().player.looks, 7);
}

} // namespace
