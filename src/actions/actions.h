#pragma once

#include "core/game.h"
#include "view/game_view.h"

#include <string>

namespace amorra {

// The mode the action list is in, known by the title of its frame.
enum class ActionMode { None, Gift, Phone, Date, Work, Shop };
ActionMode modeFromTitle(const std::string &title);

// Mode buttons (Command1 to Command5).
void onBuyGift(Game &game);
void onCallHer(Game &game);
void onTakeHerOut(Game &game);
void onGoToWork(Game &game);
void onGoShopping(Game &game);

// A click on a row of the action list (Do_List).
void onListClick(Game &game);

// The action button (cmd_ok): carries out the selected row in the current mode.
void onActionButton(Game &game);

// The ask-out button (ask_out_cmd).
void onAskOut(Game &game);

// "OK" of a notice window, run before the window closes: the five event
// notices and the text notice.
void OnNoticeOk(Game &game, NoticeKind kind);

// "OK" of the win screen (before it closes): marks the result pending and
// opens the Top 20 table.
void onWinOk(Game &game);

// "OK" of the lose screen (before it closes).
void onLoseOk(Game &game);

} // namespace amorra
