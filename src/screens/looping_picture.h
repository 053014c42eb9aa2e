#pragma once

#include <QImage>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

namespace amorra {

class LoopClock;
struct LoopFrames;

// A looping animated picture (the end screens' and the Top 20 window's GIFs).
// Its frames are decoded once, the first at once and the rest in the
// background (or when one falls due first), kept as what changed since the
// frame before, in the file's own colours, and shared by the pictures of the
// same file; a frame that looks like the one before only lengthens that one.
// All pictures on screen share one clock, so the program wakes only when
// some picture changes, and then repaints only that picture.
// A hidden picture lets its frames go.
class LoopingPicture : public QWidget
{
    Q_OBJECT

public:
    // An empty box when the file is missing or is not an animation.
    LoopingPicture(const QString &path, QWidget *parent = nullptr);
    ~LoopingPicture() override;

    // The first frame of `path` read now, for a window about to open: while
    // the result is held, a picture of that file starts from it.
    static std::shared_ptr<LoopFrames> readAhead(const QString &path);

    bool isPlaying() const;

    // The clock's hand: shows the frame of this moment; false when it was already shown.
    bool advanceTo(qint64 nowMs);
    // When the picture next changes, on the clock's time.
    qint64 nextChangeMs() const { return m_nextChangeMs; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QString m_path;
    std::shared_ptr<LoopFrames> m_frames; // while shown, and from creation to the first showing
    QPointer<LoopClock> m_clock;
    QImage m_canvas; // the frame on screen, ready to paint
    QImage m_shrunk; // that frame shrunk, for a picture larger than its box
    int m_shownFrame = -1;
    qint64 m_startMs = 0;
    qint64 m_nextChangeMs = 0;
    int m_frame = 0;
};

} // namespace amorra
