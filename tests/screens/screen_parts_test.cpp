// The screens' plain parts: the action list's columns, the animations' loops,
// the window system chosen.
#include "screens/action_list.h"
#include "screens/looping_picture.h"
#include "screens/window_system.h"

#include <QFile>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>

using namespace amorra;

class ScreenPartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listRowsSplitIntoColumnsAtRunsOfTabs_data();
    void listRowsSplitIntoColumnsAtRunsOfTabs();
    void listRowsFitBesideTheScrollBarInTheLargestFontTheyNeed_data();
    void listRowsFitBesideTheScrollBarInTheLargestFontTheyNeed();
    void animationsLoopForeverAtTheirFilesPace_data();
    void animationsLoopForeverAtTheirFilesPace();
    void animationsReadAheadPlayWithoutTheirFile();
    void waylandDesktopsKeepFramesWithoutGl_data();
    void waylandDesktopsKeepFramesWithoutGl();
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
        QVERIFY2(list.sizeHintForColumn(0) <= list.viewport()->width(),
                 qPrintable(QStringLiteral("%1 > %2").arg(list.sizeHintForColumn(0)).arg(list.viewport()->width())));
        // Shrunk, but not to a size that a quarter point more would also fit.
        if (shrinks) {
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

// A loop that stopped after its first round left a still picture.
void ScreenPartsTest::animationsLoopForeverAtTheirFilesPace()
{
    QFETCH(QString, file);
    QFETCH(int, frames);
    LoopingPicture picture(QStringLiteral(AMORRA_TEST_ASSETS "/") + file);
    int changes = 0;
    for (qint64 now = 0; now < 3 * frames * 150; now = picture.nextChangeMs()) {
        changes += picture.advanceTo(now) ? 1 : 0;
        QVERIFY2(picture.isPlaying() && picture.nextChangeMs() - now == 150,
                 qPrintable(QStringLiteral("at %1 ms, next change %2").arg(now).arg(picture.nextChangeMs())));
    }
    QCOMPARE(changes, 3 * frames - 1);
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

QTEST_MAIN(ScreenPartsTest)
#include "screen_parts_test.moc"
