// The screens' plain parts: the action list's columns and keys, the Top 20
// grid's keys, the animations' loops, pictures stored as their pixels, the
// window system chosen, the style's scroll bars.
#include "screens/action_list.h"
#include "screens/app_style.h"
#include "screens/looping_picture.h"
#include "screens/score_grid.h"
#include "screens/widget_helpers.h"
#include "screens/window_system.h"

#include <QAccessible>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <sys/stat.h>

using namespace amorra;

class ScreenPartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listRowsSplitIntoColumnsAtRunsOfTabs_data();
    void listRowsSplitIntoColumnsAtRunsOfTabs();
    void listRowsFitBesideTheScrollBarInTheLargestFontTheyNeed_data();
    void listRowsFitBesideTheScrollBarInTheLargestFontTheyNeed();
    void listKeysChooseAsInAnyListBox_data();
    void listKeysChooseAsInAnyListBox();
    void listClicksChooseOnlyRows();
    void topTwentyCellsAreWalkedByKeysAndHeardWithTheirHeadings();
    void animationsLoopForeverAtTheirFilesPace_data();
    void animationsLoopForeverAtTheirFilesPace();
    void animationsReadAheadPlayWithoutTheirFile();
    void picturesStoredAsPixelsAreReadOnlyWhole_data();
    void picturesStoredAsPixelsAreReadOnlyWhole();
    void waylandDesktopsKeepFramesWithoutGl_data();
    void waylandDesktopsKeepFramesWithoutGl();
    void scrollBarsLookAsFusionDrawsThem_data();
    void scrollBarsLookAsFusionDrawsThem();
};

void ScreenPartsTest::listRowsSplitIntoColumnsAtRunsOfTabs_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QStringList>("columns");

    QTest::newRow("gift: one tab") << "Flowers\t$40" << QStringList{"Flowers", "$40"};
    QTest::newRow("date: three tabs are one break")
        << "High class restaurant\t\t\t$120" << QStringList{"High class restaurant", "$120"};
    QTest::newRow("job: three columns, label spaces kept")
        << "Tutor          \t$100\tNOT available today" << QStringList{"Tutor          ", "$100", "NOT available today"};
    QTest::newRow("question: no tabs") << "Do you read much?" << QStringList{"Do you read much?"};
}

void ScreenPartsTest::listRowsSplitIntoColumnsAtRunsOfTabs()
{
    QFETCH(QString, row);
    QFETCH(QStringList, columns);
    QCOMPARE(rowColumns(row), columns);
}

void ScreenPartsTest::listRowsFitBesideTheScrollBarInTheLargestFontTheyNeed_data()
{
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<bool>("shrinks");

    QTest::newRow("short rows: the design's font") << QStringList{"Flowers\t$40", "Beer\t\t$5"} << false;
    QTest::newRow("one long row: all rows smaller")
        << QStringList{"Flowers\t$40", "A dozen long-stemmed roses from the flower shop\t\t$140"} << true;
    QTest::newRow("long first column pushes the second")
        << QStringList{"Tutor\t$100\tavailable", "Parking Attendant\t$50\tNOT available today"}
        << true;
}

// A row wider than the list would lose its last column under the scroll bar.
void ScreenPartsTest::listRowsFitBesideTheScrollBarInTheLargestFontTheyNeed()
{
    QFETCH(QStringList, rows);
    QFETCH(bool, shrinks);
    ActionList list;
    list.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    list.resize(300, 150);
    const QFont design(QStringLiteral("DejaVu Sans"), 10, QFont::Bold);
    list.setFont(design);
    list.show();
    for (int round = 0; round < 2; ++round) { // filled again: the same font, the same columns
        list.clearRows();
        QCOMPARE(list.font(), design);
        for (const QString &row : rows)
            list.addRow(row);
        QCOMPARE(list.font().pointSizeF() < design.pointSizeF(), shrinks);
        QVERIFY2(list.rowsWidth() <= list.viewport()->width(),
                 qPrintable(QStringLiteral("%1 > %2").arg(list.rowsWidth()).arg(list.viewport()->width())));
        // Shrunk, but not to a size that a quarter point more would also fit.
        if (shrinks) {
            QVERIFY(list.rowsWidth() > list.viewport()->width() * 9 / 10);
            ActionList larger;
            larger.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
            larger.resize(list.size());
            QFont quarterMore = list.font();
            quarterMore.setPointSizeF(quarterMore.pointSizeF() + 0.25);
            larger.setFont(quarterMore);
            larger.show();
            for (const QString &row : rows)
                larger.addRow(row);
            QVERIFY(larger.font().pointSizeF() < quarterMore.pointSizeF());
        }
    }
}

void ScreenPartsTest::listKeysChooseAsInAnyListBox_data()
{
    QTest::addColumn<bool>("refilled"); // the last row chosen, then the list filled anew
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<int>("chosenRow"); // -1: none
    QTest::addColumn<int>("choices");
    QTest::addColumn<int>("actions");

    using K = QList<int>;
    QTest::newRow("Down leaves the focus frame's row") << false << K{Qt::Key_Down} << 1 << 1 << 0;
    QTest::newRow("Enter chooses, Enter again acts") << false << K{Qt::Key_Return, Qt::Key_Return} << 0 << 1 << 1;
    QTest::newRow("Up on the first row changes nothing") << false << K{Qt::Key_Up} << -1 << 0 << 0;
    QTest::newRow("End, then Down on the last row") << false << K{Qt::Key_End, Qt::Key_Down} << 4 << 1 << 0;
    QTest::newRow("Page Down moves a page, not past the end") << false << K{Qt::Key_PageDown, Qt::Key_PageDown} << 4 << 2 << 0;
    QTest::newRow("a letter goes to the next row with it") << false << K{Qt::Key_B, Qt::Key_B} << 4 << 2 << 0;
    QTest::newRow("a new fill starts at the top") << true << K{Qt::Key_Down} << 0 << 1 << 0;
}

// The keyboard player's list: a row is chosen once, in view, and acted on by Enter.
void ScreenPartsTest::listKeysChooseAsInAnyListBox()
{
    QFETCH(bool, refilled);
    QFETCH(QList<int>, keys);
    QFETCH(int, chosenRow);
    QFETCH(int, choices);
    QFETCH(int, actions);
    ActionList list;
    const auto fill = [&list] {
        for (const char *row : {"Flowers\t$40", "Beer\t$5", "Roses\t$140", "Chocolates\t$10", "Bear\t$20"})
            list.addRow(QString::fromLatin1(row));
    };
    fill();
    list.show();
    list.resize(200, 3 * list.rowRect(0).height() + 2 * list.frameWidth()); // three rows in view
    list.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&list));
    list.setFocus(Qt::TabFocusReason);
    if (refilled) {
        QTest::keyClick(&list, Qt::Key_End);
        list.clearRows();
        fill();
    }
    QSignalSpy chosen(&list, &ActionList::rowChosen);
    QSignalSpy acted(&list, &ActionList::rowActivated);
    for (int key : keys)
        QTest::keyClick(&list, Qt::Key(key), Qt::NoModifier);
    QCOMPARE(list.selectedIndex(), chosenRow);
    QCOMPARE(chosen.size(), choices);
    QCOMPARE(acted.size(), actions);
    if (chosenRow < 0)
        return;
    // In view (the first row scrolled away below the third), and the row a screen reader hears.
    QVERIFY(!list.rowRect(chosenRow).isEmpty());
    QCOMPARE(list.rowRect(0).isEmpty(), chosenRow > 2);
    QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(&list)->focusChild();
    QVERIFY(heard && heard->state().focused && heard->state().selected);
    QCOMPARE(heard->text(QAccessible::Name), list.spokenText(chosenRow));
}

// A click chooses the row under it once the button comes up; below the last row it chooses nothing.
void ScreenPartsTest::listClicksChooseOnlyRows()
{
    ActionList list;
    list.addRow(QStringLiteral("Flowers\t$40"));
    list.addRow(QStringLiteral("Beer\t$5"));
    list.resize(200, 150);
    list.show();
    QSignalSpy chosen(&list, &ActionList::rowChosen);
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, list.rowRect(1).center());
    QVERIFY(list.selectedIndex() == 1 && chosen.isEmpty());
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, list.rowRect(1).center());
    QCOMPARE(chosen.size(), 1);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.rowRect(1).center() + QPoint(0, list.rowRect(1).height()));
    QVERIFY(list.selectedIndex() == 1 && chosen.size() == 1);
    // Emptied, the list has no row for Enter to choose.
    list.clearRows();
    list.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&list));
    list.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&list, Qt::Key_Return);
    QVERIFY(list.selectedIndex() == -1 && chosen.size() == 1);
}

// A keyboard player reads the table cell by cell; a screen reader names each with its column.
void ScreenPartsTest::topTwentyCellsAreWalkedByKeysAndHeardWithTheirHeadings()
{
    HighScoreScreenData data;
    data.headers = {"", "Name", "Total Days  ", "Money Spent ", "Score  "};
    data.rows.resize(2);
    data.rows[0].cells = {"1", "Tom                 ", "7 Days", "$271", "251022"};
    data.rows[1].cells = {"2", "Ann                 ", "9 Days", "$300", "123456"};
    ScoreGrid grid(data);
    grid.show();
    grid.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&grid));
    grid.setFocus(Qt::TabFocusReason);
    for (Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Left, Qt::Key_Left, Qt::Key_End})
        QTest::keyClick(&grid, key);
    QVERIFY(grid.currentRow() == 2 && grid.currentColumn() == 4);
    QTest::keyClick(&grid, Qt::Key_PageUp);
    QTest::keyClick(&grid, Qt::Key_Left);
    QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(&grid)->focusChild();
    QVERIFY(heard && heard->role() == QAccessible::Cell);
    QCOMPARE(heard->text(QAccessible::Name), QStringLiteral("$271"));
    QCOMPARE(heard->tableCellInterface()->columnHeaderCells().first()->text(QAccessible::Name), QStringLiteral("Money Spent"));
    QVERIFY(grid.rect().contains(heard->rect().translated(-grid.mapToGlobal(QPoint(0, 0)))));
    // Darker headings over lavender rows, a blue line under each row.
    const QImage shot = grid.grab().toImage();
    const QRect name = grid.cellRect(0, 1);
    QCOMPARE(shot.pixelColor(grid.cellRect(-1, 1).topLeft()), QColor(128, 128, 255));
    QCOMPARE(shot.pixelColor(name.right() - 1, name.bottom() - 1), QColor(192, 192, 255));
    QCOMPARE(shot.pixelColor(name.center().x(), name.bottom() + 1), QColor(128, 128, 255));
    QCOMPARE(grid.cellRect(1, 1).top(), name.bottom() + 2);
}

void ScreenPartsTest::animationsLoopForeverAtTheirFilesPace_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("frames");
    // The game's GIFs show each frame for 150 ms.
    QTest::newRow("win screen: the couple") << "couple_kiss.gif" << 16;
    QTest::newRow("win screen: hearts") << "hearts.gif" << 8;
    QTest::newRow("Top 20: the cup") << "champ.gif" << 12;
    QTest::newRow("Top 20: the banner") << "champlbl.gif" << 12;
}

// A loop that stopped after its first round left a still picture; each
// frame shows as the file has it, in every round.
void ScreenPartsTest::animationsLoopForeverAtTheirFilesPace()
{
    QFETCH(QString, file);
    QFETCH(int, frames);
    const QString path = QStringLiteral(AMORRA_TEST_ASSETS "/") + file;
    LoopingPicture picture(path);
    QList<QImage> expected;
    for (QImageReader reader(path); reader.canRead();) {
        QImage frame(reader.size(), QImage::Format_ARGB32_Premultiplied);
        frame.fill(picture.palette().color(QPalette::Window));
        QPainter(&frame).drawImage(0, 0, reader.read());
        expected << frame;
    }
    QCOMPARE(expected.size(), frames);
    picture.resize(expected.first().size());
    const auto shown = [](LoopingPicture &on) {
        return on.grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    };
    int changes = 0;
    for (qint64 now = 0; now < 3 * frames * 150; now = picture.nextChangeMs()) {
        changes += picture.advanceTo(now) ? 1 : 0;
        QVERIFY2(picture.isPlaying() && picture.nextChangeMs() - now == 150,
                 qPrintable(QStringLiteral("at %1 ms, next change %2").arg(now).arg(picture.nextChangeMs())));
        QVERIFY2(shown(picture) == expected[changes % frames],
                 qPrintable(QStringLiteral("frame %1").arg(changes % frames)));
    }
    QCOMPARE(changes, 3 * frames - 1);
    // First drawn mid-loop, as a picture shown in step with one already playing.
    LoopingPicture late(path);
    late.resize(picture.size());
    late.advanceTo(frames / 2 * 150);
    QVERIFY(shown(late) == expected[frames / 2]);
}

// The Top 20 window opens on frames read while the win screen was up; once
// nothing holds them they are let go, not kept for the rest of the game.
void ScreenPartsTest::animationsReadAheadPlayWithoutTheirFile()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("champ.gif"));
    QVERIFY(QFile::copy(QStringLiteral(AMORRA_TEST_ASSETS "/champ.gif"), path));
    auto ahead = LoopingPicture::readAhead(path);
    QVERIFY(QFile::remove(path));
    {
        LoopingPicture picture(path);
        picture.advanceTo(0);
        QVERIFY(picture.isPlaying());
        QCOMPARE(picture.nextChangeMs(), 150);
    }
    ahead.reset();
    LoopingPicture gone(path);
    gone.advanceTo(0);
    QVERIFY(!gone.isPlaying());
}

namespace {
QByteArray pixelFile(quint32 width, quint32 height, const QList<quint32> &pixels, const char *magic = "ARGB")
{
    QByteArray bytes(magic, 4);
    for (const quint32 word : QList<quint32>{width, height} + pixels) {
        char le[4];
        qToLittleEndian(word, le);
        bytes.append(le, 4);
    }
    return bytes;
}
} // namespace

void ScreenPartsTest::picturesStoredAsPixelsAreReadOnlyWhole_data()
{
    QTest::addColumn<QByteArray>("bytes"); // "fifo": a FIFO stands there
    QTest::addColumn<QSize>("size");       // 0 x 0: no picture

    const QList<quint32> two{0x80402010, 0xff00ff00};
    QTest::newRow("whole: pixels as stored") << pixelFile(2, 1, two) << QSize(2, 1);
    QTest::newRow("a pixel short") << pixelFile(2, 1, two).chopped(1) << QSize(0, 0);
    QTest::newRow("a byte too many") << pixelFile(2, 1, two) + '\0' << QSize(0, 0);
    QTest::newRow("another kind of file") << pixelFile(2, 1, two, "\x89PNG") << QSize(0, 0);
    QTest::newRow("header cut short") << pixelFile(2, 1, {}).left(9) << QSize(0, 0);
    QTest::newRow("no pixels at all") << pixelFile(0, 0, {}) << QSize(0, 0);
    QTest::newRow("wider than any picture of ours") << pixelFile(1025, 1, QList<quint32>(1025, 0)) << QSize(0, 0);
    QTest::newRow("sizes that overflow") << pixelFile(0xffffffff, 0xffffffff, two) << QSize(0, 0);
    QTest::newRow("a FIFO where the file belongs") << QByteArray("fifo") << QSize(0, 0);
}

void ScreenPartsTest::picturesStoredAsPixelsAreReadOnlyWhole()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QSize, size);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("picture.argb"));
    if (bytes == "fifo")
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    else {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    const QImage image = readPixels(path);
    QCOMPARE(image.size(), size);
    if (!size.isEmpty()) { // premultiplied as stored, nothing converted on the way
        QCOMPARE(image.format(), QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(image.pixel(0, 0), 0x80402010u);
        QCOMPARE(image.pixel(1, 0), 0xff00ff00u);
    }
}

void ScreenPartsTest::waylandDesktopsKeepFramesWithoutGl_data()
{
    QTest::addColumn<QByteArray>("asked");
    QTest::addColumn<QByteArray>("session");
    QTest::addColumn<bool>("haveX");
    QTest::addColumn<bool>("drawsFrames");
    QTest::addColumn<QByteArray>("platform");
    QTest::addColumn<bool>("sharedMemory");
    QTest::addColumn<bool>("asksCompositor"); // a connection: only where Qt goes to Wayland

    QTest::newRow("X11 session") << QByteArray() << QByteArray("x11") << true << true << QByteArray() << false << false;
    QTest::newRow("no session type") << QByteArray() << QByteArray() << true << true << QByteArray() << false << false;
    QTest::newRow("KDE: compositor frames") << QByteArray() << QByteArray("wayland") << true << true << QByteArray()
                                            << true << true;
    QTest::newRow("GNOME: through its X server") << QByteArray() << QByteArray("wayland") << true << false
                                                 << QByteArray("xcb") << false << true;
    QTest::newRow("no X server: Qt's frames") << QByteArray() << QByteArray("wayland") << false << false
                                              << QByteArray() << false << true;
    QTest::newRow("Wayland named, no frames: kept") << QByteArray("wayland") << QByteArray("wayland") << true << false
                                                    << QByteArray() << false << true;
    QTest::newRow("Wayland named, frames") << QByteArray("wayland;xcb") << QByteArray("x11") << true << true
                                           << QByteArray() << true << true;
    QTest::newRow("X11 named in a Wayland session") << QByteArray("xcb") << QByteArray("wayland") << true << true
                                                    << QByteArray() << false << false;
}

void ScreenPartsTest::waylandDesktopsKeepFramesWithoutGl()
{
    QFETCH(QByteArray, asked);
    QFETCH(QByteArray, session);
    QFETCH(bool, haveX);
    QFETCH(bool, drawsFrames);
    QFETCH(QByteArray, platform);
    QFETCH(bool, sharedMemory);
    QFETCH(bool, asksCompositor);
    bool askedCompositor = false;
    const WindowSystemChoice choice = chooseWindowSystem(asked, session, haveX, [&] {
        askedCompositor = true;
        return drawsFrames;
    });
    QCOMPARE(choice.platform, platform);
    QCOMPARE(choice.sharedMemoryOnly, sharedMemory);
    QCOMPARE(askedCompositor, asksCompositor);
}

void ScreenPartsTest::scrollBarsLookAsFusionDrawsThem_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("value");
    QTest::addColumn<QStyle::State>("state");

    QTest::newRow("guide: at the top") << Qt::Vertical << 0 << QStyle::State(QStyle::State_None);
    QTest::newRow("midway, pointer on the handle") << Qt::Vertical << 40 << QStyle::State(QStyle::State_MouseOver);
    QTest::newRow("at the end, dragged") << Qt::Vertical << 100 << QStyle::State(QStyle::State_Sunken);
    QTest::newRow("across, midway") << Qt::Horizontal << 40 << QStyle::State(QStyle::State_None);
    QTest::newRow("across, dragged") << Qt::Horizontal << 0 << QStyle::State(QStyle::State_Sunken);
}

void ScreenPartsTest::scrollBarsLookAsFusionDrawsThem()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, value);
    QFETCH(QStyle::State, state);
    std::unique_ptr<QStyle> fusion(QStyleFactory::create(QStringLiteral("fusion")));
    AppStyle game;
    QScrollBar bar(orientation);
    bar.resize(orientation == Qt::Vertical ? QSize(16, 240) : QSize(240, 16));
    const auto drawn = [&](const QStyle &style) {
        QStyleOptionSlider option;
        option.initFrom(&bar);
        option.state |= state | (orientation == Qt::Horizontal ? QStyle::State_Horizontal : QStyle::State_None);
        option.subControls = QStyle::SC_All;
        option.activeSubControls = state == QStyle::State_None ? QStyle::SC_None : QStyle::SC_ScrollBarSlider;
        option.orientation = orientation;
        option.maximum = 100;
        option.pageStep = 20;
        option.sliderPosition = option.sliderValue = value;
        QImage image(bar.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        style.drawComplexControl(QStyle::CC_ScrollBar, &option, &painter, &bar);
        return image;
    };
    QCOMPARE(drawn(game), drawn(*fusion));
}

QTEST_MAIN(ScreenPartsTest)
#include "screen_parts_test.moc"
