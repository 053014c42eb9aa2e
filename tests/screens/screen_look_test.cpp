// Every window as players on other desktops meet it: a dark palette, larger
// desktop fonts, a screen reader, the Escape key; all drawn at 200%.
#include "flow_fixture.h"

#include "screens/about_box.h"
#include "screens/action_list.h"
#include "screens/game_over_dialog.h"
#include "screens/high_score_window.h"
#include "screens/lose_screen.h"
#include "screens/main_screen.h"
#include "screens/notice_window.h"
#include "screens/setup_screen.h"
#include "screens/text_notice.h"
#include "screens/tutorial_window.h"
#include "screens/win_screen.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QToolButton>

#include <cmath>
#include <memory>
#include <vector>

using namespace amorra;
using namespace amorra::testing;

namespace {

const QString kAssets = QStringLiteral(AMORRA_TEST_ASSETS);
using Windows = std::vector<std::unique_ptr<QWidget>>;

// WCAG's contrast ratio, 1 to 21.
double contrast(QColor a, QColor b)
{
    auto lum = [](QColor c) {
        auto ch = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
        return 0.2126 * ch(c.redF()) + 0.7152 * ch(c.greenF()) + 0.0722 * ch(c.blueF());
    };
    const double x = lum(a) + 0.05, y = lum(b) + 0.05;
    return x > y ? x / y : y / x;
}

// A region's commonest colour is its background, the one that stands out
// most from it is its text.
double inkContrast(const QImage &image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    QRgb background = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        if (it.value() > counts.value(background))
            background = it.key();
    double best = 1;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        best = std::max(best, contrast(QColor(it.key()), QColor(background)));
    return best;
}

// Where a control draws its texts, in its own coordinates.
QList<QRect> textAreas(QWidget *w)
{
    const QFontMetrics fm = w->fontMetrics();
    if (auto *label = qobject_cast<QLabel *>(w))
        return label->text().isEmpty() ? QList<QRect>() : QList<QRect>{label->contentsRect()};
    if (qobject_cast<QCheckBox *>(w)) // the words beside the box
        return {QRect(w->height(), 0, w->width() - w->height(), w->height())};
    if (auto *button = qobject_cast<QAbstractButton *>(w); button && button->text().isEmpty())
        return {};
    if (auto *tool = qobject_cast<QToolButton *>(w)) // the caption under the picture
        return {w->rect().adjusted(3, tool->iconSize().height() + 8, -3, -3)};
    if (qobject_cast<QAbstractButton *>(w) || qobject_cast<QMenuBar *>(w))
        return {w->rect().adjusted(4, 4, -4, -4)};
    if (auto *box = qobject_cast<QGroupBox *>(w))
        return box->title().isEmpty() ? QList<QRect>() : QList<QRect>{QRect(6, 0, fm.horizontalAdvance(box->title()) + 6, fm.height())};
    auto *view = qobject_cast<QAbstractItemView *>(w);
    auto *edit = qobject_cast<QTextEdit *>(w);
    QWidget *port = view ? view->viewport() : edit ? edit->viewport() : nullptr;
    QList<QRect> areas;
    if (edit)
        areas << edit->viewport()->rect();
    if (auto *list = qobject_cast<QListWidget *>(w))
        for (int r = 0; r < std::min(list->count(), 2); ++r) // the second one selected
            areas << list->visualItemRect(list->item(r));
    if (auto *grid = qobject_cast<QTableWidget *>(w))
        areas << grid->visualRect(grid->model()->index(1, 1));
    for (QRect &r : areas)
        r.translate(port->mapTo(w, QPoint()));
    return areas;
}

// Whether a control's text fits its box.
bool clipped(QWidget *w)
{
    const QFontMetrics fm = w->fontMetrics();
    if (auto *label = qobject_cast<QLabel *>(w)) {
        const QRect r = label->contentsRect();
        if (label->text().isEmpty() || label->wordWrap())
            return label->wordWrap() && label->heightForWidth(r.width()) > r.height();
        return fm.horizontalAdvance(label->text()) > r.width() || fm.height() > r.height();
    }
    if (qobject_cast<QCheckBox *>(w))
        return w->sizeHint().width() > w->width() || fm.height() > w->height();
    if (auto *button = qobject_cast<QAbstractButton *>(w))
        return fm.horizontalAdvance(button->text()) + 8 > w->width() || fm.height() + 4 > w->height();
    if (auto *box = qobject_cast<QGroupBox *>(w))
        return fm.horizontalAdvance(box->title()) + 16 > w->width();
    if (auto *grid = qobject_cast<QTableWidget *>(w))
        for (int r = 0; r < grid->rowCount(); ++r)
            if (QFontMetrics(grid->font()).horizontalAdvance(grid->item(r, 1)->text().trimmed()) + 7 >
                    grid->columnWidth(1) ||
                QFontMetrics(grid->font()).height() > grid->rowHeight(r))
                return true;
    return false;
}

// Every window of the game, filled as a game fills them.
Windows everyWindow(ScreenHost &host)
{
    Windows all;
    auto main = std::make_unique<MainScreen>(host, kAssets);
    main->SetTalk("Tom: Do you read much?\r\nLisa: Not really.");
    main->SetListTitle("Things to ask her");
    main->AddListRow("Tutor          \t$100\tavailable");
    main->AddListRow("Stock Broker \t$300\tNOT available today");
    main->findChild<ActionList *>()->setCurrentRow(1);
    main->ShowOk(true);
    main->ShowAskOut(true);
    main->EnableTakeHerOut(true);
    main->SetSpentLabel("$32767");
    main->SetMoneyLabel("Bank Balance: $-32768");
    main->SetDayLabel("Day 30");
    main->SetHeartLabel("100");
    all.push_back(std::move(main));
    all.push_back(std::make_unique<SetupScreen>(QStringLiteral("Tom"), kAssets));
    all.push_back(std::make_unique<WinScreen>(QStringLiteral("WWWWWWWWWWWWWWWWWWWW"),
                                              QStringLiteral("Total Money Spent $32767"),
                                              QStringLiteral("Total Days 29"), QStringLiteral("Your Score : 10000000000"),
                                              kAssets));
    all.push_back(std::make_unique<LoseScreen>(QString()));
    for (NoticeKind kind : {NoticeKind::Cat, NoticeKind::FoundMoney, NoticeKind::SpeedingFine, NoticeKind::Ignoring,
                            NoticeKind::Boring})
        all.push_back(std::make_unique<NoticeWindow>(kind, QStringLiteral("Jennifer"), kAssets));
    all.push_back(std::make_unique<TextNotice>(QStringLiteral("Hey...BUDDY are you expecting her to pay for this !!!!")));
    all.push_back(std::make_unique<GameOverDialog>(kAssets));
    all.push_back(std::make_unique<AboutBox>(kAssets));
    HighScoreScreenData scores{{"", "Name", "Total Days  ", "Money Spent ", "Score  "}, {}, "WWWWWWWWWWWWWWWWWWWW"};
    scores.rows.push_back({{"1", "WWWWWWWWWWWWWWWWWWWW", "29 Days", "$32767", "10000000000"}});
    scores.rows.push_back({{"2", "Tom                 ", "7 Days", "$271", "251022"}});
    all.push_back(std::make_unique<HighScoreWindow>(scores, kAssets));
    all.push_back(std::make_unique<TutorialWindow>(kAssets + QStringLiteral("/qsguide.rtf")));
    for (auto &w : all) {
        w->setAttribute(Qt::WA_DeleteOnClose, false); // the test owns them
        w->show();
    }
    return all;
}

QList<QWidget *> shownControls(QWidget *window)
{
    QList<QWidget *> shown = window->findChildren<QWidget *>();
    shown.removeIf([window](QWidget *w) { return !w->isVisibleTo(window) || !w->isEnabled(); });
    return shown;
}

QString where(QWidget *w)
{
    return w->window()->objectName() + QLatin1Char('/') + w->objectName();
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

class ScreenLookTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextReadsUnderTheLightAndADarkPalette();
    void noTextIsClippedAtDesktopFontsOfNineToTwelvePoints();
    void secondaryWindowsAreFixedDialogsThatEscapeClosesAsOk();
    void theGuideKeepsItsOwnLightPage();
    void theDesktopIsMeasuredInTheScreensOwnPixels();

private:
    NoHost m_host;
};

void ScreenLookTest::everyTextReadsUnderTheLightAndADarkPalette()
{
    const QPalette light = QApplication::palette();
    for (const QPalette &palette : {light, darkPalette()}) {
        QApplication::setPalette(palette);
        QStringList unreadable;
        for (const auto &window : everyWindow(m_host)) {
            const QImage shot = window->grab().toImage();
            const qreal dpr = shot.devicePixelRatio();
            for (QWidget *w : shownControls(window.get())) {
                for (QRect area : textAreas(w)) {
                    area = QRect(w->mapTo(window.get(), area.topLeft()) * dpr, area.size() * dpr);
                    const double ratio = inkContrast(shot.copy(area));
                    if (ratio < 4.5)
                        unreadable << QStringLiteral("%1 %2").arg(where(w)).arg(ratio, 0, 'f', 1);
                }
            }
        }
        QVERIFY2(unreadable.isEmpty(), qPrintable(unreadable.join(QLatin1String(", "))));
    }
    QApplication::setPalette(light);
}

void ScreenLookTest::noTextIsClippedAtDesktopFontsOfNineToTwelvePoints()
{
    const QFont desktop = QApplication::font();
    for (int points = 9; points <= 12; ++points) {
        QFont font = desktop;
        font.setPointSize(points);
        QApplication::setFont(font);
        QStringList bad;
        for (const auto &window : everyWindow(m_host)) {
            for (QWidget *w : shownControls(window.get())) {
                if (clipped(w))
                    bad << where(w) + QStringLiteral(" clipped");
                if (!window->rect().contains(QRect(w->mapTo(window.get(), QPoint()), w->size())))
                    bad << where(w) + QStringLiteral(" beyond the window");
            }
        }
        QVERIFY2(bad.isEmpty(), qPrintable(QString::number(points) + QLatin1String(" pt: ") + bad.join(", ")));
    }
    QApplication::setFont(desktop);
}

void ScreenLookTest::secondaryWindowsAreFixedDialogsThatEscapeClosesAsOk()
{
    for (const auto &window : everyWindow(m_host)) {
        const QByteArray name = window->objectName().toLatin1();
        QVERIFY2(window->minimumSize() == window->maximumSize(), name);
        QVERIFY2(!(window->windowFlags() & Qt::WindowMaximizeButtonHint), name);
        auto *dialog = qobject_cast<OkWindow *>(window.get());
        if (!dialog)
            continue;
        const QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(dialog);
        QVERIFY2(spoken->role() == QAccessible::Dialog, name);
        QVERIFY2(spoken->text(QAccessible::Name) == dialog->windowTitle(), name);
        QSignalSpy finished(dialog, &OkWindow::finished);
        dialog->activateWindow();
        QVERIFY2(QTest::qWaitForWindowActive(dialog), name);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY2(finished.size() == 1 && finished.at(0).at(0).toInt() == OkWindow::Ok, name);
        QVERIFY2(!dialog->isOpen(), name);
    }
    for (const auto &window : everyWindow(m_host)) {
        window->setWindowState(Qt::WindowFullScreen);
        QVERIFY2(window->windowState() == Qt::WindowNoState, qPrintable(window->objectName()));
    }
}

void ScreenLookTest::theGuideKeepsItsOwnLightPage()
{
    const QPalette light = QApplication::palette();
    QApplication::setPalette(darkPalette());
    TutorialWindow guide(kAssets + QStringLiteral("/qsguide.rtf"));
    const QPalette page = guide.guide()->palette();
    QApplication::setPalette(light);
    // Every colour the guide writes in reads on its page; headings are large.
    int checked = 0;
    for (QTextBlock block = guide.guide()->document()->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            const QColor ink = format.hasProperty(QTextFormat::ForegroundBrush) ? format.foreground().color()
                                                                                 : page.color(QPalette::Text);
            const bool large = format.fontPointSize() >= 18 || (format.fontPointSize() >= 14 && format.font().bold());
            QVERIFY2(contrast(ink, page.color(QPalette::Base)) >= (large ? 3 : 4.5), qPrintable(it.fragment().text()));
            ++checked;
        }
    }
    QVERIFY(checked > 20);
}

void ScreenLookTest::theDesktopIsMeasuredInTheScreensOwnPixels()
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
    ScreenLookTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "screen_look_test.moc"
