// The main screen as the game logic, the keyboard and a screen reader meet it.
#include "flow_fixture.h"

#include "screens/action_list.h"
#include "screens/main_screen.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QRegularExpression>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

#include <memory>

using namespace amorra;
using namespace amorra::testing;

namespace {

QAccessibleInterface *spoken(QWidget *w)
{
    return QAccessible::queryAccessibleInterface(w);
}

} // namespace

class MainScreenTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_main.reset(); }

    void talkListAndLabelsShowAndReadTheLogicsTexts();
    void barsAndHeartMeterShowTheirValuesWithinRange();
    void everyControlIsNamedAndDescribedByItsTooltip();
    void keyboardPlayTakesTwoKeysPerQuestion();
    void menusHaveAccessKeysAndShortcuts();
    void askOutPressTurnsTheListRed();
    void disablingTheMainScreenLocksItsMenusAndGivesTheKeyboardBack();

private:
    NoHost m_host;
    std::unique_ptr<MainScreen> m_main;
    ActionList *m_list = nullptr;
};

void MainScreenTest::init()
{
    m_main = std::make_unique<MainScreen>(m_host, QStringLiteral(AMORRA_TEST_ASSETS));
    m_list = m_main->findChild<ActionList *>();
    m_main->show();
    QApplication::setActiveWindow(m_main.get());
    QVERIFY(QTest::qWaitForWindowActive(m_main.get()));
}

void MainScreenTest::talkListAndLabelsShowAndReadTheLogicsTexts()
{
    const std::string talk = "Lisa:  Hello?\r\nTom: Hi Lisa this is Tom\r\nLisa: Ohh .... How are you???";
    m_main->SetTalk(talk);
    QCOMPARE(m_main->GetTalk(), talk);
    auto *box = named<QTextEdit>(m_main.get(), "Talk");
    QCOMPARE(box->toPlainText(), QString::fromStdString(talk).replace("\r\n", "\n"));
    // A long question wraps: her newest line is the one in view.
    m_main->SetTalk(talk + "\r\nTom: " + std::string(300, 'x') + "\r\nLisa: Bye");
    QVERIFY(box->verticalScrollBar()->maximum() > 0);
    QCOMPARE(box->verticalScrollBar()->value(), box->verticalScrollBar()->maximum());

    m_main->SetListTitle("Job Noticeboard");
    QCOMPARE(m_main->GetListTitle(), std::string("Job Noticeboard"));
    m_main->AddListRow("Tutor          \t$100\tavailable");
    m_main->AddListRow("Stock Broker \t$300\tNOT available today");
    QCOMPARE(m_main->GetListIndex(), -1); // filling selects nothing
    QCOMPARE(m_list->rowText(0), QStringLiteral("Tutor          \t$100\tavailable"));
    // Columns line up clear of each other, and are read without tabs or padding.
    const QFontMetrics metrics(m_list->font());
    QVERIFY(m_list->columnStarts().at(1) > metrics.horizontalAdvance("Stock Broker "));
    QCOMPARE(spoken(m_list)->text(QAccessible::Name), QStringLiteral("Job Noticeboard"));
    QCOMPARE(spoken(m_list)->child(0)->text(QAccessible::Name), QStringLiteral("Tutor, $100, available"));
    m_list->setCurrentRow(1);
    QCOMPARE(m_main->GetListIndex(), 1);
    m_main->ClearList();
    QCOMPARE(m_main->GetListIndex(), -1);

    // Labels are read with their values.
    m_main->SetDayLabel("Day 5");
    m_main->SetMoneyLabel("Bank Balance: $25");
    m_main->SetSpentLabel("$45");
    const struct
    {
        const char *spoken, *shown;
    } labels[] = {{"Day 5", "Day 5"}, {"Bank Balance: $25", "Bank Balance: $25"}, {"Total Money spent on her $45", "$45"}};
    for (const auto &label : labels) {
        auto *shown = named<QLabel>(m_main.get(), label.spoken);
        QVERIFY2(shown && shown->text() == label.shown, label.spoken);
    }
}

void MainScreenTest::barsAndHeartMeterShowTheirValuesWithinRange()
{
    const struct
    {
        int given[3], lit;
        const char *heart;
        int shown[3], hearts;
    } rows[] = {
        {{50, 60, 40}, 2, "10", {50, 60, 40}, 2},
        {{-5, 110, 32767}, 25, "100", {0, 100, 100}, 20},
        {{0, 0, 0}, -3, "0", {0, 0, 0}, 0},
    };
    QWidget *meter = named<QWidget>(m_main.get(), "Heart meter");
    const QList<QLabel *> hearts = meter->findChildren<QLabel *>(QRegularExpression("^heart\\d+$"));
    QCOMPARE(hearts.size(), 20);
    for (const auto &row : rows) {
        m_main->SetStatBars(row.given[0], row.given[1], row.given[2]);
        m_main->SetHeartBar(row.lit);
        m_main->SetHeartLabel(row.heart);
        const char *bars[] = {"Looks rating", "Brains rating", "Luck rating"};
        for (int i = 0; i < 3; ++i)
            QCOMPARE(named<QProgressBar>(m_main.get(), bars[i])->value(), row.shown[i]);
        for (QLabel *heart : hearts) // the lowest are lit
            QCOMPARE(heart->isVisible(), heart->objectName().mid(5).toInt() < row.hearts);
        // A screen reader hears the meter as a level, 0 to 100.
        QCOMPARE(spoken(meter)->role(), QAccessible::ProgressBar);
        QCOMPARE(spoken(meter)->valueInterface()->currentValue().toString(), QLatin1String(row.heart));
        QCOMPARE(spoken(meter)->valueInterface()->maximumValue().toInt(), 100);
    }
}

void MainScreenTest::everyControlIsNamedAndDescribedByItsTooltip()
{
    m_main->SetFace("girl3.bmp", "Hi Tom");
    m_main->SetListTip("Places you can take her");
    int checked = 0;
    for (QWidget *w : m_main->findChildren<QWidget *>()) {
        const bool control = qobject_cast<QAbstractButton *>(w) || qobject_cast<QAbstractItemView *>(w) ||
                             qobject_cast<QProgressBar *>(w) || qobject_cast<QTextEdit *>(w) ||
                             w->objectName().endsWith(QLatin1String("_lbl")) || w->objectName() == "heart_panel";
        if (!control || w->objectName().startsWith(QLatin1String("qt_")) || qobject_cast<QMenuBar *>(w->parentWidget()))
            continue;
        ++checked;
        QVERIFY2(!spoken(w)->text(QAccessible::Name).isEmpty(), qPrintable(w->objectName()));
        QCOMPARE(spoken(w)->text(QAccessible::Description), w->toolTip());
    }
    QVERIFY(checked >= 15);
    QCOMPARE(spoken(named<QWidget>(m_main.get(), "Heart meter"))->childCount(), 0); // the meter is one level
}

void MainScreenTest::keyboardPlayTakesTwoKeysPerQuestion()
{
    // The logic's part: a chosen row shows the action button, pressing it hides it.
    connect(m_main.get(), &MainScreen::listRowChosen, m_main.get(), [this] { m_main->ShowOk(true); });
    connect(m_main.get(), &MainScreen::actionClicked, m_main.get(), [this] { m_main->ShowOk(false); });
    connect(m_main.get(), &MainScreen::modeClicked, m_main.get(), [this] {
        for (const char *row : {"Do you read much?", "Do you like sports?", "What is your favourite food?"})
            m_main->AddListRow(row);
    });
    QSignalSpy modes(m_main.get(), &MainScreen::modeClicked);
    QSignalSpy actions(m_main.get(), &MainScreen::actionClicked);
    m_main->ShowAskOut(true);
    m_main->EnableTakeHerOut(true);

    // Tab follows the screen; the read-only talk box is one stop.
    named<QWidget>(m_main.get(), "Call Her")->setFocus();
    QStringList visited;
    for (int i = 0; i < 8; ++i) {
        visited << spoken(QApplication::focusWidget())->text(QAccessible::Name);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited, (QStringList{"Call Her", "Buy A Gift", "Take Her Out", "Go to Work", "Go Shopping", "Talk",
                                   "Action list", "Do you want to go out sometime?"}));

    // Enter on a mode button presses it and hands the keyboard to the list:
    // Enter chooses the first row, Enter again asks; then Down, Enter.
    named<QWidget>(m_main.get(), "Call Her")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_COMPARE(modes.size(), 1);
    QCOMPARE(QApplication::focusWidget(), m_list);
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Return, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(QApplication::focusWidget(), key);
    QCOMPARE(actions.size(), 2);
    QCOMPARE(m_main->GetListIndex(), 1);
    QCOMPARE(QApplication::focusWidget(), m_list);
    QTest::keyClick(m_list, Qt::Key_Space); // Space only chooses
    QCOMPARE(actions.size(), 2);
}

void MainScreenTest::menusHaveAccessKeysAndShortcuts()
{
    for (QAction *title : m_main->menuBar()->actions()) {
        QVERIFY2(title->text().contains('&'), qPrintable(title->text()));
        QSet<QChar> keys;
        for (QAction *item : title->menu() ? title->menu()->actions() : QList<QAction *>()) {
            const int amp = item->text().indexOf('&');
            QVERIFY2(item->isSeparator() || (amp >= 0 && !keys.contains(item->text().at(amp + 1).toLower())),
                     qPrintable(item->text()));
            keys << (amp >= 0 ? item->text().at(amp + 1).toLower() : QChar());
        }
    }
    QSignalSpy help(m_main.get(), &MainScreen::onlineHelpChosen);
    QSignalSpy exit(m_main.get(), &MainScreen::exitChosen);
    QTest::keyClick(m_main.get(), Qt::Key_F1);
    QTest::keyClick(m_main.get(), Qt::Key_Q, Qt::ControlModifier);
    QCOMPARE(help.size(), 1);
    QCOMPARE(exit.size(), 1);
}

void MainScreenTest::askOutPressTurnsTheListRed()
{
    m_main->ShowAskOut(true);
    auto *ask = named<QPushButton>(m_main.get(), "Do you want to go out sometime?");
    QTest::mousePress(ask, Qt::LeftButton);
    QCOMPARE(m_list->palette().color(QPalette::Base), QColor(255, 0, 0));
    QTest::mouseRelease(ask, Qt::LeftButton);
    QCOMPARE(m_list->palette().color(QPalette::Base), QColor(255, 255, 255));
}

void MainScreenTest::disablingTheMainScreenLocksItsMenusAndGivesTheKeyboardBack()
{
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
    QCOMPARE(QApplication::focusWidget(), gift);
}

QTEST_MAIN(MainScreenTest)
#include "main_screen_test.moc"
