#include "flow_fixture.h"

#include "screens/action_list.h"

#include <QAccessible>
#include <QDir>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

namespace amorra::testing {

QString spokenName(QWidget *w)
{
    const QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(w);
    return spoken ? spoken->text(QAccessible::Name) : QString();
}

void FlowFixture::initFlow()
{
    if (m_dir) // a fresh start inside one test
        cleanupFlow();
    m_dir = std::make_unique<TempDir>();
    m_previousDir = QDir::currentPath();
    QDir::setCurrent(QString::fromStdString(m_dir->path()));
    m_desktop = RecordingDesktop();
    m_sound = RecordingSoundPlayer();
    m_random = ScriptedRandom();
}

void FlowFixture::cleanupFlow()
{
    m_app.reset();
    QDir::setCurrent(m_previousDir);
    m_dir.reset();
    QVERIFY2(!m_random.overrun, "the game drew more often than the test scripted");
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
    QVERIFY(row < list->count());
    list->scrollToItem(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
    QCOMPARE(m_app->mainScreen().GetListIndex(), row);
    auto *action = m_app->mainScreen().findChild<QPushButton *>("cmd_ok");
    QVERIFY(action->isVisible());
    QTest::mouseClick(action, Qt::LeftButton);
}

void FlowFixture::menu(const char *objectName)
{
    // A disabled main screen disables its menu bar; a player could not get there.
    QVERIFY(m_app->mainScreen().menuBar()->isEnabled());
    m_app->mainScreen().findChild<QAction *>(QLatin1String(objectName))->trigger();
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
    QVERIFY2(window(objectName), objectName);
    QTest::mouseClick(named<QPushButton>(window(objectName), "OK"), Qt::LeftButton);
}

} // namespace amorra::testing
