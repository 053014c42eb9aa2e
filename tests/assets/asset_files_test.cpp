// Every file the windows load by name must be there, readable and of the size the
// layout was made for; the sounds must play on any PCM player, without clicks, at one
// loudness; the guide and help pages must open in their small readers.

// own
#include "screens/sound_player.h"

// Qt
#include <QColor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>
#include <QtEndian>

// std
#include <algorithm>
#include <cmath>
#include <vector>

namespace {

QString assetPath(const QString &relative)
{
    return QStringLiteral(AMORRA_ASSETS_DIR "/") + relative;
}

QByteArray readAll(const QString &relative)
{
    QFile f(assetPath(relative));
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return f.readAll();
}

// A sound as the game's own player reads it; its 16-bit samples for the
// loudness checks.
struct Sound
{
    std::optional<amorra::WavClip> clip;
    std::vector<qint16> samples;
};

Sound readSound(const QByteArray &bytes)
{
    Sound s;
    s.clip = amorra::parseWav(bytes);
    if (s.clip && s.clip->format.bytesPerSample == 2)
        for (qsizetype at = 0; at + 1 < s.clip->pcm.size(); at += 2)
            s.samples.push_back(qFromLittleEndian<qint16>(s.clip->pcm.constData() + at));
    return s;
}

double toDb(double level)
{
    return level > 0 ? 20.0 * std::log10(level) : -200.0;
}

double peakDbfs(const std::vector<qint16> &samples)
{
    int peak = 0;
    for (const qint16 s : samples)
        peak = std::max(peak, std::abs(int(s)));
    return toDb(peak / 32768.0);
}

double rmsDbfs(const std::vector<qint16> &samples)
{
    double sum = 0.0;
    for (const qint16 s : samples)
        sum += (s / 32768.0) * (s / 32768.0);
    return samples.empty() ? -200.0 : toDb(std::sqrt(sum / double(samples.size())));
}

// Loudest sample within the first or last few milliseconds, as a fraction of
// full scale: a sound that starts or stops at full swing is heard as a click.
double edgeLevel(const std::vector<qint16> &samples, int rate, double millis)
{
    const std::size_t n = std::min(samples.size(), std::size_t(std::max(1, int(millis / 1000.0 * rate))));
    int worst = 0;
    for (std::size_t i = 0; i < n; ++i) {
        worst = std::max(worst, std::abs(int(samples[i])));
        worst = std::max(worst, std::abs(int(samples[samples.size() - 1 - i])));
    }
    return worst / 32768.0;
}

QImage load(const QString &relative)
{
    QImageReader reader(assetPath(relative));
    return reader.read();
}

quint32 le32(const QByteArray &b, int at)
{
    return quint32(quint8(b[at])) | quint32(quint8(b[at + 1])) << 8 | quint32(quint8(b[at + 2])) << 16
        | quint32(quint8(b[at + 3])) << 24;
}

// Mean difference per channel between two pictures of the same size, 0..255.
double meanDifference(const QImage &a, const QImage &b)
{
    const QImage x = a.convertToFormat(QImage::Format_RGB32);
    const QImage y = b.convertToFormat(QImage::Format_RGB32);
    double sum = 0;
    for (int r = 0; r < x.height(); ++r)
        for (int c = 0; c < x.width(); ++c) {
            const QRgb p = x.pixel(c, r), q = y.pixel(c, r);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
        }
    return sum / (3.0 * x.width() * x.height());
}

} // namespace

// Whether a picture must let its background show through at the corners.
enum class Alpha { Opaque, Transparent };
Q_DECLARE_METATYPE(Alpha)

class AssetFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void picturesLoadAtTheSizeTheirWindowsExpect_data();
    void picturesLoadAtTheSizeTheirWindowsExpect();
    void herPortraitsAreTwentyFourBitBmps_data();
    void herPortraitsAreTwentyFourBitBmps();
    void herElevenPortraitsAreAllDifferent();
    void thePointerPointsFromItsTopLeftCorner();
    void animationsLoopForeverAtTheirSize_data();
    void animationsLoopForeverAtTheirSize();
    void theScalableIconIsAValidSquareSvg();
    void soundsArePlainPcmOfTheRightLength_data();
    void soundsArePlainPcmOfTheRightLength();
    void soundsShareOneLoudness();
    void quickStartGuideIsPlainBalancedRtf();
    void quickStartGuideStatesTheRules();
    void helpPagesReferOnlyToFilesBesideThem_data();
    void helpPagesReferOnlyToFilesBesideThem();
};

void AssetFilesTest::picturesLoadAtTheSizeTheirWindowsExpect_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<Alpha>("alpha");

    const auto row = [](const char *file, int w, int h, Alpha a) {
        QTest::newRow(file) << QString::fromLatin1(file) << QSize(w, h) << a;
    };
    for (int i = 1; i <= 11; ++i) {
        const QByteArray name = "girl" + QByteArray::number(i) + ".bmp";
        QTest::newRow(name.constData()) << QString::fromLatin1(name) << QSize(105, 113) << Alpha::Opaque;
    }
    row("pictures/face_default.png", 105, 113, Alpha::Opaque);
    for (const char *m : {"pictures/mode_phone.png", "pictures/mode_gift.png", "pictures/mode_date.png",
                          "pictures/mode_work.png", "pictures/mode_shop.png"})
        row(m, 32, 32, Alpha::Transparent);
    row("pictures/heart.png", 17, 17, Alpha::Transparent);
    for (const char *s : {"pictures/stat_looks_a.png", "pictures/stat_looks_b.png", "pictures/stat_brains_a.png",
                          "pictures/stat_brains_b.png", "pictures/stat_luck_a.png", "pictures/stat_luck_b.png"})
        row(s, 16, 16, Alpha::Transparent);
    row("pictures/gameover.png", 96, 96, Alpha::Transparent);
    row("pictures/notice_cat.png", 96, 75, Alpha::Opaque);
    row("pictures/notice_found.png", 252, 106, Alpha::Opaque);
    row("pictures/notice_fine.png", 250, 126, Alpha::Opaque);
    row("pictures/about_main.png", 411, 172, Alpha::Opaque);
    row("pictures/about_logo.png", 288, 87, Alpha::Transparent);
    row("pictures/about_pointer.png", 32, 32, Alpha::Transparent);
    row("pictures/setup_banner.png", 360, 64, Alpha::Opaque);
    row("pictures/setup_side.png", 96, 160, Alpha::Transparent);
    for (int s : {16, 32, 48, 64, 128, 256}) {
        const QByteArray name = "icons/amorra-" + QByteArray::number(s) + ".png";
        QTest::newRow(name.constData()) << QString::fromLatin1(name) << QSize(s, s) << Alpha::Transparent;
    }
}

void AssetFilesTest::picturesLoadAtTheSizeTheirWindowsExpect()
{
    QFETCH(QString, file);
    QFETCH(QSize, size);
    QFETCH(Alpha, alpha);

    QVERIFY2(QFile::exists(assetPath(file)), qPrintable(file + " is missing"));
    QImageReader reader(assetPath(file));
    const QImage image = reader.read();
    QVERIFY2(!image.isNull(), qPrintable(file + ": " + reader.errorString()));
    QCOMPARE(image.size(), size);

    // Transparent pictures sit on buttons and dialogs of any colour: their corners must
    // let the background through; opaque ones must not show holes.
    const QColor corner = image.pixelColor(0, image.height() - 1);
    if (alpha == Alpha::Transparent) {
        QVERIFY2(image.hasAlphaChannel(), qPrintable(file + " has no alpha channel"));
        QCOMPARE(corner.alpha(), 0);
    } else {
        QCOMPARE(corner.alpha(), 255);
    }
    // A blank picture would load fine and still show nothing.
    const QImage small = image.convertToFormat(QImage::Format_ARGB32);
    QSet<QRgb> colours;
    for (int y = 0; y < small.height() && colours.size() < 8; ++y)
        for (int x = 0; x < small.width(); ++x)
            colours.insert(small.pixel(x, y));
    QVERIFY2(colours.size() >= 8, qPrintable(file + " is (almost) one flat colour"));
}

void AssetFilesTest::herPortraitsAreTwentyFourBitBmps_data()
{
    QTest::addColumn<QString>("file");
    for (int i = 1; i <= 11; ++i) {
        const QByteArray name = "girl" + QByteArray::number(i) + ".bmp";
        QTest::newRow(name.constData()) << QString::fromLatin1(name);
    }
}

void AssetFilesTest::herPortraitsAreTwentyFourBitBmps()
{
    QFETCH(QString, file);
    const QByteArray b = readAll(file);
    QVERIFY2(b.size() > 54, qPrintable(file + " is missing or truncated"));
    QVERIFY(b.startsWith("BM"));
    QCOMPARE(le32(b, 14), quint32(40));                 // the classic BITMAPINFOHEADER (BMP3)
    QCOMPARE(quint8(b[28]) | quint8(b[29]) << 8, 24);    // bits per pixel
    QCOMPARE(le32(b, 30), quint32(0));                  // uncompressed
    QCOMPARE(qint64(le32(b, 2)), qint64(b.size()));     // the header's file size is the real one
}

void AssetFilesTest::herElevenPortraitsAreAllDifferent()
{
    // ChangeFace draws one of eleven pictures; two near-identical files would make two
    // of the draws look like the same girl.
    QVector<QImage> faces;
    for (int i = 1; i <= 11; ++i) {
        faces << load(QStringLiteral("girl%1.bmp").arg(i));
        QVERIFY(!faces.last().isNull());
    }
    for (int i = 0; i < faces.size(); ++i)
        for (int j = i + 1; j < faces.size(); ++j) {
            const double d = meanDifference(faces[i], faces[j]);
            QVERIFY2(d > 12.0, qPrintable(QStringLiteral("girl%1 and girl%2 differ by only %3")
                                              .arg(i + 1).arg(j + 1).arg(d)));
        }
    QVERIFY(meanDifference(faces[0], load(QStringLiteral("pictures/face_default.png"))) > 12.0);
}

void AssetFilesTest::thePointerPointsFromItsTopLeftCorner()
{
    // The About box uses the pointer with its hot spot at (0, 0): the fingertip must be
    // there, or clicks land away from where the player aims.
    const QImage p = load(QStringLiteral("pictures/about_pointer.png")).convertToFormat(QImage::Format_ARGB32);
    QVERIFY(!p.isNull());
    bool tip = false;
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            tip = tip || qAlpha(p.pixel(x, y)) > 128;
    QVERIFY2(tip, "nothing drawn in the pointer's top-left corner");
    QCOMPARE(qAlpha(p.pixel(31, 0)), 0);
}

void AssetFilesTest::animationsLoopForeverAtTheirSize_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QSize>("size");
    QTest::newRow("win screen kiss") << QStringLiteral("couple_kiss.gif") << QSize(160, 120);
    QTest::newRow("win screen hearts") << QStringLiteral("hearts.gif") << QSize(48, 48);
    QTest::newRow("top 20 trophy") << QStringLiteral("champ.gif") << QSize(143, 182);
    QTest::newRow("top 20 banner") << QStringLiteral("champlbl.gif") << QSize(160, 42);
}

void AssetFilesTest::animationsLoopForeverAtTheirSize()
{
    QFETCH(QString, file);
    QFETCH(QSize, size);

    QVERIFY2(QFile::exists(assetPath(file)), qPrintable(file + " is missing"));
    QVERIFY2(QFileInfo(assetPath(file)).size() < 300 * 1024, "animation heavier than 300 KB");
    QImageReader reader(assetPath(file));
    QVERIFY(reader.supportsAnimation());
    QCOMPARE(reader.size(), size);
    QVERIFY2(reader.imageCount() > 1, "a single frame does not move");
    QCOMPARE(reader.loopCount(), -1);  // -1: the file asks to loop forever

    QImage first;
    int frames = 0;
    bool moves = false;
    while (reader.canRead()) {
        const QImage frame = reader.read();
        QVERIFY2(!frame.isNull(), qPrintable(reader.errorString()));
        QCOMPARE(frame.size(), size);
        QVERIFY2(reader.nextImageDelay() > 0, "a frame without a delay runs as fast as the CPU allows");
        if (first.isNull())
            first = frame;
        else
            moves = moves || meanDifference(first, frame) > 0.5;
        ++frames;
    }
    QCOMPARE(frames, reader.imageCount());
    QVERIFY2(moves, "every frame looks the same");
}

void AssetFilesTest::theScalableIconIsAValidSquareSvg()
{
    const QString file = QStringLiteral("icons/amorra.svg");
    const QByteArray bytes = readAll(file);
    QVERIFY2(!bytes.isEmpty(), "icons/amorra.svg is missing");

    if (QImageReader::supportedImageFormats().contains("svg")) {
        QImageReader reader(assetPath(file));
        reader.setScaledSize(QSize(64, 64));
        const QImage icon = reader.read();
        QVERIFY2(!icon.isNull(), qPrintable(reader.errorString()));
        QCOMPARE(qAlpha(icon.pixel(0, 0)), 0);
        QVERIFY(qAlpha(icon.pixel(32, 32)) > 200);
    }
    // Without the SVG plugin the file still has to be well-formed for the icon theme.
    QXmlStreamReader xml(bytes);
    QString root;
    QString viewBox;
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && root.isEmpty()) {
            root = xml.name().toString();
            viewBox = xml.attributes().value(QStringLiteral("viewBox")).toString();
        }
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QCOMPARE(root, QStringLiteral("svg"));
    const QStringList box = viewBox.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QCOMPARE(box.size(), 4);
    QCOMPARE(box[2], box[3]);
}

void AssetFilesTest::soundsArePlainPcmOfTheRightLength_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<double>("longest");

    for (const char *s : {"car", "laff", "money", "phonet", "phoned", "sigh", "doorbell", "cashrg", "humpf",
                          "found", "cat", "kiss", "sigh_m"})
        QTest::newRow(s) << QStringLiteral("sounds/%1.wav").arg(QLatin1String(s)) << 2.0;
    QTest::newRow("police") << QStringLiteral("sounds/police.wav") << 2.6;
    for (int i = 1; i <= 7; ++i) {
        const QByteArray name = "movie" + QByteArray::number(i);
        QTest::newRow(name.constData()) << QStringLiteral("sounds/%1.wav").arg(QLatin1String(name)) << 4.0;
    }
    for (const char *s : {"dinner", "beach", "bowling", "carnival", "play", "club", "pub", "rock", "birds"})
        QTest::newRow(s) << QStringLiteral("sounds/%1.wav").arg(QLatin1String(s)) << 4.0;
}

void AssetFilesTest::soundsArePlainPcmOfTheRightLength()
{
    QFETCH(QString, file);
    QFETCH(double, longest);

    const QByteArray bytes = readAll(file);
    QVERIFY2(!bytes.isEmpty(), qPrintable(file + " is missing"));
    // Whole: the RIFF header counts every byte that follows it.
    QCOMPARE(qsizetype(qFromLittleEndian<quint32>(bytes.constData() + 4)) + 8, bytes.size());
    const Sound s = readSound(bytes);
    QVERIFY2(s.clip, qPrintable(file + ": the game cannot play it"));
    const amorra::PcmFormat &f = s.clip->format;
    QCOMPARE(f.bytesPerSample, 2);
    QCOMPARE(f.channels, 1);
    QVERIFY(f.rate >= 22050);
    const double seconds = s.clip->durationMs() / 1000.0;
    QVERIFY2(seconds > 0.2, "too short to be heard");
    QVERIFY2(seconds <= longest, qPrintable(QStringLiteral("%1 s is too long").arg(seconds)));
    // The last sound cuts off the previous one; an abrupt start or end would click.
    const double edge = edgeLevel(s.samples, f.rate, 0.5);
    QVERIFY2(edge < 0.05, qPrintable(QStringLiteral("click at an end: %1").arg(edge)));
    QVERIFY2(peakDbfs(s.samples) <= -1.0,
             qPrintable(QStringLiteral("clipping: peak %1 dBFS").arg(peakDbfs(s.samples))));
}

void AssetFilesTest::soundsShareOneLoudness()
{
    // A player sets his volume once: no clip may be much louder or quieter than the rest.
    const QStringList files = QDir(assetPath(QStringLiteral("sounds"))).entryList({QStringLiteral("*.wav")});
    QCOMPARE(files.size(), 30);
    for (const QString &f : files) {
        const Sound s = readSound(readAll(QStringLiteral("sounds/") + f));
        QVERIFY2(s.clip, qPrintable(f + ": the game cannot play it"));
        const double rms = rmsDbfs(s.samples);
        QVERIFY2(rms > -25.0 && rms < -14.0, qPrintable(QStringLiteral("%1: RMS %2 dBFS").arg(f).arg(rms)));
    }
}

void AssetFilesTest::quickStartGuideIsPlainBalancedRtf()
{
    const QByteArray rtf = readAll(QStringLiteral("qsguide.rtf"));
    QVERIFY2(rtf.startsWith("{\\rtf1"), "qsguide.rtf is missing or not RTF");
    QVERIFY(rtf.contains("{\\fonttbl"));
    QVERIFY(rtf.contains("{\\colortbl"));
    int depth = 0;
    for (int i = 0; i < rtf.size(); ++i) {
        const char c = rtf[i];
        QVERIFY2(quint8(c) < 128, "RTF must be 7-bit: other characters go as \\'hh or \\uN escapes");
        if (c == '\\') {
            ++i;  // an escaped brace or backslash is text, not structure
            continue;
        }
        if (c == '{')
            ++depth;
        if (c == '}')
            --depth;
        QVERIFY2(depth >= 0 && (depth > 0 || i == rtf.size() - 1 || rtf.mid(i + 1).trimmed().isEmpty()),
                 qPrintable(QStringLiteral("group closed too early at byte %1").arg(i)));
    }
    QCOMPARE(depth, 0);
    // Pictures and tables are beyond the guide window's reader.
    QVERIFY(!rtf.contains("\\pict"));
    QVERIFY(!rtf.contains("\\trowd"));
}

void AssetFilesTest::quickStartGuideStatesTheRules()
{
    const QByteArray rtf = readAll(QStringLiteral("qsguide.rtf"));
    for (const char *fact : {"Call Her", "Buy A Gift", "Take Her Out", "Go to Work", "Go Shopping", "$5",
                             "150", "Day 30", "10000000000", "88028", "Do you want to go out sometime?"})
        QVERIFY2(rtf.contains(fact), fact);
}

void AssetFilesTest::helpPagesReferOnlyToFilesBesideThem_data()
{
    QTest::addColumn<QString>("page");
    QTest::newRow("help") << QStringLiteral("help/index.html");
    QTest::newRow("about") << QStringLiteral("help/about.html");
}

void AssetFilesTest::helpPagesReferOnlyToFilesBesideThem()
{
    QFETCH(QString, page);
    const QString html = QString::fromUtf8(readAll(page));
    QVERIFY2(!html.isEmpty(), qPrintable(page + " is missing"));
    QVERIFY(html.contains(QLatin1String("<title>")));
    // The help opens offline: nothing may come from the network, and no script runs.
    QVERIFY(!html.contains(QLatin1String("<script"), Qt::CaseInsensitive));
    const QRegularExpression ref(QStringLiteral(R"re((?:src|href)\s*=\s*"([^"]*)")re"));
    const QDir here = QFileInfo(assetPath(page)).dir();
    int pictures = 0;
    for (auto it = ref.globalMatch(html); it.hasNext();) {
        const QString target = it.next().captured(1);
        QVERIFY2(!target.contains(QLatin1String("://")) && !target.startsWith(QLatin1String("//")),
                 qPrintable(page + " refers to the network: " + target));
        const QString file = target.section(QLatin1Char('#'), 0, 0);
        if (file.isEmpty())
            continue;  // an anchor on the same page
        QVERIFY2(QFile::exists(here.filePath(file)), qPrintable(page + " refers to a missing " + file));
        if (file.endsWith(QLatin1String(".png"))) {
            QVERIFY2(!QImage(here.filePath(file)).isNull(), qPrintable(file + " does not load"));
            ++pictures;
        }
    }
    QVERIFY2(pictures > 0, "the page shows no pictures");
    // Anchors used by the page's own links must exist on it.
    const QRegularExpression anchor(QStringLiteral(R"re(href="#([^"]+)")re"));
    for (auto it = anchor.globalMatch(html); it.hasNext();) {
        const QString id = it.next().captured(1);
        QVERIFY2(html.contains(QStringLiteral("id=\"%1\"").arg(id)), qPrintable("no anchor " + id));
    }
}

QTEST_MAIN(AssetFilesTest)
#include "asset_files_test.moc"
