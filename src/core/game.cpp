#include "game.h"

#include <cmath>
#include <cstdio>

namespace amorra {

namespace {
const char kMonthText[] = " Hey Pal! you've been at it for a month. I think you should give up!!!";

std::string trimSpaces(const std::string &s)
{
    const auto first = s.find_first_not_of(' ');
    if (first == std::string::npos)
        return {};
    const auto last = s.find_last_not_of(' ');
    return s.substr(first, last - first + 1);
}

std::string wholeNumber(double value)
{
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.0f", value);
    return buffer;
}
} // namespace

double computeScore(i16 day, i16 actionCount, i16 spentTotal)
{
    double x = day / 50.0;
    x = 1.0 / x;
    x = x * (1.0 / actionCount);
    const long long spentTimes50 = static_cast<long long>(spentTotal) * 50;
    x = x * (1.0 / static_cast<double>(spentTimes50));
    x = x * 10000000000.0;
    return std::trunc(x);
}

Game::Game(GameView &view, RandomSource &random)
    : m_view(view)
    , m_random(random)
{
}

double Game::rnd()
{
    return m_random.uniform();
}

int Game::draw(double k)
{
    return drawFromOne(rnd(), k);
}

void Game::play_sound(const std::string &path, SoundMode mode)
{
    if (m_state.sound_on)
        m_view.PlaySound(path, mode);
}

void Game::set_heart(long long value)
{
    m_state.heart = saturate16(value);
    display_heart(m_state.heart);
}

void Game::display_heart(i16 h)
{
    double lit = roundHalfEven(h / 100.0 * 20.0);
    if (lit >= 20)
        lit = 20;
    if (lit < 0)
        lit = 0;
    m_view.SetHeartBar(static_cast<int>(lit));
    m_view.SetHeartLabel(h >= 100 ? "100" : h <= 0 ? "0" : toDecimal(h));

    GameState &s = m_state;
    if (s.heart <= 0 && !s.game_over) {
        m_view.EnableMain(false);
        m_view.ShowLose("");
        s.game_over = true;
    }
    if (s.heart >= 100 && !s.game_over) {
        const double score = computeScore(s.day, s.action_count, s.spent_total);
        s.result.result_score = score;
        s.result.result_name = s.player.player_name;
        s.result.result_days = s.day;
        s.result.result_spent = s.spent_total;
        s.game_over = true;
        m_view.EnableMain(false);
        m_view.ShowWin("Total Money Spent $" + toDecimal(s.spent_total), "Total Days " + toDecimal(s.day),
                       "Your Score : " + wholeNumber(score));
    }
}

void Game::add_money(long long amount)
{
    m_state.money = add16(m_state.money, amount);
    m_view.SetMoneyLabel("Bank Balance: $" + toDecimal(m_state.money));
}

void Game::advance_days(i16 days)
{
    m_state.day = add16(m_state.day, days);
    m_view.SetDayLabel("Day " + toDecimal(m_state.day));
    if (m_state.day >= 30 && !m_state.game_over) {
        m_view.ShowLose(kMonthText);
        m_view.EnableMain(false);
        m_state.game_over = true;
    }
}

void Game::updatestats()
{
    const GameState &s = m_state;
    m_view.SetStatBars(roundTo16(s.player.looks), roundTo16(s.player.smart + 10), s.player.luck);
    m_view.SetSpentLabel("$" + toDecimal(s.spent_total));
}

void Game::ChangeFace()
{
    const int n = draw(11);
    m_view.SetFace("girl" + toDecimal(n) + ".bmp", "Hi " + m_state.player.player_name);
}

void Game::Restart(bool new_girl)
{
    GameState &s = m_state;
    s.result.result_pending = false;
    s.result.result_name.clear();
    s.result.result_score = 0;
    s.sound_on = true;

    s.spent_total = 0;
    s.action_count = 0;
    s.game_over = false;

    s.last_visit.fill(-3);
    s.last_visit[0] = 0;
    s.boring_gap = 3;
    s.gift_spent = 0;
    s.day = 1;
    s.heart = 10;
    s.money = 50;

    s.date_agreed = false;
    m_view.EnableTakeHerOut(false);

    s.player.player_name = trimSpaces(m_setup.name);

    if (new_girl) {
        ChangeFace();
        s.girl_names = makeGirlNames();
        const int row = draw(10);
        s.girl.Gname = s.girl_names[static_cast<size_t>(row < 1 ? 1 : row > 10 ? 10 : row) - 1];
    }

    s.player.looks = m_setup.looks;
    s.player.smart = m_setup.smart - 10;
    s.player.luck = saturate16(m_setup.luck);

    s.call_questions = 0;
    s.girl.askout_need = saturate16(20 + draw(15));

    s.places = makePlaces();
    s.gifts = makeGifts();
    s.jobs = makeJobs();
    s.self_items = makeSelfItems();
    s.questions = makeQuestions();

    m_view.SetTalk("");
    display_heart(s.heart);
    m_view.SetDayLabel("Day 1");
    m_view.SetMoneyLabel("Bank Balance: $50");
    m_view.ClearList();
    m_view.SetListTip("");
}

} // namespace amorra
