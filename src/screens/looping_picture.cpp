#include "looping_picture.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHash>
#include <QImageReader>
#include <QPainter>
#include <QPointer>
#include <QRegion>
#include <QStyle>
#include <QTimer>

#include <algorithm>
#include <deque>
#include <limits>
#include <malloc.h>
#include <map>
#include <vector>

namespace amorra {

// The frames of one file: the first decoded at once, so that opening a
// window waits for it only, the rest a frame at a time after it. A frame is
// kept as what changed since the one before, each pixel a number into the
// file's colours: the game's animations change a sixth of their pixels a
// frame, so a loop takes a third of what its frames whole would, in 8 bits
// a pixel.
struct LoopFrames
{
    QSize size;
    QVector<QRgb> colours; // premultiplied; at most 256
    bool opaque = true;
    QByteArray first;      // the first frame, a colour number a pixel
    // changes[i] turns frame i - 1 into frame i; changes[0] turns the last
    // frame back into the first, once the loop is complete.
    std::vector<QByteArray> changes;
    std::vector<qint64> endsMs; // when each frame gives way, from the start of the loop
    qint64 loopMs = 0;          // the whole loop, once every frame is read
    std::unique_ptr<QImageReader> reader; // until the last frame is read
    QByteArray last;                      // while reading: the frame read last
    QHash<QRgb, uchar> numbers;           // while reading: each colour's number
    qint64 bytes = 0;

    int count() const { return int(endsMs.size()); }
    bool complete() const { return !reader; }
    // Reads the next frame; a frame like the one before only lengthens it.
    void readNext();
    // No more frames: the loop is as long as those read.
    void finish();
    // Reads on until the frame showing at `intoMs` of the first loop is known.
    void readUntil(qint64 intoMs)
    {
        while (reader && (endsMs.empty() || endsMs.back() <= intoMs))
            readNext();
    }
    // Brings `canvas`, showing frame `from` (-1: nothing yet), to frame `to`.
    void paint(QImage &canvas, int from, int to) const;
};

namespace {

// Browsers show a GIF frame of no stated delay (or a tiny one) for 0.1 s.
constexpr int kSmallestDelayMs = 20;
constexpr int kDefaultDelayMs = 100;
// What one animation may hold; a larger file plays what fits.
constexpr qint64 kMostBytes = 4 * 1024 * 1024;
constexpr qint64 kNever = std::numeric_limits<qint64>::max();
// Pictures that start within this of each other run in step.
constexpr qint64 kSameStartMs = 50;
// Unchanged pixels this many in a row end a run of changed ones.
constexpr int kGapToSkip = 4;

void putCount(QByteArray &out, qsizetype n)
{
    for (; n >= 0x80; n >>= 7)
        out.append(char(0x80 | (n & 0x7f)));
    out.append(char(n));
}

qsizetype takeCount(const char *&at)
{
    qsizetype n = 0;
    for (int shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(*at++);
        n |= qsizetype(byte & 0x7f) << shift;
        if (byte < 0x80)
            return n;
    }
}

// What turns `from` into `to`: runs of (unchanged count, changed count,
// the changed pixels), to the last changed pixel.
QByteArray changesBetween(const QByteArray &from, const QByteArray &to)
{
    QByteArray out;
    const qsizetype n = to.size();
    qsizetype at = 0;
    while (true) {
        qsizetype start = at;
        while (start < n && from[start] == to[start])
            ++start;
        if (start == n)
            return out;
        qsizetype end = start + 1;
        for (qsizetype same = 0; end < n && same < kGapToSkip; ++end)
            same = from[end] == to[end] ? same + 1 : 0;
        while (end > start + 1 && from[end - 1] == to[end - 1])
            --end;
        putCount(out, start - at);
        putCount(out, end - start);
        out.append(to.constData() + start, end - start);
        at = end;
    }
}

// The rest of each loop opened is read a frame per turn of the event loop,
// so that a click waits for one frame's decoding at most: once a loop is
// whole, its decoder goes, and with it the whole 32-bit frames it holds.
class ReadingOn : public QObject
{
public:
    static void add(const std::shared_ptr<LoopFrames> &frames)
    {
        static QPointer<ReadingOn> reading;
        if (!reading)
            reading = new ReadingOn(QCoreApplication::instance());
        reading->m_loops.push_back(frames);
        reading->m_timer.start();
    }

private:
    explicit ReadingOn(QObject *parent) : QObject(parent)
    {
        m_timer.setInterval(0);
        connect(&m_timer, &QTimer::timeout, this, &ReadingOn::readOne);
    }

    void readOne()
    {
        const std::shared_ptr<LoopFrames> frames = m_loops.front().lock();
        if (frames && !frames->complete())
            frames->readNext();
        if (!frames || frames->complete())
            m_loops.pop_front();
        if (m_loops.empty()) {
            m_timer.stop();
            // The decoders' frames leave holes in the heap that the next
            // window's small allocations would only partly fill: given back,
            // once the last loop waiting is whole.
            malloc_trim(0);
        }
    }

    QTimer m_timer;
    std::deque<std::weak_ptr<LoopFrames>> m_loops;
};

std::shared_ptr<LoopFrames> openFrames(const QString &path)
{
    auto frames = std::make_shared<LoopFrames>();
    frames->reader = std::make_unique<QImageReader>(path, "gif");
    frames->reader->setAutoDetectImageFormat(false);
    frames->readNext(); // the first frame shows at once
    if (!frames->complete() && QCoreApplication::instance())
        ReadingOn::add(frames);
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
    const QImage image = reader->read();
    // The end shows as a frame that does not come: asking the reader ahead
    // whether one will decodes half of it once more.
    if (image.isNull() || (!size.isEmpty() && image.size() != size)) {
        finish();
        return;
    }
    const int stated = reader->nextImageDelay();
    const qint64 delay = stated < kSmallestDelayMs ? kDefaultDelayMs : stated;
    const qint64 end = (endsMs.empty() ? 0 : endsMs.back()) + delay;
    // Qt reads GIFs as 32-bit pixels; those are read where they are.
    const QImage::Format format = image.format();
    const bool direct = format == QImage::Format_RGB32 || format == QImage::Format_ARGB32
                        || format == QImage::Format_ARGB32_Premultiplied;
    const QImage frame = direct ? image : image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    size = frame.size();
    QByteArray pixels(qsizetype(size.width()) * size.height(), Qt::Uninitialized);
    char *out = pixels.data();
    QRgb before = 0;
    uchar number = 0;
    for (int y = 0; y < size.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(frame.constScanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const QRgb pixel = line[x];
            if (pixel != before || (x == 0 && y == 0)) {
                before = pixel;
                auto found = numbers.constFind(pixel);
                if (found == numbers.constEnd()) {
                    // A GIF frame has at most 256 colours; frames that bring
                    // more between them end the loop where they start.
                    if (colours.size() == 256) {
                        finish();
                        return;
                    }
                    found = numbers.insert(pixel, uchar(colours.size()));
                    colours.append(format == QImage::Format_ARGB32 ? qPremultiply(pixel) : pixel);
                    opaque = opaque && qAlpha(pixel) == 255;
                }
                number = *found;
            }
            *out++ = char(number);
        }
    }
    if (!endsMs.empty() && pixels == last) {
        endsMs.back() = end;
        return;
    }
    QByteArray change = first.isEmpty() ? QByteArray() : changesBetween(last, pixels);
    bytes += change.size() + (first.isEmpty() ? pixels.size() : 0);
    if (bytes > kMostBytes) {
        finish();
        return;
    }
    if (first.isEmpty())
        first = pixels;
    changes.push_back(std::move(change));
    endsMs.push_back(end);
    last = std::move(pixels);
}

void LoopFrames::finish()
{
    reader.reset();
    loopMs = endsMs.empty() ? 0 : endsMs.back();
    if (count() > 1)
        changes.front() = changesBetween(last, first);
    last.clear();
    numbers.clear();
}

void LoopFrames::paint(QImage &canvas, int from, int to) const
{
    auto *pixels = reinterpret_cast<QRgb *>(canvas.bits());
    if (from < 0) {
        for (qsizetype i = 0; i < first.size(); ++i)
            pixels[i] = colours[static_cast<uchar>(first[i])];
        from = 0;
    }
    while (from != to) {
        from = (from + 1) % count();
        const QByteArray &change = changes[size_t(from)];
        const char *at = change.constData();
        const char *const end = at + change.size();
        QRgb *pixel = pixels;
        while (at < end) {
            pixel += takeCount(at);
            for (qsizetype n = takeCount(at); n > 0; --n)
                *pixel++ = colours[static_cast<uchar>(*at++)];
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
    if (f.count() == 0 || (f.complete() && (f.count() < 2 || f.loopMs <= 0))) {
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
    if (!m_frames || m_frames->count() == 0)
        return;
    // The frame in the screen's own format, brought up to date from what
    // changed, once per change: painting it is then a plain copy.
    if (m_shownFrame != m_frame) {
        if (m_canvas.isNull()) {
            m_canvas = QImage(m_frames->size,
                              m_frames->opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
            m_shownFrame = -1;
        }
        m_frames->paint(m_canvas, m_shownFrame, m_frame);
        m_shownFrame = m_frame;
        // A picture larger than its box shrinks to fit rather than lose its edges.
        m_shrunk = m_canvas.width() > width() || m_canvas.height() > height()
                       ? m_canvas.scaled(size(), Qt::KeepAspectRatio, Qt::SmoothTransformation)
                       : QImage();
    }
    const QImage &shown = m_shrunk.isNull() ? m_canvas : m_shrunk;
    QPainter painter(this);
    painter.drawImage(QPoint((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown);
}

void LoopingPicture::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_frames)
        m_frames = sharedFrames(m_path);
    QSize picture = m_frames->count() == 0 ? QSize() : m_frames->size;
    // A picture larger than its box shrinks to fit; the box, centred where
    // it was, takes the picture's size: what shows around it is the window's.
    if (picture.width() > width() || picture.height() > height())
        picture = picture.scaled(size(), Qt::KeepAspectRatio);
    if (picture.isValid() && picture != size())
        setGeometry(QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, picture, geometry()));
    // A picture that fills its box hides what is behind it: only it repaints.
    // Repainting the window behind it too woke the program three times a frame.
    setAttribute(Qt::WA_OpaquePaintEvent, picture == size() && m_frames->opaque);
    if ((m_frames->complete() && m_frames->count() < 2) || !m_clock)
        return;
    m_startMs = m_clock->startFor();
    m_frame = 0;
    advanceTo(m_clock->now());
    m_clock->add(this, m_startMs);
}

void LoopingPicture::hideEvent(QHideEvent *event)
{
    m_frames.reset();
    m_canvas = QImage();
    m_shrunk = QImage();
    m_shownFrame = -1;
    if (m_clock)
        m_clock->remove(this);
    m_nextChangeMs = kNever;
    QWidget::hideEvent(event);
}

} // namespace amorra
