#pragma once

#include "null_view.h"

#include "core/game.h"
#include "core/random_source.h"

#include <cstdint>
#include <optional>
#include <string>

namespace amorra::lab {

// The controls of the main screen a player can click.
enum class Button { BuyGift, CallHer, TakeHerOut, GoToWork, GoShopping, Action, AskOut };

struct Ratings
{
    int looks = 50;
    int smart = 50;
    int luck = 50;
};

// One player at the game: he sees the main screen, clicks what is visible
// and enabled, and confirms every window that opens. Every click goes to the
// game's own handlers; nothing here knows a rule of the game.
class Player
{
public:
    // A fresh program run: new dice from `seed`, the setup screen filled in
    // with `ratings`, "START >" pressed.
    void startGame(std::uint64_t seed, const Ratings &ratings);

    // False when the control is not there to click (hidden, disabled, or
    // the main screen is behind a notice).
    bool press(Button button);
    // Clicks row `row` of the action list; false when there is no such row.
    bool pickRow(int row);
    // Presses "OK" on every open window, newest first.
    void confirmWindows();

    bool ended() const { return m_view.ending != NullView::Ending::None; }
    NullView::Ending ending() const { return m_view.ending; }
    const NullView &screen() const { return m_view; }
    int clicks() const { return m_clicks; }

    // The figures the main screen shows.
    int money() const;
    int day() const;
    int heart() const;
    int spent() const;
    int smartBar() const;
    int looksBar() const;
    // The count a player keeps himself of his presses (the score's term).
    int presses() const;
    // Score shown on the win screen; 0 for a lost game.
    double score() const;

    // Talk box and list rows as shown.
    const std::string &talk() const { return m_view.talk; }
    int rowCount() const { return m_view.rowCount; }
    const std::string &row(int i) const { return m_view.row(i); }
    const std::string &listTitle() const { return m_view.listTitle; }

    // The game behind the screen, for the lab's own checks; strategies never look.
    const Game &game() const { return *m_game; }

private:
    NullView m_view;
    std::optional<SystemRandom> m_random;
    std::optional<Game> m_game;
    int m_clicks = 0;
};

} // namespace amorra::lab
