// Every window as the keyboard, a screen reader and other desktops (a dark
// palette, larger fonts) meet it; all drawn at 200%.
#include "flow_fixture.h"
#include "support/score_bytes.h"

#include <QAccessibleValueInterface>
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QProgressBar>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextEdit>
#include <QToolButton>

#include <cmath>
#include <functional>

using namespace amorra;
using namespace amorra::testing;

namespace {

// WCAG's contrast ratio, 1 to 21.
double contrast(QColor a, QColor b)
{
    auto lum = [](QColor c) {
        auto ch = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
        return 0.2126 * ch(c.redF()) + 0.7152 * ch(c.greenF()) + 0.0722 * ch(c.blueF());
    };
    return (std::max(lum(a), lum(b)) + 0.05) / (std::min(lum(a), lum(b)) + 0.05);
}

// A region's commonest colour is its background; its text is the colour that stands out most from that.
double inkContrast(const QImage &image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    QRgb background = counts.constBegin().key();
    for (QRgb c : counts.keys())
        background = counts[c] > counts[background] ? c : background;
    double best = 1;
    for (QRgb c : counts.keys())
        best = std::max(best, contrast(QColor(c), QColor(background)));
    return best;
}

// The texts a shown control draws, each with the box it must fit, in the control's coordinates.
QList<std::pair<QString, QRect>> texts(QWidget *w)
{
    auto *label = qobject_cast<QLabel *>(w);
    auto *button = qobject_cast<QAbstractButton *>(w);
    if (!w->isVisibleTo(w->window()) || !w->isEnabled() || (label && label->text().isEmpty()) || (button && button->text().isEmpty()))
        return {};
    if (label)
        return {{label->text(), label->contentsRect()}};
    if (qobject_cast<QCheckBox *>(w)) // the words beside the box
        return {{button->text(), w->rect().adjusted(w->sizeHint().width() - w->fontMetrics().horizontalAdvance(button->text()), 0, 0, 0)}};
    if (auto *tool = qobject_cast<QToolButton *>(w)) // under the picture
        return {{button->text(), w->rect().adjusted(4, tool->iconSize().height() + 8, -4, -3)}};
    if (button)
        return {{button->text(), w->rect().adjusted(4, 4, -4, -4)}};
    if (auto *edit = qobject_cast<QTextEdit *>(w))
        return {{QString(), edit->viewport()->geometry()}};
    QList<std::pair<QString, QRect>> cells; // the first two rows, the second one selected
    for (int r = 0; r < 2; ++r) {
        if (auto *list = qobject_cast<ActionList *>(w))
            cells.push_back({QString(), list->rowRect(r).translated(list->viewport()->pos())});
        if (auto *grid = qobject_cast<ScoreGrid *>(w))
            cells.push_back({grid->cellText(r, 1).trimmed(), grid->cellRect(r, 1).adjusted(3, 0, -4, 0)});
    }
    return cells;
}

} // namespace

class WindowsTest : public FlowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { initFlow(); }
    void cleanup() { cleanupFlow(); }
    void mainScreenShowsItsValuesToEyesAndEars();
    void keyboardPlayTakesTwoKeysPerQuestionAndMenusHaveAccessKeys();
    void everyWindowReadsFitsAndClosesOnEscapeOnLightAndDarkDesktops();

private:
    void forEveryWindow(const std::function<void(QWidget *)> &check);
};

// Opens every window of the game, filled with the longest name and the largest numbers, and checks each.
void WindowsTest::forEveryWindow(const std::function<void(QWidget *)> &check)
{
    const std::string longest(20, 'W');
    initFlow();
    m_dir->write("Scores", dollarRecord(longest, 1e10, 30, 32767) + dollarRecord("Tom", 251022, 7, 271));
    QFile::copy(QStringLiteral(AMORRA_TEST_ASSETS "/qsguide.rtf"), QStringLiteral("qsguide.rtf"));
    startApp();
    check(m_app->setupScreen());
    enterGame(QString::fromStdString(longest));
    MainScreen &main = m_app->mainScreen();
    click("Call Her");
    main.findChild<ActionList *>()->setCurrentRow(1); // a question chosen: "ASK" shows, the talk box empties
    main.SetTalk("Tom: Do you read much?\r\nLisa: Not really.");
    main.SetSpentLabel("$32767");
    main.SetMoneyLabel("Bank Balance: $-32768");
    check(&main);
    for (NoticeKind kind : {NoticeKind::Cat, NoticeKind::FoundMoney, NoticeKind::SpeedingFine, NoticeKind::Ignoring,
                            NoticeKind::Boring, NoticeKind::TextNotice})
        main.ShowNotice(kind, "Hey...BUDDY are you expecting her to pay for this !!!!");
    main.ShowWin("Total Money Spent $32767", "Total Days 30", "Your Score : 10000000000");
    main.ShowLose("");
    main.ShowGameOver();
    main.ShowHighScores();
    main.ShowTutorial();
    main.ShowAbout();
    for (QWidget *w : m_app->openWindows())
        check(w);
}

void WindowsTest::mainScreenShowsItsValuesToEyesAndEars()
{
    enterGame();
    MainScreen &main = m_app->mainScreen();
    // A long question wraps: her newest line is the one in view.
    main.SetTalk("Tom: " + std::string(300, 'x') + "\r\nLisa: Bye");
    QScrollBar *talk = named<QTextEdit>(&main, "Talk")->verticalScrollBar();
    QVERIFY(talk->value() > 0 && talk->value() == talk->maximum());
    // Rows are read as columns, without tabs or padding, under the list's title.
    m_random.push({kCalm, kCalm, kCalm, kCalm, kCalm, kCalm, kCalm, kCalm}); // six jobs, found money, fine
    click("Go to Work");
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(main.findChild<ActionList *>());
    QCOMPARE(list->text(QAccessible::Name), QStringLiteral("Job Noticeboard"));
    QCOMPARE(list->child(3)->text(QAccessible::Name), QStringLiteral("Tutor, $100, available"));
    // Bars and hearts stay in their ranges; the meter is heard as one level, 0 to 100.
    main.SetStatBars(-5, 110, 32767);
    QVERIFY(named<QProgressBar>(&main, "Looks rating")->value() == 0 && named<QProgressBar>(&main, "Brains rating")->value() == 100);
    QWidget *meter = named<QWidget>(&main, "Heart meter");
    for (int lit : {25, 2, -3}) {
        main.SetHeartBar(lit);
        for (int k = 0; k < 20; ++k) // the lowest are lit
            QCOMPARE(meter->findChild<QLabel *>(QStringLiteral("heart%1").arg(k))->isVisible(), k < qBound(0, lit, 20));
    }
    main.SetHeartLabel("55");
    QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(meter);
    QVERIFY(heard->role() == QAccessible::ProgressBar && heard->childCount() == 0);
    QVERIFY(heard->valueInterface()->currentValue() == 55 && heard->valueInterface()->maximumValue() == 100);
    // At 200% her picture has a pixel of its own for each of the screen's, and
    // Qt halves the offscreen screen while the desktop check counts its own pixels.
    QCOMPARE(named<QLabel>(&main, "Her picture")->pixmap().size(), QSize(210, 226));
    const QSize logical = QGuiApplication::primaryScreen()->size();
    QVERIFY(QtDesktop().screenSize() == logical * 2 && !desktopLargeEnough(logical) && desktopLargeEnough(logical * 2));
}

void WindowsTest::keyboardPlayTakesTwoKeysPerQuestionAndMenusHaveAccessKeys()
{
    enterGame();
    QVERIFY(QTest::qWaitForWindowActive(&m_app->mainScreen()));
    auto *list = m_app->mainScreen().findChild<ActionList *>();
    auto *callHer = named<QWidget>(&m_app->mainScreen(), "Call Her");
    // Tab follows the screen; the read-only talk box is one stop.
    callHer->setFocus();
    QStringList visited;
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited << spokenName(QApplication::focusWidget());
    }
    QCOMPARE(visited, (QStringList{"Buy A Gift", "Go to Work", "Go Shopping", "Talk", "Action list"}));
    // Enter on "Call Her" hands the keyboard to her questions: Enter chooses the first, Enter asks it; Down, Enter.
    m_random.push({kCalm, kCalm, kCalm, kCalm, kCalm, kCalm});
    callHer->setFocus();
    QTest::keyClick(callHer, Qt::Key_Return);
    QTRY_COMPARE(QApplication::focusWidget(), list);
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Return, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(QApplication::focusWidget(), key);
    QVERIFY(talk().contains(list->rowText(1)) && QApplication::focusWidget() == list);
    // The third question, asked from the button's own Tab stop, ends the call: the keyboard goes back to "Call Her".
    for (Qt::Key key : {Qt::Key_Down, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return})
        QTest::keyClick(QApplication::focusWidget(), key);
    QTRY_COMPARE(QApplication::focusWidget(), callHer);
    QCOMPARE(list->count(), 0);

    // Every menu item has an access key; a disabled screen locks the menus; F1 is Online Help.
    MainScreen &main = m_app->mainScreen();
    for (QAction *title : main.menuBar()->actions())
        QVERIFY2(title->text().contains('&'), qPrintable(title->text()));
    for (QMenu *menu : main.menuBar()->findChildren<QMenu *>()) {
        QStringList keys;
        for (QAction *item : menu->actions())
            if (!item->isSeparator())
                keys << item->text().section('&', 1, 1).left(1).toLower();
        QVERIFY2(!keys.contains(QString()) && keys.removeDuplicates() == 0, qPrintable(menu->title()));
    }
    auto *gift = named<QToolButton>(&main, "Buy A Gift");
    gift->setFocus();
    main.EnableMain(false);
    QVERIFY(!main.menuBar()->isEnabled());
    main.EnableMain(true);
    main.FocusMain();
    QVERIFY(QTest::qWaitForWindowActive(&main) && QApplication::focusWidget() == gift); // the keyboard is back
    QTest::keyClick(&main, Qt::Key_F1); // Online Help
    QCOMPARE(m_desktop.urls.size(), 1);
}

void WindowsTest::everyWindowReadsFitsAndClosesOnEscapeOnLightAndDarkDesktops()
{
    const QPalette light = QApplication::palette();
    const QFont font = QApplication::font();
    for (int points = 9; points <= 12; ++points) {
        QApplication::setPalette(points % 2 ? light : QPalette(QColor(42, 46, 50))); // dark at 10 and 12 pt
        QApplication::setFont(QFont(font.family(), points));
        QStringList faults;
        forEveryWindow([&](QWidget *window) {
            const QImage shot = window->grab().toImage();
            const qreal dpr = shot.devicePixelRatio();
            const QString name = window->objectName() + "/";
            for (QWidget *w : window->findChildren<QWidget *>()) {
                for (const auto &[text, box] : texts(w)) {
                    const auto *label = qobject_cast<QLabel *>(w);
                    if (inkContrast(shot.copy(QRect(w->mapTo(window, box.topLeft()) * dpr, box.size() * dpr))) < 4.5)
                        faults << name + w->objectName() + " unreadable";
                    if (label && label->wordWrap() ? label->heightForWidth(box.width()) > box.height()
                                                   : w->fontMetrics().horizontalAdvance(text) > box.width() ||
                                                         w->fontMetrics().tightBoundingRect(text).height() > w->height())
                        faults << name + w->objectName() + " clipped";
                }
            }
            if (auto *list = window->findChild<ActionList *>(); list && list->rowsWidth() > list->viewport()->width())
                faults << name + "Do_List rows clipped";
            window->setWindowState(Qt::WindowFullScreen);
            if (!window->rect().contains(window->childrenRect()) || window->minimumSize() != window->maximumSize() ||
                window->windowFlags() & Qt::WindowMaximizeButtonHint || window->windowState() != Qt::WindowNoState)
                faults << name + " grows or overflows";
            // Secondary windows are dialogs by their titles, and Escape is their OK.
            auto *dialog = qobject_cast<OkWindow *>(window);
            if (QAccessible::queryAccessibleInterface(window)->role() != (dialog ? QAccessible::Dialog : QAccessible::Window))
                faults << name + " is heard as no window";
            if (!dialog)
                return;
            QSignalSpy finished(dialog, &OkWindow::finished);
            dialog->activateWindow();
            if (QTest::qWaitForWindowActive(dialog))
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            if (spokenName(dialog) != dialog->windowTitle() || finished.size() != 1 || finished.at(0).at(0) != OkWindow::Ok)
                faults << name + " is no dialog that Escape closes as OK";
        });
        QVERIFY2(faults.isEmpty(), qPrintable(QString::number(points) + " pt: " + faults.join(", ")));
    }
    QApplication::setPalette(light);
    QApplication::setFont(font);
}

int main(int argc, char *argv[])
{
    qputenv("QT_SCALE_FACTOR", "2");
    QApplication app(argc, argv);
    WindowsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "windows_test.moc"
