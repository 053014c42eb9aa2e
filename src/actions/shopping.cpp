#include "action_steps.h"
#include "actions.h"

namespace amorra {

void onGoShopping(Game &game)
{
    if (!modeButtonOpening(game, true))
        return;
    GameState &s = game.state();
    GameView &view = game.view();
    view.SetListTip("Items you can buy for your self");
    s.action_count = add16(s.action_count, 1);
    view.SetListTitle(kTitleShop);
    view.SetOkCaption("BUY");
    view.SetTalk("");
    view.ClearList();
    for (int i = 1; i <= kSelfItemCount; ++i)
        view.AddListRow(s.self_items[i].label + "\t\t$" + toDecimal(s.self_items[i].amount));
    found_money_event(game);
    speeding_fine_event(game);
}

void buyForSelf(Game &game, int i)
{
    GameState &s = game.state();
    const CatalogueRow &item = s.self_items[i];
    const double p = item.amount;
    // The price in thousands is the share of the way to 100 it closes.
    const double g = p / 10 / 100;
    const bool affordable = p <= s.money;

    if (item.extra == "looks" && affordable) {
        s.player.looks = s.player.looks + (100 - s.player.looks) * g;
    } else if (item.extra == "smart" && affordable) {
        s.player.smart = s.player.smart + (100 - s.player.smart) * g;
    } else if (item.extra == "luck" && affordable) {
        s.player.luck = roundTo16(g * (100 - s.player.luck) + s.player.luck);
    }

    const bool bought = affordable && (item.extra == "looks" || item.extra == "smart" || item.extra == "luck");
    if (bought) {
        game.add_money(-static_cast<long long>(roundHalfEven(p)));
        game.play_sound("\\sounds\\cashrg.wav", SoundMode::Async);
    } else {
        game.play_sound("\\sounds\\humpf.wav", SoundMode::Async);
        showTextNotice(game, "Are you expecting your mother to pay for this!!");
    }
    game.view().ClearList();
}

} // namespace amorra
