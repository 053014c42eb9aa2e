#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

struct Phone : PlayFixture
{
    // A call in progress on day 1 with heart `heart`.
    void onThePhone(int heart = 30)
    {
        newGame();
        state().heart = static_cast<i16>(heart);
        onCallHer(game);
        view.clearCalls();
    }
};

struct RefusalCase
{
    int r;
    const char *talk;
};

void PrintTo(const RefusalCase &c, std::ostream *os)
{
    *os << "r" << c.r;
}

struct AskOutRefusals : Phone, ::testing::WithParamInterface<RefusalCase>
{
};

TEST_P(AskOutRefusals, giveHerExcuseAndHisReply)
{
    const RefusalCase c = GetParam();
    onThePhone(20);
    random.push(pick(c.r, 6));
    onAskOut(game);
    EXPECT_EQ(calls(), (std::vector<std::string>{std::string("SetTalk(") + c.talk + ")", "ShowAskOut(false)"}));
    EXPECT_FALSE(state().date_agreed);
    EXPECT_EQ(state().heart, 20);
    EXPECT_EQ(state().action_count, 1); // the call only; asking is free
    expectDrawsUsedUp();
}

INSTANTIATE_TEST_SUITE_P(
    SixExcuses, AskOutRefusals,
    ::testing::Values(RefusalCase{1, "Tom:  Do you want to go out some time?\r\nLisa: You hardly know me.\r\nTom: I know a lot about you."},
                      RefusalCase{2, "Tom:  Do you want to go out some time?\r\nLisa: I'm busy these few days.\r\nTom: OK. Then."},
                      RefusalCase{3, "Tom:  Do you want to go out some time?\r\nLisa: I realy dont know you.\r\nTom: What better way to get to know me."},
                      RefusalCase{4, "Tom:  Do you want to go out some time?\r\nLisa: I'm not looking for a relationship right now.\r\nTom: OK."},
                      RefusalCase{5, "Tom:  Do you want to go out some time?\r\nLisa: Nope.\r\nTom: OK."},
                      RefusalCase{6, "Tom:  Do you want to go out some time?\r\nLisa: I don't know. Some other time.\r\nTom: OK."}),
    [](const auto &info) { return "r" + std::to_string(info.param.r); });

TEST_F(Phone, sheSaysYesWhenTheHeartEqualsHerThreshold)
{
    onThePhone(21);
    onAskOut(game);
    EXPECT_EQ(calls(), (std::vector<std::string>{
                           "EnableTakeHerOut(true)",
                           "SetTalk(Tom:  Do you want to go out some time?\r\nLisa: OK. Come pick me up at 8.00 this Friday.\r\nTom: See you at 8.00.)",
                           "ShowAskOut(false)"}));
    EXPECT_TRUE(state().date_agreed);
    expectDrawsUsedUp(); // a yes draws nothing

    // From now on a call no longer offers the button.
    view.clearCalls();
    onCallHer(game);
    EXPECT_EQ(view.countCalls("ShowAskOut"), 0);
    EXPECT_TRUE(view.takeHerOutEnabled);
}

struct MoneyCase
{
    int money;
    bool calls;
};

void PrintTo(const MoneyCase &c, std::ostream *os)
{
    *os << "$" << c.money;
}

struct CallCharge : Phone, ::testing::WithParamInterface<MoneyCase>
{
};

TEST_P(CallCharge, fiveDollarsOrAReverseChargeNotice)
{
    const MoneyCase c = GetParam();
    newGame();
    state().money = static_cast<i16>(c.money);
    state().work_streak = 2;
    onCallHer(game);

    EXPECT_EQ(state().work_streak, 0);
    EXPECT_TRUE(view.askOutShown); // shown before the money is looked at
    EXPECT_EQ(state().action_count, 1);
    if (c.calls) {
        EXPECT_EQ(state().money, c.money - 5);
        EXPECT_EQ(state().spent_total, 5);
        EXPECT_EQ(view.listTitle, "Things to ask her");
        EXPECT_EQ(sounds(), std::vector<std::string>{"\\sounds\\phonet.wav"});
    } else {
        EXPECT_EQ(view.calls.at(view.calls.size() - 2).str(), "ShowNotice(TextNotice|Were you thinking of calling REVERSE charge!!)");
        EXPECT_EQ(view.calls.back().str(), "EnableMain(false)");
        EXPECT_EQ(state().money, c.money);
        EXPECT_EQ(state().spent_total, 0);
        EXPECT_EQ(view.listTitle, ""); // nothing on screen changes
        EXPECT_TRUE(sounds().empty());
    }
}

INSTANTIATE_TEST_SUITE_P(Balances, CallCharge, ::testing::Values(MoneyCase{5, true}, MoneyCase{4, false}, MoneyCase{0, false}),
                         [](const auto &info) { return "dollars" + std::to_string(info.param.money); });

struct OpinionCase
{
    const char *name;
    int question;
    int d; // the answer draw: 3 likes, 7 dislikes, anything else answer 2
    const char *answer;
    std::vector<std::pair<int, const char *>> places; // rows that change, and to what
    std::vector<std::pair<int, const char *>> gifts;
};

void PrintTo(const OpinionCase &c, std::ostream *os)
{
    *os << c.name;
}

struct HerAnswers : Phone, ::testing::WithParamInterface<OpinionCase>
{
};

TEST_P(HerAnswers, revealWhatSheLikesAndNothingElse)
{
    const OpinionCase c = GetParam();
    onThePhone();
    random.push(pick(c.d, 10));
    choose(c.question);

    const auto &s = state();
    EXPECT_EQ(view.talk, "Tom: " + s.questions[c.question].question + "\r\nLisa: " + c.answer);
    for (int p = 1; p <= kPlaceCount; ++p) {
        std::string want = "n";
        for (const auto &[row, value] : c.places)
            if (row == p)
                want = value;
        EXPECT_EQ(s.places[p].extra, want) << "place " << p;
    }
    for (int g = 1; g <= kGiftCount; ++g) {
        std::string want = "n";
        for (const auto &[row, value] : c.gifts)
            if (row == g)
                want = value;
        EXPECT_EQ(s.gifts[g].extra, want) << "gift " << g;
    }
    expectDrawsUsedUp();
}

INSTANTIATE_TEST_SUITE_P(
    Questions, HerAnswers,
    ::testing::Values(
        OpinionCase{"no_opinion_in_a_plain_answer", 3, 1, "They're OK.", {}, {}},
        OpinionCase{"loves_plays", 3, 3, "Are you kidding! I love his work", {{8, "+"}}, {}},
        OpinionCase{"hates_plays", 3, 7, "No way. I hate going to plays!", {{8, "-"}}, {}},
        OpinionCase{"does_not_drink", 4, 7, "Neither. I'm not a drinking type of girl", {{11, "-"}}, {}},
        OpinionCase{"reads_a_lot", 6, 3, "Yeah. I've got stacks of books.", {}, {{3, "+"}}},
        OpinionCase{"liking_both_actors_marks_nothing", 8, 3, "Rory Vance! I think his movies are great!", {}, {}},
        OpinionCase{"no_hollywood_movies", 8, 7, "Neither. I don't like modern hollywood movies.", {{2, "-"}}, {}},
        OpinionCase{"not_a_gourmet_marks_nothing", 10, 7, "Not too much of a fan.", {}, {}},
        OpinionCase{"allergic_to_chocolate", 11, 7, "No, actually I'm allergic to it.", {}, {{2, "-"}}},
        OpinionCase{"diamonds_mark_ring_and_jewellery", 12, 3, "I think so!", {}, {{10, "+"}, {7, "+"}}},
        OpinionCase{"sexist_marks_only_the_jewellery", 12, 7, "That is so sexist!", {}, {{7, "-"}}},
        OpinionCase{"hates_hard_rock", 13, 7, "I hate hard rock!", {{7, "-"}}, {}},
        OpinionCase{"always_on_the_move", 14, 3, "Always. I hate calling people on the payphone though.", {}, {{8, "+"}}},
        OpinionCase{"clothes_make_the_person", 15, 3, "Definitely. It shows who you are!", {}, {{9, "+"}}},
        OpinionCase{"misses_the_beach", 17, 3, "Oh it's been so long. I miss the beach.", {{4, "+"}}, {}},
        OpinionCase{"threw_up_on_the_wheel", 18, 7, " A long time ago. I didn't like it, I threw up the last time.", {{9, "-"}}, {}},
        OpinionCase{"snorkelling", 20, 3, "I love snorkelling. It's great fun.", {{4, "+"}}, {}},
        OpinionCase{"found_this_game_but_marks_nothing", 19, 3, "Yes. I found this cool game called 'Amorra' the other day.", {}, {}},
        OpinionCase{"smoking_is_sexy", 23, 3, "Yep. I think it's really sexy.", {{10, "+"}}, {}},
        OpinionCase{"hates_smoke", 23, 7, "I hate being places where people smoke!", {{10, "-"}}, {}}),
    [](const auto &info) { return std::string(info.param.name); });

struct RaiseCase
{
    int heart;
    int after;
};

void PrintTo(const RaiseCase &c, std::ostream *os)
{
    *os << c.heart;
}

struct QuestionRaise : Phone, ::testing::WithParamInterface<RaiseCase>
{
};

TEST_P(QuestionRaise, isTwoBelowFiftyAndOneFromThere)
{
    onThePhone(GetParam().heart);
    random.push(pick(1, 10));
    choose(0);
    EXPECT_EQ(state().heart, GetParam().after);
    EXPECT_EQ(view.heartLabel, std::to_string(GetParam().after));
}

INSTANTIATE_TEST_SUITE_P(Hearts, QuestionRaise, ::testing::Values(RaiseCase{10, 12}, RaiseCase{49, 51}, RaiseCase{50, 51}, RaiseCase{80, 81}),
                         [](const auto &info) { return "heart" + std::to_string(info.param.heart); });

TEST_F(Phone, aRepeatedQuestionCostsSixNetAndStillCounts)
{
    onThePhone(30);
    random.push(pick(1, 10));
    choose(5);
    view.clearCalls();
    choose(5); // 32 + 2 - 8
    EXPECT_EQ(state().heart, 26);
    EXPECT_EQ(view.talk, "Tom: Are you a wild party girl?\r\nLisa: You asked me that before! You don't remember anything about me.");
    EXPECT_EQ(sounds(), std::vector<std::string>{"\\sounds\\sigh.wav"});
    EXPECT_EQ(state().call_questions, 2);
    expectDrawsUsedUp(); // a repeat draws no answer
}

TEST_F(Phone, theThirdQuestionEndsTheCallAndTheDay)
{
    onThePhone(30);
    random.push({pick(1, 10), pick(1, 10), pick(1, 10)});
    choose(0);
    choose(1);
    onListClick(game);
    view.selectRow(2);
    view.clearCalls();
    onActionButton(game);

    EXPECT_EQ(calls({"SetTalk", "SetDayLabel", "ShowAskOut", "PlaySound", "ClearList"}),
              (std::vector<std::string>{
                  "SetTalk(Tom: Are you a dog-person or a cat-person?\r\n)",
                  "SetTalk(Tom: Are you a dog-person or a cat-person?\r\nLisa: Both, but I have a cat. Easier to take care of.)",
                  "SetDayLabel(Day 2)",
                  "ShowAskOut(false)",
                  "SetTalk(Tom: Are you a dog-person or a cat-person?\r\nLisa: Both, but I have a cat. Easier to take care of.\r\nLisa: I have to go now. BYE!!)",
                  "PlaySound(\\sounds\\phoned.wav|Async)",
                  "ClearList()",
              }));
    EXPECT_EQ(state().call_questions, 0);
    EXPECT_EQ(state().action_count, 4);
}

// She counts questions per hang-up, not per call.
TEST_F(Phone, aCallLeftEarlyCarriesItsCountIntoTheNextCall)
{
    onThePhone(30);
    random.push({pick(1, 10), pick(1, 10)});
    choose(0);
    choose(1);
    random.push({kCalm, kCalm});
    onGoShopping(game);
    onCallHer(game);
    random.push(pick(1, 10));
    choose(2);
    EXPECT_EQ(state().day, 2);
    EXPECT_TRUE(view.rows.empty());
    expectDrawsUsedUp();
}

TEST_F(Phone, aQuestionThatWinsStillGetsItsAnswer)
{
    onThePhone(99);
    state().action_count = 10;
    random.push(pick(3, 10));
    choose(12);
    EXPECT_TRUE(state().game_over);
    EXPECT_EQ(view.countCalls("ShowWin"), 1);
    EXPECT_EQ(view.talk, "Tom: Do you believe that diamonds are a girl's best friend?\r\nLisa: I think so!");
    EXPECT_EQ(state().gifts[10].extra, "+");
    expectDrawsUsedUp();
}

} // namespace
