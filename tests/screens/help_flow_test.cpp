// The quick start guide, its start-up switch, and the web pages.
#include "flow_fixture.h"

#include "screens/tutorial_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QTextEdit>

using namespace amorra;
using namespace amorra::testing;

class HelpFlowTest : public FlowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { initFlow(); }
    void cleanup() { cleanupFlow(); }

    void quickStartGuideAtStartUpUntilTheBoxIsTicked();
    void webPagesOpenOrSayWhyNot();
};

void HelpFlowTest::quickStartGuideAtStartUpUntilTheBoxIsTicked()
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

    // Later activations in the run do not look again.
    m_dir->write("tuteshow", std::string("\x01\x00", 2));
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(&m_app->mainScreen());
    QVERIFY(!window("tute_frm"));

    // From the menu: no check box, and the main screen stays usable.
    menu("quickstart");
    QVERIFY(window("tute_frm") && mainEnabled());
    QVERIFY(named<QCheckBox>(window("tute_frm"), "Don't show this again")->isHidden());
    pressOk("tute_frm");
    QCOMPARE(m_dir->read("tuteshow"), std::string("\x01\x00", 2));
}

void HelpFlowTest::webPagesOpenOrSayWhyNot()
{
    const struct
    {
        const char *how; // a menu item, "F1", or "about" for the About box's area
        bool fileThere, browserOpens;
        const char *message;
    } rows[] = {
        {"onlinehelp", true, true, ""},
        {"F1", false, true, "!Browser Not Found: Could not your Browser"},
        {"onlinehelp", true, false, "!URL Failed: Web Page not Opened"},
        {"about", true, true, ""},
        {"about", true, false, "!URL Failed: Web Page not Opened"},
    };
    for (const auto &row : rows) {
        initFlow();
        QTemporaryDir assets;
        const QString page = QDir(assets.path()).filePath(row.how == std::string("about") ? "help/about.html"
                                                                                           : "help/index.html");
        QDir(assets.path()).mkpath("help");
        if (row.fileThere)
            QVERIFY(QFile(page).open(QIODevice::WriteOnly));
        m_desktop.urlOpens = row.browserOpens;
        startApp(assets.path());
        enterGame();
        if (row.how == std::string("F1")) {
            QVERIFY(QTest::qWaitForWindowActive(&m_app->mainScreen()));
            QTest::keyClick(&m_app->mainScreen(), Qt::Key_F1);
        } else if (row.how == std::string("about")) {
            menu("about");
            QVERIFY(!mainEnabled());
            QTest::mouseClick(named<QAbstractButton>(window("Form13"), "Amorra home page"), Qt::LeftButton);
        } else {
            menu(row.how);
        }
        QCOMPARE(m_desktop.urls, row.fileThere ? QList<QUrl>{QUrl::fromLocalFile(page)} : QList<QUrl>());
        QCOMPARE(m_desktop.messages.join(""), QLatin1String(row.message));
        if (window("Form13")) {
            pressOk("Form13");
            QVERIFY(mainEnabled());
        }
        cleanupFlow();
    }
}

QTEST_MAIN(HelpFlowTest)
#include "help_flow_test.moc"
