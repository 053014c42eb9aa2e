// The sound player: reading WAV files, cutting one sound off with the next,
// holding the game for a Wait sound, the beep for a missing file, letting
// the device go when idle, and the ALSA output reaching a real ALSA plugin.
#include "screens/alsa_output.h"
#include "screens/sound_player.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace amorra;

namespace {

QByteArray chunk(const QByteArray &id, const QByteArray &body)
{
    QByteArray out = id;
    char size[4];
    qToLittleEndian<quint32>(quint32(body.size()), size);
    out.append(size, 4);
    out += body;
    if (body.size() % 2)
        out += '\0';
    return out;
}

struct Fmt
{
    quint16 tag = 1;
    quint16 channels = 1;
    quint32 rate = 8000;
    quint16 bits = 8;
    quint16 blockAlign = 0; // 0: whole bytes per sample times channels
    quint16 subTag = 1;     // the extended header's real format
};

QByteArray fmtBody(const Fmt &f)
{
    const bool extensible = f.tag == 0xFFFE;
    QByteArray body(extensible ? 40 : 16, '\0');
    const quint16 align = f.blockAlign ? f.blockAlign : quint16(f.channels * ((f.bits + 7) / 8));
    qToLittleEndian<quint16>(f.tag, body.data());
    qToLittleEndian<quint16>(f.channels, body.data() + 2);
    qToLittleEndian<quint32>(f.rate, body.data() + 4);
    qToLittleEndian<quint32>(f.rate * align, body.data() + 8);
    qToLittleEndian<quint16>(align, body.data() + 12);
    qToLittleEndian<quint16>(f.bits, body.data() + 14);
    if (extensible) {
        qToLittleEndian<quint16>(22, body.data() + 16);
        qToLittleEndian<quint16>(24, body.data() + 18); // valid bits
        qToLittleEndian<quint16>(f.subTag, body.data() + 24);
    }
    return body;
}

QByteArray wav(const QByteArray &chunks)
{
    return chunk("RIFF", "WAVE" + chunks);
}

QByteArray wav(const Fmt &f, const QByteArray &pcm)
{
    return wav(chunk("fmt ", fmtBody(f)) + chunk("data", pcm));
}

// A data chunk that claims `declared` bytes but holds only `held` (of even
// size, or the RIFF chunk's pad byte would join it).
QByteArray cutData(quint32 declared, const QByteArray &held)
{
    QByteArray out = "data";
    char size[4];
    qToLittleEndian<quint32>(declared, size);
    out.append(size, 4);
    return out + held;
}

// Bytes no two offsets of a short clip share by accident.
QByteArray pattern(int size)
{
    QByteArray out(size, '\0');
    for (int i = 0; i < size; ++i)
        out[i] = char((i * 7 + i / 251) % 251);
    return out;
}

// 8 kHz mono 8-bit: one byte per millisecond times 8.
QByteArray clip8k(int ms, char fill)
{
    return wav(Fmt{}, QByteArray(ms * 8, fill));
}

using Clock = std::chrono::steady_clock;

// A sound device in the test's hands. It plays in real time (or `speed`
// times faster), holds at most 100 ms ahead, and tells what it was asked:
// "open 1x8000Hz 1B", "11 x 160" (writes of one byte value, merged),
// "drop", "close", "open failed", "write failed".
class FakeDevice
{
public:
    explicit FakeDevice(bool opens = true, double speed = 1.0, int failingWrite = 0)
        : m_opens(opens), m_speed(speed), m_failingWrite(failingWrite)
    {
    }

    QStringList story() const
    {
        const std::lock_guard lock(m_mutex);
        QStringList story;
        for (const std::string &line : m_story)
            story.append(QString::fromStdString(line));
        return story;
    }
    int bytesWritten() const
    {
        const std::lock_guard lock(m_mutex);
        return m_written;
    }
    // When last asked, nothing written was left to play.
    bool heardAll() const
    {
        const std::lock_guard lock(m_mutex);
        return m_heardAll;
    }

    bool open(const PcmFormat &format)
    {
        const std::lock_guard lock(m_mutex);
        m_format = format;
        m_queued = 0;
        tell(m_opens ? QStringLiteral("open %1x%2Hz %3B").arg(format.channels).arg(format.rate).arg(format.bytesPerSample)
                     : QStringLiteral("open failed"));
        return m_opens;
    }

    long write(const char *frames, std::size_t count)
    {
        std::unique_lock lock(m_mutex);
        if (++m_writes == m_failingWrite) {
            tell(QStringLiteral("write failed"));
            return -1;
        }
        // Takes what fits in 100 ms ahead of the ear, like a real device.
        drain();
        count = std::min(count, std::size_t(std::max(0.0, m_format.rate / 10.0 - m_queued)));
        if (count == 0) {
            lock.unlock();
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
            return 0;
        }
        m_queued += double(count);
        m_heardAll = false;
        const int bytes = int(count) * m_format.frameBytes();
        m_written += bytes;
        const QString fill = QString::number(quint8(frames[0]), 16) + QStringLiteral(" x ");
        if (!m_story.empty() && QString::fromStdString(m_story.back()).startsWith(fill))
            m_story.back() = (fill + QString::number(std::stoi(m_story.back().substr(fill.size())) + bytes)).toStdString();
        else
            tell(fill + QString::number(bytes));
        return long(count);
    }

    long queued()
    {
        const std::lock_guard lock(m_mutex);
        drain();
        const long left = long(std::ceil(m_queued));
        m_heardAll = left == 0;
        return left;
    }

    void drop()
    {
        const std::lock_guard lock(m_mutex);
        m_queued = 0;
        tell(QStringLiteral("drop"));
    }

    void close()
    {
        const std::lock_guard lock(m_mutex);
        tell(QStringLiteral("close"));
    }

private:
    // Plain strings: Qt's shared lists are not to be shared between threads.
    void tell(const QString &what) { m_story.push_back(what.toStdString()); }

    void drain()
    {
        const Clock::time_point now = Clock::now();
        const double seconds = std::chrono::duration<double>(now - m_since).count();
        m_queued = std::max(0.0, m_queued - seconds * m_format.rate * m_speed);
        m_since = now;
    }

    const bool m_opens;
    const double m_speed;
    const int m_failingWrite;
    mutable std::mutex m_mutex;
    std::vector<std::string> m_story;
    PcmFormat m_format;
    double m_queued = 0;
    Clock::time_point m_since = Clock::now();
    int m_writes = 0;
    int m_written = 0;
    bool m_heardAll = false;
};

// Hands the player's calls to a device the test keeps after the player is gone.
class FakeSink final : public PcmSink
{
public:
    explicit FakeSink(std::shared_ptr<FakeDevice> device) : m_device(std::move(device)) {}
    bool open(const PcmFormat &format) override { return m_device->open(format); }
    long write(const char *frames, std::size_t count) override { return m_device->write(frames, count); }
    long queued() override { return m_device->queued(); }
    void drop() override { m_device->drop(); }
    void close() override { m_device->close(); }

private:
    std::shared_ptr<FakeDevice> m_device;
};

// Catches what the process writes to stderr while it lives.
class StderrCapture
{
public:
    explicit StderrCapture(const QString &file)
        : m_file(file)
    {
        std::fflush(stderr);
        m_saved = dup(STDERR_FILENO);
        if (std::FILE *sink = std::fopen(qPrintable(file), "w")) {
            dup2(fileno(sink), STDERR_FILENO);
            std::fclose(sink);
        }
    }
    ~StderrCapture() { restore(); }
    QByteArray text()
    {
        restore();
        QFile f(m_file);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(capture lost)");
    }

private:
    void restore()
    {
        if (m_saved < 0)
            return;
        std::fflush(stderr);
        dup2(m_saved, STDERR_FILENO);
        ::close(m_saved);
        m_saved = -1;
    }
    QString m_file;
    int m_saved = -1;
};

} // namespace

Q_DECLARE_METATYPE(amorra::PcmFormat)

class SoundPlayerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void wavFilesGiveTheirFormatAndWholeFrames_data();
    void wavFilesGiveTheirFormatAndWholeFrames();
    void unplayableWavFilesAreRefused_data();
    void unplayableWavFilesAreRefused();

    void aNewSoundCutsOffTheOneStillPlaying();
    void waitReturnsOnceTheDeviceHasPlayedTheSoundOut();
    void waitWithoutADeviceReturnsAtOnce();
    void badFilesBeepForAsyncAndAreSilentForWait_data();
    void badFilesBeepForAsyncAndAreSilentForWait();
    void theSameClipPlaysEachTimeItIsAskedFor();
    void anotherFormatReopensTheDevice();
    void aFailingDeviceIsClosedAndTriedAgainWithTheNextSound();
    void anIdleDeviceIsLetGoAndReopenedForTheNextSound();
    void closingTheGameStopsALongSoundPromptly();

    void alsaReceivesExactlyTheClipsSamples_data();
    void alsaReceivesExactlyTheClipsSamples();
    void anUnknownAlsaDeviceIsSilentAndHoldsNothing();

private:
    QString writeFile(const QString &name, const QByteArray &bytes);
    std::unique_ptr<AlsaSoundPlayer> player(const std::shared_ptr<FakeDevice> &device,
                                            std::chrono::milliseconds idleClose = std::chrono::seconds(3));

    std::unique_ptr<QTemporaryDir> m_dir;
    int m_beeps = 0;
};

void SoundPlayerTest::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    m_beeps = 0;
}

QString SoundPlayerTest::writeFile(const QString &name, const QByteArray &bytes)
{
    const QString path = QDir(m_dir->path()).filePath(name);
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

std::unique_ptr<AlsaSoundPlayer> SoundPlayerTest::player(const std::shared_ptr<FakeDevice> &device,
                                                         std::chrono::milliseconds idleClose)
{
    return std::make_unique<AlsaSoundPlayer>(std::make_unique<FakeSink>(device), [this] { ++m_beeps; }, idleClose);
}

void SoundPlayerTest::wavFilesGiveTheirFormatAndWholeFrames_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<PcmFormat>("format");
    QTest::addColumn<QByteArray>("pcm");
    QTest::addColumn<int>("ms");

    const QByteArray second8k = pattern(8000);
    QTest::newRow("8-bit unsigned mono, one second")
        << wav(Fmt{}, second8k) << PcmFormat{1, 8000, 1} << second8k << 1000;
    const QByteArray cd = pattern(88200);
    QTest::newRow("16-bit stereo at 44.1 kHz, half a second")
        << wav(Fmt{1, 2, 44100, 16}, cd) << PcmFormat{2, 44100, 2} << cd << 500;
    const QByteArray deep = pattern(14400);
    QTest::newRow("24-bit mono at 48 kHz, 100 ms") << wav(Fmt{1, 1, 48000, 24}, deep) << PcmFormat{1, 48000, 3}
                                                   << deep << 100;
    const QByteArray wide = pattern(6400);
    QTest::newRow("32-bit stereo at 8 kHz, 100 ms") << wav(Fmt{1, 2, 8000, 32}, wide) << PcmFormat{2, 8000, 4}
                                                    << wide << 100;
    QTest::newRow("12-bit samples sit in two bytes")
        << wav(Fmt{1, 1, 8000, 12}, wide) << PcmFormat{1, 8000, 2} << wide << 400;
    QTest::newRow("extended header holding PCM, 24 bits in 32")
        << wav(Fmt{0xFFFE, 2, 8000, 32}, wide) << PcmFormat{2, 8000, 4} << wide << 100;
    QTest::newRow("other chunks first, odd sized with their pad byte")
        << wav(chunk("LIST", "abc") + chunk("fmt ", fmtBody(Fmt{})) + chunk("junk", "x") + chunk("data", second8k))
        << PcmFormat{1, 8000, 1} << second8k << 1000;
    QByteArray longFmt = fmtBody(Fmt{1, 1, 8000, 16});
    longFmt += QByteArray(2, '\0'); // an empty extension
    QTest::newRow("format chunk with an empty extension")
        << wav(chunk("fmt ", longFmt) + chunk("data", wide)) << PcmFormat{1, 8000, 2} << wide << 400;
    QTest::newRow("odd-sized 16-bit data: the half frame is not played")
        << wav(Fmt{1, 1, 8000, 16}, pattern(1601)) << PcmFormat{1, 8000, 2} << pattern(1600) << 100;
    QTest::newRow("a cut-off file plays what it holds")
        << wav(chunk("fmt ", fmtBody(Fmt{})) + cutData(8000, pattern(4000))) << PcmFormat{1, 8000, 1}
        << pattern(4000) << 500;
    QTest::newRow("cut off inside a stereo frame: the whole frames play")
        << wav(chunk("fmt ", fmtBody(Fmt{1, 2, 8000, 16})) + cutData(8000, pattern(3202))) << PcmFormat{2, 8000, 2}
        << pattern(3200) << 100;
    QTest::newRow("empty data: a sound file with nothing to hear")
        << wav(Fmt{}, QByteArray()) << PcmFormat{1, 8000, 1} << QByteArray() << 0;
}

void SoundPlayerTest::wavFilesGiveTheirFormatAndWholeFrames()
{
    QFETCH(QByteArray, bytes);
    QFETCH(PcmFormat, format);
    QFETCH(QByteArray, pcm);
    QFETCH(int, ms);
    const std::optional<WavClip> clip = parseWav(bytes);
    QVERIFY(clip.has_value());
    QCOMPARE(clip->format.channels, format.channels);
    QCOMPARE(clip->format.rate, format.rate);
    QCOMPARE(clip->format.bytesPerSample, format.bytesPerSample);
    QCOMPARE(clip->pcm, pcm);
    QCOMPARE(clip->durationMs(), ms);
}

void SoundPlayerTest::unplayableWavFilesAreRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");

    const QByteArray pcm = pattern(800);
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("not RIFF") << QByteArray("ID3\x03 some mp3 bytes here");
    QTest::newRow("header only") << wav(QByteArray());
    QTest::newRow("RIFF but not WAVE") << chunk("RIFF", "AVI " + chunk("data", "xx"));
    QTest::newRow("data before its format") << wav(chunk("data", pcm) + chunk("fmt ", fmtBody(Fmt{})));
    QTest::newRow("ADPCM") << wav(Fmt{2, 1, 8000, 4, 256}, pcm);
    QTest::newRow("floating point") << wav(Fmt{3, 1, 8000, 32}, pcm);
    QTest::newRow("extended header holding floating point") << wav(Fmt{0xFFFE, 1, 8000, 32, 0, 3}, pcm);
    QTest::newRow("no channels") << wav(Fmt{1, 0, 8000, 16, 2}, pcm);
    QTest::newRow("zero rate") << wav(Fmt{1, 1, 0, 16}, pcm);
    QTest::newRow("absurd rate") << wav(Fmt{1, 1, 4000000000u, 16}, pcm);
    QTest::newRow("block not a whole number of samples") << wav(Fmt{1, 2, 8000, 16, 3}, pcm);
    QTest::newRow("16 bits claimed in one byte") << wav(Fmt{1, 1, 8000, 16, 1}, pcm);
    QTest::newRow("8 bits padded to two bytes") << wav(Fmt{1, 1, 8000, 8, 2}, pcm);
    QTest::newRow("40-bit samples") << wav(Fmt{1, 1, 8000, 40}, pcm);
    QTest::newRow("zero bits") << wav(Fmt{1, 1, 8000, 0, 2}, pcm);
    QTest::newRow("format chunk too short") << wav(chunk("fmt ", fmtBody(Fmt{}).left(14)) + chunk("data", pcm));
    QTest::newRow("cut off inside the format") << wav(chunk("fmt ", fmtBody(Fmt{}))).left(30);
    QTest::newRow("extended header cut short") << wav(chunk("fmt ", fmtBody(Fmt{0xFFFE, 1, 8000, 16}).left(24)));
    QTest::newRow("no data chunk") << wav(chunk("fmt ", fmtBody(Fmt{})));
    QTest::newRow("a chunk claiming 4 GB hides the data")
        << wav(chunk("fmt ", fmtBody(Fmt{})) + cutData(0xFFFFFFFFu, "").replace(0, 4, "LIST") + chunk("data", pcm));
}

void SoundPlayerTest::unplayableWavFilesAreRefused()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!parseWav(bytes).has_value());
}

void SoundPlayerTest::aNewSoundCutsOffTheOneStillPlaying()
{
    const auto device = std::make_shared<FakeDevice>();
    const auto sound = player(device);
    sound->play(writeFile("car.wav", clip8k(1000, 0x11)), SoundMode::Async);
    QTRY_VERIFY_WITH_TIMEOUT(device->bytesWritten() > 0, 1000);
    sound->play(writeFile("police.wav", clip8k(200, 0x22)), SoundMode::Async);
    QTRY_VERIFY_WITH_TIMEOUT(device->story().endsWith(QStringLiteral("drop"))
                                 && device->story().contains(QStringLiteral("22 x 1600")),
                             2000);
    const QStringList story = device->story();
    QCOMPARE(story.size(), 5);
    QCOMPARE(story[0], QStringLiteral("open 1x8000Hz 1B"));
    QVERIFY2(story[1].startsWith("11 x ") && story[1].mid(5).toInt() < 8000, qPrintable(story.join(", ")));
    QCOMPARE(story.mid(2), (QStringList{"drop", "22 x 1600", "drop"}));
    QCOMPARE(m_beeps, 0);
}

void SoundPlayerTest::waitReturnsOnceTheDeviceHasPlayedTheSoundOut()
{
    // The device plays twice as fast, so an end told by the device comes
    // well before the 800 ms clip's own length and the safety margin.
    const auto device = std::make_shared<FakeDevice>(true, 2.0);
    const auto sound = player(device);
    const QString cat = writeFile("cat.wav", clip8k(800, 0x33));
    QElapsedTimer clock;
    clock.start();
    sound->play(cat, SoundMode::Wait);
    const qint64 waited = clock.elapsed();
    QVERIFY2(device->heardAll(), qPrintable(device->story().join(", ")));
    QCOMPARE(device->bytesWritten(), 6400);
    QVERIFY2(waited < 800, qPrintable(QString::number(waited)));
}

void SoundPlayerTest::waitWithoutADeviceReturnsAtOnce()
{
    const auto device = std::make_shared<FakeDevice>(false);
    const auto sound = player(device);
    const QString cat = writeFile("cat.wav", clip8k(3000, 0x33));
    QElapsedTimer clock;
    clock.start();
    sound->play(cat, SoundMode::Wait);
    QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(device->story(), QStringList{"open failed"});
    QCOMPARE(m_beeps, 0);
}

void SoundPlayerTest::badFilesBeepForAsyncAndAreSilentForWait_data()
{
    QTest::addColumn<QString>("file"); // "" for no file at all, "/" for a folder
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("wait");

    const QList<std::pair<const char *, bool>> modes{{"Async", false}, {"Wait", true}};
    for (const auto &[mode, wait] : modes) {
        QTest::addRow("missing file, %s", mode) << "" << QByteArray() << wait;
        QTest::addRow("empty file, %s", mode) << "x.wav" << QByteArray() << wait;
        QTest::addRow("damaged header, %s", mode) << "x.wav" << QByteArray("RIFF\x10\0\0\0WAVEjunk", 16) << wait;
        QTest::addRow("compressed sound, %s", mode) << "x.wav" << wav(Fmt{2, 1, 8000, 4, 256}, pattern(800)) << wait;
        QTest::addRow("a folder by that name, %s", mode) << "/" << QByteArray() << wait;
    }
}

void SoundPlayerTest::badFilesBeepForAsyncAndAreSilentForWait()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, bytes);
    QFETCH(bool, wait);
    QString path = QDir(m_dir->path()).filePath(QStringLiteral("cat.wav"));
    if (file == QLatin1String("/"))
        QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("cat.wav")));
    else if (!file.isEmpty())
        path = writeFile(QStringLiteral("cat.wav"), bytes);
    const auto device = std::make_shared<FakeDevice>();
    const auto sound = player(device);
    QElapsedTimer clock;
    clock.start();
    sound->play(path, wait ? SoundMode::Wait : SoundMode::Async);
    QVERIFY(clock.elapsed() < 500);
    QCOMPARE(m_beeps, wait ? 0 : 1);
    QVERIFY(device->story().isEmpty());
}

void SoundPlayerTest::theSameClipPlaysEachTimeItIsAskedFor()
{
    const auto device = std::make_shared<FakeDevice>(true, 10.0);
    const auto sound = player(device);
    const QString kiss = writeFile("kiss.wav", clip8k(100, 0x44));
    sound->play(kiss, SoundMode::Wait);
    sound->play(kiss, SoundMode::Wait);
    QCOMPARE(device->story(), (QStringList{"open 1x8000Hz 1B", "44 x 800", "drop", "44 x 800", "drop"}));
    QCOMPARE(m_beeps, 0);
}

void SoundPlayerTest::anotherFormatReopensTheDevice()
{
    const auto device = std::make_shared<FakeDevice>(true, 10.0);
    const auto sound = player(device);
    sound->play(writeFile("a.wav", clip8k(100, 0x55)), SoundMode::Wait);
    sound->play(writeFile("b.wav", wav(Fmt{1, 2, 22050, 16}, QByteArray(1764, 0x66))), SoundMode::Wait);
    sound->play(writeFile("c.wav", wav(Fmt{1, 2, 22050, 16}, QByteArray(1764, 0x77))), SoundMode::Wait);
    QCOMPARE(device->story(), (QStringList{"open 1x8000Hz 1B", "55 x 800", "drop", "close", "open 2x22050Hz 2B",
                                           "66 x 1764", "drop", "77 x 1764", "drop"}));
}

void SoundPlayerTest::aFailingDeviceIsClosedAndTriedAgainWithTheNextSound()
{
    // The second slice of the first clip fails, as an unplugged headset would.
    const auto device = std::make_shared<FakeDevice>(true, 10.0, 2);
    const auto sound = player(device);
    const QString cat = writeFile("cat.wav", clip8k(2000, 0x12));
    QElapsedTimer clock;
    clock.start();
    sound->play(cat, SoundMode::Wait);
    QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
    sound->play(writeFile("kiss.wav", clip8k(100, 0x34)), SoundMode::Wait);
    QCOMPARE(device->story(), (QStringList{"open 1x8000Hz 1B", "12 x 160", "write failed", "close",
                                           "open 1x8000Hz 1B", "34 x 800", "drop"}));
}

void SoundPlayerTest::anIdleDeviceIsLetGoAndReopenedForTheNextSound()
{
    const auto device = std::make_shared<FakeDevice>(true, 10.0);
    const auto sound = player(device, std::chrono::milliseconds(100));
    const QString money = writeFile("money.wav", clip8k(100, 0x21));
    sound->play(money, SoundMode::Async);
    QTRY_VERIFY_WITH_TIMEOUT(device->story().endsWith(QStringLiteral("close")), 1500);
    sound->play(money, SoundMode::Wait);
    QCOMPARE(device->story(), (QStringList{"open 1x8000Hz 1B", "21 x 800", "drop", "close", "open 1x8000Hz 1B",
                                           "21 x 800", "drop"}));
}

void SoundPlayerTest::closingTheGameStopsALongSoundPromptly()
{
    const auto device = std::make_shared<FakeDevice>();
    auto sound = player(device);
    sound->play(writeFile("rock.wav", clip8k(10000, 0x5a)), SoundMode::Async);
    QTRY_VERIFY_WITH_TIMEOUT(device->bytesWritten() > 0, 1000);
    QElapsedTimer clock;
    clock.start();
    sound.reset();
    QVERIFY2(clock.elapsed() < 500, qPrintable(QString::number(clock.elapsed())));
    const QStringList story = device->story();
    QVERIFY(device->bytesWritten() < 80000);
    QCOMPARE(story.mid(story.size() - 2), (QStringList{"drop", "close"}));
}

void SoundPlayerTest::alsaReceivesExactlyTheClipsSamples_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("pcm");

    QTest::newRow("8-bit stereo at 11025 Hz") << wav(Fmt{1, 2, 11025, 8}, pattern(4410)) << pattern(4410);
    QTest::newRow("16-bit mono at 22050 Hz, like the game's own")
        << wav(Fmt{1, 1, 22050, 16}, pattern(44100)) << pattern(44100);
    QTest::newRow("24-bit stereo at 44.1 kHz") << wav(Fmt{1, 2, 44100, 24}, pattern(26460)) << pattern(26460);
    QTest::newRow("32-bit mono at 48 kHz") << wav(Fmt{1, 1, 48000, 32}, pattern(19200)) << pattern(19200);
    QTest::newRow("cut-off 16-bit stereo file")
        << wav(chunk("fmt ", fmtBody(Fmt{1, 2, 22050, 16})) + cutData(88200, pattern(10002))) << pattern(10000);
}

void SoundPlayerTest::alsaReceivesExactlyTheClipsSamples()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, pcm);
    const QString file = writeFile(QStringLiteral("clip.wav"), bytes);
    const QString raw = QDir(m_dir->path()).filePath(QStringLiteral("out.raw"));
    // ALSA's file plugin writes what it is given and plays it to the null device.
    const std::string device = "file:'" + raw.toStdString() + "',raw";
    {
        AlsaSoundPlayer sound(std::make_unique<AlsaOutput>(device), [this] { ++m_beeps; });
        sound.play(file, SoundMode::Wait);
    }
    QFile out(raw);
    QVERIFY(out.open(QIODevice::ReadOnly));
    const QByteArray heard = out.readAll();
    QCOMPARE(heard.size(), pcm.size());
    QVERIFY(heard == pcm);
    QCOMPARE(m_beeps, 0);
}

void SoundPlayerTest::anUnknownAlsaDeviceIsSilentAndHoldsNothing()
{
    const QString cat = writeFile(QStringLiteral("cat.wav"), clip8k(3000, 0x10));
    StderrCapture errors(QDir(m_dir->path()).filePath(QStringLiteral("stderr.txt")));
    QElapsedTimer clock;
    {
        AlsaSoundPlayer sound(std::make_unique<AlsaOutput>("amorra_no_such_device"), [this] { ++m_beeps; });
        sound.play(cat, SoundMode::Async);
        clock.start();
        sound.play(cat, SoundMode::Wait);
    }
    const qint64 waited = clock.elapsed();
    // ALSA's own complaints would fill the terminal at every click.
    QCOMPARE(errors.text(), QByteArray());
    QVERIFY2(waited < 1000, qPrintable(QString::number(waited)));
    QCOMPARE(m_beeps, 0);
}

QTEST_MAIN(SoundPlayerTest)
#include "sound_player_test.moc"
