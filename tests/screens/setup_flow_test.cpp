// Starting and ending the program: setup, the desktop check, a new setup, exit.
#include "flow_fixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSlider>
#include <QTest>

using namespace amorra;
using namespace amorra::testing;

class SetupFlowTest : public FlowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { initFlow(); }
    void cleanup() { cleanupFlow(); }

    void setupRefusesAnEmptyNameAndRemembersAGivenOne();
    void slidersShareOneHundredFiftyPointsWhateverTheKeys();
    void desktopBelow800x600IsRefused();
    void startNewGameReturnsToAFreshSetup();
    void closingAnyMainWindowEndsTheProgram();
};

void SetupFlowTest::setupRefusesAnEmptyNameAndRemembersAGivenOne()
{
    m_dir->write("last", "Bob                 ");
    startApp();
    QPointer<SetupScreen> setup = m_app->setupScreen();
    auto *box = named<QLineEdit>(setup, "Your name");
    QCOMPARE(box->selectedText(), QStringLiteral("Bob"));
    QCOMPARE(box->maxLength(), 20);

    box->clear();
    QTest::mouseClick(named<QPushButton>(setup, "START"), Qt::LeftButton);
    QCOMPARE(m_desktop.messages, QStringList{"Amorra: Please Enter Your Name !!"});
    QVERIFY(setup->isVisible() && !m_app->mainScreen().isVisible());
    QCOMPARE(setup->focusWidget(), box);

    enterGame(QStringLiteral("  Tom  "));
    QVERIFY(!setup || setup->isHidden());
    QVERIFY(m_app->mainScreen().isVisible());
    QCOMPARE(m_dir->read("last"), "Tom                 ");
    QCOMPARE(state().player.player_name, std::string("Tom"));
    QCOMPARE(m_app->loadedScreenCount(), 2); // main, and setup hidden but loaded
}

void SetupFlowTest::slidersShareOneHundredFiftyPointsWhateverTheKeys()
{
    const struct
    {
        const char *name;
        std::vector<std::pair<const char *, Qt::Key>> keys;
        int values[3];
        const char *label;
    } rows[] = {
        {"looks up ten: smart and luck give five each", {{"How good looking are you?", Qt::Key_PageUp}}, {60, 45, 45},
         "Points Left:0"},
        {"looks up one: nothing corrected, the label kept", {{"How good looking are you?", Qt::Key_Right}},
         {51, 50, 50}, "Points Left :0"},
        {"End on looks, luck, looks: a partner at 0 leaves its share to the other",
         {{"How good looking are you?", Qt::Key_End},
          {"How lucky are you?", Qt::Key_End},
          {"How good looking are you?", Qt::Key_End}},
         {100, 0, 50}, "Points Left:0"},
    };
    for (const auto &row : rows) {
        initFlow();
        startApp();
        SetupScreen *setup = m_app->setupScreen();
        for (const auto &[slider, key] : row.keys)
            QTest::keyClick(named<QSlider>(setup, slider), key);
        QVERIFY2(named<QLabel>(setup, row.label), row.name);
        enterGame();
        QCOMPARE(int(state().player.looks), row.values[0]);
        QCOMPARE(int(state().player.smart), row.values[1] - 10);
        QCOMPARE(int(state().player.luck), row.values[2]);
        cleanupFlow();
    }
}

void SetupFlowTest::desktopBelow800x600IsRefused()
{
    for (const QSize size : {QSize(640, 480), QSize(1024, 480), QSize(640, 768), QSize(799, 600), QSize(800, 599),
                             QSize(800, 600)}) {
        initFlow();
        m_desktop.size = size;
        startApp();
        const bool accepted = size == QSize(800, 600);
        QCOMPARE(m_app->setupScreen() != nullptr, accepted);
        QCOMPARE(m_desktop.quits, accepted ? 0 : 1);
        QCOMPARE(m_desktop.messages,
                 accepted ? QStringList()
                          : QStringList{"Amorra: The desktop size has to be at least 800x600 for Amorra to work properly"});
        cleanupFlow();
    }
}

void SetupFlowTest::startNewGameReturnsToAFreshSetup()
{
    startApp();
    named<QSlider>(m_app->setupScreen(), "How good looking are you?")->setValue(60);
    enterGame(QStringLiteral("Tom"));
    menu("newgame");
    QVERIFY(!m_app->mainScreen().isVisible());
    SetupScreen *setup = m_app->setupScreen();
    QVERIFY(setup && setup->isVisible());
    QCOMPARE(named<QSlider>(setup, "How good looking are you?")->value(), 50);
    QVERIFY(named<QLabel>(setup, "Points Left :0"));
    QCOMPARE(named<QLineEdit>(setup, "Your name")->selectedText(), QStringLiteral("Tom"));
    QCOMPARE(m_app->loadedScreenCount(), 1);

    m_random.push({pick(7, 11), pick(3, 10), pick(1, 15)});
    QTest::mouseClick(named<QPushButton>(setup, "START"), Qt::LeftButton);
    QCOMPARE(state().girl.Gname, std::string("Jane"));
    QCOMPARE(state().player.looks, 50.0);
}

void SetupFlowTest::closingAnyMainWindowEndsTheProgram()
{
    for (const char *how : {"setup close box", "main close box", "File > Exit", "Ctrl+Q"}) {
        initFlow();
        startApp();
        if (how == std::string("setup close box"))
            QVERIFY(m_app->setupScreen()->close());
        else
            enterGame();
        if (how == std::string("main close box"))
            m_app->mainScreen().close();
        if (how == std::string("File > Exit"))
            menu("exit");
        if (how == std::string("Ctrl+Q")) {
            QVERIFY(QTest::qWaitForWindowActive(&m_app->mainScreen()));
            QTest::keyClick(&m_app->mainScreen(), Qt::Key_Q, Qt::ControlModifier);
        }
        QVERIFY2(m_desktop.quits == 1, how);
        QVERIFY2(!m_app->mainScreen().isVisible() && m_app->loadedScreenCount() == 0, how);
        cleanupFlow();
    }
}

QTEST_MAIN(SetupFlowTest)
#include "setup_flow_test.moc"
