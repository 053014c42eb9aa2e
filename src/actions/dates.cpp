#include "action_steps.h"
#include "actions.h"

#include <cmath>

namespace amorra {

namespace {

// How her stated opinion of a place weighs on the outcome draw.
enum class OpinionRule { Likes, Full, Luck, Movie };

struct Outcome
{
    int gain; // negative: a loss
    const char *answer;
};

struct PlaceRules
{
    const char *sound; // nullptr: none (the movie picks its own later)
    OpinionRule rule;
    const char *question;
    Outcome dislike;     // r = 0, only under the full rule
    Outcome outcomes[4]; // r = 1, 2, 3, and any r above 3
};

// Indexed by place 1..11; the movie (2) has its own outcomes below.
const PlaceRules kPlaces[kPlaceCount + 1] = {
    {},
    {"\\sounds\\dinner.wav", OpinionRule::Likes, " Did you enjoy the dinner?", {0, ""},
     {{5, " Yeah, it was Good...."}, {8, " Yeah, it was Great...."}, {12, " Yeah, it was Fabulous ...."}, {3, " Yeah, it was OK...."}}},
    {nullptr, OpinionRule::Movie, " Did you like the movie?", {0, ""}, {}},
    {"\\sounds\\birds.wav", OpinionRule::Luck, " Did you have fun today?", {0, ""},
     {{2, " Yeah, it was Fun...."}, {4, " Yeah, it was Great Fun...."}, {6, " Yeah, I never had so much Fun ...."}, {1, " Yeah, it was OK...."}}},
    {"\\sounds\\beach.wav", OpinionRule::Likes, " Did you have fun today?", {0, ""},
     {{2, " Yeah, I did...."}, {4, " Yeah, it was great fun...."}, {6, " Yeah, it was so wonderful...."}, {1, " Yeah, it was ok...."}}},
    {nullptr, OpinionRule::Luck, " How was that?", {0, ""},
     {{2, " Yeah, it was good...."}, {4, " Yeah, it was really Good...."}, {6, " They had 'the' best PIZZA!!  ...."}, {1, " Yeah, it was OK...."}}},
    {"\\sounds\\bowling.wav", OpinionRule::Luck, " Did you enjoy that?", {0, ""},
     {{4, " Yeah, it was Fun...."}, {6, " Yeah, it was Great Fun...."}, {8, " Yeah, I never had so much Fun ...."}, {2, " Yeah, it was OK...."}}},
    {"\\sounds\\rock.wav", OpinionRule::Full, " Did you like the Concert?", {-8, " No. I told you I hate hard rock."},
     {{8, " Yeah, it was Good...."}, {10, " Yeah, it was Great...."}, {14, " Yeah, it was Great, I really enjoyed it  ...."}, {6, " Yeah, it was OK...."}}},
    {"\\sounds\\play.wav", OpinionRule::Full, " Did you like the Drama?", {-7, " No. I told you I don't like plays!"},
     {{3, " Yeah, it was Good...."}, {5, " Yeah, it was Great...."}, {8, " Yeah, it was beautiful ...."}, {2, " Yeah, it was OK...."}}},
    {"\\sounds\\carnival.wav", OpinionRule::Full, " Did you have fun?", {-8, " No. I told you I don't like going on that stupid Ferris wheel!"},
     {{4, " Yeah, it was Fun...."}, {6, " Yeah, it was Great Fun...."}, {8, " Yeah, I never had so much Fun ...."}, {2, " Yeah, it was OK...."}}},
    {"\\sounds\\club.wav", OpinionRule::Full, " Did you like the Club?", {-7, " No. You know I don't like places like this."},
     {{4, " Yeah, it was Good...."}, {7, " Yeah, it was Great...."}, {9, " Yeah, it was MAD ...."}, {2, " Yeah, it was OK...."}}},
    {"\\sounds\\pub.wav", OpinionRule::Full, " Did you like the Pub?", {-7, " No. I told you I don't drink."},
     {{2, " Yeah, it was Good...."}, {4, " Yeah, it was Great...."}, {6, " Yeah, it was Great, I got wasted ...."}, {1, " Yeah, it was OK...."}}},
};

constexpr int kMovie = 2;

// r for place p: her liking fixes or narrows the draw, luck narrows it.
int drawOutcome(Game &game, int p)
{
    const GameState &s = game.state();
    const std::string &opinion = s.places[p].extra;
    const double spread = std::floor((100 - s.player.luck) / 10.0) + 3;
    switch (kPlaces[p].rule) {
    case OpinionRule::Likes:
        return opinion == "+" ? game.draw(3) : game.draw(spread);
    case OpinionRule::Full:
        if (opinion == "+")
            return game.draw(3);
        if (opinion == "-")
            return 0;
        return game.draw(spread);
    case OpinionRule::Luck:
        return game.draw(spread);
    case OpinionRule::Movie:
        return opinion == "-" ? 5 : game.draw(4);
    }
    return 1;
}

Outcome outcomeOf(int p, int r)
{
    if (p == kMovie) {
        switch (r) {
        case 1:
            return {-3, " I didn't like it too much"};
        case 2:
            return {5, " I think it was OK"};
        case 3:
            return {8, nullptr}; // names the player, composed by the caller
        case 4:
            return {-5, " That movie was Bad!!! I don't know why you wanted to watch it!"};
        default:
            return {-7, " No. I told you I don't like these kind of movies!"};
        }
    }
    if (r <= 0)
        return kPlaces[p].dislike;
    return kPlaces[p].outcomes[r > 3 ? 3 : r - 1];
}

} // namespace

void onTakeHerOut(Game &game)
{
    if (!modeButtonOpening(game, true))
        return;
    GameState &s = game.state();
    GameView &view = game.view();
    view.SetListTip("Places you can take her");
    s.action_count = add16(s.action_count, 1);
    game.play_sound("\\sounds\\doorbell.wav", SoundMode::Async);
    view.SetListTitle(kTitleDate);
    view.SetOkCaption("GO");
    view.SetTalk(s.girl.Gname + ":" + " I'm coming...");
    view.ClearList();
    for (int p = 1; p <= kPlaceCount; ++p)
        view.AddListRow(s.places[p].label + "\t\t\t$" + toDecimal(s.places[p].amount));
    found_money_event(game);
    cat_event(game);
}

void takeHerOutTo(Game &game, int p)
{
    GameState &s = game.state();
    GameView &view = game.view();

    speeding_fine_event(game); // before the bill: a fine can leave too little
    s.work_streak = 0;

    const int cost = s.places[p].amount;
    if (cost <= s.money) {
        game.add_money(-cost);
        s.spent_total = add16(s.spent_total, cost);
        game.advance_days(1);

        if (kPlaces[p].sound)
            game.play_sound(kPlaces[p].sound, SoundMode::Async);

        if (s.last_visit[p] > s.day - s.boring_gap)
            complain(game, 'b');
        s.last_visit[p] = s.day;

        if (p == kMovie)
            game.play_sound("\\sounds\\movie" + toDecimal(game.draw(7)) + ".wav", SoundMode::Async);

        const int r = drawOutcome(game, p);
        const Outcome outcome = outcomeOf(p, r);
        if (outcome.gain < 0) {
            game.set_heart(static_cast<long long>(s.heart) + outcome.gain);
        } else {
            // Looks add their share of every gain, in this order of operations.
            const double q = outcome.gain / 100.0;
            const double heart = static_cast<double>(s.heart + outcome.gain) + s.player.looks * q;
            game.set_heart(roundTo16(heart));
        }

        const std::string answer = outcome.answer ? std::string(outcome.answer)
                                                  : " I loved it!!!! You have good taste " + s.player.player_name + ".";
        view.SetTalk(s.player.player_name + ":" + kPlaces[p].question + kCrLf + s.girl.Gname + ":" + answer);
    } else {
        showTextNotice(game, "Hey...BUDDY are you expecting her to pay for this !!!!");
    }
    view.ClearList();
}

} // namespace amorra
