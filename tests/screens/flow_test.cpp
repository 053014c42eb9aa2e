// The program clicked through as a player would: setup, whole games with
// their notices and end screens, the Top 20, the guide, the web pages, the end.
#include "flow_fixture.h"

#include "screens/tutorial_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>

using namespace amorra;
using namespace amorra::testing;

class FlowTest : public FlowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { initFlow(); }
    void cleanup() { cleanupFlow(); }

    void setupRefusesAnEmptyNameRemembersAGivenOneAndComesBackFresh();
    void slidersShareOneHundredFiftyPointsWhateverTheKeys();
    void desktopBelow800x600IsRefused();
    void aWholeGameWonThroughToTheTop20();
    void aLostGameLeadsToTheGameOverDialog();
    void quickStartGuideAtStartUpUntilTheBoxIsTicked();
    void webPagesOpenOrSayWhyNot();
    void closingAnyMainWindowEndsTheProgram();
};

void FlowTest::setupRefusesAnEmptyNameRemembersAGivenOneAndComesBackFresh()
{
    m_dir->write("last", "Bob                 ");
    startApp();
    auto *box = named<QLineEdit>(m_app->setupScreen(), "Your name");
    QCOMPARE(box->selectedText(), QStringLiteral("Bob"));
    box->clear();
    QTest::mouseClick(named<QPushButton>(m_app->setupScreen(), "START"), Qt::LeftButton);
    QCOMPARE(m_desktop.messages, QStringList{"Amorra: Please Enter Your Name !!"});
    QVERIFY(!m_app->mainScreen().isVisible() && m_app->setupScreen()->focusWidget() == box);

    named<QSlider>(m_app->setupScreen(), "How good looking are you?")->setValue(60);
    enterGame(QStringLiteral("  Tom  "));
    QVERIFY(m_app->mainScreen().isVisible());
    QCOMPARE(m_dir->read("last"), std::string("Tom                 "));
    QCOMPARE(state().player.player_name, std::string("Tom"));
    QCOMPARE(m_app->loadedScreenCount(), 2); // main, and setup hidden but loaded

    menu("newgame");
    QVERIFY(!m_app->mainScreen().isVisible() && m_app->setupScreen()->isVisible());
    QCOMPARE(named<QSlider>(m_app->setupScreen(), "How good looking are you?")->value(), 50);
    QVERIFY(named<QLabel>(m_app->setupScreen(), "Points Left :0"));
    QCOMPARE(named<QLineEdit>(m_app->setupScreen(), "Your name")->selectedText(), QStringLiteral("Tom"));
    QCOMPARE(m_app->loadedScreenCount(), 1);
}

void FlowTest::slidersShareOneHundredFiftyPointsWhateverTheKeys()
{
    const char *looks = "How good looking are you?";
    const struct
    {
        std::vector<std::pair<const char *, Qt::Key>> keys;
        int values[3];
        const char *label;
    } rows[] = {
        {{{looks, Qt::Key_PageUp}}, {60, 45, 45}, "Points Left:0"},
        {{{looks, Qt::Key_Right}}, {51, 50, 50}, "Points Left :0"}, // one over: the rule corrects nothing
        {{{looks, Qt::Key_End}, {"How lucky are you?", Qt::Key_End}, {looks, Qt::Key_End}}, {100, 0, 50}, "Points Left:0"},
    };
    for (const auto &row : rows) {
        initFlow();
        startApp();
        for (const auto &[slider, key] : row.keys)
            QTest::keyClick(named<QSlider>(m_app->setupScreen(), slider), key);
        QVERIFY2(named<QLabel>(m_app->setupScreen(), row.label), row.label);
        enterGame();
        QCOMPARE(std::vector<int>({int(state().player.looks), int(state().player.smart) + 10, int(state().player.luck)}),
                 std::vector<int>(row.values, row.values + 3));
    }
}

void FlowTest::desktopBelow800x600IsRefused()
{
    for (const QSize size : {QSize(640, 480), QSize(1024, 480), QSize(640, 768), QSize(799, 600), QSize(800, 599),
                             QSize(800, 600)}) {
        initFlow();
        m_desktop.size = size;
        startApp();
        const bool accepted = size == QSize(800, 600);
        QVERIFY((m_app->setupScreen() != nullptr) == accepted && m_desktop.quits == (accepted ? 0 : 1));
        QCOMPARE(m_desktop.messages, accepted ? QStringList() : QStringList{"Amorra: The desktop size has to be at "
                                                                            "least 800x600 for Amorra to work properly"});
    }
}

void FlowTest::aWholeGameWonThroughToTheTop20()
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
    m_random.push({pick(5, 6), pick(3, 10), pick(3, 10), pick(1, 10)});
    click("Do you want to go out sometime?");
    QCOMPARE(talk(), QStringLiteral("Tom:  Do you want to go out some time?\r\nLisa: Nope.\r\nTom: OK."));
    for (int question : {10, 11, 0})
        choose(question);
    QVERIFY(named<QLabel>(&main, "Day 2"));

    // The chocolates she loves, then a call she says yes to.
    m_random.push(kCalm);
    click("Buy A Gift");
    choose(1);
    QCOMPARE(talk(), QStringLiteral("Tom: I got something for you.\r\nLisa: Thank you so much. You remembered!"));
    click("Call Her");
    click("Do you want to go out sometime?");
    QVERIFY(named<QLabel>(&main, "Bank Balance: $0") && named<QLabel>(&main, "Total Money spent on her $45"));

    // At her door: a hundred dollar bill, and her cat underfoot. The main
    // screen comes back with the last notice, which Escape closes as OK.
    m_random.push({pick(9, 110), pick(3, 10)});
    click("Take Her Out");
    QCOMPARE(m_sound.names().mid(m_sound.names().size() - 3), (QStringList{"doorbell.wav", "found.wav", "cat.wav"}));
    QCOMPARE(m_sound.modes.last(), SoundMode::Wait);
    QCOMPARE(m_app->loadedScreenCount(), 4);
    pressOk("Form6");
    QVERIFY(!mainEnabled() && state().heart == 32);
    QVERIFY(QTest::qWaitForWindowActive(window("Form4"))); // the next notice takes the keyboard
    QTest::keyClick(window("Form4"), Qt::Key_Escape);      // the cat still costs 5
    QVERIFY(mainEnabled() && state().heart == 27);

    // The restaurant is beyond him: the text notice says so.
    m_random.push(kCalm);
    choose(0);
    QVERIFY(named<QLabel>(window("Form11"), "Hey...BUDDY are you expecting her to pay for this !!!!"));
    pressOk("Form11");
    QVERIFY(mainEnabled());

    // Money found at the shops (-1), restaurant, picnic, bowling, pizza, more money; the carnival wins her.
    for (int place : {-1, 0, 2, 5, 4, -1, 8}) {
        m_random.push({place < 0 ? pick(9, 110) : kCalm, kCalm});
        click(place < 0 ? "Go Shopping" : "Take Her Out");
        if (place < 0) {
            pressOk("Form6");
            continue;
        }
        m_random.push({kCalm, place ? pick(3, 13) : pick(3, 3)});
        choose(place);
    }
    QCOMPARE(m_random.remaining(), size_t(0));
    QWidget *win = window("Form3");
    QVERIFY(win && !mainEnabled());
    QCOMPARE(m_sound.names().last(), QStringLiteral("kiss.wav"));
    for (const char *label : {"OHH ... Tom I Love you!!!", "Your Score : 251022", "Total Days 7", "Total Money Spent $271"})
        QVERIFY2(named<QLabel>(win, label), label);
    pressOk("Form3");

    // The Top 20 table, the new result in red.
    QWidget *top = window("Form5");
    QVERIFY(top && !window("Form3"));
    auto *grid = named<QTableWidget>(top, "Top 20 table");
    const QStringList first{"1", "Tom                 ", "7 Days", "$271", "251022"};
    for (int c = 0; c < 5; ++c)
        QVERIFY(grid->item(0, c)->text() == first[c] && grid->item(0, c)->foreground().color() == QColor(255, 0, 0));
    QVERIFY(named<QLabel>(top, "Champion: Tom") && grid->item(1, 1)->text().isEmpty());
    QCOMPARE(m_dir->read("Scores").size(), size_t(798));
    pressOk("Form5");
    QVERIFY(mainEnabled() && m_app->loadedScreenCount() == 2);
    // From the menu the table locks the main screen until it is closed.
    menu("top20");
    QVERIFY(!mainEnabled() && QTest::qWaitForWindowActive(window("Form5")));
    QTest::keyClick(window("Form5"), Qt::Key_Escape);
    QVERIFY(mainEnabled());
}

void FlowTest::aLostGameLeadsToTheGameOverDialog()
{
    enterGame();
    // Asking the same question three times: 10 + 2, then 12 + 2 - 8, then 6 + 2 - 8.
    click("Call Her");
    m_random.push(kCalm);
    for (int i = 0; i < 3; ++i)
        choose(0);
    QVERIFY(named<QLabel>(window("Form8"), "Sorry Buddy !!! I guess you aren't much of a ladies man after all."));
    // The lose screen sighs; the call still ends behind it.
    QCOMPARE(m_sound.names().mid(m_sound.names().size() - 3), (QStringList{"sigh.wav", "sigh_m.wav", "phoned.wav"}));
    pressOk("Form8");
    QVERIFY(mainEnabled());

    // Every mode button now brings the dialog; OK (here its close box) keeps the ended game.
    const int sounds = int(m_sound.files.size());
    click("Go to Work");
    QVERIFY(window("Form12") && !mainEnabled() && m_sound.files.size() == sounds); // no car: the guard comes first
    window("Form12")->close();
    QVERIFY(mainEnabled() && state().game_over);
    click("Buy A Gift");
    m_random.push(pick(1, 15));
    QTest::mouseClick(named<QPushButton>(window("Form12"), "Play Again"), Qt::LeftButton);
    QVERIFY(!window("Form12") && mainEnabled() && !state().game_over && state().heart == 10);
    QVERIFY(named<QLabel>(&m_app->mainScreen(), "Day 1"));
}

void FlowTest::quickStartGuideAtStartUpUntilTheBoxIsTicked()
{
    m_dir->write("tuteshow", std::string("\x01\x00", 2));
    m_dir->write("qsguide.rtf", "{\\rtf1 Welcome to {\\b Amorra}\\par Have fun}");
    enterGame();
    QTRY_VERIFY(window("tute_frm"));
    auto *guide = static_cast<TutorialWindow *>(window("tute_frm"));
    QCOMPARE(guide->guide()->toPlainText(), QStringLiteral("Welcome to Amorra\nHave fun"));
    QVERIFY(!mainEnabled());
    QTest::mouseClick(named<QCheckBox>(guide, "Don't show this again"), Qt::LeftButton);
    pressOk("tute_frm");
    QVERIFY(mainEnabled());
    QCOMPARE(m_dir->read("tuteshow"), std::string("\x00\x00", 2));

    // Later activations do not look again; from the menu, no check box and the main screen stays usable.
    m_dir->write("tuteshow", std::string("\x01\x00", 2));
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(&m_app->mainScreen());
    QVERIFY(!window("tute_frm"));
    menu("quickstart");
    QVERIFY(mainEnabled() && named<QCheckBox>(window("tute_frm"), "Don't show this again")->isHidden());
    pressOk("tute_frm");
    QCOMPARE(m_dir->read("tuteshow"), std::string("\x01\x00", 2));
}

void FlowTest::webPagesOpenOrSayWhyNot()
{
    const struct
    {
        const char *how; // F1 for the help page, or the About box's area for the home page
        bool fileThere, browserOpens;
        const char *message;
    } rows[] = {{"F1", true, true, ""},
                {"F1", false, true, "!Browser Not Found: Could not your Browser"},
                {"F1", true, false, "!URL Failed: Web Page not Opened"},
                {"about", true, true, ""},
                {"about", true, false, "!URL Failed: Web Page not Opened"}};
    for (const auto &row : rows) {
        initFlow();
        QTemporaryDir assets;
        QDir(assets.path()).mkpath("help");
        const QString page = assets.path() + (row.how == std::string("F1") ? "/help/index.html" : "/help/about.html");
        if (row.fileThere)
            QVERIFY(QFile(page).open(QIODevice::WriteOnly));
        m_desktop.urlOpens = row.browserOpens;
        startApp(assets.path());
        enterGame();
        QVERIFY(QTest::qWaitForWindowActive(&m_app->mainScreen()));
        if (row.how == std::string("F1")) {
            QTest::keyClick(&m_app->mainScreen(), Qt::Key_F1);
        } else {
            menu("about");
            QTest::mouseClick(named<QAbstractButton>(window("Form13"), "Amorra home page"), Qt::LeftButton);
            pressOk("Form13");
            QVERIFY(mainEnabled());
        }
        QCOMPARE(m_desktop.urls, row.fileThere ? QList<QUrl>{QUrl::fromLocalFile(page)} : QList<QUrl>());
        QCOMPARE(m_desktop.messages.join(""), QLatin1String(row.message));
    }
}

void FlowTest::closingAnyMainWindowEndsTheProgram()
{
    for (const std::string how : {"setup close box", "main close box", "File > Exit", "Ctrl+Q"}) {
        initFlow();
        startApp();
        if (how == "setup close box")
            m_app->setupScreen()->close();
        else
            enterGame();
        if (how == "main close box")
            m_app->mainScreen().close();
        if (how == "File > Exit")
            menu("exit");
        if (how == "Ctrl+Q" && QTest::qWaitForWindowActive(&m_app->mainScreen()))
            QTest::keyClick(&m_app->mainScreen(), Qt::Key_Q, Qt::ControlModifier);
        QVERIFY2(m_desktop.quits == 1 && !m_app->mainScreen().isVisible() && m_app->loadedScreenCount() == 0,
                 how.c_str());
    }
}

QTEST_MAIN(FlowTest)
#include "flow_test.moc"
