#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Phone = PlayFixture;

// Her threshold is 21: below it one of six excuses is drawn. Asking is free.
TEST_F(Phone, sheSaysYesOnceTheHeartReachesHerThreshold)
{
    struct Row { int heart, excuse; const char *answer; }; // excuse drawn, 0: none
    const Row table[] = {{20, 1, "Lisa: You hardly know me.\r\nTom: I know a lot about you."},
                         {20, 6, "Lisa: I don't know. Some other time.\r\nTom: OK."},
                         {21, 0, "Lisa: OK. Come pick me up at 8.00 this Friday.\r\nTom: See you at 8.00."}};
    for (const Row &c : table) {
        SCOPED_TRACE(c.answer);
        newGame(c.heart);
        onCallHer(game);
        if (c.excuse)
            random.push(pick(c.excuse, 6));
        onAskOut(game);
        EXPECT_EQ(view.talk, std::string("Tom:  Do you want to go out some time?\r\n") + c.answer);
        EXPECT_FALSE(view.askOutShown);
        EXPECT_EQ(state().date_agreed, c.excuse == 0);
        EXPECT_EQ(view.takeHerOutEnabled, c.excuse == 0);
        EXPECT_EQ(state().action_count, 1);
        expectDrawsUsedUp();
        onCallHer(game); // once she said yes, a call no longer offers the button
        EXPECT_EQ(view.askOutShown, c.excuse != 0);
    }
}

// The answer draw d of 1..10: 3 gives answer 3 and her likes, 7 gives answer
// 1 and her dislikes, anything else answer 2. Asking raises her heart by two
// below 50 and by one from there; the question that wins her still gets its answer.
TEST_F(Phone, herAnswersMarkWhatSheLikesAndAskingRaisesHerHeart)
{
    struct Row { int question, d, heart, heartAfter; const char *answer, *places, *gifts; }; // opinions of rows 1..11 afterwards
    const Row table[] = {
        {3, 1, 10, 12, "They're OK.", "nnnnnnnnnnn", "nnnnnnnnnnn"},
        {3, 3, 49, 51, "Are you kidding! I love his work", "nnnnnnn+nnn", "nnnnnnnnnnn"},
        {3, 7, 50, 51, "No way. I hate going to plays!", "nnnnnnn-nnn", "nnnnnnnnnnn"},
        {12, 3, 30, 32, "I think so!", "nnnnnnnnnnn", "nnnnnn+nn+n"},        // the ring and the jewellery
        {12, 7, 30, 32, "That is so sexist!", "nnnnnnnnnnn", "nnnnnn-nnnn"}, // the jewellery only
        {19, 3, 99, 100, "Yes. I found this cool game called 'Amorra' the other day.", "nnnnnnnnnnn", "nnnnnnnnnnn"},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.answer);
        auto &s = newGame(c.heart);
        s.action_count = 10;
        onCallHer(game);
        random.push(pick(c.d, 10));
        choose(c.question);
        std::string places, gifts;
        for (int i = 1; i <= 11; ++i) {
            places += s.places[i].extra;
            gifts += s.gifts[i].extra;
        }
        EXPECT_EQ(view.talk, "Tom: " + s.questions[c.question].question + "\r\nLisa: " + c.answer);
        EXPECT_EQ(places, c.places);
        EXPECT_EQ(gifts, c.gifts);
        EXPECT_EQ(view.heartLabel, std::to_string(c.heartAfter));
        EXPECT_EQ(view.countCalls("ShowWin"), c.heartAfter == 100 ? 1 : 0);
        expectDrawsUsedUp();
    }
}

// She counts questions per hang-up, not per call: the third, even a repeat
// in a later call, ends the call and the day. A repeat draws no answer.
TEST_F(Phone, theThirdQuestionEndsTheCallAndTheDayAndARepeatCostsEight)
{
    newGame(30);
    onCallHer(game);
    random.push({pick(1, 10), pick(1, 10), kCalm, kCalm});
    choose(0);
    choose(5);
    onGoShopping(game);
    onCallHer(game);
    view.clearCalls();
    choose(5); // 34 + 2 - 8
    EXPECT_EQ(state().heart, 28);
    EXPECT_EQ(view.talk, "Tom: Are you a wild party girl?\r\nLisa: You asked me that before! You don't remember anything about me."
                         "\r\nLisa: I have to go now. BYE!!");
    EXPECT_EQ(sounds(), Strings({"\\sounds\\sigh.wav", "\\sounds\\phoned.wav"}));
    EXPECT_EQ(std::vector<int>({state().day, state().call_questions, state().action_count}), std::vector<int>({2, 0, 6}));
    EXPECT_TRUE(view.rows.empty());
    EXPECT_FALSE(view.askOutShown);
    expectDrawsUsedUp();
}

} // namespace
