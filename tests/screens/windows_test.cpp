// Every window as the game logic, the keyboard, a screen reader and other
// desktops (a dark palette, larger fonts) meet it; all drawn at 200%.
#include "flow_fixture.h"

#include "screens/about_box.h"
#include "screens/action_list.h"
#include "screens/game_over_dialog.h"
#include "screens/high_score_window.h"
#include "screens/lose_screen.h"
#include "screens/main_screen.h"
#include "screens/notice_window.h"
#include "screens/text_notice.h"
#include "screens/tutorial_window.h"
#include "screens/win_screen.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

#include <cmath>
#include <memory>
#include <vector>

using namespace amorra;
using namespace amorra::testing;

namespace {

const QString kAssets = QStringLiteral(AMORRA_TEST_ASSETS);

QAccessibleInterface *spoken(QWidget *w)
{
    return QAccessible::queryAccessibleInterface(w);
}

// WCAG's contrast ratio, 1 to 21.
double contrast(QColor a, QColor b)
{
    auto lum = [](QColor c) {
        auto ch = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
        return 0.2126 * ch(c.redF()) + 0.7152 * ch(c.greenF()) + 0.0722 * ch(c.blueF());
    };
    return (std::max(lum(a), lum(b)) + 0.05) / (std::min(lum(a), lum(b)) + 0.05);
}

// A region's commonest colour is its background; the text is the colour that stands out most from it.
double inkContrast(const QImage &image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    const QRgb background = std::max_element(counts.keyValueBegin(), counts.keyValueEnd(), [](auto a, auto b) {
                                return a.second < b.second;
                            })->first;
    double best = 1;
    for (QRgb c : counts.keys())
        best = std::max(best, contrast(QColor(c), QColor(background)));
    return best;
}

// The texts a control shows, each with the box it must fit, in the control's coordinates.
QList<std::pair<QString, QRect>> texts(QWidget *w)
{
    const QFontMetrics fm = w->fontMetrics();
    if (auto *label = qobject_cast<QLabel *>(w); label && !label->text().isEmpty())
        return {{label->text(), label->contentsRect()}};
    if (auto *box = qobject_cast<QCheckBox *>(w)) // the words beside the box
        return {{box->text(), w->rect().adjusted(box->sizeHint().width() - fm.horizontalAdvance(box->text()), 0, 0, 0)}};
    if (auto *tool = qobject_cast<QToolButton *>(w); tool && !tool->text().isEmpty()) // under the picture
        return {{tool->text(), w->rect().adjusted(4, tool->iconSize().height() + 8, -4, -3)}};
    if (auto *button = qobject_cast<QAbstractButton *>(w); button && !button->text().isEmpty())
        return {{button->text(), w->rect().adjusted(4, 4, -4, -4)}};
    if (auto *box = qobject_cast<QGroupBox *>(w); box && !box->title().isEmpty())
        return {{box->title(), QRect(8, 0, w->width() - 16, fm.height())}};
    if (auto *edit = qobject_cast<QTextEdit *>(w))
        return {{QString(), edit->viewport()->geometry()}};
    QList<std::pair<QString, QRect>> cells; // the first two rows, the second selected
    if (auto *list = qobject_cast<ActionList *>(w))
        for (int r = 0; r < std::min(list->count(), 2); ++r)
            cells.push_back({QString(), list->visualItemRect(list->item(r)).translated(list->viewport()->pos())});
    if (auto *grid = qobject_cast<QTableWidget *>(w))
        for (int r = 0; r < 2; ++r)
            cells.push_back({grid->item(r, 1)->text().trimmed(),
                             grid->visualItemRect(grid->item(r, 1)).adjusted(3, 0, -4, 0).translated(grid->viewport()->pos())});
    return cells;
}

// Every window of the game, filled as a game fills them, with long names and large numbers.
std::vector<std::unique_ptr<QWidget>> everyWindow(ScreenHost &host)
{
    std::vector<std::unique_ptr<QWidget>> all;
    auto main = std::make_unique<MainScreen>(host, kAssets);
    main->SetTalk("Tom: Do you read much?\r\nLisa: Not really.");
    main->SetListTitle("Job Noticeboard");
    main->AddListRow("Tutor          \t$100\tavailable");
    main->AddListRow("Stock Broker \t$300\tNOT available today");
    main->findChild<ActionList *>()->setCurrentRow(1);
    main->ShowOk(true);
    main->ShowAskOut(true);
    main->EnableTakeHerOut(true);
    main->SetSpentLabel("$32767");
    main->SetMoneyLabel("Bank Balance: $-32768");
    main->SetDayLabel("Day 30");
    all.push_back(std::move(main));
    all.push_back(std::make_unique<SetupScreen>(QStringLiteral("Tom"), kAssets));
    const QString longest = QStringLiteral("WWWWWWWWWWWWWWWWWWWW");
    all.push_back(std::make_unique<WinScreen>(longest, "Total Money Spent $32767", "Total Days 30",
                                              "Your Score : 10000000000", kAssets));
    all.push_back(std::make_unique<LoseScreen>(QString()));
    for (NoticeKind kind : {NoticeKind::Cat, NoticeKind::FoundMoney, NoticeKind::SpeedingFine, NoticeKind::Ignoring,
                            NoticeKind::Boring})
        all.push_back(std::make_unique<NoticeWindow>(kind, QStringLiteral("Jennifer"), kAssets));
    all.push_back(std::make_unique<TextNotice>(QStringLiteral("Hey...BUDDY are you expecting her to pay for this !!!!")));
    all.push_back(std::make_unique<GameOverDialog>(kAssets));
    all.push_back(std::make_unique<AboutBox>(kAssets));
    HighScoreScreenData scores{{"", "Name", "Total Days  ", "Money Spent ", "Score  "}, {}, longest.toStdString()};
    scores.rows.push_back({{"1", longest.toStdString(), "30 Days", "$32767", "10000000000"}});
    scores.rows.push_back({{"2", "Tom                 ", "7 Days", "$271", "251022"}});
    all.push_back(std::make_unique<HighScoreWindow>(scores, kAssets));
    all.push_back(std::make_unique<TutorialWindow>(kAssets + QStringLiteral("/qsguide.rtf")));
    for (auto &w : all) {
        w->setAttribute(Qt::WA_DeleteOnClose, false); // the test owns them
        w->show();
    }
    return all;
}

QPalette darkPalette()
{
    QPalette dark(QColor(49, 54, 59), QColor(42, 46, 50)); // button, window
    for (auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text, QPalette::BrightText})
        dark.setColor(role, QColor(252, 252, 252));
    dark.setColor(QPalette::Base, QColor(27, 30, 32));
    dark.setColor(QPalette::Highlight, QColor(61, 174, 233));
    return dark;
}

} // namespace

class WindowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_main.reset(); }

    void mainScreenShowsAndReadsTheLogicsTexts();
    void barsAndHeartMeterShowTheirValuesWithinRange();
    void keyboardPlayTakesTwoKeysPerQuestion();
    void menusHaveAccessKeysShortcutsAndLockWithTheScreen();
    void everyTextReadsUnderTheLightAndADarkPalette();
    void noTextIsClippedAtDesktopFontsOfNineToTwelvePoints();
    void windowsAreFixedDialogsThatEscapeClosesAsOk();
    void theDesktopIsMeasuredInTheScreensOwnPixels();

private:
    NoHost m_host;
    std::unique_ptr<MainScreen> m_main;
    ActionList *m_list = nullptr;
};

void WindowsTest::init()
{
    m_main = std::make_unique<MainScreen>(m_host, kAssets);
    m_list = m_main->findChild<ActionList *>();
    m_main->show();
    QVERIFY(QTest::qWaitForWindowActive(m_main.get()));
}

void WindowsTest::mainScreenShowsAndReadsTheLogicsTexts()
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
    QVERIFY(m_list->columnStarts().at(1) > QFontMetrics(m_list->font()).horizontalAdvance("Stock Broker "));
    QCOMPARE(spoken(m_list)->text(QAccessible::Name), QStringLiteral("Job Noticeboard"));
    QCOMPARE(spoken(m_list)->child(0)->text(QAccessible::Name), QStringLiteral("Tutor, $100, available"));
    m_list->setCurrentRow(1);
    QCOMPARE(m_main->GetListIndex(), 1);
    m_main->ClearList();
    QCOMPARE(m_main->GetListIndex(), -1);

    m_main->SetDayLabel("Day 5");
    m_main->SetMoneyLabel("Bank Balance: $25");
    m_main->SetSpentLabel("$45");
    for (auto [name, text] : {std::pair{"Day 5", "Day 5"}, {"Bank Balance: $25", "Bank Balance: $25"},
                              {"Total Money spent on her $45", "$45"}})
        QVERIFY2(named<QLabel>(m_main.get(), name) && named<QLabel>(m_main.get(), name)->text() == text, name);
    // Every control is named, and described by its tooltip.
    for (QWidget *w : m_main->centralWidget()->findChildren<QWidget *>()) {
        if (qobject_cast<QAbstractButton *>(w) || qobject_cast<QAbstractItemView *>(w) || qobject_cast<QProgressBar *>(w)) {
            QVERIFY2(!spokenName(w).isEmpty(), qPrintable(w->objectName()));
            QCOMPARE(spoken(w)->text(QAccessible::Description), w->toolTip());
        }
    }
}

void WindowsTest::barsAndHeartMeterShowTheirValuesWithinRange()
{
    const struct
    {
        int given[3], lit;
        const char *heart;
        int shown[3], hearts;
    } rows[] = {{{50, 60, 40}, 2, "10", {50, 60, 40}, 2},
                {{-5, 110, 32767}, 25, "100", {0, 100, 100}, 20},
                {{0, 0, 0}, -3, "0", {0, 0, 0}, 0}};
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
        // A screen reader hears one level, 0 to 100.
        QCOMPARE(spoken(meter)->role(), QAccessible::ProgressBar);
        QCOMPARE(spoken(meter)->childCount(), 0);
        QCOMPARE(spoken(meter)->valueInterface()->currentValue().toString(), QLatin1String(row.heart));
        QCOMPARE(spoken(meter)->valueInterface()->maximumValue().toInt(), 100);
    }
}

void WindowsTest::keyboardPlayTakesTwoKeysPerQuestion()
{
    // The logic's part: a chosen row shows the action button, pressing it hides it.
    connect(m_main.get(), &MainScreen::listRowChosen, this, [this] { m_main->ShowOk(true); });
    connect(m_main.get(), &MainScreen::actionClicked, this, [this] { m_main->ShowOk(false); });
    connect(m_main.get(), &MainScreen::modeClicked, this, [this] {
        for (const char *row : {"Do you read much?", "Do you like sports?", "What is your favourite food?"})
            m_main->AddListRow(row);
    });
    QSignalSpy actions(m_main.get(), &MainScreen::actionClicked);
    m_main->ShowAskOut(true);
    m_main->EnableTakeHerOut(true);
    // Tab follows the screen; the read-only talk box is one stop.
    named<QWidget>(m_main.get(), "Call Her")->setFocus();
    QStringList visited;
    for (int i = 0; i < 8; ++i) {
        visited << spokenName(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited, (QStringList{"Call Her", "Buy A Gift", "Take Her Out", "Go to Work", "Go Shopping", "Talk",
                                   "Action list", "Do you want to go out sometime?"}));
    // Enter on a mode button hands the keyboard to the list: Enter chooses
    // the first row, Enter again asks; then Down, Enter.
    named<QWidget>(m_main.get(), "Call Her")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_COMPARE(QApplication::focusWidget(), m_list);
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Return, Qt::Key_Down, Qt::Key_Return, Qt::Key_Space})
        QTest::keyClick(QApplication::focusWidget(), key);
    QCOMPARE(actions.size(), 2); // Space only chooses
    QCOMPARE(m_main->GetListIndex(), 1);
    // Pressed from its own Tab stop, the button hides and hands the keyboard back.
    for (Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return})
        QTest::keyClick(QApplication::focusWidget(), key);
    QTRY_COMPARE(actions.size(), 3);
    QCOMPARE(QApplication::focusWidget(), m_list);
}

void WindowsTest::menusHaveAccessKeysShortcutsAndLockWithTheScreen()
{
    for (QAction *title : m_main->menuBar()->actions())
        QVERIFY2(title->text().contains('&'), qPrintable(title->text()));
    for (QMenu *menu : m_main->menuBar()->findChildren<QMenu *>()) {
        QStringList keys;
        for (QAction *item : menu->actions())
            if (!item->isSeparator())
                keys << item->text().section('&', 1, 1).left(1).toLower();
        QVERIFY2(!keys.contains(QString()) && keys.removeDuplicates() == 0, qPrintable(menu->title()));
    }
    QSignalSpy help(m_main.get(), &MainScreen::onlineHelpChosen);
    QSignalSpy exit(m_main.get(), &MainScreen::exitChosen);
    QTest::keyClick(m_main.get(), Qt::Key_F1);
    QTest::keyClick(m_main.get(), Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(help.size() == 1 && exit.size() == 1);

    auto *gift = named<QToolButton>(m_main.get(), "Buy A Gift");
    gift->setFocus();
    m_main->EnableMain(false);
    QVERIFY(!m_main->menuBar()->isEnabled());
    m_main->EnableMain(true);
    m_main->FocusMain();
    QCOMPARE(QApplication::focusWidget(), gift); // the keyboard is back where it was
}

void WindowsTest::everyTextReadsUnderTheLightAndADarkPalette()
{
    const QPalette light = QApplication::palette();
    for (const QPalette &palette : {light, darkPalette()}) {
        QApplication::setPalette(palette);
        QStringList unreadable;
        for (const auto &window : everyWindow(m_host)) {
            const QImage shot = window->grab().toImage();
            const qreal dpr = shot.devicePixelRatio();
            for (QWidget *w : window->findChildren<QWidget *>()) {
                for (const auto &[text, box] : w->isVisibleTo(window.get()) && w->isEnabled() ? texts(w) : QList<std::pair<QString, QRect>>()) {
                    const double ratio = inkContrast(shot.copy(QRect(w->mapTo(window.get(), box.topLeft()) * dpr, box.size() * dpr)));
                    if (ratio < 4.5)
                        unreadable << QStringLiteral("%1/%2 %3").arg(window->objectName(), w->objectName()).arg(ratio);
                }
            }
        }
        QVERIFY2(unreadable.isEmpty(), qPrintable(unreadable.join(", ")));
    }
    QApplication::setPalette(light);
}

void WindowsTest::noTextIsClippedAtDesktopFontsOfNineToTwelvePoints()
{
    const QFont desktop = QApplication::font();
    for (int points = 9; points <= 12; ++points) {
        QFont font = desktop;
        font.setPointSize(points);
        QApplication::setFont(font);
        QStringList clipped;
        for (const auto &window : everyWindow(m_host)) {
            for (QWidget *w : window->findChildren<QWidget *>()) {
                if (!w->isVisibleTo(window.get()))
                    continue;
                const auto *label = qobject_cast<QLabel *>(w);
                for (const auto &[text, box] : texts(w))
                    if (label && label->wordWrap() ? label->heightForWidth(box.width()) > box.height()
                                                   : w->fontMetrics().horizontalAdvance(text) > box.width() ||
                                                         w->fontMetrics().height() > w->height())
                        clipped << window->objectName() + "/" + w->objectName() + " " + text;
                if (!window->rect().contains(QRect(w->mapTo(window.get(), QPoint()), w->size())))
                    clipped << window->objectName() + "/" + w->objectName() + " beyond the window";
            }
        }
        QVERIFY2(clipped.isEmpty(), qPrintable(QString::number(points) + " pt: " + clipped.join(", ")));
    }
    QApplication::setFont(desktop);
}

void WindowsTest::windowsAreFixedDialogsThatEscapeClosesAsOk()
{
    for (const auto &window : everyWindow(m_host)) {
        const QByteArray name = window->objectName().toLatin1();
        QVERIFY2(window->minimumSize() == window->maximumSize(), name);
        QVERIFY2(!(window->windowFlags() & Qt::WindowMaximizeButtonHint), name);
        window->setWindowState(Qt::WindowFullScreen);
        QVERIFY2(window->windowState() == Qt::WindowNoState, name);
        if (auto *dialog = qobject_cast<OkWindow *>(window.get())) {
            QVERIFY2(spoken(dialog)->role() == QAccessible::Dialog && spokenName(dialog) == dialog->windowTitle(), name);
            QSignalSpy finished(dialog, &OkWindow::finished);
            dialog->activateWindow();
            QVERIFY2(QTest::qWaitForWindowActive(dialog), name);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            QVERIFY2(finished.size() == 1 && finished.at(0).at(0).toInt() == OkWindow::Ok && !dialog->isOpen(), name);
        }
    }
}

void WindowsTest::theDesktopIsMeasuredInTheScreensOwnPixels()
{
    // At 200% Qt halves the offscreen screen; the game counts its own pixels.
    const QSize logical = QGuiApplication::primaryScreen()->size();
    QCOMPARE(QtDesktop().screenSize(), logical * 2);
    QVERIFY(!desktopLargeEnough(logical) && desktopLargeEnough(logical * 2));
}

int main(int argc, char *argv[])
{
    qputenv("QT_SCALE_FACTOR", "2");
    QApplication app(argc, argv);
    WindowsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "windows_test.moc"
