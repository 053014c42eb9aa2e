// The quick start guide, its start-up switch, and the web pages.
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
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

using namespace amorra;
using namespace amorra::testing;

class HelpFlowTest : public FlowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { initFlow(); }
    void cleanup() { cleanupFlow(); }

    void quickStartGuideAtStartUpUntilTheBoxIsTicked();
    void quickStartGuideFromTheMenuHasNoCheckBox();
    void unreadableGuideShowsAnEmptyWindow_data();
    void unreadableGuideShowsAnEmptyWindow();
    void webPagesOpenOrSayWhyNot_data();
    void webPagesOpenOrSayWhyNot();
};

void HelpFlowTest::quickStartGuideAtStartUpUntilTheBoxIsTicked()
{
    m_dir->write("tuteshow", QByteArray("\x01\x00", 2));
    m_dir->write("qsguide.rtf", "{\\rtf1 Welcome to {\\b Amorra}\\par Have fun}");
    enterGame();
    QTRY_VERIFY(window("tute_frm"));
    auto *guide = static_cast<TutorialWindow *>(window("tute_frm"));
    QCOMPARE(guide->guide()->toPlainText(), QStringLiteral("Welcome to Amorra\nHave fun"));
    QVERIFY(!mainEnabled());
    auto *box = named<QCheckBox>(guide, "Don't show this again");
    QVERIFY(box->isVisible());
    QTest::mouseClick(box, Qt::LeftButton);
    pressOk("tute_frm");
    QVERIFY(mainEnabled());
    QCOMPARE(m_dir->read("tuteshow"), QByteArray("\x00\x00", 2));

    // Later activations in the run do not look again.
    m_dir->write("tuteshow", QByteArray("\x01\x00", 2));
    m_app->mainScreen().FocusMain();
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(&m_app->mainScreen());
    QVERIFY(!window("tute_frm"));
}

void HelpFlowTest::quickStartGuideFromTheMenuHasNoCheckBox()
{
    enterGame();
    QVERIFY(QTest::qWaitForWindowActive(&m_app->mainScreen()));
    QVERIFY(!window("tute_frm")); // no tuteshow file: not at start-up...
    QCOMPARE(m_dir->read("tuteshow"), QByteArray()); // ...which now exists, empty
    QVERIFY(QFile::exists(QDir(m_dir->path()).filePath("tuteshow")));
    menu("quickstart");
    QWidget *guide = window("tute_frm");
    QVERIFY(guide);
    QVERIFY(mainEnabled());
    QVERIFY(named<QCheckBox>(guide, "Don't show this again")->isHidden());
    pressOk("tute_frm");
    QCOMPARE(m_dir->read("tuteshow"), QByteArray());
}

void HelpFlowTest::unreadableGuideShowsAnEmptyWindow_data()
{
    QTest::addColumn<bool>("present");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("missing") << false << QByteArray();
    QTest::newRow("not RTF") << true << QByteArray("\x89PNG\r\n\x1a\n binary");
    QTest::newRow("empty") << true << QByteArray();
}

void HelpFlowTest::unreadableGuideShowsAnEmptyWindow()
{
    QFETCH(bool, present);
    QFETCH(QByteArray, bytes);
    if (present)
        m_dir->write("qsguide.rtf", bytes);
    enterGame();
    menu("quickstart");
    auto *guide = static_cast<TutorialWindow *>(window("tute_frm"));
    QVERIFY(guide);
    QCOMPARE(guide->guide()->toPlainText(), QString());
    pressOk("tute_frm");
}

void HelpFlowTest::webPagesOpenOrSayWhyNot_data()
{
    QTest::addColumn<QString>("page"); // menu item, or "about" for the About box's area
    QTest::addColumn<bool>("fileThere");
    QTest::addColumn<bool>("browserOpens");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");

    QTest::newRow("help page opens") << "onlinehelp" << true << true << "" << "";
    QTest::newRow("help page missing") << "onlinehelp" << false << true << "Browser Not Found"
                                       << "Could not your Browser";
    QTest::newRow("browser fails") << "onlinehelp" << true << false << "URL Failed" << "Web Page not Opened";
    QTest::newRow("About box opens the home page") << "about" << true << true << "" << "";
    QTest::newRow("About box, browser fails") << "about" << true << false << "URL Failed" << "Web Page not Opened";
}

void HelpFlowTest::webPagesOpenOrSayWhyNot()
{
    QFETCH(QString, page);
    QFETCH(bool, fileThere);
    QFETCH(bool, browserOpens);
    QFETCH(QString, title);
    QFETCH(QString, text);
    QTemporaryDir assetDir;
    const QString file = page == "about" ? "help/about.html" : "help/index.html";
    if (fileThere) {
        QDir(assetDir.path()).mkpath("help");
        QFile f(QDir(assetDir.path()).filePath(file));
        QVERIFY(f.open(QIODevice::WriteOnly));
    }
    m_desktop.urlOpens = browserOpens;
    startApp(assetDir.path());
    enterGame();
    if (page == "about") {
        menu("about");
        QVERIFY(!mainEnabled());
        QWidget *box = window("Form13");
        QVERIFY(box);
        QTest::mouseClick(named<QAbstractButton>(box, "Amorra home page"), Qt::LeftButton);
    } else {
        menu("onlinehelp");
    }
    if (title.isEmpty()) {
        QCOMPARE(m_desktop.urls, QList<QUrl>{QUrl::fromLocalFile(QDir(assetDir.path()).filePath(file))});
        QVERIFY(m_desktop.messages.isEmpty());
    } else {
        QCOMPARE(m_desktop.messages.size(), 1);
        QCOMPARE(m_desktop.messages[0].title, title);
        QCOMPARE(m_desktop.messages[0].text, text);
        QVERIFY(m_desktop.messages[0].exclamation);
    }
    if (page == "about") {
        pressOk("Form13");
        QVERIFY(mainEnabled());
    }
}

QTEST_MAIN(HelpFlowTest)
#include "help_flow_test.moc"
