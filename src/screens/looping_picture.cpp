#include "looping_picture.h"

#include <QElapsedTimer>
#include <QImageReader>
#include <QPainter>
#include <QPointer>
#include <QRegion>
#include <QStyle>
#include <QTimer>

#include <algorithm>
#include <limits>
#include <map>
#include <vector>

namespace amorra {

// The frames of one file, decoded as they first fall due, so that opening a
// window waits for its first frame only.
struct LoopFrames
{
    std::vector<QImage> images; // 8-bit, one per distinct frame
    std::vector<qint64> endsMs; // when each frame gives way, from the start of the loop
    qint64 loopMs = 0;          // the whole loop, once every frame is read
    std::unique_ptr<QImageReader> reader; // until the last frame is read
    qint64 bytes = 0;

    bool complete() const { return !reader; }
    // Reads the next frame; a frame like the one before only lengthens it.
    void readNext();
    // No more frames: the loop is as long as those read.
    void finish()
    {
        reader.reset();
        loopMs = endsMs.empty() ? 0 : endsMs.back();
    }
    // Reads on until the frame showing at `intoMs` of the first loop is known.
    void readUntil(qint64 intoMs)
    {
        while (reader && (endsMs.empty() || endsMs.back() <= intoMs))
            readNext();
    }
};

namespace {

// Browsers show a GIF frame of no stated delay (or a tiny one) for 0.1 s.
constexpr int kSmallestDelayMs = 20;
constexpr int kDefaultDelayMs = 100;
// What one animation may hold decoded; a larger file plays what fits.
constexpr qint64 kMostBytes = 4 * 1024 * 1024;
constexpr qint64 kNever = std::numeric_limits<qint64>::max();
// Pictures that start within this of each other run in step.
constexpr qint64 kSameStartMs = 50;

std::shared_ptr<LoopFrames> openFrames(const QString &path)
{
    auto frames = std::make_shared<LoopFrames>();
    frames->reader = std::make_unique<QImageReader>(path, "gif");
    frames->reader->setAutoDetectImageFormat(false);
    frames->readNext(); // the first frame shows at once
    return frames;
}

// The frames of every file held anywhere, let go once no picture or reader
// ahead holds them: pictures of one file (the win screen's two hearts) share
// them, and a window that opens finds those read ahead for it.
std::shared_ptr<LoopFrames> sharedFrames(const QString &path)
{
    static std::map<QString, std::weak_ptr<LoopFrames>> held;
    std::shared_ptr<LoopFrames> frames = held[path].lock();
    if (!frames) {
        frames = openFrames(path);
        held[path] = frames;
    }
    return frames;
}

} // namespace

void LoopFrames::readNext()
{
    const QImage frame = reader->read();
    // The end shows as a frame that does not come: asking the reader ahead
    // whether one will decodes half of it once more.
    if (frame.isNull()) {
        finish();
        return;
    }
    const int stated = reader->nextImageDelay();
    const qint64 delay = stated < kSmallestDelayMs ? kDefaultDelayMs : stated;
    const qint64 end = (endsMs.empty() ? 0 : endsMs.back()) + delay;
    // A GIF frame has at most 256 colours, so the 8-bit copy is exact.
    QImage compact = frame.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither | Qt::AvoidDither);
    if (!images.empty() && compact == images.back()) {
        endsMs.back() = end;
    } else {
        bytes += compact.sizeInBytes();
        if (bytes > kMostBytes) {
            finish();
        } else {
            images.push_back(std::move(compact));
            endsMs.push_back(end);
        }
    }
}

// One clock for the pictures of one window: it wakes at the next change of
// any of them, and only then.
class LoopClock : public QObject
{
public:
    explicit LoopClock(QWidget *window) : QObject(window)
    {
        setObjectName(QStringLiteral("loop_clock"));
        m_time.start();
        m_timer.setSingleShot(true);
        m_timer.setTimerType(Qt::PreciseTimer);
        connect(&m_timer, &QTimer::timeout, this, &LoopClock::tick);
    }

    static LoopClock *of(QWidget *window)
    {
        auto *clock = window->findChild<LoopClock *>(QStringLiteral("loop_clock"), Qt::FindDirectChildrenOnly);
        return clock ? clock : new LoopClock(window);
    }

    qint64 now() const { return m_time.elapsed(); }

    // The start time a newly shown picture takes: the same as a picture
    // shown just before it, so that the two change together.
    qint64 startFor() const
    {
        const qint64 t = now();
        return t - m_lastStart < kSameStartMs ? m_lastStart : t;
    }

    void add(LoopingPicture *picture, qint64 start)
    {
        m_lastStart = start;
        if (std::find(m_pictures.begin(), m_pictures.end(), picture) == m_pictures.end())
            m_pictures.push_back(picture);
        schedule();
    }

    void remove(LoopingPicture *picture)
    {
        m_pictures.erase(std::remove(m_pictures.begin(), m_pictures.end(), picture), m_pictures.end());
        schedule();
    }

private:
    void tick()
    {
        const qint64 t = now();
        auto *window = static_cast<QWidget *>(parent());
        QRegion changed;
        for (LoopingPicture *picture : m_pictures)
            if (picture->advanceTo(t))
                changed += QRect(picture->mapTo(window, QPoint(0, 0)), picture->size());
        // Painted now and sent to the screen in one go, rather than on the
        // update timer, which would wake the program once more per frame.
        if (!changed.isEmpty())
            window->repaint(changed);
        schedule();
    }

    void schedule()
    {
        qint64 next = kNever;
        for (const LoopingPicture *picture : m_pictures)
            next = std::min(next, picture->nextChangeMs());
        if (next == kNever) {
            m_timer.stop();
            return;
        }
        m_timer.start(int(std::clamp<qint64>(next - now(), 0, std::numeric_limits<int>::max())));
    }

    QElapsedTimer m_time;
    QTimer m_timer;
    qint64 m_lastStart = -kSameStartMs;
    std::vector<LoopingPicture *> m_pictures;
};

LoopingPicture::LoopingPicture(const QString &path, QWidget *parent)
    : QWidget(parent)
    , m_path(path)
    , m_nextChangeMs(kNever)
{
    if (parent)
        m_clock = LoopClock::of(parent->window());
    m_frames = sharedFrames(path);
}

std::shared_ptr<LoopFrames> LoopingPicture::readAhead(const QString &path)
{
    return sharedFrames(path);
}

LoopingPicture::~LoopingPicture()
{
    if (m_clock)
        m_clock->remove(this);
}

bool LoopingPicture::isPlaying() const
{
    return m_nextChangeMs != kNever;
}

bool LoopingPicture::advanceTo(qint64 nowMs)
{
    if (!m_frames) {
        m_nextChangeMs = kNever;
        return false;
    }
    LoopFrames &f = *m_frames;
    const qint64 elapsed = nowMs - m_startMs;
    if (!f.complete())
        f.readUntil(elapsed);
    if (f.images.empty() || (f.complete() && (f.images.size() < 2 || f.loopMs <= 0))) {
        m_nextChangeMs = kNever;
        return false;
    }
    const qint64 into = f.complete() ? elapsed % f.loopMs : elapsed;
    const auto &ends = f.endsMs;
    const auto frame = std::min(int(std::upper_bound(ends.begin(), ends.end(), into) - ends.begin()),
                                int(ends.size()) - 1);
    m_nextChangeMs = nowMs - into + ends[size_t(frame)];
    if (frame == m_frame)
        return false;
    m_frame = frame;
    return true;
}

void LoopingPicture::paintEvent(QPaintEvent *)
{
    if (!m_frames || m_frames->images.empty())
        return;
    // The frame in the screen's own format, made once per change: painting
    // it is then a plain copy.
    if (m_shownFrame != m_frame) {
        const QImage &image = m_frames->images[size_t(m_frame)];
        // A picture larger than its box shrinks to fit rather than lose its
        // edges, each frame once: shrinking at every change cost more than
        // all the rest of the window's animation.
        if (image.width() > width() || image.height() > height()) {
            m_shrunk.resize(m_frames->images.size());
            QPixmap &shrunk = m_shrunk[size_t(m_frame)];
            if (shrunk.isNull())
                shrunk = QPixmap::fromImage(image.scaled(size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
            m_shown = shrunk;
        } else {
            m_shown = QPixmap::fromImage(image);
        }
        m_shownFrame = m_frame;
    }
    QPainter painter(this);
    painter.drawPixmap(QPoint((width() - m_shown.width()) / 2, (height() - m_shown.height()) / 2), m_shown);
}

void LoopingPicture::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_frames)
        m_frames = sharedFrames(m_path);
    QSize picture = m_frames->images.empty() ? QSize() : m_frames->images.front().size();
    // A picture larger than its box shrinks to fit; the box, centred where
    // it was, takes the picture's size: what shows around it is the window's.
    if (picture.width() > width() || picture.height() > height())
        picture = picture.scaled(size(), Qt::KeepAspectRatio);
    if (picture.isValid() && picture != size())
        setGeometry(QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, picture, geometry()));
    // A picture that fills its box hides what is behind it: only it repaints.
    // Repainting the window behind it too woke the program three times a frame.
    const bool fills = picture == size() && !m_frames->images.front().hasAlphaChannel();
    setAttribute(Qt::WA_OpaquePaintEvent, fills);
    if ((m_frames->complete() && m_frames->images.size() < 2) || !m_clock)
        return;
    m_startMs = m_clock->startFor();
    m_frame = 0;
    advanceTo(m_clock->now());
    m_clock->add(this, m_startMs);
}

void LoopingPicture::hideEvent(QHideEvent *event)
{
    m_frames.reset();
    m_shown = QPixmap();
    m_shrunk.clear();
    m_shownFrame = -1;
    if (m_clock)
        m_clock->remove(this);
    m_nextChangeMs = kNever;
    QWidget::hideEvent(event);
}

} // namespace amorra
