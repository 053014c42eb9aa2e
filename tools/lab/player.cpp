#include "player.h"

#include "actions/actions.h"
#include "core/game_flow.h"

namespace amorra::lab {

void Player::startGame(std::uint64_t seed, const Ratings &ratings)
{
    m_view.reset();
    m_game.reset();
    m_random.emplace(seed);
    m_game.emplace(m_view, *m_random);
    m_game->setSetup({"Lab", ratings.looks, ratings.smart, ratings.luck});
    startFirstGame(*m_game);
    m_clicks = 0;
}

bool Player::press(Button button)
{
    if (!m_view.mainEnabled)
        return false;
    Game &g = *m_game;
    switch (button) {
    case Button::BuyGift:
        onBuyGift(g);
        break;
    case Button::CallHer:
        onCallHer(g);
        break;
    case Button::TakeHerOut:
        if (!m_view.takeHerOutEnabled)
            return false;
        onTakeHerOut(g);
        break;
    case Button::GoToWork:
        onGoToWork(g);
        break;
    case Button::GoShopping:
        onGoShopping(g);
        break;
    case Button::Action:
        if (!m_view.okShown)
            return false;
        onActionButton(g);
        break;
    case Button::AskOut:
        if (!m_view.askOutShown)
            return false;
        onAskOut(g);
        break;
    }
    ++m_clicks;
    return true;
}

bool Player::pickRow(int row)
{
    if (!m_view.mainEnabled || row < 0 || row >= m_view.rowCount)
        return false;
    m_view.selectRow(row);
    onListClick(*m_game);
    ++m_clicks;
    return true;
}

void Player::confirmWindows()
{
    Game &g = *m_game;
    // Each window's "OK" runs before the window closes, as on the real screen.
    while (!m_view.openScreens.empty()) {
        const Screen top = m_view.openScreens.back();
        switch (top) {
        case Screen::Cat:
        case Screen::FoundMoney:
        case Screen::SpeedingFine:
        case Screen::Ignoring:
        case Screen::Boring:
        case Screen::TextNotice:
            OnNoticeOk(g, static_cast<NoticeKind>(top));
            break;
        case Screen::Win:
            onWinOk(g);
            break;
        case Screen::Lose:
            onLoseOk(g);
            break;
        case Screen::GameOver:
            gameOverOk(g);
            break;
        case Screen::HighScores:
        case Screen::Tutorial:
        case Screen::About:
            break;
        }
        m_view.closeScreen(top);
        ++m_clicks;
    }
}

int Player::money() const
{
    return m_game->state().money;
}

int Player::day() const
{
    return m_game->state().day;
}

int Player::heart() const
{
    return m_game->state().heart;
}

int Player::spent() const
{
    return m_game->state().spent_total;
}

int Player::smartBar() const
{
    return static_cast<int>(m_game->state().player.smart + 10);
}

int Player::looksBar() const
{
    return static_cast<int>(m_game->state().player.looks);
}

int Player::presses() const
{
    return m_game->state().action_count;
}

double Player::score() const
{
    return m_view.ending == NullView::Ending::Won ? m_game->state().result.result_score : 0.0;
}

} // namespace amorra::lab
