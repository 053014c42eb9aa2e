#include "strategies.h"

#include "her_tastes.h"

#include "core/catalogues.h"

#include <algorithm>
#include <array>
#include <functional>

namespace amorra::lab {

std::uint64_t Dice::next()
{
    std::uint64_t z = (m_state += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

int Dice::below(int n)
{
    // Multiply-shift: the same answer on every platform, unlike <random>'s distributions.
    return static_cast<int>((next() >> 32) * static_cast<std::uint64_t>(n) >> 32);
}

namespace moves {

bool click(Player &p, Button button)
{
    if (p.ended())
        return false;
    p.confirmWindows();
    return !p.ended() && p.press(button);
}

bool choose(Player &p, int row)
{
    if (p.ended())
        return false;
    p.confirmWindows();
    return !p.ended() && p.pickRow(row);
}

bool doRow(Player &p, Button mode, int row)
{
    return click(p, mode) && choose(p, row) && click(p, Button::Action);
}

void work(Player &p, int &ceiling)
{
    if (!click(p, Button::GoToWork) || p.ended())
        return;
    p.confirmWindows();
    // Best pay first; the list stays after a refusal, so he may go down it.
    std::array<std::pair<int, int>, 8> offers{}; // pay, row
    size_t count = 0;
    for (int r = 0; r < p.rowCount() && count < offers.size(); ++r)
        if (p.row(r).find("NOT available") == std::string::npos)
            offers[count++] = {rowPrice(p.row(r)), r};
    std::sort(offers.begin(), offers.begin() + static_cast<long>(count), std::greater<>());
    for (size_t i = 0; i < count; ++i) {
        const auto [pay, row] = offers[i];
        if (pay > ceiling)
            continue;
        const int before = p.money();
        if (!choose(p, row) || !click(p, Button::Action))
            return;
        if (p.money() > before)
            return;
        ceiling = pay - 1; // the agency laughed: he will not try that one again
    }
}

} // namespace moves

namespace {

using moves::choose;
using moves::click;
using moves::doRow;

// Clicks whatever is there to click, without a thought.
class RandomClicker final : public Strategy
{
public:
    std::string name() const override { return "random"; }
    void newGame(std::uint64_t seed) override { m_dice = Dice(seed); }
    void move(Player &p) override
    {
        p.confirmWindows();
        if (p.ended())
            return;
        Button choices[8];
        int n = 0;
        for (Button b : {Button::BuyGift, Button::CallHer, Button::GoToWork, Button::GoShopping})
            choices[n++] = b;
        if (p.screen().takeHerOutEnabled)
            choices[n++] = Button::TakeHerOut;
        if (p.screen().okShown)
            choices[n++] = Button::Action;
        if (p.screen().askOutShown)
            choices[n++] = Button::AskOut;
        const bool rows = p.rowCount() > 0;
        const int pick = m_dice.below(n + (rows ? 1 : 0));
        if (pick == n)
            p.pickRow(m_dice.below(p.rowCount()));
        else
            p.press(choices[pick]);
    }

private:
    Dice m_dice;
};

// Earns, then spends it all on the dearest gifts he can afford. He never
// works a fourth day in a row: she complains when he only works.
class Worker final : public Strategy
{
public:
    std::string name() const override { return "worker"; }
    void newGame(std::uint64_t) override
    {
        m_ceiling = 1000;
        m_spending = false;
        m_daysWorked = 0;
    }
    void move(Player &p) override
    {
        if (!m_spending) {
            if (p.money() >= kPile || m_daysWorked == 3) {
                m_spending = true;
                m_daysWorked = 0;
            } else {
                moves::work(p, m_ceiling);
                ++m_daysWorked;
            }
            return;
        }
        if (!click(p, Button::BuyGift))
            return;
        int best = -1, bestPrice = 0;
        for (int r = 0; r < p.rowCount(); ++r) {
            const int price = rowPrice(p.row(r));
            if (price <= p.money() && price > bestPrice) {
                best = r;
                bestPrice = price;
            }
        }
        if (best < 0) {
            m_spending = false;
            return;
        }
        if (choose(p, best))
            click(p, Button::Action);
    }

private:
    static constexpr int kPile = 300;
    int m_ceiling = 1000;
    int m_daysWorked = 0;
    bool m_spending = false;
};

// Phones her until he knows what she likes, then gives what she said she
// likes and takes her where she said she likes to go.
class SweetTalker final : public Strategy
{
public:
    std::string name() const override { return "sweet-talker"; }
    void newGame(std::uint64_t) override
    {
        m_tastes = HerTastes{};
        m_ceiling = 1000;
        m_given.fill(false);
        m_lastDate.fill(-10);
    }
    void move(Player &p) override
    {
        p.confirmWindows();
        if (p.ended())
            return;
        if (inCall(p)) {
            if (p.screen().askOutShown && p.heart() >= 21) {
                click(p, Button::AskOut);
                return;
            }
            const int q = nextQuestion();
            if (q >= 0) {
                if (choose(p, q) && click(p, Button::Action))
                    m_tastes.learn(q, p.talk());
                return;
            }
        }
        if (giveLikedGift(p))
            return;
        const bool agreed = p.screen().takeHerOutEnabled;
        if ((nextQuestion() >= 0 || !agreed) && p.money() >= 5) {
            click(p, Button::CallHer);
            return;
        }
        if (agreed && takeHerOut(p))
            return;
        moves::work(p, m_ceiling);
    }

private:
    static bool inCall(const Player &p) { return p.listTitle() == "Things to ask her" && p.rowCount() > 0; }

    int nextQuestion() const { return m_tastes.nextQuestion(); }

    bool giveLikedGift(Player &p)
    {
        for (int g = 1; g <= kGiftCount; ++g) {
            const auto i = static_cast<size_t>(g);
            if (m_tastes.gift[i] > 0 && !m_given[i] && m_gifts[i].amount <= p.money()) {
                m_given[i] = true;
                doRow(p, Button::BuyGift, g - 1);
                return true;
            }
        }
        return false;
    }

    bool takeHerOut(Player &p)
    {
        // A place she likes if there is one, else the cheapest she has not
        // turned down; never one of the last three days, which bores her.
        int best = 0;
        auto rank = [&](int place) { return std::make_pair(-m_tastes.place[static_cast<size_t>(place)], m_places[static_cast<size_t>(place)].amount); };
        for (int place = 1; place <= kPlaceCount; ++place) {
            const auto i = static_cast<size_t>(place);
            if (place == 2 || m_tastes.place[i] < 0 || m_places[i].amount > p.money() || p.day() - m_lastDate[i] < 3)
                continue;
            if (best == 0 || rank(place) < rank(best))
                best = place;
        }
        if (best == 0)
            return false;
        m_lastDate[static_cast<size_t>(best)] = p.day() + 1;
        doRow(p, Button::TakeHerOut, best - 1);
        return true;
    }

    HerTastes m_tastes;
    int m_ceiling = 1000;
    std::array<bool, kGiftCount + 1> m_given{};
    std::array<int, kPlaceCount + 1> m_lastDate{};
    const GiftTable m_gifts = makeGifts();
    const PlaceTable m_places = makePlaces();
};

} // namespace

std::unique_ptr<Strategy> makeRandomClicker()
{
    return std::make_unique<RandomClicker>();
}

std::unique_ptr<Strategy> makeWorker()
{
    return std::make_unique<Worker>();
}

std::unique_ptr<Strategy> makeSweetTalker()
{
    return std::make_unique<SweetTalker>();
}

std::vector<std::string> strategyNames()
{
    return {"random", "worker", "sweet-talker", "best"};
}

std::unique_ptr<Strategy> makeStrategy(const std::string &name)
{
    if (name == "random")
        return makeRandomClicker();
    if (name == "worker")
        return makeWorker();
    if (name == "sweet-talker")
        return makeSweetTalker();
    if (name == "best")
        return makeBest();
    return nullptr;
}

} // namespace amorra::lab
