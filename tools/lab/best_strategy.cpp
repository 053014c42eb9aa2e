// The lab's own best way of playing, tuned with the lab itself. The score
// divides by days x presses x dollars spent on her, and the 30th day ends
// the game, so the plan is: all the talk she will take (cheap, and it tells
// what she likes), then dates at the cheapest places she does not mind, and
// cheap gifts whenever dates alone would not reach her heart in time.
#include "best_strategy.h"

#include "her_tastes.h"

#include "core/catalogues.h"

#include <cmath>

namespace amorra::lab {

namespace {

using moves::choose;
using moves::click;
using moves::doRow;

constexpr int kFlowers = 1;     // gift row: the cheapest gift she never minds
constexpr int kLastDay = 29;    // the 30th day ends the game
constexpr int kAlwaysYes = 35;  // she says yes to a date from this heart on
constexpr int kMaybeYes = 21;

// Dates by what they have brought for the days, presses and dollars they
// cost (the lab's own measurements at the default setup): places she said
// she likes (positive) and places she said nothing about (negative).
constexpr int kDateOrder[] = {+9, +8, +4, -9, +10, -8, +7, -3, -5, -4, +11, -6, +1, -10, -11, -1, -7};

class Best final : public Strategy
{
public:
    explicit Best(const BestKnobs &knobs) : m_knobs(knobs) {}

    std::string name() const override { return "best"; }
    void newGame(std::uint64_t) override
    {
        m_tastes = HerTastes{};
        m_ceiling = 1000;
        m_given.fill(false);
        m_lastDate.fill(-10);
        m_callQuestions = 0;
    }

    void move(Player &p) override
    {
        p.confirmWindows();
        if (p.ended())
            return;
        const bool agreed = p.screen().takeHerOutEnabled;
        if (inCall(p)) {
            // Asking her out is free but works once a call: ask when she
            // will surely say yes, or just before she hangs up.
            if (p.screen().askOutShown && !agreed &&
                (p.heart() >= kAlwaysYes || (m_callQuestions == 2 && p.heart() >= kMaybeYes))) {
                click(p, Button::AskOut);
                return;
            }
            if (talking(p)) {
                const int q = nextQuestion();
                if (choose(p, q) && click(p, Button::Action)) {
                    m_tastes.learn(q, p.talk());
                    m_callQuestions = p.rowCount() == 0 ? 0 : m_callQuestions + 1;
                }
                return;
            }
        }
        const int need = 100 - p.heart();
        if (m_knobs.sureWinGift && need <= flowersGain(p) && p.money() >= price(kFlowers)) {
            doRow(p, Button::BuyGift, kFlowers - 1);
            return;
        }
        if (giveLikedGift(p))
            return;
        if (p.money() >= 5 && (talking(p) || (!agreed && p.heart() >= kMaybeYes))) {
            click(p, Button::CallHer);
            return;
        }
        const int daysLeft = kLastDay - p.day();
        const bool behind = !agreed || need * 10 > m_knobs.dateRate10 * daysLeft;
        if (m_knobs.flowersWhenBehind && behind && p.money() >= price(kFlowers)) {
            doRow(p, Button::BuyGift, kFlowers - 1);
            return;
        }
        if (agreed && daysLeft > 0 && takeHerOut(p))
            return;
        moves::work(p, m_ceiling);
    }

private:
    static bool inCall(const Player &p) { return p.listTitle() == "Things to ask her" && p.rowCount() > 0; }
    bool talking(const Player &p) const { return nextQuestion() >= 0 && p.heart() < m_knobs.stopTalkingAt; }
    int price(int gift) const { return m_gifts[static_cast<size_t>(gift)].amount; }
    // What the cheap gift has always brought him: its price over 21, plus a
    // 25th of his looks.
    int flowersGain(const Player &p) const { return static_cast<int>(std::lround(price(kFlowers) / 21.0 + p.looksBar() / 25.0)); }

    int nextQuestion() const { return m_tastes.nextQuestion(); }

    bool giveLikedGift(Player &p)
    {
        for (int g = 1; g <= kGiftCount; ++g) {
            const auto i = static_cast<size_t>(g);
            if (m_tastes.gift[i] > 0 && !m_given[i] && price(g) <= m_knobs.likedGiftBudget && price(g) <= p.money()) {
                m_given[i] = true;
                doRow(p, Button::BuyGift, g - 1);
                return true;
            }
        }
        return false;
    }

    bool free(const Player &p, int place) const
    {
        const auto i = static_cast<size_t>(place);
        // Boring when the last date there was within the last two days.
        return m_tastes.place[i] >= 0 && m_places[i].amount <= p.money() && p.day() - m_lastDate[i] >= 2;
    }

    // The best date on the list that is not boring today; 0 if none.
    int bestDate(const Player &p) const
    {
        for (int entry : kDateOrder) {
            const int place = entry > 0 ? entry : -entry;
            const auto i = static_cast<size_t>(place);
            const int opinion = m_tastes.place[i];
            if ((entry > 0) != (opinion > 0) || opinion < 0)
                continue;
            // Boring when the last date there was within the last two days.
            if (p.day() - m_lastDate[i] >= 2)
                return place;
        }
        return 0;
    }

    bool takeHerOut(Player &p)
    {
        const int pick = bestDate(p);
        if (!pick || m_places[static_cast<size_t>(pick)].amount > p.money())
            return false;
        m_lastDate[static_cast<size_t>(pick)] = p.day() + 1;
        doRow(p, Button::TakeHerOut, pick - 1);
        return true;
    }

    BestKnobs m_knobs;
    HerTastes m_tastes;
    int m_ceiling = 1000;
    int m_callQuestions = 0;
    std::array<bool, kGiftCount + 1> m_given{};
    std::array<int, kPlaceCount + 1> m_lastDate{};
    const GiftTable m_gifts = makeGifts();
    const PlaceTable m_places = makePlaces();
};

} // namespace

std::unique_ptr<Strategy> makeBest(const BestKnobs &knobs)
{
    return std::make_unique<Best>(knobs);
}

std::unique_ptr<Strategy> makeBest()
{
    return makeBest(BestKnobs{});
}

} // namespace amorra::lab
