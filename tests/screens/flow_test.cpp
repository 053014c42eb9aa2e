// The program clicked through as a player would: setup, whole games with
// their notices and end screens, the Top 20, the guide, the web pages, the end.
#include "flow_fixture.h"

#include "screens/tutorial_window.h"

#include <QAccessibleTableInterface>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QSlider>
#include <QTextEdit>

using namespace amorra;
using namespace amorra::testing;

class FlowTest : public FlowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { initFlow(); }
    void cleanup() { cleanupFlow(); }
    void setupRemembersTheNameAndSharesOneHundredFiftyPointsWhateverTheKeys();
    void aWholeGameWonThroughToTheTop20();
    void aLostGameLeadsToTheGameOverDialog();
    void quickStartGuideAtStartUpUntilTheBoxIsTicked();
    void webPagesOpenOrSayWhyNot();
    void theProgramEndsWhenAMainWindowClosesOrTheDesktopIsTooSmall();
};

void FlowTest::setupRemembersTheNameAndSharesOneHundredFiftyPointsWhateverTheKeys()
{
    m_dir->write("last", "Bob                 ");
    enterGame(QString());
    QCOMPARE(m_desktop.messages, QStringList{"Amorra: Please Enter Your Name !!"});
    QVERIFY(!m_app->mainScreen().isVisible() && m_app->setupScreen()->focusWidget()->objectName() == "name_txt");
    named<QSlider>(m_app->setupScreen(), "How good looking are you?")->setValue(60);
    enterGame(QStringLiteral("  Tom  "));
    QVERIFY(state().player.player_name == "Tom");
    QTRY_VERIFY(m_dir->read("last") == "Tom                 "); // once the main screen is up
    QCOMPARE(m_app->loadedScreenCount(), 2); // main, and setup hidden but loaded
    menu("newgame");
    QVERIFY(!m_app->mainScreen().isVisible() && m_app->loadedScreenCount() == 1);
    QCOMPARE(named<QSlider>(m_app->setupScreen(), "How good looking are you?")->value(), 50);
    QVERIFY(named<QLabel>(m_app->setupScreen(), "Points Left :0"));
    QCOMPARE(named<QLineEdit>(m_app->setupScreen(), "Your name")->selectedText(), QStringLiteral("Tom"));

    // One over keeps the label; End on looks, luck, looks: a partner at 0 leaves its share to the other.
    const char *looks = "How good looking are you?";
    QTest::keyClick(named<QSlider>(m_app->setupScreen(), looks), Qt::Key_Right);
    QVERIFY(named<QLabel>(m_app->setupScreen(), "Points Left :0"));
    for (const char *slider : {looks, "How lucky are you?", looks})
        QTest::keyClick(named<QSlider>(m_app->setupScreen(), slider), Qt::Key_End);
    QVERIFY(named<QLabel>(m_app->setupScreen(), "Points Left:0"));
    enterGame();
    QVERIFY(state().player.looks == 100 && state().player.smart == -10 && state().player.luck == 50);
}

void FlowTest::aWholeGameWonThroughToTheTop20()
{
    startApp();
    named<QSlider>(m_app->setupScreen(), "How smart are you?")->setValue(0);
    named<QSlider>(m_app->setupScreen(), "How lucky are you?")->setValue(0);
    named<QSlider>(m_app->setupScreen(), "How good looking are you?")->setValue(100);
    enterGame();
    QVERIFY(!named<QLabel>(&m_app->mainScreen(), "Her picture")->pixmap().isNull());
    // A call in which she says no and tells him what she loves, the chocolates she loves, a call she says yes to.
    click("Call Her");
    m_random.push({pick(5, 6), pick(3, 10), pick(3, 10), pick(1, 10), kCalm});
    click("Do you want to go out sometime?");
    for (int question : {10, 11, 0})
        choose(question);
    click("Buy A Gift");
    choose(1);
    click("Call Her");
    click("Do you want to go out sometime?");
    QVERIFY(named<QLabel>(&m_app->mainScreen(), "Day 2") && named<QLabel>(&m_app->mainScreen(), "Bank Balance: $0"));
    QVERIFY(named<QLabel>(&m_app->mainScreen(), "Total Money spent on her $45"));

    // At her door a hundred dollar bill and her cat: the main screen comes
    // back with the last notice, which takes the keyboard; Escape is its OK.
    m_random.push({pick(9, 110), pick(3, 10)});
    click("Take Her Out");
    QCOMPARE(m_sound.played.mid(m_sound.played.size() - 3), (QStringList{"doorbell.wav", "found.wav", "cat.wav (wait)"}));
    QCOMPARE(m_app->loadedScreenCount(), 4);
    pressOk("Form6");
    QVERIFY(!mainEnabled() && state().heart == 32 && QTest::qWaitForWindowActive(window("Form4")));
    QTest::keyClick(window("Form4"), Qt::Key_Escape);
    QVERIFY(mainEnabled() && state().heart == 27);
    m_random.push(kCalm);
    choose(0); // the restaurant is beyond him
    QVERIFY(named<QLabel>(window("Form11"), "Hey...BUDDY are you expecting her to pay for this !!!!"));
    pressOk("Form11");

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
    QVERIFY(!mainEnabled() && m_sound.played.last() == "kiss.wav");
    for (const char *label : {"OHH ... Tom I Love you!!!", "Your Score : 251022", "Total Days 7", "Total Money Spent $271"})
        QVERIFY2(named<QLabel>(window("Form3"), label), label);
    pressOk("Form3");
    auto *grid = named<ScoreGrid>(window("Form5"), "Top 20 table");
    const QStringList first{"1", "Tom                 ", "7 Days", "$271", "251022"};
    for (int c = 0; c < 5; ++c) // the new result, in red
        QVERIFY(grid->cellText(0, c) == first[c] && grid->cellColour(0) == QColor(255, 0, 0));
    QVERIFY(named<QLabel>(window("Form5"), "Champion: Tom") && grid->cellText(1, 1).isEmpty() &&
            grid->cellColour(1) == Qt::black);
    QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(grid); // without the padding
    QAccessibleTableInterface *table = heard->tableInterface();
    QVERIFY(table && table->rowCount() == 20 && table->columnDescription(2) == "Total Days");
    QAccessibleInterface *name = table->cellAt(0, 1);
    QVERIFY(name->text(QAccessible::Name) == "Tom" && name->tableCellInterface()->columnHeaderCells().first()->text(QAccessible::Name) == "Name");
    QCOMPARE(m_dir->read("Scores").size(), size_t(798));
    pressOk("Form5");
    QVERIFY(mainEnabled() && m_app->loadedScreenCount() == 2);
}

void FlowTest::aLostGameLeadsToTheGameOverDialog()
{
    enterGame();
    click("Call Her");
    m_random.push(kCalm);
    for (int i = 0; i < 3; ++i) // the same question thrice: 10 + 2, then 12 + 2 - 8, then 6 + 2 - 8
        choose(0);
    QVERIFY(named<QLabel>(window("Form8"), "Sorry Buddy !!! I guess you aren't much of a ladies man after all."));
    QVERIFY(m_sound.played.contains("sigh_m.wav") && !mainEnabled());
    pressOk("Form8");
    // Every mode button now brings the dialog, before any sound; OK (here its close box) keeps the ended game.
    const auto sounds = m_sound.played.size();
    click("Go to Work");
    QVERIFY(mainEnabled() == false && m_sound.played.size() == sounds && window("Form12")->close());
    QVERIFY(mainEnabled() && state().game_over);
    click("Buy A Gift");
    m_random.push(pick(1, 15));
    QTest::mouseClick(named<QPushButton>(window("Form12"), "Play Again"), Qt::LeftButton);
    QVERIFY(!window("Form12") && mainEnabled() && !state().game_over && named<QLabel>(&m_app->mainScreen(), "Day 1"));
}

void FlowTest::quickStartGuideAtStartUpUntilTheBoxIsTicked()
{
    m_dir->write("tuteshow", std::string("\x01\x00", 2));
    m_dir->write("qsguide.rtf", "{\\rtf1 Welcome to {\\b Amorra}\\par Have fun}");
    enterGame();
    QTRY_VERIFY(window("tute_frm"));
    auto *guide = static_cast<TutorialWindow *>(window("tute_frm"));
    QVERIFY(guide->guide()->toPlainText() == "Welcome to Amorra\nHave fun" && !mainEnabled());
    QTest::mouseClick(named<QCheckBox>(guide, "Don't show this again"), Qt::LeftButton);
    pressOk("tute_frm");
    QVERIFY(mainEnabled() && m_dir->read("tuteshow") == std::string("\x00\x00", 2));
    // From the menu: no check box, the main screen stays usable, the file is left alone.
    m_dir->write("tuteshow", std::string("\x01\x00", 2));
    menu("quickstart");
    QVERIFY(mainEnabled() && named<QCheckBox>(window("tute_frm"), "Don't show this again")->isHidden());
    pressOk("tute_frm");
    QCOMPARE(m_dir->read("tuteshow"), std::string("\x01\x00", 2));
}

void FlowTest::webPagesOpenOrSayWhyNot()
{
    const struct
    {
        const char *page; // help/index.html from the menu, help/about.html from the About box's area
        bool there, opens;
        const char *message;
    } rows[] = {{"index", true, true, ""},
                {"index", false, true, "!Browser Not Found: Could not your Browser"},
                {"about", true, false, "!URL Failed: Web Page not Opened"}};
    for (const auto &row : rows) {
        initFlow();
        const QString page = QDir::currentPath() + "/help/" + row.page + ".html";
        QVERIFY(QDir().mkpath("help") && (!row.there || QFile(page).open(QIODevice::WriteOnly)));
        m_desktop.urlOpens = row.opens;
        startApp(QDir::currentPath());
        enterGame();
        menu(row.page == std::string("index") ? "onlinehelp" : "about");
        if (window("Form13")) {
            QTest::mouseClick(named<QAbstractButton>(window("Form13"), "Amorra home page"), Qt::LeftButton);
            pressOk("Form13");
        }
        QVERIFY(mainEnabled() && m_desktop.messages.join("") == QLatin1String(row.message));
        QCOMPARE(m_desktop.urls, row.there ? QList<QUrl>{QUrl::fromLocalFile(page)} : QList<QUrl>());
    }
}

void FlowTest::theProgramEndsWhenAMainWindowClosesOrTheDesktopIsTooSmall()
{
    for (const std::string how : {"setup close box", "main close box", "Ctrl+Q for File > Exit", "799 x 600"}) {
        initFlow();
        m_desktop.size = how == "799 x 600" ? QSize(799, 600) : m_desktop.size;
        startApp();
        if (how == "setup close box")
            m_app->setupScreen()->close();
        else if (how != "799 x 600")
            enterGame();
        if (how == "main close box")
            m_app->mainScreen().close();
        if (how == "Ctrl+Q for File > Exit" && QTest::qWaitForWindowActive(&m_app->mainScreen()))
            QTest::keyClick(&m_app->mainScreen(), Qt::Key_Q, Qt::ControlModifier);
        QVERIFY2(m_desktop.quits == 1 && !m_app->mainScreen().isVisible() && m_app->loadedScreenCount() == 0, how.c_str());
    }
    QCOMPARE(m_desktop.messages, QStringList{"Amorra: The desktop size has to be at least 800x600 for Amorra to work properly"});
}

QTEST_MAIN(FlowTest)
#include "flow_test.moc"
