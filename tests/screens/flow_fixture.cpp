#include "flow_fixture.h"

#include "screens/action_list.h"

#include <QAccessible>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

namespace amorra::testing {

void RecordingSoundPlayer::play(const QString &file, SoundMode mode)
{
    files << file;
    modes << mode;
}

QStringList RecordingSoundPlayer::names() const
{
    QStringList out;
    for (const QString &file : files)
        out << QFileInfo(file).fileName();
    return out;
}

void RecordingDesktop::showMessage(QWidget *, const QString &text, const QString &title, bool exclamation)
{
    messages << (exclamation ? QStringLiteral("!") : QString()) + title + QStringLiteral(": ") + text;
}

bool RecordingDesktop::openUrl(const QUrl &url)
{
    urls << url;
    return urlOpens;
}

QString spokenName(QWidget *w)
{
    const QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(w);
    return spoken ? spoken->text(QAccessible::Name) : QString();
}

WorkingDir::WorkingDir()
    : m_previous(QDir::currentPath())
{
    QDir::setCurrent(QString::fromStdString(path()));
}

WorkingDir::~WorkingDir()
{
    QDir::setCurrent(m_previous);
}

void FlowFixture::initFlow()
{
    m_dir = std::make_unique<WorkingDir>();
    m_desktop = RecordingDesktop();
    m_sound = RecordingSoundPlayer();
    m_random = ScriptedRandom();
}

void FlowFixture::cleanupFlow()
{
    m_app.reset();
    QVERIFY2(!m_random.overrun, "the game drew more often than the test scripted");
    m_dir.reset();
}

void FlowFixture::startApp(const QString &assetDir)
{
    m_app = std::make_unique<AppController>(m_random, m_sound, m_desktop, assetDir);
    m_app->start();
}

void FlowFixture::enterGame(const QString &name)
{
    if (!m_app)
        startApp();
    QVERIFY(m_app->setupScreen());
    auto *box = named<QLineEdit>(m_app->setupScreen(), "Your name");
    box->clear();
    QTest::keyClicks(box, name);
    m_random.push({pick(1, 11), pick(2, 10), pick(1, 15)});
    QTest::mouseClick(named<QPushButton>(m_app->setupScreen(), "START"), Qt::LeftButton);
}

void FlowFixture::click(const QString &name)
{
    auto *button = named<QAbstractButton>(&m_app->mainScreen(), name);
    QVERIFY2(button, qPrintable(name));
    QTest::mouseClick(button, Qt::LeftButton);
}

void FlowFixture::choose(int row)
{
    auto *list = m_app->mainScreen().findChild<ActionList *>();
    QVERIFY(list && row < list->count());
    list->scrollToItem(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
    QCOMPARE(m_app->mainScreen().GetListIndex(), row);
    auto *action = m_app->mainScreen().findChild<QPushButton *>("cmd_ok");
    QVERIFY(action->isVisible());
    QTest::mouseClick(action, Qt::LeftButton);
}

void FlowFixture::menu(const char *objectName)
{
    QAction *item = m_app->mainScreen().findChild<QAction *>(QLatin1String(objectName));
    QVERIFY(item && item->isEnabled());
    // A disabled main screen disables its menu bar; a player could not get here.
    QVERIFY(m_app->mainScreen().menuBar()->isEnabled());
    item->trigger();
}

QWidget *FlowFixture::window(const char *objectName) const
{
    for (QWidget *w : m_app->openWindows())
        if (w->objectName() == QLatin1String(objectName))
            return w;
    return nullptr;
}

void FlowFixture::pressOk(const char *objectName)
{
    QWidget *w = window(objectName);
    QVERIFY2(w, objectName);
    QTest::mouseClick(named<QPushButton>(w, "OK"), Qt::LeftButton);
}

void FlowFixture::closeBox(const char *objectName)
{
    QWidget *w = window(objectName);
    QVERIFY2(w, objectName);
    QVERIFY(w->close());
}

} // namespace amorra::testing
