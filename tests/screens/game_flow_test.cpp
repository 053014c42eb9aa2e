// Whole games clicked through as a player would: notices, end screens, the Top 20 window, sound.
#include "flow_fixture.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>
#include <QTest>

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
    void soundMenuSilencesTheGameUntilTheNextNewGame();
};

void GameFlowTest::aWholeGameWonThroughToTheTop20()
{
    startApp();
    named<QSlider>(m_app->setupScreen(), "How smart are you?")->setValue(0);
    named<QSlider>(m_app->setupScreen(), "How lucky are you?")->setValue(0);
    named<QSlider>(m_app->setupScreen(), "How good looking are you?")->setValue(100);
    enterGame();
    MainScreen &main = m_app->mainScreen();

    // A call: she turns down the invitation, then tells him what she loves.
    click("Call Her");
    QCOMPARE(talk(), QStringLiteral("Lisa:  Hello?\r\nTom: Hi Lisa this is Tom\r\nLisa: Ohh .... How are you???"));
    m_random.push(pick(5, 6));
    click("Do you want to go out sometime?");
    QCOMPARE(talk(), QStringLiteral("Tom:  Do you want to go out some time?\r\nLisa: Nope.\r\nTom: OK."));
    m_random.push({pick(3, 10), pick(3, 10), pick(1, 10)});
    choose(10);
    QCOMPARE(talk(), QStringLiteral("Tom: Do you enjoy gourmet foods and fine wines?\r\nLisa: Definitely. I love "
                                    "checking out new restaurants"));
    choose(11);
    choose(0);
    QVERIFY(named<QLabel>(&main, "Day 2"));

    // The chocolates she loves, then a call she says yes to.
    m_random.push(kCalm);
    click("Buy A Gift");
    choose(1);
    QCOMPARE(talk(), QStringLiteral("Tom: I got something for you.\r\nLisa: Thank you so much. You remembered!"));
    click("Call Her");
    click("Do you want to go out sometime?");
    QVERIFY(named<QAbstractButton>(&main, "Take Her Out")->isEnabled());
    QVERIFY(named<QLabel>(&main, "Bank Balance: $0"));

    // At her door: a hundred dollar bill, and her cat underfoot. The main
    // screen comes back with the last notice, which Escape closes as OK.
    m_random.push({pick(9, 110), pick(3, 10)});
    click("Take Her Out");
    QCOMPARE(m_sound.names().mid(m_sound.names().size() - 3), (QStringList{"doorbell.wav", "found.wav", "cat.wav"}));
    QCOMPARE(m_sound.modes.mid(m_sound.modes.size() - 2), (QList<SoundMode>{SoundMode::Async, SoundMode::Wait}));
    QCOMPARE(m_app->loadedScreenCount(), 4);
    pressOk("Form6");
    QVERIFY(!mainEnabled());
    QCOMPARE(state().heart, 32);
    QVERIFY(QTest::qWaitForWindowActive(window("Form4"))); // the next notice takes the keyboard
    QTest::keyClick(window("Form4"), Qt::Key_Escape); // the cat still costs 5
    QVERIFY(mainEnabled());
    QCOMPARE(state().heart, 27);

    // The restaurant is beyond him: the text notice says so.
    m_random.push(kCalm);
    choose(0);
    QVERIFY(named<QLabel>(window("Form11"), "Hey...BUDDY are you expecting her to pay for this !!!!"));
    pressOk("Form11");
    QVERIFY(mainEnabled());
    m_random.push({pick(9, 110), kCalm});
    click("Go Shopping");
    pressOk("Form6");

    // Five dates, the last one wins her: restaurant, picnic, bowling, pizza, (more money) carnival.
    const int places[] = {0, 2, 5, 4, -1, 8};
    const double outcomes[] = {pick(3, 3), pick(3, 13), pick(3, 13), pick(3, 13), 0, pick(3, 13)};
    for (int i = 0; i < 6; ++i) {
        if (places[i] < 0) {
            m_random.push({pick(9, 110), kCalm});
            click("Go Shopping");
            pressOk("Form6");
            continue;
        }
        m_random.push({kCalm, kCalm});
        click("Take Her Out");
        m_random.push({kCalm, outcomes[i]});
        choose(places[i]);
    }
    QCOMPARE(m_random.remaining(), size_t(0));
    QCOMPARE(talk(), QStringLiteral("Tom: Did you have fun?\r\nLisa: Yeah, I never had so much Fun ...."));

    // She loves him.
    QWidget *win = window("Form3");
    QVERIFY(win && !mainEnabled());
    QCOMPARE(m_sound.names().last(), QStringLiteral("kiss.wav"));
    for (const char *label : {"Well done! Looks like you landed a SWEELA!!!", "OHH ... Tom I Love you!!!",
                              "Your Score : 251022", "Total Days 7", "Total Money Spent $271"})
        QVERIFY2(named<QLabel>(win, label), label);
    pressOk("Form3");

    // The Top 20 table, the new result in red.
    QWidget *top = window("Form5");
    QVERIFY(top && !window("Form3"));
    auto *grid = named<QTableWidget>(top, "Top 20 table");
    const QStringList first{"1", "Tom                 ", "7 Days", "$271", "251022"};
    for (int c = 0; c < 5; ++c) {
        QCOMPARE(grid->item(0, c)->text(), first[c]);
        QCOMPARE(grid->item(0, c)->foreground().color(), QColor(255, 0, 0));
    }
    QCOMPARE(grid->item(1, 1)->text(), QString());
    QVERIFY(named<QLabel>(top, "Champion: Tom"));
    QCOMPARE(m_dir->read("Scores").size(), size_t(798));
    pressOk("Form5");
    QVERIFY(mainEnabled());
    QCOMPARE(m_app->loadedScreenCount(), 2);

    // From the menu the table locks the main screen until it is closed.
    menu("top20");
    QVERIFY(!mainEnabled());
    QVERIFY(QTest::qWaitForWindowActive(window("Form5")));
    QTest::keyClick(window("Form5"), Qt::Key_Escape);
    QVERIFY(mainEnabled());
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
    QVERIFY(named<QLabel>(lose, "Sorry Buddy !!! I guess you aren't much of a ladies man after all."));
    // The lose screen sighs; the call still ends behind it.
    QCOMPARE(m_sound.names().mid(m_sound.names().size() - 3), (QStringList{"sigh.wav", "sigh_m.wav", "phoned.wav"}));
    QVERIFY(!mainEnabled());
    pressOk("Form8");
    QVERIFY(mainEnabled());

    // Every mode button now brings the dialog; OK (here its close box) keeps the ended game.
    const int soundsBefore = int(m_sound.files.size());
    click("Go to Work");
    QVERIFY(window("Form12") && !mainEnabled());
    QCOMPARE(m_sound.files.size(), soundsBefore); // no car: the guard comes first
    closeBox("Form12");
    QVERIFY(mainEnabled() && state().game_over);

    click("Buy A Gift");
    m_random.push(pick(1, 15));
    QTest::mouseClick(named<QPushButton>(window("Form12"), "Play Again"), Qt::LeftButton);
    QVERIFY(!window("Form12") && mainEnabled() && !state().game_over);
    QCOMPARE(int(state().heart), 10);
    QVERIFY(named<QLabel>(&m_app->mainScreen(), "Day 1"));
}

void GameFlowTest::soundMenuSilencesTheGameUntilTheNextNewGame()
{
    enterGame();
    for (int i = 0; i < 8; ++i) // six jobs, found money, fine
        m_random.push(kCalm);
    click("Go to Work");
    QCOMPARE(m_sound.files.last(), QStringLiteral(AMORRA_TEST_ASSETS "/sounds/car.wav"));

    menu("sndenable");
    QVERIFY(!m_app->mainScreen().soundChecked() && !state().sound_on);
    const int before = int(m_sound.files.size());
    for (int i = 0; i < 8; ++i)
        m_random.push(kCalm);
    click("Go to Work");
    QCOMPARE(int(m_sound.files.size()), before);

    // A new game turns sound on again, and the check mark says so.
    m_random.push(pick(1, 15));
    menu("rstart");
    QVERIFY(state().sound_on && m_app->mainScreen().soundChecked());
}

QTEST_MAIN(GameFlowTest)
#include "game_flow_test.moc"
