// Starting and ending the program: setup, the desktop check, a new setup, exit.
#include "flow_fixture.h"

#include "screens/action_list.h"
#include "screens/tutorial_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

using namespace amorra;
using namespace amorra::testing;

class SetupFlowTest : public FlowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { initFlow(); }
    void cleanup() { cleanupFlow(); }

    void setupRefusesAnEmptyNameAndRemembersAGivenOne();
    void slidersShareOneHundredFiftyPoints_data();
    void slidersShareOneHundredFiftyPoints();
    void desktopBelow800x600IsRefused_data();
    void desktopBelow800x600IsRefused();
    void startNewGameReturnsToAFreshSetup();
    void closingTheSetupScreenEndsTheProgram();
    void closingTheMainWindowOrExitEndsTheProgram_data();
    void closingTheMainWindowOrExitEndsTheProgram();
};

void SetupFlowTest::setupRefusesAnEmptyNameAndRemembersAGivenOne()
{
    m_dir->write("last", "Bob                 ");
    startApp();
    QPointer<SetupScreen> setup = m_app->setupScreen();
    auto *box = named<QLineEdit>(setup, "Your name");
    QCOMPARE(box->text(), QStringLiteral("Bob"));
    QCOMPARE(box->selectedText(), QStringLiteral("Bob"));
    QCOMPARE(box->maxLength(), 20);

    box->clear();
    QTest::mouseClick(named<QPushButton>(setup, "START"), Qt::LeftButton);
    QCOMPARE(m_desktop.messages.size(), 1);
    QCOMPARE(m_desktop.messages[0].text, QStringLiteral("Please Enter Your Name !!"));
    QCOMPARE(m_desktop.messages[0].title, QStringLiteral("Amorra"));
    QVERIFY(setup->isVisible());
    QVERIFY(!m_app->mainScreen().isVisible());
    QCOMPARE(setup->focusWidget(), box);

    enterGame(QStringLiteral("  Tom  "));
    QVERIFY(!setup || setup->isHidden());
    QVERIFY(m_app->mainScreen().isVisible());
    QCOMPARE(m_dir->read("last"), QByteArray("Tom                 "));
    QCOMPARE(state().player.player_name, std::string("Tom"));
    QCOMPARE(m_app->loadedScreenCount(), 2); // main, and setup hidden but loaded
    QCOMPARE(named<QLabel>(&m_app->mainScreen(), "Her picture")->toolTip(), QStringLiteral("Hi Tom"));
}

void SetupFlowTest::slidersShareOneHundredFiftyPoints_data()
{
    QTest::addColumn<QStringList>("moves"); // "<slider> <key>"
    QTest::addColumn<QList<int>>("values");
    QTest::addColumn<QString>("label");

    QTest::newRow("looks up 10: smart and luck give 5 each")
        << QStringList{"looks PgUp"} << QList<int>{60, 45, 45} << "Points Left :0";
    QTest::newRow("looks up 1: half of 1 rounds to 0, nothing corrected")
        << QStringList{"looks Right"} << QList<int>{51, 50, 50} << "Points Left :0";
    QTest::newRow("luck down 20 frees 20 points")
        << QStringList{"luck PgDn", "luck PgDn"} << QList<int>{50, 50, 30} << "Points Left:20";
    QTest::newRow("smart up three times: only the even excess is corrected")
        << QStringList{"smart Right", "smart Right", "smart Right"} << QList<int>{49, 53, 49} << "Points Left :0";
    QTest::newRow("freed points spent again")
        << QStringList{"luck PgDn", "looks PgUp"} << QList<int>{60, 50, 40} << "Points Left:0";
}

void SetupFlowTest::slidersShareOneHundredFiftyPoints()
{
    QFETCH(QStringList, moves);
    QFETCH(QList<int>, values);
    QFETCH(QString, label);
    startApp();
    SetupScreen *setup = m_app->setupScreen();
    const QMap<QString, QString> names{{"looks", "How good looking are you?"},
                                       {"smart", "How smart are you?"},
                                       {"luck", "How lucky are you?"}};
    const QMap<QString, Qt::Key> keys{{"PgUp", Qt::Key_PageUp}, {"PgDn", Qt::Key_PageDown}, {"Right", Qt::Key_Right}};
    for (const QString &move : moves) {
        const QStringList parts = move.split(' ');
        auto *slider = named<QSlider>(setup, names[parts[0]]);
        QVERIFY(slider);
        QTest::keyClick(slider, keys[parts[1]]);
    }
    QCOMPARE(named<QSlider>(setup, names["looks"])->value(), values[0]);
    QCOMPARE(named<QSlider>(setup, names["smart"])->value(), values[1]);
    QCOMPARE(named<QSlider>(setup, names["luck"])->value(), values[2]);
    QCOMPARE(named<QLabel>(setup, "Points left")->text(), label);

    enterGame();
    QCOMPARE(state().player.looks, double(values[0]));
    QCOMPARE(state().player.smart, double(values[1] - 10));
    QCOMPARE(int(state().player.luck), values[2]);
}

void SetupFlowTest::desktopBelow800x600IsRefused_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("640 x 480") << QSize(640, 480) << false;
    QTest::newRow("1024 x 480") << QSize(1024, 480) << false;
    QTest::newRow("640 x 768") << QSize(640, 768) << false;
    QTest::newRow("799 x 600") << QSize(799, 600) << false;
    QTest::newRow("800 x 599") << QSize(800, 599) << false;
    QTest::newRow("800 x 600") << QSize(800, 600) << true;
    QTest::newRow("1920 x 1080") << QSize(1920, 1080) << true;
}

void SetupFlowTest::desktopBelow800x600IsRefused()
{
    QFETCH(QSize, size);
    QFETCH(bool, accepted);
    m_desktop.size = size;
    startApp();
    QCOMPARE(m_app->setupScreen() != nullptr, accepted);
    QCOMPARE(m_desktop.quits, accepted ? 0 : 1);
    if (accepted) {
        QVERIFY(m_desktop.messages.isEmpty());
        enterGame();
        QVERIFY(m_app->mainScreen().isVisible());
        QCOMPARE(m_desktop.quits, 0);
        return;
    }
    QCOMPARE(m_desktop.messages.size(), 1);
    QCOMPARE(m_desktop.messages[0].text,
             QStringLiteral("The desktop size has to be at least 800x600 for Amorra to work properly"));
    QCOMPARE(m_desktop.messages[0].title, QStringLiteral("Amorra"));
    QVERIFY(!m_desktop.messages[0].exclamation);
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
    QCOMPARE(named<QLabel>(setup, "Points left")->text(), QStringLiteral("Points Left :0"));
    QCOMPARE(named<QLineEdit>(setup, "Your name")->selectedText(), QStringLiteral("Tom"));
    QCOMPARE(m_app->loadedScreenCount(), 1);

    m_random.push({pick(7, 11), pick(3, 10), pick(1, 15)});
    QTest::mouseClick(named<QPushButton>(setup, "START"), Qt::LeftButton);
    QVERIFY(m_app->mainScreen().isVisible());
    QCOMPARE(state().girl.Gname, std::string("Jane"));
    QCOMPARE(state().player.looks, 50.0);
    QVERIFY(!named<QToolButton>(&m_app->mainScreen(), "Take Her Out")->isEnabled());
}

void SetupFlowTest::closingTheSetupScreenEndsTheProgram()
{
    startApp();
    QVERIFY(m_app->setupScreen()->close());
    QCOMPARE(m_desktop.quits, 1);
    QVERIFY(!m_app->mainScreen().isVisible());
}

void SetupFlowTest::closingTheMainWindowOrExitEndsTheProgram_data()
{
    QTest::addColumn<bool>("viaMenu");
    QTest::newRow("close box") << false;
    QTest::newRow("File > Exit") << true;
}

void SetupFlowTest::closingTheMainWindowOrExitEndsTheProgram()
{
    QFETCH(bool, viaMenu);
    enterGame();
    if (viaMenu)
        menu("exit");
    else
        m_app->mainScreen().close();
    QCOMPARE(m_desktop.quits, 1);
    QVERIFY(!m_app->mainScreen().isVisible());
    QCOMPARE(m_app->loadedScreenCount(), 0);
}

QTEST_MAIN(SetupFlowTest)
#include "setup_flow_test.moc"
