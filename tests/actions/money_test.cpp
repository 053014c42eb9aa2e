#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Money = PlayFixture;

// Everything he pays for: exactly the balance buys it and leaves $0, a
// dollar short is refused with a notice and costs nothing. Every draw is calm.
TEST_F(Money, exactlyTheBalanceBuysAndADollarShortIsRefused)
{
    struct Row
    {
        const char *name;
        Button open;
        int row; // -1: the mode button itself charges
        int price;
        bool onHer;   // counts as money spent on her
        bool seesHer; // ends the run of working days, paid or not
        const char *refusal;
    };
    const Row table[] = {
        {"dinner", onTakeHerOut, 0, 120, true, true, "Hey...BUDDY are you expecting her to pay for this !!!!"},
        {"flowers", onBuyGift, 0, 40, true, true, "You ain't got the dough Bro!"},
        {"new shoes", onGoShopping, 10, 70, false, false, "Are you expecting your mother to pay for this!!"},
        {"encyclopaedia", onGoShopping, 5, 250, false, false, "Are you expecting your mother to pay for this!!"},
        {"a call", onCallHer, -1, 5, true, true, "Were you thinking of calling REVERSE charge!!"},
    };
    for (const Row &c : table) {
        for (const int balance : {c.price, c.price - 1}) {
            SCOPED_TRACE(std::string(c.name) + " with $" + std::to_string(balance));
            newGame();
            state().money = static_cast<i16>(balance);
            state().work_streak = 2;
            c.open(game);
            if (c.row >= 0)
                choose(c.row);
            const bool paid = balance == c.price;
            EXPECT_EQ(state().money, paid ? 0 : balance);
            EXPECT_EQ(state().spent_total, paid && c.onHer ? c.price : 0);
            EXPECT_EQ(state().work_streak, c.seesHer ? 0 : 2);
            EXPECT_EQ(calls({"ShowNotice"}), paid ? std::vector<std::string>{}
                                                  : std::vector<std::string>{std::string("ShowNotice(TextNotice|") + c.refusal + ")"});
            EXPECT_EQ(view.mainEnabled, paid);
            EXPECT_EQ(state().day, paid && c.open == onTakeHerOut ? 2 : 1);
            if (c.row >= 0)
                EXPECT_TRUE(view.rows.empty()); // the next try needs the mode button again
            else
                EXPECT_EQ(view.listTitle, paid ? "Things to ask her" : ""); // a refused call shows nothing
        }
    }
}

// The fine is drawn on the way, before the bill: it can cost him the date.
TEST_F(Money, aSpeedingFineOnTheWayCanLeaveTooLittle)
{
    newGame();
    state().money = 179;
    calm(2);
    onTakeHerOut(game);
    random.push(pick(3, 60));
    choose(0);
    EXPECT_EQ(state().money, 119);
    EXPECT_EQ(calls({"ShowNotice"}), (std::vector<std::string>{"ShowNotice(SpeedingFine|)",
                                                               "ShowNotice(TextNotice|Hey...BUDDY are you expecting her to pay for this !!!!)"}));
    expectDrawsUsedUp();
}

} // namespace
