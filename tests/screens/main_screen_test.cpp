// The main screen as the game logic and the player see it: GameView over
// real widgets, the keyboard, and what assistive technology is told.
#include "screen_fakes.h"

#include "screens/action_list.h"
#include "screens/main_screen.h"
#include "screens/screen_host.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <memory>

using namespace amorra;
using namespace amorra::testing;

namespace {

class NoHost : public ScreenHost
{
public:
    int loadedScreenCount() const override { return 2; }
    void showNotice(NoticeKind, const std::string &) override {}
    void showGameOver() override {}
    void showWin(const std::string &, const std::string &, const std::string &) override {}
    void showLose(const std::string &) override {}
    void showHighScores() override {}
    void showSetup() override {}
    void showTutorial() override {}
    void showAbout() override {}
    void showMessage(const std::string &, const std::string &, bool) override {}
    void playSound(const std::string &, SoundMode) override {}
};

int litHearts(QWidget *meter)
{
    int lit = 0;
    for (auto *heart : meter->findChildren<QLabel *>(QRegularExpression(QStringLiteral("^heart\\d+$"))))
        lit += heart->isVisible() ? 1 : 0;
    return lit;
}

} // namespace

class MainScreenTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void talkAndListKeepTheLogicsTextsExactly();
    void listColumnsLineUpUnderEachOther();
    void designStateBeforeAGame();
    void controlsSitWhereTheDesignPutsThem_data();
    void controlsSitWhereTheDesignPutsThem();
    void modeButtonsShowAPictureAboveTheCaption();
    void missingPicturesLeaveEmptyBoxes();
    void statBarsClampToTheirRange_data();
    void statBarsClampToTheirRange();
    void heartMeterLightsTheLowestSegments_data();
    void heartMeterLightsTheLowestSegments();
    void heartMeterAndBarsTellAssistiveTechnologyTheirValues();
    void everyControlHasAnAccessibleNameAndItsTooltipAsDescription();
    void tabOrderFollowsTheScreen();
    void enterOnAModeButtonPressesIt();
    void enterAndSpaceOnAListRowChooseIt();
    void askOutPressTurnsTheListRed();
    void menusCarryTheirAccessKeysAndTheCheckMark();
    void disablingTheMainScreenLocksItsMenusToo();

private:
    void showAndActivate();

    NoHost m_host;
    std::unique_ptr<MainScreen> m_main;
};

void MainScreenTest::init()
{
    m_main = std::make_unique<MainScreen>(m_host, QStringLiteral(AMORRA_TEST_ASSETS));
}

void MainScreenTest::cleanup()
{
    m_main.reset();
}

void MainScreenTest::showAndActivate()
{
    m_main->show();
    QApplication::setActiveWindow(m_main.get());
    QVERIFY(QTest::qWaitForWindowActive(m_main.get()));
}

void MainScreenTest::talkAndListKeepTheLogicsTextsExactly()
{
    const std::string talk = "Lisa:  Hello?\r\nTom: Hi Lisa this is Tom\r\nLisa: Ohh .... How are you???";
    m_main->SetTalk(talk);
    QCOMPARE(m_main->GetTalk(), talk);
    auto *box = named<QTextEdit>(m_main.get(), "Talk");
    QCOMPARE(box->toPlainText(), QStringLiteral("Lisa:  Hello?\nTom: Hi Lisa this is Tom\nLisa: Ohh .... How are you???"));

    m_main->SetListTitle("Places to Go");
    QCOMPARE(m_main->GetListTitle(), std::string("Places to Go"));
    QCOMPARE(m_main->findChild<QGroupBox *>("Frame1")->title(), QStringLiteral("Places to Go"));

    QCOMPARE(m_main->GetListIndex(), -1);
    m_main->AddListRow("High class restaurant\t\t\t$120");
    m_main->AddListRow("Watch a Movie\t\t\t$27");
    QCOMPARE(m_main->GetListIndex(), -1); // filling selects nothing
    auto *list = named<ActionList>(m_main.get(), "Action list");
    QCOMPARE(list->rowText(0), QStringLiteral("High class restaurant\t\t\t$120"));
    list->setCurrentRow(1);
    QCOMPARE(m_main->GetListIndex(), 1);
    m_main->ClearList();
    QCOMPARE(m_main->GetListIndex(), -1);
    QCOMPARE(list->count(), 0);
}

void MainScreenTest::listColumnsLineUpUnderEachOther()
{
    const std::string rows[] = {"Pizza Delivery\t$20\tavailable", "Parking Attendant\t$50\tNOT available today",
                                "Tutor          \t$100\tavailable", "Stock Broker \t$300\tavailable"};
    for (const auto &r : rows)
        m_main->AddListRow(r);
    auto *list = named<ActionList>(m_main.get(), "Action list");
    const QVector<int> starts = list->columnStarts();
    QCOMPARE(starts.size(), 3);
    const QFontMetrics metrics(list->font());
    for (const auto &r : rows) {
        const QStringList columns = rowColumns(QString::fromStdString(r));
        // Each column starts clear of the widest text of the column before.
        QVERIFY(metrics.horizontalAdvance(columns[0]) < starts[1]);
        QVERIFY(starts[1] + metrics.horizontalAdvance(columns[1]) < starts[2]);
    }
    // Painting the rows works with the columns.
    list->resize(337, 147);
    QVERIFY(!list->grab().isNull());
}

void MainScreenTest::designStateBeforeAGame()
{
    QVERIFY(m_main->findChild<QPushButton *>("cmd_ok")->isHidden());
    QVERIFY(m_main->findChild<QPushButton *>("ask_out_cmd")->isHidden());
    QVERIFY(!named<QToolButton>(m_main.get(), "Take Her Out")->isEnabled());
    QCOMPARE(named<QLabel>(m_main.get(), "Day")->text(), QStringLiteral("Day 1"));
    QCOMPARE(named<QLabel>(m_main.get(), "Bank balance")->text(), QStringLiteral("Bank Balance: $50"));
    QCOMPARE(named<QLabel>(m_main.get(), "Money spent on her")->text(), QStringLiteral("$0"));
    QCOMPARE(litHearts(named<QWidget>(m_main.get(), "Heart meter")), 0);
    QVERIFY(m_main->soundChecked());
}

void MainScreenTest::controlsSitWhereTheDesignPutsThem_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QRect>("pixels");
    QTest::addColumn<QString>("tooltip");

    QTest::newRow("Call Her") << "Call Her" << QRect(16, 16, 73, 57) << "Call Her and smooth talk her";
    QTest::newRow("Go Shopping")
        << "Go Shopping" << QRect(16, 304, 73, 73)
        << "Go Shopping for stuff. The things you buy will improve your LOOKS, BRAINS  OR LUCK";
    QTest::newRow("day label") << "Day" << QRect(112, 16, 225, 49) << "Total number of days";
    QTest::newRow("bank balance") << "Bank balance" << QRect(112, 80, 225, 25) << "Amount of money you have";
    QTest::newRow("her picture") << "Her picture" << QRect(352, 8, 105, 113) << "";
    QTest::newRow("heart meter") << "Heart meter" << QRect(464, 8, 23, 377) << "Heart Bar";
    QTest::newRow("talk box") << "Talk" << QRect(104, 128, 353, 57) << "Dialog window";
    QTest::newRow("action list (in its frame)") << "Action list" << QRect(8, 16, 337, 147) << "";
    QTest::newRow("ask-out button (in the frame)")
        << "Do you want to go out sometime?" << QRect(8, 168, 201, 25) << "Click to ask her out.";
    QTest::newRow("brains bar (in the bottom frame)") << "Brains rating" << QRect(224, 43, 217, 9) << "";
}

void MainScreenTest::controlsSitWhereTheDesignPutsThem()
{
    QFETCH(QString, name);
    QFETCH(QRect, pixels);
    QFETCH(QString, tooltip);
    QWidget *w = findNamed(m_main.get(), name);
    QVERIFY2(w, qPrintable(name));
    QCOMPARE(w->geometry(), pixels);
    QCOMPARE(w->toolTip(), tooltip);
    QCOMPARE(m_main->centralWidget()->size(), QSize(495, 489));
}

void MainScreenTest::modeButtonsShowAPictureAboveTheCaption()
{
    for (const char *caption : {"Call Her", "Buy A Gift", "Take Her Out", "Go to Work", "Go Shopping"}) {
        auto *button = named<QToolButton>(m_main.get(), QLatin1String(caption));
        QVERIFY2(button, caption);
        QCOMPARE(button->text(), QLatin1String(caption));
        QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
        QVERIFY2(!button->icon().isNull(), caption);
    }
}

void MainScreenTest::missingPicturesLeaveEmptyBoxes()
{
    QTemporaryDir empty;
    MainScreen bare(m_host, empty.path());
    bare.SetFace("girl7.bmp", "Hi Tom");
    bare.SetHeartBar(20);
    auto *face = named<QLabel>(&bare, "Her picture");
    QVERIFY(face->pixmap().isNull());
    QCOMPARE(face->toolTip(), QStringLiteral("Hi Tom"));
    bare.show();
    QVERIFY(!bare.grab().isNull());
}

void MainScreenTest::statBarsClampToTheirRange_data()
{
    QTest::addColumn<QList<int>>("given");
    QTest::addColumn<QList<int>>("shown");
    QTest::newRow("within range") << QList<int>{60, 45, 45} << QList<int>{60, 45, 45};
    QTest::newRow("brains of a player who chose 0") << QList<int>{100, 0, 50} << QList<int>{100, 0, 50};
    QTest::newRow("out of range both ways") << QList<int>{-5, 110, 32767} << QList<int>{0, 100, 100};
}

void MainScreenTest::statBarsClampToTheirRange()
{
    QFETCH(QList<int>, given);
    QFETCH(QList<int>, shown);
    m_main->SetStatBars(given[0], given[1], given[2]);
    QCOMPARE(named<QProgressBar>(m_main.get(), "Looks rating")->value(), shown[0]);
    QCOMPARE(named<QProgressBar>(m_main.get(), "Brains rating")->value(), shown[1]);
    QCOMPARE(named<QProgressBar>(m_main.get(), "Luck rating")->value(), shown[2]);
}

void MainScreenTest::heartMeterLightsTheLowestSegments_data()
{
    QTest::addColumn<int>("lit");
    QTest::addColumn<int>("shown");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("a new game's two") << 2 << 2;
    QTest::newRow("all twenty") << 20 << 20;
    QTest::newRow("more than twenty") << 25 << 20;
    QTest::newRow("below zero") << -3 << 0;
}

void MainScreenTest::heartMeterLightsTheLowestSegments()
{
    QFETCH(int, lit);
    QFETCH(int, shown);
    m_main->show();
    m_main->SetHeartBar(lit);
    QWidget *meter = named<QWidget>(m_main.get(), "Heart meter");
    QCOMPARE(litHearts(meter), shown);
    // The lit ones are the lowest on the strip.
    for (auto *heart : meter->findChildren<QLabel *>(QRegularExpression(QStringLiteral("^heart\\d+$")))) {
        const int k = heart->objectName().mid(5).toInt();
        QCOMPARE(heart->isVisible(), k < shown);
        QCOMPARE(heart->y(), 352 - 16 * k);
    }
}

void MainScreenTest::heartMeterAndBarsTellAssistiveTechnologyTheirValues()
{
    m_main->SetHeartLabel("55");
    m_main->SetStatBars(60, 45, 45);
    QAccessibleInterface *heart = QAccessible::queryAccessibleInterface(named<QWidget>(m_main.get(), "Heart meter"));
    QVERIFY(heart && heart->valueInterface());
    QCOMPARE(heart->valueInterface()->currentValue().toInt(), 55);
    QCOMPARE(heart->valueInterface()->maximumValue().toInt(), 100);
    QCOMPARE(heart->text(QAccessible::Name), QStringLiteral("Heart meter"));
    QCOMPARE(heart->text(QAccessible::Description), QStringLiteral("Heart Bar"));
    QAccessibleInterface *looks = QAccessible::queryAccessibleInterface(named<QWidget>(m_main.get(), "Looks rating"));
    QVERIFY(looks && looks->valueInterface());
    QCOMPARE(looks->valueInterface()->currentValue().toInt(), 60);
}

void MainScreenTest::everyControlHasAnAccessibleNameAndItsTooltipAsDescription()
{
    m_main->SetFace("girl3.bmp", "Hi Tom");
    m_main->SetListTip("Places you can take her");
    const QList<QWidget *> all = m_main->findChildren<QWidget *>();
    int checked = 0;
    for (QWidget *w : all) {
        const bool control = qobject_cast<QAbstractButton *>(w) || qobject_cast<QAbstractItemView *>(w) ||
                             qobject_cast<QProgressBar *>(w) || qobject_cast<QTextEdit *>(w) ||
                             w->objectName().endsWith(QLatin1String("_lbl")) || w->objectName() == "heart_panel";
        if (!control || w->parent() == nullptr || qobject_cast<QMenuBar *>(w->parentWidget()))
            continue;
        if (w->objectName().startsWith(QLatin1String("qt_")))
            continue; // Qt's own scroll bars and viewports
        ++checked;
        QVERIFY2(!w->accessibleName().isEmpty(), qPrintable(w->objectName()));
        QCOMPARE(w->accessibleDescription(), w->toolTip());
    }
    QVERIFY(checked >= 15);
}

void MainScreenTest::tabOrderFollowsTheScreen()
{
    m_main->ShowOk(true);
    m_main->ShowAskOut(true);
    m_main->EnableTakeHerOut(true);
    showAndActivate();
    named<QWidget>(m_main.get(), "Call Her")->setFocus();
    QStringList visited{QApplication::focusWidget()->accessibleName()};
    for (int i = 0; i < 8; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited << QApplication::focusWidget()->accessibleName();
    }
    QCOMPARE(visited, (QStringList{"Call Her", "Buy A Gift", "Take Her Out", "Go to Work", "Go Shopping", "Talk",
                                   "Action list", "Do you want to go out sometime?", "GO"}));
}

void MainScreenTest::enterOnAModeButtonPressesIt()
{
    showAndActivate();
    QSignalSpy modes(m_main.get(), &MainScreen::modeClicked);
    auto *work = named<QToolButton>(m_main.get(), "Go to Work");
    work->setFocus();
    QTest::keyClick(work, Qt::Key_Return);
    QVERIFY(modes.wait(1000));
    QCOMPARE(modes.takeFirst().at(0).value<ActionMode>(), ActionMode::Work);
    QTest::keyClick(work, Qt::Key_Space);
    QCOMPARE(modes.size(), 1);
    QCOMPARE(modes.takeFirst().at(0).value<ActionMode>(), ActionMode::Work);
}

void MainScreenTest::enterAndSpaceOnAListRowChooseIt()
{
    for (const char *row : {"Flowers\t$40", "Chocolates\t$40", "Book\t$50"})
        m_main->AddListRow(row);
    showAndActivate();
    QSignalSpy chosen(m_main.get(), &MainScreen::listRowChosen);
    auto *list = named<ActionList>(m_main.get(), "Action list");
    list->setFocus();
    QCOMPARE(chosen.size(), 0); // gaining the focus chooses nothing
    QTest::keyClick(list, Qt::Key_Space);
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(m_main->GetListIndex(), 0);
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(chosen.size(), 2);
    QCOMPARE(m_main->GetListIndex(), 1);
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(chosen.size(), 3);
    QCOMPARE(m_main->GetListIndex(), 1);

    // And a mouse click on a row, once per click.
    const QRect third = list->visualItemRect(list->item(2));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, third.center());
    QCOMPARE(chosen.size(), 4);
    QCOMPARE(m_main->GetListIndex(), 2);
}

void MainScreenTest::askOutPressTurnsTheListRed()
{
    m_main->ShowAskOut(true);
    m_main->show();
    auto *ask = named<QPushButton>(m_main.get(), "Do you want to go out sometime?");
    auto *list = named<ActionList>(m_main.get(), "Action list");
    QTest::mousePress(ask, Qt::LeftButton);
    QCOMPARE(list->palette().color(QPalette::Base), QColor(255, 0, 0));
    QTest::mouseRelease(ask, Qt::LeftButton);
    QCOMPARE(list->palette().color(QPalette::Base), QColor(255, 255, 255));
}

void MainScreenTest::menusCarryTheirAccessKeysAndTheCheckMark()
{
    QStringList titles;
    for (QAction *a : m_main->menuBar()->actions())
        titles << a->text();
    QCOMPARE(titles, (QStringList{"&File", "&Top 20 SWEELA getters", "&Sounds", "&Help"}));
    QStringList file;
    for (QAction *a : m_main->menuBar()->actions().at(0)->menu()->actions())
        file << (a->isSeparator() ? QStringLiteral("-") : a->text());
    QCOMPARE(file, (QStringList{"Start &New Game", "&Play Again", "-", "&Exit"}));
    QStringList help;
    for (QAction *a : m_main->menuBar()->actions().at(3)->menu()->actions())
        help << (a->isSeparator() ? QStringLiteral("-") : a->text());
    QCOMPARE(help, (QStringList{"Quick Start Guide", "Online Help", "-", "About"}));

    // The item reports the mark it had; the controller decides the new one.
    QAction *enabled = m_main->findChild<QAction *>("sndenable");
    QVERIFY(enabled->isCheckable() && enabled->isChecked());
    QSignalSpy clicks(m_main.get(), &MainScreen::soundItemClicked);
    enabled->trigger();
    QCOMPARE(clicks.takeFirst().at(0).toBool(), true);
    enabled->trigger();
    QCOMPARE(clicks.takeFirst().at(0).toBool(), false);
}

void MainScreenTest::disablingTheMainScreenLocksItsMenusToo()
{
    showAndActivate();
    auto *gift = named<QToolButton>(m_main.get(), "Buy A Gift");
    gift->setFocus();
    QSignalSpy modes(m_main.get(), &MainScreen::modeClicked);
    m_main->EnableMain(false);
    QVERIFY(!m_main->menuBar()->isEnabled());
    QTest::mouseClick(gift, Qt::LeftButton);
    QCOMPARE(modes.size(), 0);
    m_main->EnableMain(true);
    m_main->FocusMain();
    QVERIFY(QTest::qWaitForWindowActive(m_main.get()));
    QCOMPARE(QApplication::focusWidget(), gift); // the keyboard is back where it was
}

QTEST_MAIN(MainScreenTest)
#include "main_screen_test.moc"
