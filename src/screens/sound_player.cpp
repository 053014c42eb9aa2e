#include "sound_player.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <condition_variable>
#include <thread>
#include <utility>
#include <vector>

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
// The slice the sound thread reads and plays at a time, whatever the clip.
constexpr std::size_t kBufferBytes = 64 * 1024;

} // namespace

// Owns the device: takes the newest clip, reads and feeds it in slices and
// lets the device go after a while of silence.
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

    // The next clip tries the device again, even one that could not be opened.
    void lookAgain()
    {
        const std::lock_guard lock(m_mutex);
        m_lookAgain = true;
    }

    // Replaces whatever clip was asked for before.
    void play(std::shared_ptr<WavStream> clip, std::uint64_t id)
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
        std::shared_ptr<WavStream> clip;
        std::uint64_t id = 0;
    };

    void run()
    {
        std::unique_lock lock(m_mutex);
        const auto asked = [this] { return m_quit || m_next.has_value(); };
        for (;;) {
            if (m_holding) {
                if (!m_wake.wait_until(lock, m_letGoAt, asked)) {
                    // Silence for a while: other programs may want the
                    // device, and the sound system need not stay loaded.
                    lock.unlock();
                    letGo();
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
            if (std::exchange(m_lookAgain, false))
                m_noDevice = false;
            lock.unlock();
            playClip(*job.clip);
            // A device that plays is kept for a while after each clip; one
            // that is missing is let go a while after it was asked for.
            if (m_open)
                m_letGoAt = Clock::now() + m_idleClose;
            m_finished(job.id);
            lock.lock();
        }
        lock.unlock();
        closeSink();
    }

    void playClip(WavStream &clip)
    {
        const PcmFormat format = clip.layout().format;
        if (!ensureOpen(format))
            return;
        m_buffer.resize(kBufferBytes);
        const std::size_t frameBytes = std::size_t(format.frameBytes()); // at most 65535: one fits the buffer
        const std::size_t slice =
            std::max<std::size_t>(1, std::min<std::size_t>(std::size_t(format.rate / kSlicesPerSecond),
                                                           m_buffer.size() / frameBytes));
        std::size_t held = 0; // frames in the buffer not yet taken by the device
        std::size_t at = 0;
        Clock::time_point lastTaken = Clock::now();
        std::chrono::milliseconds patience{0};
        for (;;) {
            if (held == 0) {
                held = clip.read(m_buffer.data(), slice);
                at = 0;
                if (held == 0)
                    break;
            }
            if (newerAsked(patience)) {
                m_sink->drop();
                return;
            }
            const long taken = m_sink->write(m_buffer.data() + at * frameBytes, held);
            const Clock::time_point now = Clock::now();
            if (taken < 0 || (taken == 0 && now - lastTaken > kLongestStall)) {
                closeSink();
                return;
            }
            // A full device: give it a moment rather than asking again at once.
            patience = taken == 0 ? kRoomPoll : std::chrono::milliseconds{0};
            if (taken > 0) {
                at += std::size_t(taken);
                held -= std::size_t(taken);
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
        // A machine without a device will not grow one: the game stays
        // silent, and after a while lets go of the sound system, until the
        // player turns the sound on again.
        if (m_noDevice)
            return false;
        m_open = m_sink->open(format);
        m_openFormat = format;
        m_holding = true;
        m_noDevice = !m_open;
        m_letGoAt = Clock::now() + m_idleClose;
        return m_open;
    }

    // Nothing to play for a while: the device, the sound system and the buffer go.
    void letGo()
    {
        closeSink();
        m_sink->release();
        std::vector<char>().swap(m_buffer);
        m_holding = false;
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
    bool m_lookAgain = false;

    // Only the sound thread touches these.
    std::vector<char> m_buffer; // while the device is open
    bool m_open = false;
    bool m_holding = false; // the sound system is loaded: a device was opened or asked for
    Clock::time_point m_letGoAt;
    bool m_noDevice = false;
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
    const std::shared_ptr<WavStream> sound = WavStream::open(file);
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
    timeout.start(std::min(sound->layout().durationMs(), kLongestWaitMs) + kWaitMarginMs);
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

void AlsaSoundPlayer::soundSwitchedOn()
{
    if (m_worker)
        m_worker->lookAgain();
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

} // namespace amorra
