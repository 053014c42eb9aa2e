#pragma once

// Watching an X server from outside the program under test, as a compositor
// would: when the screen last changed (XDamage on the root window) and real
// input (XTest), so a click is timed from the input event to the last change
// it caused on the screen.
#include <memory>
#include <vector>

namespace amorra::bench {

struct Rect
{
    int x = 0, y = 0, w = 0, h = 0;
    bool contains(const Rect &r) const { return r.x >= x && r.y >= y && r.x + r.w <= x + w && r.y + r.h <= y + h; }
};

class XWatch
{
public:
    // Null when there is no display or it lacks XDamage or XTest.
    static std::unique_ptr<XWatch> open();
    ~XWatch();

    // Forgets every change seen so far.
    void drain();
    // Waits up to `timeoutNs` for the screen to change; the monotonic time of
    // that change, or 0.
    long long waitForDamage(long long timeoutNs);
    // Collects changes until `quietNs` pass without one (or `limitNs` after
    // `since`); the time of the last change that does not lie wholly inside
    // one of `ignore`, or 0 if there was none.
    long long lastDamage(long long since, long long quietNs, long long limitNs, const std::vector<Rect> &ignore);
    // Moves the pointer to (x, y) and presses and releases the left button;
    // the monotonic time just before the press was sent.
    long long click(int x, int y);
    void move(int x, int y);
    // The X connection's file descriptor, to wait on it together with others.
    int fd() const;
    // Reads what is pending; the changes (and their times) go to `out`.
    void readPending(std::vector<std::pair<long long, Rect>> &out);

private:
    XWatch() = default;
    struct Impl;
    Impl *m_impl = nullptr;
};

long long monotonicNs();

} // namespace amorra::bench
