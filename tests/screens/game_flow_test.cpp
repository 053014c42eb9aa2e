// Whole games clicked through as a player would: notices, end screens, the Top 20 window, sound.
#include "flow_fixture.h"

#include "screens/action_list.h"
#include "screens/looping_picture.h"
#include "screens/tutorial_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

using namespace amorra;
using namespace amorra::testing;

class GameFlowTest : public FlowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { initFlow(); }
    void cleanup() { cleanupFlow(); }

    void aWholeGameWonThroughToTheTop20();
    void aLostGameLeadsToTheGameOverDialog();
    void severalNoticesGiveTheMainScreenBackOnlyAtTheLast();
    void soundMenuSilencesTheGameUntilTheNextNewGame();
    void top20FromTheMenuAndAScoresFileThatCannotBeSaved();
};

void GameFlowTest::aWholeGameWonThroughToTheTop20()
{
    startApp();
    SetupScreen *setup = m_app->setupScreen();
    named<QSlider>(setup, "How smart are you?")->setValue(0);
    named<QSlider>(setup, "How lucky are you?")->setValue(0);
    named<QSlider>(setup, "How good looking are you?")->setValue(100);
    enterGame();
    MainScreen &main = m_app->mainScreen();

    // A call: she turns down the invitation, then tells him what she loves.
    click("Call Her");
    QCOMPARE(talk(), QStringLiteral("Lisa:  Hello?\r\nTom: Hi Lisa this is Tom\r\nLisa: Ohh .... How are you???"));
    QCOMPARE(main.findChild<QGroupBox *>("Frame1")->title(), QStringLiteral("Things to ask her"));
    m_random.push(pick(5, 6));
    click("Do you want to go out sometime?");
    QCOMPARE(talk(), QStringLiteral("Tom:  Do you want to go out some time?\r\nLisa: Nope.\r\nTom: OK."));
    QVERIFY(!named<QToolButton>(&main, "Take Her Out")->isEnabled());
    m_random.push({pick(3, 10), pick(3, 10), pick(1, 10)});
    choose(10);
    QCOMPARE(talk(), QStringLiteral("Tom: Do you enjoy gourmet foods and fine wines?\r\nLisa: Definitely. I love "
                                    "checking out new restaurants"));
    choose(11);
    choose(0);
    QCOMPARE(named<QLabel>(&main, "Day")->text(), QStringLiteral("Day 2"));
    QCOMPARE(named<ActionList>(&main, "Action list")->count(), 0);

    // The chocolates she loves, then a call she says yes to.
    m_random.push(kCalm);
    click("Buy A Gift");
    choose(1);
    QCOMPARE(talk(), QStringLiteral("Tom: I got something for you.\r\nLisa: Thank you so much. You remembered!"));
    QCOMPARE(named<QLabel>(&main, "Money spent on her")->text(), QStringLiteral("$45"));
    click("Call Her");
    click("Do you want to go out sometime?");
    QVERIFY(named<QToolButton>(&main, "Take Her Out")->isEnabled());
    QCOMPARE(named<QLabel>(&main, "Bank balance")->text(), QStringLiteral("Bank Balance: $0"));

    // At her door: a hundred dollar bill, and her cat underfoot. Both
    // notices are up; the main screen comes back with the second.
    m_random.push({pick(9, 110), pick(3, 10)});
    click("Take Her Out");
    QCOMPARE(m_sound.names().mid(m_sound.names().size() - 3),
             (QStringList{"doorbell.wav", "found.wav", "cat.wav"}));
    QCOMPARE(m_sound.played.last().mode, SoundMode::Wait);
    QCOMPARE(m_sound.played.at(m_sound.played.size() - 2).mode, SoundMode::Async);
    QVERIFY(window("Form6") && window("Form4"));
    QCOMPARE(m_app->loadedScreenCount(), 4);
    QVERIFY(!mainEnabled());
    pressOk("Form6");
    QVERIFY(!mainEnabled());
    QCOMPARE(state().heart, 32);
    closeBox("Form4"); // the close box is "OK": the cat still costs 5
    QVERIFY(mainEnabled());
    QCOMPARE(state().heart, 27);
    QCOMPARE(named<QWidget>(&main, "Heart meter")->findChild<QLabel *>("heart_rate")->text(), QStringLiteral("27"));

    // The restaurant is beyond him: the text notice says so.
    m_random.push(kCalm);
    choose(0);
    auto *notice = window("Form11");
    QVERIFY(notice);
    QCOMPARE(named<QLabel>(notice, "Hey...BUDDY are you expecting her to pay for this !!!!")->text(),
             QStringLiteral("Hey...BUDDY are you expecting her to pay for this !!!!"));
    pressOk("Form11");
    QVERIFY(mainEnabled());

    m_random.push({pick(9, 110), kCalm});
    click("Go Shopping");
    pressOk("Form6");

    // Five dates, the last one wins her: restaurant, picnic, bowling, pizza, (money) carnival.
    const int places[] = {0, 2, 5, 4};
    const double outcomes[] = {pick(3, 3), pick(3, 13), pick(3, 13), pick(3, 13)};
    const int hearts[] = {51, 63, 79, 91};
    for (int i = 0; i < 4; ++i) {
        m_random.push({kCalm, kCalm});
        click("Take Her Out");
        m_random.push({kCalm, outcomes[i]});
        choose(places[i]);
        QCOMPARE(int(state().heart), hearts[i]);
    }
    m_random.push({pick(9, 110), kCalm});
    click("Go Shopping");
    pressOk("Form6");
    m_random.push({kCalm, kCalm});
    click("Take Her Out");
    m_random.push({kCalm, pick(3, 13)});
    choose(8);
    QCOMPARE(m_random.remaining(), size_t(0));
    QCOMPARE(talk(), QStringLiteral("Tom: Did you have fun?\r\nLisa: Yeah, I never had so much Fun ...."));

    // She loves him.
    QWidget *win = window("Form3");
    QVERIFY(win);
    QVERIFY(!mainEnabled());
    QCOMPARE(m_sound.names().last(), QStringLiteral("kiss.wav"));
    QVERIFY(named<QLabel>(win, "Well done! Looks like you landed a SWEELA!!!"));
    QVERIFY(named<QLabel>(win, "OHH ... Tom I Love you!!!"));
    QVERIFY(named<QLabel>(win, "Your Score : 251022"));
    QVERIFY(named<QLabel>(win, "Total Days 7"));
    QVERIFY(named<QLabel>(win, "Total Money Spent $271"));
    QVERIFY(named<LoopingPicture>(win, "Animation")->isPlaying());
    pressOk("Form3");

    // The Top 20 table, the new result in red.
    QWidget *top = window("Form5");
    QVERIFY(top);
    QVERIFY(!window("Form3"));
    QCOMPARE(top->windowTitle(), QStringLiteral("Amorra - Top 20 SWEELA getters"));
    auto *grid = named<QTableWidget>(top, "Top 20 table");
    const QStringList first{"1", "Tom                 ", "7 Days", "$271", "251022"};
    for (int c = 0; c < 5; ++c) {
        QCOMPARE(grid->item(0, c)->text(), first[c]);
        QCOMPARE(grid->item(0, c)->foreground().color(), QColor(255, 0, 0));
    }
    QCOMPARE(grid->horizontalHeaderItem(2)->text(), QStringLiteral("Total Days  "));
    QCOMPARE(grid->item(1, 1)->text(), QString());
    QCOMPARE(named<QLabel>(top, "Champion")->text(), QStringLiteral("Tom"));
    QCOMPARE(m_dir->read("Scores").size(), 798);
    QVERIFY(!mainEnabled());
    pressOk("Form5");
    QVERIFY(mainEnabled());
    QCOMPARE(m_app->loadedScreenCount(), 2);
}

void GameFlowTest::aLostGameLeadsToTheGameOverDialog()
{
    enterGame();
    // Asking the same question three times: 10 + 2, then 12 + 2 - 8, then 6 + 2 - 8.
    click("Call Her");
    m_random.push(kCalm);
    choose(0);
    choose(0);
    QVERIFY(!window("Form8"));
    choose(0);
    QWidget *lose = window("Form8");
    QVERIFY(lose);
    QVERIFY(named<QLabel>(lose, "Sorry Buddy !!! I guess you aren't much of a ladies man after all."));
    // The lose screen sighs; the call still ends behind it.
    QCOMPARE(m_sound.names().mid(m_sound.names().size() - 3), (QStringList{"sigh.wav", "sigh_m.wav", "phoned.wav"}));
    QVERIFY(!mainEnabled());
    pressOk("Form8");
    QVERIFY(mainEnabled());

    // Every mode button now brings the dialog; OK (here its close box) keeps the ended game.
    const int soundsBefore = int(m_sound.played.size());
    click("Go to Work");
    QVERIFY(window("Form12"));
    QVERIFY(!mainEnabled());
    QCOMPARE(m_sound.played.size(), soundsBefore); // no car: the guard comes first
    closeBox("Form12");
    QVERIFY(mainEnabled());
    QVERIFY(state().game_over);
    QCOMPARE(named<QLabel>(&m_app->mainScreen(), "Day")->text(), QStringLiteral("Day 2"));

    click("Buy A Gift");
    m_random.push(pick(1, 15));
    QTest::mouseClick(named<QPushButton>(window("Form12"), "Play Again"), Qt::LeftButton);
    QVERIFY(!window("Form12"));
    QVERIFY(mainEnabled());
    QVERIFY(!state().game_over);
    QCOMPARE(int(state().heart), 10);
    QCOMPARE(named<QLabel>(&m_app->mainScreen(), "Day")->text(), QStringLiteral("Day 1"));
    QCOMPARE(state().girl.Gname, std::string("Lisa"));
}

void GameFlowTest::severalNoticesGiveTheMainScreenBackOnlyAtTheLast()
{
    enterGame();
    // A hundred dollars found, then a $60 fine, on one trip to the shops.
    m_random.push({pick(9, 60), pick(3, 60)});
    click("Go Shopping");
    QVERIFY(window("Form6") && window("Form7"));
    QVERIFY(named<QLabel>(window("Form7"), "You got pulled over for speeding. You get a $60 fine!!!"));
    QCOMPARE(named<QLabel>(&m_app->mainScreen(), "Bank balance")->text(), QStringLiteral("Bank Balance: $90"));
    QVERIFY(!mainEnabled());
    closeBox("Form6");
    QVERIFY(!mainEnabled());
    QCOMPARE(m_app->loadedScreenCount(), 3);
    pressOk("Form7");
    QVERIFY(mainEnabled());
    QVERIFY(m_app->openWindows().isEmpty());
    QVERIFY(QTest::qWaitForWindowActive(&m_app->mainScreen()));
}

void GameFlowTest::soundMenuSilencesTheGameUntilTheNextNewGame()
{
    enterGame();
    for (int i = 0; i < 8; ++i) // six jobs, found money, fine
        m_random.push(kCalm);
    click("Go to Work");
    QCOMPARE(m_sound.names().last(), QStringLiteral("car.wav"));
    QCOMPARE(m_sound.played.last().file, QDir(QStringLiteral(AMORRA_TEST_ASSETS)).filePath("sounds/car.wav"));
    QCOMPARE(m_sound.played.last().mode, SoundMode::Async);

    menu("sndenable");
    QVERIFY(!m_app->mainScreen().soundChecked());
    QVERIFY(!state().sound_on);
    const int before = int(m_sound.played.size());
    for (int i = 0; i < 8; ++i)
        m_random.push(kCalm);
    click("Go to Work");
    QCOMPARE(int(m_sound.played.size()), before);

    // A new game turns sound on again, and the check mark says so.
    m_random.push(pick(1, 15));
    menu("rstart");
    QVERIFY(state().sound_on);
    QVERIFY(m_app->mainScreen().soundChecked());
}

void GameFlowTest::top20FromTheMenuAndAScoresFileThatCannotBeSaved()
{
    QDir(m_dir->path()).mkdir("Scores"); // a folder where the file should be
    enterGame();
    menu("top20");
    QVERIFY(!mainEnabled());
    QWidget *top = window("Form5");
    QVERIFY(top);
    auto *grid = named<QTableWidget>(top, "Top 20 table");
    QCOMPARE(grid->rowCount(), 20);
    QCOMPARE(grid->item(0, 0)->text(), QString());
    QCOMPARE(m_desktop.messages.size(), 1);
    QVERIFY(m_desktop.messages[0].text.contains("could not be"));
    closeBox("Form5");
    QVERIFY(mainEnabled());
    menu("top20");
    QCOMPARE(m_desktop.messages.size(), 1); // told once
    pressOk("Form5");
    QVERIFY(mainEnabled());
}

QTEST_MAIN(GameFlowTest)
#include "game_flow_test.moc"
