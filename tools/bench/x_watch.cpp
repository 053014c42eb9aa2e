#include "x_watch.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>

#include <poll.h>

#include <algorithm>
#include <ctime>

namespace amorra::bench {

long long monotonicNs()
{
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return static_cast<long long>(ts.tv_sec) * 1000000000LL + ts.tv_nsec;
}

struct XWatch::Impl
{
    Display *display = nullptr;
    Window root = 0;
    Damage damage = 0;
    int damageEvent = 0;
};

std::unique_ptr<XWatch> XWatch::open()
{
    Display *display = XOpenDisplay(nullptr);
    if (!display)
        return nullptr;
    int damageEvent = 0, damageError = 0, xtestEvent = 0, xtestError = 0, major = 0, minor = 0;
    if (!XDamageQueryExtension(display, &damageEvent, &damageError)
        || !XTestQueryExtension(display, &xtestEvent, &xtestError, &major, &minor)) {
        XCloseDisplay(display);
        return nullptr;
    }
    std::unique_ptr<XWatch> watch(new XWatch);
    watch->m_impl = new Impl;
    watch->m_impl->display = display;
    watch->m_impl->root = DefaultRootWindow(display);
    watch->m_impl->damageEvent = damageEvent;
    // Damage to the root window covers every window on it: each drawing
    // request of any program arrives here as a rectangle.
    watch->m_impl->damage = XDamageCreate(display, watch->m_impl->root, XDamageReportRawRectangles);
    XSync(display, False);
    return watch;
}

XWatch::~XWatch()
{
    if (m_impl) {
        XDamageDestroy(m_impl->display, m_impl->damage);
        XCloseDisplay(m_impl->display);
        delete m_impl;
    }
}

int XWatch::fd() const
{
    return ConnectionNumber(m_impl->display);
}

void XWatch::readPending(std::vector<std::pair<long long, Rect>> &out)
{
    Display *d = m_impl->display;
    while (XPending(d) > 0) {
        XEvent event;
        XNextEvent(d, &event);
        if (event.type == m_impl->damageEvent + XDamageNotify) {
            const auto *n = reinterpret_cast<const XDamageNotifyEvent *>(&event);
            out.emplace_back(monotonicNs(), Rect{n->area.x, n->area.y, n->area.width, n->area.height});
        }
    }
}

void XWatch::drain()
{
    XSync(m_impl->display, False);
    std::vector<std::pair<long long, Rect>> ignored;
    readPending(ignored);
}

long long XWatch::waitForDamage(long long timeoutNs)
{
    const long long end = monotonicNs() + timeoutNs;
    std::vector<std::pair<long long, Rect>> seen;
    for (;;) {
        readPending(seen);
        if (!seen.empty())
            return seen.front().first;
        const long long left = end - monotonicNs();
        if (left <= 0)
            return 0;
        pollfd p{fd(), POLLIN, 0};
        poll(&p, 1, static_cast<int>(std::max(1LL, left / 1000000)));
    }
}

long long XWatch::lastDamage(long long since, long long quietNs, long long limitNs, const std::vector<Rect> &ignore)
{
    long long last = 0, activity = monotonicNs();
    std::vector<std::pair<long long, Rect>> seen;
    for (;;) {
        seen.clear();
        readPending(seen);
        for (const auto &[t, r] : seen) {
            if (t < since)
                continue;
            const bool animation = std::any_of(ignore.begin(), ignore.end(), [&](const Rect &a) { return a.contains(r); });
            if (!animation)
                last = activity = t;
        }
        const long long now = monotonicNs();
        if (now - activity >= quietNs || now - since >= limitNs)
            return last;
        pollfd p{fd(), POLLIN, 0};
        poll(&p, 1, 2);
    }
}

void XWatch::move(int x, int y)
{
    XTestFakeMotionEvent(m_impl->display, -1, x, y, CurrentTime);
    XFlush(m_impl->display);
}

long long XWatch::click(int x, int y)
{
    Display *d = m_impl->display;
    XTestFakeMotionEvent(d, -1, x, y, CurrentTime);
    XFlush(d);
    const long long t = monotonicNs();
    XTestFakeButtonEvent(d, 1, True, CurrentTime);
    XTestFakeButtonEvent(d, 1, False, CurrentTime);
    XFlush(d);
    return t;
}

} // namespace amorra::bench
