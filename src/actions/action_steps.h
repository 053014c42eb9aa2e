#pragma once

// The pieces the button handlers of actions.h are built from. They are
// public so that tests and the balance lab can drive one rule at a time.

#include "actions.h"
#include "core/game.h"

#include <string>

namespace amorra {

// Talk-box lines are joined Windows style.
inline const std::string kCrLf = "\r\n";

// The five list titles; the action button dispatches on them.
inline const std::string kTitleGift = "Things to Get";
inline const std::string kTitlePhone = "Things to ask her";
inline const std::string kTitleDate = "Places to Go";
inline const std::string kTitleWork = "Job Noticeboard";
inline const std::string kTitleShop = "Things to Buy";

// Number of rows the list holds in a mode (0 for None).
int listRowCount(ActionMode mode);

// The start every mode button shares: hides the action button (and the
// ask-out button unless told not to), then stops a finished game with the
// game-over dialog. False when the handler must end there.
bool modeButtonOpening(Game &game, bool hideAskOut);

// The small "Amorra" window through which every refusal is told.
void showTextNotice(Game &game, const std::string &text);

// Chance events and her two complaints. `kind` of complain is 'w' (he only
// works) or 'b' (the same date again).
void found_money_event(Game &game);
void speeding_fine_event(Game &game);
void cat_event(Game &game);
void complain(Game &game, char kind);

// The branches of the action button, for the selected row of their list.
// Each expects a row that exists (the dispatcher checks).
void takeHerOutTo(Game &game, int place);   // place 1..11
void takeJob(Game &game, int job);          // job 1..6
void askQuestion(Game &game, int question); // question 0..23
void giveGift(Game &game, int gift);        // gift 1..11
void buyForSelf(Game &game, int item);      // item 1..11

// After every gift: she may feel bought.
void check_buy_off(Game &game);

} // namespace amorra
