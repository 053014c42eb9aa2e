#include "sound_player.h"

#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <QtEndian>

#include <algorithm>
#include <condition_variable>
#include <thread>
#include <utility>

namespace amorra {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

// A Wait sound never holds the game longer than this, whatever its header says.
constexpr int kLongestWaitMs = 15000;
constexpr int kWaitMarginMs = 250;
// Frames go to the device in slices of 1/50 s, so a newer clip is heard
// within a slice of being asked for.
constexpr int kSlicesPerSecond = 50;
constexpr auto kPlayOutPoll = 10ms;
constexpr auto kRoomPoll = 5ms;
// A device that takes no frames for this long is given up as broken; one
// that still claims to be playing after this is not waited for.
constexpr auto kLongestStall = 3s;
constexpr auto kLongestPlayOut = 2s;
// Our effects are a few hundred kilobytes; of anything larger only the
// start is played.
constexpr qint64 kLargestFileBytes = 32 * 1024 * 1024;
constexpr quint32 kHighestRate = 768000;

constexpr quint16 kTagPcm = 1;
constexpr quint16 kTagExtensible = 0xFFFE;

quint32 le32(const QByteArray &b, qsizetype at)
{
    return qFromLittleEndian<quint32>(b.constData() + at);
}

quint16 le16(const QByteArray &b, qsizetype at)
{
    return qFromLittleEndian<quint16>(b.constData() + at);
}

std::optional<PcmFormat> readFormat(const QByteArray &bytes, qsizetype body, quint32 size)
{
    if (size < 16 || body + 16 > bytes.size())
        return std::nullopt;
    quint16 tag = le16(bytes, body);
    const quint16 channels = le16(bytes, body + 2);
    const quint32 rate = le32(bytes, body + 4);
    const quint16 blockAlign = le16(bytes, body + 12);
    const quint16 bits = le16(bytes, body + 14);
    // The extended header names its real format at the start of its GUID.
    if (tag == kTagExtensible) {
        if (size < 40 || body + 40 > bytes.size())
            return std::nullopt;
        tag = le16(bytes, body + 24);
    }
    if (tag != kTagPcm || channels == 0 || rate == 0 || rate > kHighestRate || blockAlign % channels != 0)
        return std::nullopt;
    const int bytesPerSample = blockAlign / channels;
    // Samples sit in the smallest whole number of bytes that holds them.
    if (bytesPerSample < 1 || bytesPerSample > 4 || bits == 0 || (bits + 7) / 8 != bytesPerSample)
        return std::nullopt;
    return PcmFormat{channels, int(rate), bytesPerSample};
}

} // namespace

int WavClip::durationMs() const
{
    return int(qint64(frames()) * 1000 / format.rate);
}

std::optional<WavClip> parseWav(const QByteArray &bytes)
{
    if (bytes.size() < 12 || !bytes.startsWith("RIFF") || bytes.mid(8, 4) != "WAVE")
        return std::nullopt;
    std::optional<PcmFormat> format;
    qsizetype at = 12;
    while (at + 8 <= bytes.size()) {
        const QByteArray id = bytes.mid(at, 4);
        const quint32 size = le32(bytes, at + 4);
        const qsizetype body = at + 8;
        if (id == "fmt ") {
            format = readFormat(bytes, body, size);
            if (!format)
                return std::nullopt;
        } else if (id == "data") {
            if (!format)
                return std::nullopt;
            const qsizetype held = std::min<qsizetype>(size, bytes.size() - body);
            return WavClip{*format, bytes.mid(body, held - held % format->frameBytes())};
        }
        // Chunks of odd size carry a pad byte.
        at = body + qsizetype(size) + (size & 1);
    }
    return std::nullopt;
}

// Owns the device: takes the newest clip, feeds it in slices and lets the
// device go after a while of silence.
class AlsaSoundPlayer::Worker
{
public:
    Worker(std::unique_ptr<PcmSink> sink, std::chrono::milliseconds idleClose,
           std::function<void(std::uint64_t)> finished)
        : m_sink(std::move(sink))
        , m_idleClose(idleClose)
        , m_finished(std::move(finished))
        , m_thread([this] { run(); })
    {
    }

    ~Worker()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_quit = true;
        }
        m_wake.notify_one();
        m_thread.join();
    }

    // Replaces whatever clip was asked for before.
    void play(std::shared_ptr<const WavClip> clip, std::uint64_t id)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_next = Job{std::move(clip), id};
        }
        m_wake.notify_one();
    }

private:
    struct Job
    {
        std::shared_ptr<const WavClip> clip;
        std::uint64_t id = 0;
    };

    void run()
    {
        std::unique_lock lock(m_mutex);
        const auto asked = [this] { return m_quit || m_next.has_value(); };
        for (;;) {
            if (m_open) {
                if (!m_wake.wait_for(lock, m_idleClose, asked)) {
                    // Silence for a while: other programs may want the device.
                    lock.unlock();
                    closeSink();
                    lock.lock();
                    continue;
                }
            } else {
                m_wake.wait(lock, asked);
            }
            if (m_quit)
                break;
            const Job job = std::move(*m_next);
            m_next.reset();
            lock.unlock();
            playClip(*job.clip);
            m_finished(job.id);
            lock.lock();
        }
        lock.unlock();
        closeSink();
    }

    void playClip(const WavClip &clip)
    {
        if (!ensureOpen(clip.format))
            return;
        const std::size_t frameBytes = std::size_t(clip.format.frameBytes());
        const std::size_t total = clip.frames();
        const std::size_t slice = std::size_t(std::max(1, clip.format.rate / kSlicesPerSecond));
        Clock::time_point lastTaken = Clock::now();
        std::chrono::milliseconds patience{0};
        for (std::size_t at = 0; at < total;) {
            if (newerAsked(patience)) {
                m_sink->drop();
                return;
            }
            const long taken = m_sink->write(clip.pcm.constData() + at * frameBytes, std::min(slice, total - at));
            const Clock::time_point now = Clock::now();
            if (taken < 0 || (taken == 0 && now - lastTaken > kLongestStall)) {
                closeSink();
                return;
            }
            // A full device: give it a moment rather than asking again at once.
            patience = taken == 0 ? kRoomPoll : std::chrono::milliseconds{0};
            if (taken > 0) {
                at += std::size_t(taken);
                lastTaken = now;
            }
        }
        // The device still holds the clip's end; it has ended when that is heard.
        const Clock::time_point giveUp = Clock::now() + kLongestPlayOut;
        for (;;) {
            const long queued = m_sink->queued();
            if (queued < 0) {
                closeSink();
                return;
            }
            if (queued == 0 || Clock::now() >= giveUp || newerAsked(kPlayOutPoll))
                break;
        }
        m_sink->drop();
    }

    bool newerAsked(std::chrono::milliseconds patience)
    {
        std::unique_lock lock(m_mutex);
        return m_wake.wait_for(lock, patience, [this] { return m_quit || m_next.has_value(); });
    }

    bool ensureOpen(const PcmFormat &format)
    {
        if (m_open && m_openFormat == format)
            return true;
        closeSink();
        m_open = m_sink->open(format);
        m_openFormat = format;
        return m_open;
    }

    void closeSink()
    {
        if (m_open)
            m_sink->close();
        m_open = false;
    }

    const std::unique_ptr<PcmSink> m_sink;
    const std::chrono::milliseconds m_idleClose;
    const std::function<void(std::uint64_t)> m_finished;

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::optional<Job> m_next;
    bool m_quit = false;

    // Only the sound thread touches these.
    bool m_open = false;
    PcmFormat m_openFormat;

    std::thread m_thread; // last: it starts running at once
};

AlsaSoundPlayer::AlsaSoundPlayer()
    : AlsaSoundPlayer(std::make_unique<AlsaOutput>(), [] { QApplication::beep(); })
{
}

AlsaSoundPlayer::AlsaSoundPlayer(std::unique_ptr<PcmSink> sink, std::function<void()> beep,
                                 std::chrono::milliseconds idleClose)
    : m_beep(std::move(beep))
    , m_idleClose(idleClose)
    , m_sink(std::move(sink))
{
}

AlsaSoundPlayer::~AlsaSoundPlayer()
{
    m_worker.reset(); // stops the sound and joins its thread
}

void AlsaSoundPlayer::play(const QString &file, SoundMode mode)
{
    const std::shared_ptr<const WavClip> sound = clip(file);
    if (!sound) {
        if (mode == SoundMode::Async && m_beep)
            m_beep();
        return;
    }
    if (!m_worker)
        m_worker = std::make_unique<Worker>(std::move(m_sink), m_idleClose, [this](std::uint64_t id) { finished(id); });
    const std::uint64_t id = ++m_lastId;
    if (mode == SoundMode::Async) {
        m_worker->play(sound, id);
        return;
    }

    // Hold the game, but not the screen: paint and timer events go on,
    // the player's clicks wait until the sound has ended.
    QEventLoop loop;
    QTimer timeout;
    timeout.setSingleShot(true);
    QObject::connect(&timeout, &QTimer::timeout, &loop, &QEventLoop::quit);
    timeout.start(std::min(sound->durationMs(), kLongestWaitMs) + kWaitMarginMs);
    QEventLoop *outer = nullptr;
    std::uint64_t outerId = 0;
    {
        const std::lock_guard lock(m_waitMutex);
        outer = std::exchange(m_waiting, &loop);
        outerId = std::exchange(m_awaited, id);
    }
    m_worker->play(sound, id);
    loop.exec(QEventLoop::ExcludeUserInputEvents);

    const std::lock_guard lock(m_waitMutex);
    m_waiting = outer;
    m_awaited = outerId;
    // This sound cut off the one an outer Wait was waiting for.
    if (outer && m_lastFinished >= outerId)
        QMetaObject::invokeMethod(outer, "quit", Qt::QueuedConnection);
}

// Called on the sound thread. A clip always cuts off the ones before it,
// so its end is theirs too.
void AlsaSoundPlayer::finished(std::uint64_t id)
{
    const std::lock_guard lock(m_waitMutex);
    m_lastFinished = std::max(m_lastFinished, id);
    if (m_waiting && id >= m_awaited)
        QMetaObject::invokeMethod(m_waiting, "quit", Qt::QueuedConnection);
}

std::shared_ptr<const WavClip> AlsaSoundPlayer::clip(const QString &file)
{
    // Read afresh each time: from the page cache that takes microseconds,
    // while keeping every clip played would hold about a megabyte.
    QFile f(file);
    if (!f.open(QIODevice::ReadOnly))
        return nullptr;
    std::optional<WavClip> wav = parseWav(f.read(kLargestFileBytes));
    return wav ? std::make_shared<const WavClip>(std::move(*wav)) : nullptr;
}

} // namespace amorra
