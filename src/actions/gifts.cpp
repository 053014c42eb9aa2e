#include "action_steps.h"
#include "actions.h"

namespace amorra {

namespace {
struct Dislike
{
    int row;
    int loss;
    const char *reply;
};

// The only gifts she can have said she dislikes.
const Dislike kDislikes[] = {
    {2, 7, " But I told you I'm allergic to chocolates!!! "},
    {3, 4, " Thanks, but I told you I don't like reading! "},
    {4, 3, " Thanks, but I told you I don't like listening to this stuff."},
    {7, 2, " Thanks, didn't I tell you this is such a sexist gift."},
};

const Dislike *dislikeOf(int row)
{
    for (const Dislike &d : kDislikes)
        if (d.row == row)
            return &d;
    return nullptr;
}

// Dearer gifts count for less per dollar.
double priceDivisor(double price)
{
    if (price < 100)
        return 21;
    if (price <= 500)
        return 50;
    return 70;
}
} // namespace

void onBuyGift(Game &game)
{
    if (!modeButtonOpening(game, true))
        return;
    GameState &s = game.state();
    GameView &view = game.view();
    view.SetListTip("Available gifts you can buy her");
    s.action_count = add16(s.action_count, 1);
    view.SetListTitle(kTitleGift);
    view.SetOkCaption("BUY");
    view.SetTalk("");
    view.ClearList();
    for (int i = 1; i <= kGiftCount; ++i)
        view.AddListRow(s.gifts[i].label + "\t$" + toDecimal(s.gifts[i].amount));
    found_money_event(game);
}

void giveGift(Game &game, int i)
{
    GameState &s = game.state();
    GameView &view = game.view();
    CatalogueRow &gift = s.gifts[i];
    const double p = gift.amount;

    s.work_streak = 0; // she was seen, whether or not he could pay

    if (p > s.money) {
        game.play_sound("\\sounds\\humpf.wav", SoundMode::Async);
        showTextNotice(game, "You ain't got the dough Bro!");
    } else {
        const Dislike *dislike = gift.extra == "-" ? dislikeOf(i) : nullptr;
        double heart = s.heart;
        std::string reply;
        if (dislike) {
            heart = heart - dislike->loss;
            reply = dislike->reply;
        } else if (gift.extra == "+") {
            heart = roundHalfEven(heart + 12 + s.player.looks / 25);
            reply = " Thank you so much. You remembered!";
            gift.extra = "n"; // the bonus is paid once per time she said so
        } else {
            // Unmarked, and the (unreachable) dislike of a gift with no complaint.
            heart = roundHalfEven(heart + p / priceDivisor(p) + s.player.looks / 25);
            reply = " I like it thank you!";
        }
        view.SetTalk(s.player.player_name + ":" + " I got something for you." + kCrLf + s.girl.Gname + ":" + reply);

        s.heart = roundTo16(heart);
        game.display_heart(s.heart);
        game.add_money(-static_cast<long long>(roundHalfEven(p)));
        s.spent_total = add16(s.spent_total, gift.amount);
        s.gift_spent = add16(s.gift_spent, gift.amount);
        game.play_sound("\\sounds\\cashrg.wav", SoundMode::Async);
        check_buy_off(game);
    }
    view.ClearList();
}

void check_buy_off(Game &game)
{
    GameState &s = game.state();
    if (s.gift_spent > 80 / 100.0 * s.spent_total && s.heart >= 66) {
        game.play_sound("\\sounds\\sigh.wav", SoundMode::Async);
        showTextNotice(game, s.girl.Gname + ":" + " Are you tring to buy me off!!!");
        game.set_heart(static_cast<long long>(s.heart) - 10);
        // Forgiven only in part: the next gift will likely set it off again.
        s.gift_spent = roundTo16(s.gift_spent - s.gift_spent / (s.heart / 8.0));
    }
}

} // namespace amorra
