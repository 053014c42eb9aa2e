#include "action_steps.h"
#include "actions.h"

namespace amorra {

ActionMode modeFromTitle(const std::string &title)
{
    if (title == kTitleGift)
        return ActionMode::Gift;
    if (title == kTitlePhone)
        return ActionMode::Phone;
    if (title == kTitleDate)
        return ActionMode::Date;
    if (title == kTitleWork)
        return ActionMode::Work;
    if (title == kTitleShop)
        return ActionMode::Shop;
    return ActionMode::None;
}

int listRowCount(ActionMode mode)
{
    switch (mode) {
    case ActionMode::Gift:
        return kGiftCount;
    case ActionMode::Phone:
        return kQuestionCount;
    case ActionMode::Date:
        return kPlaceCount;
    case ActionMode::Work:
        return kJobCount;
    case ActionMode::Shop:
        return kSelfItemCount;
    case ActionMode::None:
        break;
    }
    return 0;
}

bool modeButtonOpening(Game &game, bool hideAskOut)
{
    GameView &view = game.view();
    view.ShowOk(false);
    if (hideAskOut)
        view.ShowAskOut(false);
    if (game.state().game_over) {
        view.EnableMain(false);
        view.ShowGameOver();
        return false;
    }
    return true;
}

void onListClick(Game &game)
{
    game.view().SetTalk("");
    game.view().ShowOk(true);
}

namespace {
// The selected row when the list of `mode` has it. A new game empties the
// list but leaves the action button up, so a press can come with no row.
bool selectedRow(Game &game, ActionMode mode, int &row)
{
    row = game.view().GetListIndex();
    return row >= 0 && row < listRowCount(mode);
}
} // namespace

void onActionButton(Game &game)
{
    GameView &view = game.view();
    GameState &s = game.state();
    view.ShowOk(false);
    s.action_count = add16(s.action_count, 1);

    // The title is read afresh for every comparison; no branch changes it,
    // so at most one runs.
    int row = -1;
    if (view.GetListTitle() == kTitleDate && selectedRow(game, ActionMode::Date, row))
        takeHerOutTo(game, row + 1);
    if (view.GetListTitle() == kTitleWork && selectedRow(game, ActionMode::Work, row))
        takeJob(game, row + 1);
    if (view.GetListTitle() == kTitlePhone && selectedRow(game, ActionMode::Phone, row))
        askQuestion(game, row);
    if (view.GetListTitle() == kTitleShop && selectedRow(game, ActionMode::Shop, row))
        buyForSelf(game, row + 1);
    if (view.GetListTitle() == kTitleGift && selectedRow(game, ActionMode::Gift, row))
        giveGift(game, row + 1);

    game.updatestats();
}

} // namespace amorra
