#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Phone = PlayFixture;

// Her threshold is 21: below it one of six excuses is drawn.
TEST_F(Phone, sheSaysYesOnceTheHeartReachesHerThreshold)
{
    struct Row
    {
        const char *name;
        int heart, excuse; // the excuse drawn, 0: none
        const char *answer;
    };
    const Row table[] = {
        {"one below, the first excuse", 20, 1, "Lisa: You hardly know me.\r\nTom: I know a lot about you."},
        {"one below, the last excuse", 20, 6, "Lisa: I don't know. Some other time.\r\nTom: OK."},
        {"exactly her threshold", 21, 0, "Lisa: OK. Come pick me up at 8.00 this Friday.\r\nTom: See you at 8.00."},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        newGame(21);
        state().heart = static_cast<i16>(c.heart);
        onCallHer(game);
        if (c.excuse)
            random.push(pick(c.excuse, 6));
        onAskOut(game);
        EXPECT_EQ(view.talk, std::string("Tom:  Do you want to go out some time?\r\n") + c.answer);
        EXPECT_FALSE(view.askOutShown);
        EXPECT_EQ(state().date_agreed, c.excuse == 0);
        EXPECT_EQ(view.takeHerOutEnabled, c.excuse == 0);
        EXPECT_EQ(state().heart, c.heart);
        EXPECT_EQ(state().action_count, 1); // the call only: asking is free
        expectDrawsUsedUp();
        onCallHer(game); // once she said yes, a call no longer offers the button
        EXPECT_EQ(view.askOutShown, c.excuse != 0);
    }
}

// The answer draw d of 1..10: 3 gives answer 3 and her likes, 7 gives
// answer 1 and her dislikes, anything else answer 2.
TEST_F(Phone, herAnswersMarkWhatSheLikesAndNothingElse)
{
    struct Row
    {
        const char *name;
        int question, d;
        const char *answer;
        const char *places, *gifts; // opinions of rows 1..11 afterwards
    };
    const Row table[] = {
        {"a plain answer marks nothing", 3, 1, "They're OK.", "nnnnnnnnnnn", "nnnnnnnnnnn"},
        {"she loves plays", 3, 3, "Are you kidding! I love his work", "nnnnnnn+nnn", "nnnnnnnnnnn"},
        {"she hates plays", 3, 7, "No way. I hate going to plays!", "nnnnnnn-nnn", "nnnnnnnnnnn"},
        {"diamonds mark the ring and the jewellery", 12, 3, "I think so!", "nnnnnnnnnnn", "nnnnnn+nn+n"},
        {"sexist marks only the jewellery", 12, 7, "That is so sexist!", "nnnnnnnnnnn", "nnnnnn-nnnn"},
        {"the game itself is no opinion", 19, 3, "Yes. I found this cool game called 'Amorra' the other day.", "nnnnnnnnnnn", "nnnnnnnnnnn"},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        newGame();
        onCallHer(game);
        random.push(pick(c.d, 10));
        choose(c.question);
        std::string places, gifts;
        for (int i = 1; i <= 11; ++i) {
            places += state().places[i].extra;
            gifts += state().gifts[i].extra;
        }
        EXPECT_EQ(view.talk, "Tom: " + state().questions[c.question].question + "\r\nLisa: " + c.answer);
        EXPECT_EQ(places, c.places);
        EXPECT_EQ(gifts, c.gifts);
        expectDrawsUsedUp();
    }
}

TEST_F(Phone, aQuestionRaisesHerHeartByTwoBelowFiftyAndOneFromThere)
{
    for (const auto &[heart, after] : {std::pair{10, 12}, {49, 51}, {50, 51}, {99, 100}}) {
        SCOPED_TRACE(heart);
        newGame();
        state().heart = static_cast<i16>(heart);
        state().action_count = 10;
        onCallHer(game);
        random.push(pick(1, 10));
        choose(0);
        EXPECT_EQ(state().heart, after);
        EXPECT_EQ(view.heartLabel, std::to_string(after));
        EXPECT_EQ(view.countCalls("ShowWin"), after == 100 ? 1 : 0);
        // Even the question that wins her gets its answer.
        EXPECT_EQ(view.talk, "Tom: So do you like living here?\r\nLisa: I like it. Its nice here.");
    }
}

// She counts questions per hang-up, not per call: the third, even a
// repeat in a later call, ends the call and the day.
TEST_F(Phone, theThirdQuestionEndsTheCallAndTheDayAndARepeatCostsEight)
{
    newGame();
    state().heart = 30;
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
    EXPECT_EQ(sounds(), (std::vector<std::string>{"\\sounds\\sigh.wav", "\\sounds\\phoned.wav"}));
    EXPECT_EQ(state().day, 2);
    EXPECT_EQ(state().call_questions, 0);
    EXPECT_EQ(state().action_count, 6);
    EXPECT_TRUE(view.rows.empty());
    EXPECT_FALSE(view.askOutShown);
    expectDrawsUsedUp(); // a repeat draws no answer
}

} // namespace
