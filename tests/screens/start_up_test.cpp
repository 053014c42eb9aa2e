// What the first windows cost: the setup screen comes up alone, and a whole
// game's screenful (frames, menu bar, her portrait, window icon) is drawn
// without Qt loading image plugins or the SVG module.
#include "flow_fixture.h"

#include "screens/app_style.h"
#include "screens/widget_helpers.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QTest>

using namespace amorra;
using namespace amorra::testing;

namespace {

// The shared libraries this process has loaded whose path contains `part`.
QStringList loaded(const QString &part)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly))
        return {QStringLiteral("(maps unreadable)")};
    QStringList found;
    for (const QByteArray &line : maps.readAll().split('\n')) {
        const QString path = QString::fromLocal8Bit(line.mid(line.indexOf('/')));
        if (line.contains('/') && path.contains(part) && !found.contains(path))
            found << path;
    }
    return found;
}

bool isMainScreenOpen()
{
    for (QWidget *w : QApplication::topLevelWidgets())
        if (w->objectName() == QLatin1String("Form1"))
            return true;
    return false;
}

} // namespace

class StartUpTest : public FlowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new AppStyle); }
    void init() { initFlow(); }
    void cleanup() { cleanupFlow(); }

    void theSetupScreenComesUpAloneAndTheMainScreenAtStart();
    void aWholeScreenfulLoadsNoImagePlugin();
};

void StartUpTest::theSetupScreenComesUpAloneAndTheMainScreenAtStart()
{
    startApp();
    QVERIFY(m_app->setupScreen() && m_app->setupScreen()->isVisible());
    QVERIFY(!isMainScreenOpen());
    enterGame();
    QVERIFY(isMainScreenOpen());
    QVERIFY(m_app->mainScreen().isVisible());
    QCOMPARE(talk(), QString());
}

void StartUpTest::aWholeScreenfulLoadsNoImagePlugin()
{
    QApplication::setWindowIcon(QIcon(loadPicture(QStringLiteral(AMORRA_TEST_ASSETS), QStringLiteral("icons/amorra-32.png"))));
    startApp();
    QVERIFY(!m_app->setupScreen()->grab().isNull());
    enterGame();
    QVERIFY(!m_app->mainScreen().grab().isNull());

    // Her portrait is a BMP and the buttons' pictures are PNGs: both drawn.
    const QPixmap face = named<QLabel>(&m_app->mainScreen(), "Her picture")->pixmap();
    QCOMPARE(face.size(), QSize(105, 113));
    QVERIFY(!QApplication::windowIcon().isNull());

    QCOMPARE(loaded(QStringLiteral("/imageformats/")), QStringList());
    QCOMPARE(loaded(QStringLiteral("libQt6Svg")), QStringList());
}

QTEST_MAIN(StartUpTest)
#include "start_up_test.moc"
