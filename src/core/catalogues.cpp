#include "catalogues.h"

namespace amorra {

std::vector<std::string> makeGirlNames()
{
    return {"Samantha", "Lisa", "Jane", "Kate", "Pam", "Julia", "Tina", "Rachel", "Anna", "Naomi"};
}

PlaceTable makePlaces()
{
    return {{
        {},
        {"High class restaurant", 120, "n"},
        {"Watch a Movie        ", 27, "n"},
        {"Go on a picnic in the park", 15, "n"},
        {"Go to the Beach        ", 25, "n"},
        {"Go out for Pizza       ", 16, "n"},
        {"Go out Bowling         ", 40, "n"},
        {"Rock Concert           ", 140, "n"},
        {"Watch a Drama          ", 28, "n"},
        {"Fun-Fair Carnival      ", 30, "n"},
        {"Go out to a Nightclub ", 75, "n"},
        {"Go to the local Pub   ", 50, "n"},
    }};
}

GiftTable makeGifts()
{
    return {{
        {},
        {"Flowers        ", 40, "n"},
        {"Chocolates     ", 40, "n"},
        {"Nice Book      ", 50, "n"},
        {"Latest Music CD's ", 80, "n"},
        {"Perfume        ", 100, "n"},
        {"Roses          ", 150, "n"},
        {"Jewellry        ", 200, "n"},
        {"Mobile Phone   ", 300, "n"},
        {"Designer Dress    ", 700, "n"},
        {"Diamond Ring  ", 1200, "n"},
        {"Tickets to Hawaii", 2200, "n"},
    }};
}

JobTable makeJobs()
{
    return {{
        {},
        {"Pizza Delivery", 20, ""},
        {"Parking Attendant", 50, ""},
        {"Sales Assistant", 75, ""},
        {"Tutor          ", 100, ""},
        {"Bank Teller ", 200, ""},
        {"Stock Broker ", 300, ""},
    }};
}

SelfItemTable makeSelfItems()
{
    return {{
        {},
        {" Latest Sunglasses", 150, "looks"},
        {" New Jacket ", 350, "looks"},
        {" Rabbit's Paw   ", 380, "luck"},
        {" Perfume        ", 150, "looks"},
        {" Crystals       ", 250, "luck"},
        {" Encyclopaedia   ", 250, "smart"},
        {" DIY-SELF books ", 80, "smart"},
        {" New Clothes", 100, "looks"},
        {" Secondhand Book", 50, "smart"},
        {" Lucky Stone    ", 50, "luck"},
        {" New Shoes", 70, "looks"},
    }};
}

QuestionTable makeQuestions()
{
    QuestionTable q{};
    const QuestionRec filled[kQuestionCount] = {
        {"So do you like living here?", {"I'm getting used to it!", "I like it. Its nice here.", "I love it here."}},
        {"Do you work anywhere?", {"No. I'm looking for a job?", "I work at the Mall.", "I'm a fitness instructor at the Gym."}},
        {"Are you a dog-person or a cat-person?", {"I have a cat.", "Both, but I have a cat. Easier to take care of.", "Cat-person. I love cats."}},
        {"Are you into Thornbury's works?", {"No way. I hate going to plays!", "They're OK.", "Are you kidding! I love his work"}},
        {"Do you like drinking beer or cocktails?", {"Neither. I'm not a drinking type of girl", "I like having a beer sometimes.", "Both, I love having a good drink!"}},
        {"Are you a wild party girl?", {"No, definitely not!", "Maybe sometimes.", "Oh yeah...Ask my friends about it!!!"}},
        {"Do you read much?", {"No I don't. It's boring! ", "I like reading novels sometimes.", "Yeah. I've got stacks of books."}},
        {"Do have any brothers or sisters?", {"Nope, it's just me in the family.", "I have a younger brother. He's only 10.", "I have 3 sisters. I'm the youngest."}},
        {"Are you a Rory Vance or Cal Brennick kind of girl?", {"Neither. I don't like modern hollywood movies.", "I like both of them.", "Rory Vance! I think his movies are great!"}},
        {"Are you into pop music?", {"I think pop music is awful!", "I think its ok.", "I think pop music is fantastic."}},
        {"Do you enjoy gourmet foods and fine wines?", {"Not too much of a fan.", "Maybe sometimes.", "Definitely. I love checking out new restaurants"}},
        {"Are you a chocoholic?", {"No, actually I'm allergic to it.", "I eat it once in a while.", "Yes. My favourite's dark chocolate."}},
        {"Do you believe that diamonds are a girl's best friend?", {"That is so sexist!", "They're ok.", "I think so!"}},
        {"Are you into easy listening or hard rock music?", {"I hate hard rock!", "I like both when I'm in the mood for it.", "Hard rock any day!"}},
        {"Are you always on-the-move and hard to catch?", {"Not really.", "Maybe sometimes.", "Always. I hate calling people on the payphone though."}},
        {"Do you believe that the clothes make the person?", {"No way. I believe that what matters is on the inside not out!", "Sometimes it does.", "Definitely. It shows who you are!"}},
        {"Do you enjoy cooking?", {"No way.", "Maybe sometimes.", "I like it a lot."}},
        {"When was the last time you built a sandcastle?", {"I don't know. I can't remember.", "When I was a kid I guess.", "Oh it's been so long. I miss the beach."}},
        {"When was the last time you rode on a ferris wheel?", {" A long time ago. I didn't like it, I threw up the last time.", "Last year maybe.", "Last month. I like going on carnival rides."}},
        {"Do you surf the internet much?", {"Not really.", "Sometimes. Just to check my email.", "Yes. I found this cool game called 'Amorra' the other day."}},
        {"Do you enjoy water sports like diving or snorkelling?", {"Not really. I can't swim.", "Maybe on a hot day.", "I love snorkelling. It's great fun."}},
        {"Do you believe that money makes the world go round?", {"Not really. There are many good free things in life.", "I think it does.", "Of course. You can't do much without it."}},
        {"Do you think swings and see-saws are only for kids?", {"I guess.", "I don't mind going to the park.", "No way. I think it's great for everyone."}},
        {"Do you smoke?", {"I hate being places where people smoke!", "I used to but I quit.", "Yep. I think it's really sexy."}},
    };
    for (int i = 0; i < kQuestionCount; ++i)
        q[i] = filled[i];
    return q;
}

} // namespace amorra
