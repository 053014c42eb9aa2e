// A measuring probe, preloaded (LD_PRELOAD) into a Qt program by the start-up
// benchmark; the program itself is not changed. It notes the moment the first
// window has been painted and, in "game" mode, plays a scripted game through
// the real widgets, timing every click until the screen is repainted, then
// notes the peak resident memory. Results go to the file $AMORRA_PROBE_OUT.
#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <QtTest/QTest>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

namespace {

long long monotonicNs()
{
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return static_cast<long long>(ts.tv_sec) * 1000000000LL + ts.tv_nsec;
}

// "VmHWM" (peak) or "VmRSS" (now) of this process, in kB.
long statusKb(const char *key)
{
    std::ifstream in("/proc/self/status");
    std::string line;
    const std::string prefix = std::string(key) + ":";
    while (std::getline(in, line))
        if (line.rfind(prefix, 0) == 0)
            return std::atol(line.c_str() + prefix.size());
    return -1;
}

QWidget *visibleWindow(const QString &name)
{
    for (QWidget *w : QApplication::topLevelWidgets())
        if (w->isVisible() && w->objectName() == name)
            return w;
    return nullptr;
}

QAbstractButton *buttonNamed(QWidget *in, const QString &name)
{
    for (QAbstractButton *b : in->findChildren<QAbstractButton *>())
        if (b->objectName() == name)
            return b;
    return nullptr;
}

QAbstractButton *okButton(QWidget *window)
{
    for (QAbstractButton *b : window->findChildren<QAbstractButton *>())
        if (b->isVisible() && b->text() == QStringLiteral("OK"))
            return b;
    return nullptr;
}

class Probe : public QObject
{
public:
    explicit Probe(QObject *parent) : QObject(parent)
    {
        const char *mode = std::getenv("AMORRA_PROBE_MODE");
        m_play = mode && std::string(mode) == "game";
        const char *out = std::getenv("AMORRA_PROBE_OUT");
        m_out = out ? out : "";
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            auto *w = static_cast<QWidget *>(watched);
            if (!m_firstPaint) {
                m_firstPaint = true;
                // Runs once the paint and its flush to the screen are done.
                QTimer::singleShot(0, this, [this] { firstPaintDone(); });
            }
            if (w->window()->objectName() == m_mainName)
                m_mainPainted = true;
        }
        return false;
    }

private:
    void firstPaintDone()
    {
        m_lines.push_back("paint_ns=" + std::to_string(monotonicNs()));
        m_lines.push_back("paint_hwm_kb=" + std::to_string(statusKb("VmHWM")));
        if (!m_play) {
            finish();
            return;
        }
        m_mainName = visibleWindow(QStringLiteral("minimal")) ? QStringLiteral("minimal") : QStringLiteral("Form1");
        QTimer::singleShot(0, this, [this] { step(); });
    }

    void finish()
    {
        m_lines.push_back("end_hwm_kb=" + std::to_string(statusKb("VmHWM")));
        m_lines.push_back("end_rss_kb=" + std::to_string(statusKb("VmRSS")));
        m_lines.push_back("ending=" + m_ending);
        std::FILE *f = m_out.empty() ? stdout : std::fopen(m_out.c_str(), "w");
        if (f) {
            for (const std::string &l : m_lines)
                std::fprintf(f, "%s\n", l.c_str());
            std::fclose(f);
        }
        // The measurement is taken; the program's own shutdown is not part of it.
        std::_Exit(0);
    }

    // Clicks `target` at `where` like a mouse would and waits until the main
    // window has been repainted: until the posted updates are drained and a
    // pass paints nothing more. Notes the time of the last paint under `kind`.
    void timedClick(const std::string &kind, QWidget *target, QPoint where = QPoint(-1, -1))
    {
        if (where.x() < 0)
            where = target->rect().center();
        m_mainPainted = false;
        QElapsedTimer timer;
        timer.start();
        QTest::mouseClick(target, Qt::LeftButton, Qt::NoModifier, where);
        bool painted = m_mainPainted; // a label may repaint at once, inside the click
        qint64 lastPaintNs = painted ? timer.nsecsElapsed() : 0;
        while (timer.nsecsElapsed() < 500000000LL) {
            m_mainPainted = false;
            QCoreApplication::processEvents(QEventLoop::AllEvents);
            if (m_mainPainted) {
                painted = true;
                lastPaintNs = timer.nsecsElapsed();
            } else if (painted) {
                break;
            }
        }
        const double us = static_cast<double>(lastPaintNs) / 1000.0;
        m_lines.push_back("click_us=" + kind + ":" + (painted ? std::to_string(us) : std::string("none")));
    }

    void again() { QTimer::singleShot(0, this, [this] { step(); }); }

    void step()
    {
        if (++m_steps > 20000) {
            m_ending = "gave-up";
            finish();
            return;
        }
        if (m_mainName == QStringLiteral("minimal")) {
            playMinimal();
            return;
        }
        // Windows over the main screen first: notices, end screens, dialogs.
        for (QWidget *w : QApplication::topLevelWidgets()) {
            if (!w->isVisible() || w->objectName() == QStringLiteral("Form1") || w->objectName() == QStringLiteral("Form2"))
                continue;
            if (QAbstractButton *ok = okButton(w)) {
                if (w->objectName() == QStringLiteral("Form3"))
                    m_ending = "won";
                else if (w->objectName() == QStringLiteral("Form8") && m_ending == "none")
                    m_ending = "lost";
                QTest::mouseClick(ok, Qt::LeftButton);
                again();
                return;
            }
        }
        if (m_ending != "none") {
            finish();
            return;
        }
        if (QWidget *setup = visibleWindow(QStringLiteral("Form2"))) {
            if (auto *name = setup->findChild<QLineEdit *>(QStringLiteral("name_txt")))
                QTest::keyClicks(name, QStringLiteral("Bench"));
            if (QAbstractButton *start = buttonNamed(setup, QStringLiteral("Command1")))
                QTest::mouseClick(start, Qt::LeftButton);
            again();
            return;
        }
        QWidget *main = visibleWindow(QStringLiteral("Form1"));
        if (main && main->isEnabled())
            playMain(main);
        again();
    }

    void playMinimal()
    {
        QWidget *w = visibleWindow(QStringLiteral("minimal"));
        QAbstractButton *b = w ? buttonNamed(w, QStringLiteral("Command1")) : nullptr;
        if (!b || m_clicks >= 200) {
            m_ending = "done";
            finish();
            return;
        }
        timedClick("button", b);
        ++m_clicks;
        again();
    }

    // A fixed round of days: phone her (three questions), work, and when she
    // has said yes, take her out; gifts when there is money. It always ends:
    // every round moves the days on.
    void playMain(QWidget *main)
    {
        auto *list = main->findChild<QListWidget *>(QStringLiteral("Do_List"));
        QAbstractButton *ok = buttonNamed(main, QStringLiteral("cmd_ok"));
        QAbstractButton *askOut = buttonNamed(main, QStringLiteral("ask_out_cmd"));
        if (!list || !ok || !askOut)
            return;
        if (askOut->isVisible()) {
            timedClick("askOut", askOut);
            return;
        }
        if (!m_pending.empty()) {
            const int row = m_pending.front();
            m_pending.erase(m_pending.begin());
            if (row < list->count()) {
                QListWidgetItem *item = list->item(row);
                list->scrollToItem(item);
                timedClick("row", list->viewport(), list->visualItemRect(item).center());
                if (ok->isVisible())
                    timedClick("action", ok);
            }
            return;
        }
        const int phase = m_round++ % 4;
        const char *mode = phase == 0 ? "Command2" : phase == 1 ? "Command4" : phase == 2 ? "Command3" : "Command1";
        QAbstractButton *button = buttonNamed(main, QLatin1String(mode));
        if (!button || !button->isEnabled())
            return;
        timedClick("mode", button);
        // Phone: the next three questions; work: the first job; date: the
        // picnic; gift: flowers.
        if (phase == 0)
            for (int i = 0; i < 3; ++i)
                m_pending.push_back(m_question++ % 24);
        else
            m_pending.push_back(phase == 2 ? 2 : 0);
    }

    bool m_play = false;
    std::string m_out;
    std::vector<std::string> m_lines;
    std::string m_ending = "none";
    QString m_mainName = QStringLiteral("Form1");
    bool m_firstPaint = false;
    bool m_mainPainted = false;
    int m_steps = 0, m_clicks = 0, m_round = 0, m_question = 0;
    std::vector<int> m_pending; // list rows still to pick in the current mode
};

void installProbe()
{
    auto *probe = new Probe(QCoreApplication::instance());
    QCoreApplication::instance()->installEventFilter(probe);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(installProbe)
