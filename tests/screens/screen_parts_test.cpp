// The screens' plain parts: the quick start guide's Rich Text reader and
// the action list's columns.
#include "screens/action_list.h"
#include "screens/rtf_reader.h"

#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

using namespace amorra;

namespace {

// The document's text with paragraph ends as '\n' and forced line breaks as '|'.
QString shown(const QTextDocument &doc)
{
    QString text = doc.toRawText();
    text.replace(QChar(0x2029), QLatin1Char('\n'));
    text.replace(QChar::LineSeparator, QLatin1Char('|'));
    return text;
}

QTextCharFormat formatAt(const QTextDocument &doc, const QString &letter)
{
    const int at = doc.toRawText().indexOf(letter);
    QTextCursor cursor(const_cast<QTextDocument *>(&doc));
    cursor.setPosition(at + 1);
    return cursor.charFormat();
}

} // namespace

class ScreenPartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void guideTextReadsAsWritten_data();
    void guideTextReadsAsWritten();
    void guideKeepsBoldItalicUnderlineSizeColourAndAlignment();
    void damagedGuideNeverCrashes_data();
    void damagedGuideNeverCrashes();

    void listRowsSplitIntoColumnsAtRunsOfTabs_data();
    void listRowsSplitIntoColumnsAtRunsOfTabs();
};

void ScreenPartsTest::guideTextReadsAsWritten_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("expected");

    QTest::newRow("plain words") << QByteArray("{\\rtf1 Hello world}") << "Hello world";
    QTest::newRow("paragraphs") << QByteArray("{\\rtf1 One\\par Two\\par}") << "One\nTwo\n";
    QTest::newRow("forced line and tab") << QByteArray("{\\rtf1 a\\line b\\tab c}") << "a|b\tc";
    QTest::newRow("line ends in the file are not text") << QByteArray("{\\rtf1 a\r\nb}") << "ab";
    QTest::newRow("font table, colour table, stylesheet, info skipped")
        << QByteArray("{\\rtf1\\ansi{\\fonttbl{\\f0\\fswiss Arial;}}{\\colortbl;\\red255\\green0\\blue0;}"
                      "{\\stylesheet{\\s0 Normal;}}{\\info{\\title T}}\\f0 Hi}")
        << "Hi";
    QTest::newRow("ignorable destinations skipped")
        << QByteArray("{\\rtf1{\\*\\generator Riched20;}{\\*\\madeup stuff {nested}}Hi}") << "Hi";
    QTest::newRow("Windows-1252 escapes")
        << QByteArray("{\\rtf1 caf\\'e9 \\'93q\\'94 \\'80}") << QString::fromUtf8("café “q” €");
    QTest::newRow("Unicode with its fallback skipped")
        << QByteArray("{\\rtf1 \\u8364?\\uc2\\u8364 xx!}") << QString::fromUtf8("€€!");
    QTest::newRow("negative Unicode numbers wrap") << QByteArray("{\\rtf1 \\u-255?}") << QString::fromUtf8("！");
    QTest::newRow("fallback given as an escape")
        << QByteArray("{\\rtf1 \\u233\\'e9!}") << QString::fromUtf8("é!");
    QTest::newRow("escaped braces and backslash") << QByteArray("{\\rtf1 \\{a\\}\\\\}") << "{a}\\";
    QTest::newRow("groups end their formatting, not their text")
        << QByteArray("{\\rtf1 {\\b bold} plain}") << "bold plain";
    QTest::newRow("unknown control words skipped")
        << QByteArray("{\\rtf1\\fakeword123 \\margl1440\\widowctrl Hi}") << "Hi";
    QTest::newRow("special characters")
        << QByteArray("{\\rtf1 a\\emdash b\\~c\\bullet d\\_e}") << QString::fromUtf8("a—b\u00a0c•d-e");
    QTest::newRow("a field shows its result")
        << QByteArray("{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt Link}}}") << "Link";
}

void ScreenPartsTest::guideTextReadsAsWritten()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, expected);
    QTextDocument doc;
    QVERIFY(readRtf(rtf, &doc));
    QCOMPARE(shown(doc), expected);
}

void ScreenPartsTest::guideKeepsBoldItalicUnderlineSizeColourAndAlignment()
{
    QTextDocument doc;
    QVERIFY(readRtf("{\\rtf1{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}\\qc"
                    "{\\b B}{\\i I}{\\ul U\\ulnone N}{\\fs40 F}{\\cf2 C}{\\b\\plain P}\\par\\pard L\\par\\qr R}",
                    &doc));
    QCOMPARE(shown(doc), QStringLiteral("BIUNFCP\nL\nR"));
    QCOMPARE(formatAt(doc, "B").fontWeight(), int(QFont::Bold));
    QVERIFY(!formatAt(doc, "I").font().bold()); // the group ended the bold
    QVERIFY(formatAt(doc, "I").fontItalic());
    QVERIFY(formatAt(doc, "U").fontUnderline());
    QVERIFY(!formatAt(doc, "N").fontUnderline());
    QCOMPARE(formatAt(doc, "F").fontPointSize(), 20.0); // half points
    QCOMPARE(formatAt(doc, "C").foreground().color(), QColor(0, 0, 255));
    QVERIFY(!formatAt(doc, "P").font().bold());
    QCOMPARE(doc.findBlockByNumber(0).blockFormat().alignment(), Qt::AlignHCenter);
    QCOMPARE(doc.findBlockByNumber(1).blockFormat().alignment(), Qt::AlignLeft);
    QCOMPARE(doc.findBlockByNumber(2).blockFormat().alignment(), Qt::AlignRight);
}

void ScreenPartsTest::damagedGuideNeverCrashes_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<bool>("isRtf");
    QTest::addColumn<QString>("expected");

    const QByteArray deep = "{\\rtf1 " + QByteArray(100000, '{') + "x" + QByteArray(100000, '}') + " end}";
    QTest::newRow("empty file") << QByteArray() << false << "";
    QTest::newRow("not RTF at all") << QByteArray("Hello {\\b there}") << false << "";
    QTest::newRow("cut off inside a group") << QByteArray("{\\rtf1 Hello {\\b wor") << true << "Hello wor";
    QTest::newRow("cut off after a backslash") << QByteArray("{\\rtf1 abc\\") << true << "abc";
    QTest::newRow("cut off inside an escape") << QByteArray("{\\rtf1 abc\\'4") << true << "abc";
    QTest::newRow("escape without hex digits") << QByteArray("{\\rtf1 a\\'zzb}") << true << "azzb";
    QTest::newRow("stray closing braces") << QByteArray("{\\rtf1 a}}} b}") << true << "a b";
    QTest::newRow("nested far too deep") << deep << true << " end";
    QTest::newRow("absurd font size") << QByteArray("{\\rtf1\\fs999999999999 x}") << true << "x";
    QTest::newRow("colour beyond the table") << QByteArray("{\\rtf1{\\colortbl;\\red1;}\\cf9 x}") << true << "x";
    QTest::newRow("control bytes in the text") << QByteArray("{\\rtf1 a\x01\x02\x1f" "b}") << true << "ab";
    QTest::newRow("lone surrogate number") << QByteArray("{\\rtf1 \\u-10000?z}") << true << "z";
    QTest::newRow("overlong control word") << QByteArray("{\\rtf1 \\" + QByteArray(5000, 'a') + " z}") << true
                                           << "z";
}

void ScreenPartsTest::damagedGuideNeverCrashes()
{
    QFETCH(QByteArray, rtf);
    QFETCH(bool, isRtf);
    QFETCH(QString, expected);
    QTextDocument doc;
    doc.setPlainText(QStringLiteral("left over from before"));
    QCOMPARE(readRtf(rtf, &doc), isRtf);
    QCOMPARE(shown(doc), expected);
}

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

QTEST_MAIN(ScreenPartsTest)
#include "screen_parts_test.moc"
