// The quick start guide's Rich Text reader: what it shows, how it formats,
// what damage does to it, and that its time grows in line with the guide.
#include "screens/rtf_reader.h"

#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <ctime>

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
    QTextCursor cursor(const_cast<QTextDocument *>(&doc));
    cursor.setPosition(doc.toRawText().indexOf(letter) + 1);
    return cursor.charFormat();
}

// Processor time, which other programs busy on the machine do not inflate.
double cpuMs()
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
}

} // namespace

class RtfReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void guideReadsAsWrittenWhateverItHolds_data();
    void guideReadsAsWrittenWhateverItHolds();
    void guideKeepsBoldItalicUnderlineSizeColourAndAlignment();
    void timeGrowsInLineWithTheGuide();
};

void RtfReaderTest::guideReadsAsWrittenWhateverItHolds_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<bool>("isRtf");
    QTest::addColumn<QString>("expected");

    const QByteArray deep = "{\\rtf1 " + QByteArray(100000, '{') + "x" + QByteArray(100000, '}') + " end}";
    QTest::newRow("plain words") << QByteArray("{\\rtf1 Hello world}") << true << "Hello world";
    QTest::newRow("paragraphs") << QByteArray("{\\rtf1 One\\par Two\\par}") << true << "One\nTwo\n";
    QTest::newRow("forced line and tab") << QByteArray("{\\rtf1 a\\line b\\tab c}") << true << "a|b\tc";
    QTest::newRow("line ends in the file are not text") << QByteArray("{\\rtf1 a\r\nb}") << true << "ab";
    QTest::newRow("font table, colour table, stylesheet, info skipped")
        << QByteArray("{\\rtf1\\ansi{\\fonttbl{\\f0\\fswiss Arial;}}{\\colortbl;\\red255\\green0\\blue0;}"
                      "{\\stylesheet{\\s0 Normal;}}{\\info{\\title T}}\\f0 Hi}")
        << true << "Hi";
    QTest::newRow("ignorable destinations skipped")
        << QByteArray("{\\rtf1{\\*\\generator Riched20;}{\\*\\madeup stuff {nested}}Hi}") << true << "Hi";
    QTest::newRow("Windows-1252 escapes")
        << QByteArray("{\\rtf1 caf\\'e9 \\'93q\\'94 \\'80}") << true << QString::fromUtf8("café “q” €");
    QTest::newRow("Unicode with its fallback skipped")
        << QByteArray("{\\rtf1 \\u8364?\\uc2\\u8364 xx!}") << true << QString::fromUtf8("€€!");
    QTest::newRow("negative Unicode numbers wrap") << QByteArray("{\\rtf1 \\u-255?}") << true << QString::fromUtf8("！");
    QTest::newRow("fallback given as an escape")
        << QByteArray("{\\rtf1 \\u233\\'e9!}") << true << QString::fromUtf8("é!");
    QTest::newRow("escaped braces and backslash") << QByteArray("{\\rtf1 \\{a\\}\\\\}") << true << "{a}\\";
    QTest::newRow("groups end their formatting, not their text")
        << QByteArray("{\\rtf1 {\\b bold} plain}") << true << "bold plain";
    QTest::newRow("unknown control words skipped")
        << QByteArray("{\\rtf1\\fakeword123 \\margl1440\\widowctrl Hi}") << true << "Hi";
    QTest::newRow("special characters")
        << QByteArray("{\\rtf1 a\\emdash b\\~c\\bullet d\\_e}") << true << QString::fromUtf8("a—b\u00a0c•d-e");
    QTest::newRow("a field shows its result")
        << QByteArray("{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt Link}}}") << true << "Link";
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
    QTest::newRow("lone surrogate and too large numbers") << QByteArray("{\\rtf1 \\u-10000?\\u65536?z}") << true << "z";
    QTest::newRow("a guide too long is shown up to the limit")
        << "{\\rtf1 " + QByteArray("x\\par ").repeated(30000) + "}" << true << QString("x\n").repeated(25000);
    QTest::newRow("overlong control word") << QByteArray("{\\rtf1 \\" + QByteArray(5000, 'a') + " z}") << true
                                           << "z";
}

void RtfReaderTest::guideReadsAsWrittenWhateverItHolds()
{
    QFETCH(QByteArray, rtf);
    QFETCH(bool, isRtf);
    QFETCH(QString, expected);
    QTextDocument doc;
    doc.setPlainText(QStringLiteral("left over from before"));
    QCOMPARE(readRtf(rtf, &doc), isRtf);
    QCOMPARE(shown(doc), expected);
}

void RtfReaderTest::guideKeepsBoldItalicUnderlineSizeColourAndAlignment()
{
    QTextDocument doc;
    QVERIFY(readRtf("{\\rtf1{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}\\qc"
                    "{\\b B}{\\i I}{\\ul U\\ulnone N}{\\fs40 F{\\fs0 Z}}{\\cf1 R\\cf2 C}{\\b\\plain P}\\par\\pard L"
                    "\\par\\qr X}",
                    &doc));
    QCOMPARE(shown(doc), QStringLiteral("BIUNFZRCP\nL\nX"));
    QCOMPARE(formatAt(doc, "B").fontWeight(), int(QFont::Bold));
    QVERIFY(!formatAt(doc, "I").font().bold()); // the group ended the bold
    QVERIFY(formatAt(doc, "I").fontItalic());
    QVERIFY(formatAt(doc, "U").fontUnderline());
    QVERIFY(!formatAt(doc, "N").fontUnderline());
    QCOMPARE(formatAt(doc, "F").fontPointSize(), 20.0); // half points
    QCOMPARE(formatAt(doc, "Z").fontPointSize(), 20.0); // a size of nothing is no size
    QCOMPARE(formatAt(doc, "R").foreground().color(), QColor(255, 0, 0));
    QCOMPARE(formatAt(doc, "C").foreground().color(), QColor(0, 0, 255));
    QVERIFY(!formatAt(doc, "P").font().bold());
    QCOMPARE(doc.findBlockByNumber(0).blockFormat().alignment(), Qt::AlignHCenter);
    QCOMPARE(doc.findBlockByNumber(1).blockFormat().alignment(), Qt::AlignLeft);
    QCOMPARE(doc.findBlockByNumber(2).blockFormat().alignment(), Qt::AlignRight);
}

// Many short runs of bold in one paragraph once cost the square of their
// number. Eight times the runs must cost about eight times the time; a
// square would make it 64.
void RtfReaderTest::timeGrowsInLineWithTheGuide()
{
    const auto cost = [](int runs, int tries) {
        const QByteArray rtf = "{\\rtf1 " + QByteArray("\\b x\\b0 y").repeated(runs) + "}";
        double best = 1e9;
        for (int i = 0; i < tries; ++i) {
            const double start = cpuMs();
            QTextDocument doc;
            readRtf(rtf, &doc);
            best = std::min(best, cpuMs() - start);
        }
        return best;
    };
    const double small = cost(500, 5);
    const double large = cost(4000, 2);
    QVERIFY2(large < 24 * small, qPrintable(QStringLiteral("%1 ms, then %2 ms").arg(small).arg(large)));
}

QTEST_MAIN(RtfReaderTest)
#include "rtf_reader_test.moc"
