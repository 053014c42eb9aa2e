// The sound player: reading WAV files, cutting one sound off with the next,
// holding the game for a Wait sound, the beep for a missing file, and what
// it asks of the device.
#include "screens/alsa_output.h"
#include "screens/sound_player.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <chrono>
#include <cmath>
#include <memory>
#include <mutex>
#include <sys/stat.h>
#include <thread>

using namespace amorra;

namespace {

QByteArray chunk(const QByteArray &id, const QByteArray &body, qint64 declared = -1)
{
    char size[4];
    qToLittleEndian<quint32>(quint32(declared < 0 ? body.size() : declared), size);
    return id + QByteArray(size, 4) + body + (declared < 0 && body.size() % 2 ? QByteArray(1, '\0') : QByteArray());
}

// A format chunk: tag, channels, rate, bits, block size (0: whole bytes per
// sample times channels).
QByteArray fmt(quint16 tag, quint16 channels, quint32 rate, quint16 bits, quint16 align = 0)
{
    QByteArray body(16, '\0');
    align = align ? align : quint16(channels * ((bits + 7) / 8));
    qToLittleEndian<quint16>(tag, body.data());
    qToLittleEndian<quint16>(channels, body.data() + 2);
    qToLittleEndian<quint32>(rate, body.data() + 4);
    qToLittleEndian<quint16>(align, body.data() + 12);
    qToLittleEndian<quint16>(bits, body.data() + 14);
    return chunk("fmt ", body);
}

QByteArray wav(const QByteArray &chunks)
{
    return chunk("RIFF", "WAVE" + chunks);
}

// Bytes no two offsets of a short clip share by accident.
QByteArray pattern(int size)
{
    QByteArray out(size, '\0');
    for (int i = 0; i < size; ++i)
        out[i] = char((i * 7 + i / 251) % 251);
    return out;
}

// 8 kHz mono 8-bit: eight bytes a millisecond.
QByteArray clip8k(int ms, char fill)
{
    return wav(fmt(1, 1, 8000, 8) + chunk("data", QByteArray(ms * 8, fill)));
}

using Clock = std::chrono::steady_clock;
std::mutex g_storyMutex; // the test reads the story while the sound thread writes it

// A sound device that plays `speed` times faster than real time, holds 100 ms
// ahead, and tells what it was asked: "open 1x8000Hz 1B", "11 x 160" (bytes
// of one value, merged), "drop", "close", "release", "open failed", "write
// failed" (the write numbered `failingWrite`).
struct FakeDevice final : PcmSink
{
    FakeDevice(QStringList *story, bool opens, double speed, int failingWrite)
        : story(story), opens(opens), speed(speed), failingWrite(failingWrite) {}
    bool open(const PcmFormat &f) override
    {
        format = f;
        tell(opens ? QStringLiteral("open %1x%2Hz %3B").arg(f.channels).arg(f.rate).arg(f.bytesPerSample) : "open failed");
        return opens;
    }
    long write(const char *frames, std::size_t count) override
    {
        if (++writes == failingWrite)
            return tell("write failed"), -1;
        count = std::min(count, std::size_t(std::max(0L, format.rate / 10 - queued())));
        if (count == 0)
            return std::this_thread::sleep_for(std::chrono::milliseconds(2)), 0;
        held += double(count);
        const QString fill = QString::number(quint8(frames[0]), 16) + " x ";
        const int before = story->isEmpty() || !story->last().startsWith(fill) ? -1 : story->last().mid(fill.size()).toInt();
        if (before >= 0)
            story->removeLast();
        tell(fill + QString::number(std::max(before, 0) + int(count) * format.frameBytes()));
        return long(count);
    }
    long queued() override
    {
        const Clock::time_point now = Clock::now();
        held = std::max(0.0, held - std::chrono::duration<double>(now - since).count() * format.rate * speed);
        since = now;
        return long(std::ceil(held));
    }
    void drop() override { held = 0, tell("drop"); }
    void close() override { tell("close"); }
    void release() override { tell("release"); }
    void tell(const QString &what)
    {
        const std::lock_guard lock(g_storyMutex);
        story->append(what);
    }

    QStringList *story;
    const bool opens;
    const double speed;
    const int failingWrite;
    PcmFormat format;
    double held = 0;
    Clock::time_point since = Clock::now();
    int writes = 0;
};

} // namespace

class SoundPlayerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void wavFilesGiveTheirFormatAndWholeFrames_data();
    void wavFilesGiveTheirFormatAndWholeFrames();
    void theDeviceHearsEachSoundAsAskedFor();
    void withoutADeviceAWaitReturnsAtOnceInSilence();
    void alsaIsUnloadedOnceNoDeviceOpens();

private:
    QStringList told()
    {
        const std::lock_guard lock(g_storyMutex);
        return m_story;
    }
    QString writeFile(const QString &name, const QByteArray &bytes);
    std::unique_ptr<AlsaSoundPlayer> player(bool opens = true, double speed = 1.0, int failingWrite = 0,
                                            std::chrono::milliseconds idleClose = std::chrono::seconds(3));

    std::unique_ptr<QTemporaryDir> m_dir;
    QStringList m_story;
    int m_beeps = 0;
};

void SoundPlayerTest::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    m_story.clear();
    m_beeps = 0;
}

QString SoundPlayerTest::writeFile(const QString &name, const QByteArray &bytes)
{
    QFile f(QDir(m_dir->path()).filePath(name));
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size() ? f.fileName() : QString();
}

std::unique_ptr<AlsaSoundPlayer> SoundPlayerTest::player(bool opens, double speed, int failingWrite,
                                                         std::chrono::milliseconds idleClose)
{
    return std::make_unique<AlsaSoundPlayer>(std::make_unique<FakeDevice>(&m_story, opens, speed, failingWrite),
                                             [this] { ++m_beeps; }, idleClose);
}

void SoundPlayerTest::wavFilesGiveTheirFormatAndWholeFrames_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("format"); // channels x rate x bytes a sample; "" when refused
    QTest::addColumn<QByteArray>("pcm");

    const QByteArray p = pattern(8000);
    QTest::newRow("8-bit mono") << wav(fmt(1, 1, 8000, 8) + chunk("data", p)) << "1x8000x1" << p;
    QTest::newRow("other chunks first, odd sized with their pad byte")
        << wav(chunk("LIST", "abc") + fmt(1, 1, 8000, 8) + chunk("junk", "x") + chunk("data", p)) << "1x8000x1" << p;
    QTest::newRow("odd-sized 16-bit data: the half frame is not played")
        << wav(fmt(1, 1, 8000, 16) + chunk("data", pattern(1601))) << "1x8000x2" << pattern(1600);
    QTest::newRow("cut off inside a stereo frame: the whole frames play")
        << wav(fmt(1, 2, 8000, 16) + chunk("data", pattern(3202), 8000)) << "2x8000x2" << pattern(3200);

    const QByteArray data = chunk("data", p.left(800));
    const struct { const char *name; QByteArray bytes; } refused[] = {
        {"empty file", ""},
        {"data before its format", wav(data + fmt(1, 1, 8000, 8))},
        {"ADPCM", wav(fmt(2, 1, 8000, 4, 256) + data)},
        {"absurd rate", wav(fmt(1, 1, 768001, 16) + data)},
        {"block not a whole number of samples", wav(fmt(1, 2, 8000, 16, 3) + data)},
        {"a chunk claiming 4 GB hides the data", wav(fmt(1, 1, 8000, 8) + chunk("LIST", "", 0xFFFFFFFFu) + data)},
    };
    for (const auto &r : refused)
        QTest::newRow(r.name) << r.bytes << QString() << QByteArray();
}

// Read whole, and streamed from the file in slices of 7 frames.
void SoundPlayerTest::wavFilesGiveTheirFormatAndWholeFrames()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, format);
    QFETCH(QByteArray, pcm);
    const std::optional<WavClip> clip = parseWav(bytes);
    const std::unique_ptr<WavStream> stream = WavStream::open(writeFile(QStringLiteral("x.wav"), bytes));
    QCOMPARE(clip.has_value(), !format.isEmpty());
    QCOMPARE(bool(stream), !format.isEmpty());
    if (!clip)
        return;
    const PcmFormat &f = clip->format;
    QCOMPARE(QStringLiteral("%1x%2x%3").arg(f.channels).arg(f.rate).arg(f.bytesPerSample), format);
    QCOMPARE(clip->pcm, pcm);
    QByteArray streamed;
    QByteArray slice(7 * f.frameBytes(), '\0');
    while (const std::size_t frames = stream->read(slice.data(), 7))
        streamed += slice.left(qsizetype(frames) * f.frameBytes());
    QCOMPARE(streamed, pcm);
}

// What the game asks of the device over a few sounds: a file it cannot play
// gives the desktop's beep for Async and silence for Wait, and a FIFO never
// holds it up; a failing device is closed and tried again with the next sound; Wait holds the game until the
// device has played the clip out (at twice the speed: before its length);
// a new sound cuts off the one still playing; another format and a while
// of silence each let the device go, silence the sound system too; a clip
// plays each time it is asked for.
void SoundPlayerTest::theDeviceHearsEachSoundAsAskedFor()
{
    const auto sound = player(true, 2.0, 2, std::chrono::milliseconds(500));
    const QDir dir(m_dir->path());
    QVERIFY(dir.mkdir("folder.wav") && ::mkfifo(QFile::encodeName(dir.filePath("fifo.wav")).constData(), 0600) == 0);
    QElapsedTimer clock;
    clock.start();
    for (const QString &bad : {dir.filePath("missing.wav"), writeFile("empty.wav", ""), dir.filePath("folder.wav"),
                               dir.filePath("fifo.wav"), writeFile("adpcm.wav", wav(fmt(2, 1, 8000, 4, 256)))}) {
        sound->play(bad, SoundMode::Async);
        sound->play(bad, SoundMode::Wait);
    }
    QCOMPARE(m_beeps, 5);
    QVERIFY(told().isEmpty());
    sound->play(writeFile("cat.wav", clip8k(2000, 0x12)), SoundMode::Wait);
    QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
    const QString kiss = writeFile("kiss.wav", clip8k(800, 0x34));
    clock.restart();
    sound->play(kiss, SoundMode::Wait);
    QVERIFY2(clock.elapsed() >= 350 && clock.elapsed() < 800, qPrintable(QString::number(clock.elapsed())));
    sound->play(writeFile("car.wav", clip8k(4000, 0x11)), SoundMode::Async);
    QTRY_VERIFY_WITH_TIMEOUT(told().last().startsWith("11 x "), 1000);
    sound->play(writeFile("police.wav", clip8k(200, 0x22)), SoundMode::Wait);
    sound->play(writeFile("b.wav", wav(fmt(1, 2, 22050, 16) + chunk("data", QByteArray(1764, 0x66)))), SoundMode::Wait);
    QTRY_VERIFY_WITH_TIMEOUT(told().last() == QStringLiteral("release"), 2000);
    sound->play(kiss, SoundMode::Wait);
    QStringList story = told();
    QVERIFY2(story.size() > 7 && story[7].mid(5).toInt() < 32000, qPrintable(story.join(", ")));
    story[7] = QStringLiteral("11 x some");
    QCOMPARE(story, (QStringList{"open 1x8000Hz 1B", "12 x 160", "write failed", "close", "open 1x8000Hz 1B",
                                 "34 x 6400", "drop", "11 x some", "drop", "22 x 1600", "drop", "close",
                                 "open 2x22050Hz 2B", "66 x 1764", "drop", "close", "release", "open 1x8000Hz 1B",
                                 "34 x 6400", "drop"}));
    QCOMPARE(m_beeps, 5);
}

// Without a device the sound system is let go a while after it was asked
// for, however many sounds the game asks for meanwhile, and asked again only
// once the player has turned the sound on again.
void SoundPlayerTest::withoutADeviceAWaitReturnsAtOnceInSilence()
{
    const auto sound = player(false, 1.0, 0, std::chrono::milliseconds(100));
    const QString cat = writeFile("cat.wav", clip8k(3000, 0x10));
    for (int round = 1; round <= 2; ++round) {
        QElapsedTimer clock;
        clock.start();
        sound->play(cat, SoundMode::Wait);
        QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
        for (int click = 0; click < 20 && told().size() < 2 * round; ++click) {
            sound->play(cat, SoundMode::Async);
            QTest::qWait(25);
        }
        QCOMPARE(told().size(), 2 * round);
        sound->soundSwitchedOn();
    }
    QCOMPARE(told(), (QStringList{"open failed", "release", "open failed", "release"}));
    QCOMPARE(m_beeps, 0);
}

namespace {
bool alsaLoaded()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libasound.so");
}
} // namespace

// Half a megabyte of library and configuration is not kept for a device
// that is not there, nor while one is not wanted; the next sound loads it again.
void SoundPlayerTest::alsaIsUnloadedOnceNoDeviceOpens()
{
    AlsaOutput missing("amorra_no_such_device");
    QVERIFY(!alsaLoaded());
    QVERIFY(!missing.open(PcmFormat{1, 22050, 2}));
    QVERIFY(alsaLoaded()); // it was asked
    missing.release();
    QVERIFY(!alsaLoaded());
    AlsaOutput sink("null"); // ALSA's own device that takes sound and plays nothing
    const QByteArray silence(2205 * 2, '\0');
    for (int round = 0; round < 2; ++round) {
        QVERIFY(sink.open(PcmFormat{1, 22050, 2}));
        QVERIFY(sink.write(silence.constData(), 2205) > 0);
        sink.release();
        QVERIFY(!alsaLoaded());
    }
}

QTEST_MAIN(SoundPlayerTest)
#include "sound_player_test.moc"
