// Each file on assets/files.txt opens with the game's own loader at its window's size; none is left off.
#include "screens/rtf_reader.h"
#include "screens/sound_player.h"
#include "screens/widget_helpers.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QMovie>
#include <QRegularExpression>
#include <QTextDocument>

static const QString kAssets = QStringLiteral(AMORRA_ASSETS_DIR "/");

static QByteArray bytesOf(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The rows of assets/files.txt: file, kind and, for pictures, the size ("105x113").
static QList<QStringList> fileList()
{
    QList<QStringList> rows;
    for (const QString &line : QString::fromUtf8(bytesOf(kAssets + QStringLiteral("files.txt"))).split(QLatin1Char('\n')))
        if (!line.startsWith(QLatin1Char('#')) && !line.trimmed().isEmpty())
            rows << (line.split(QLatin1Char(' '), Qt::SkipEmptyParts) << QString());
    return rows;
}

TEST(AssetFiles, everyListedFileOpensWithTheGamesLoaderAtItsWindowsSize)
{
    int argc = 0;
    const QApplication app(argc, nullptr);
    const auto text = [](QSize s) { return QStringLiteral("%1x%2").arg(s.width()).arg(s.height()).toStdString(); };
    const QList<QStringList> rows = fileList();
    ASSERT_GT(rows.size(), 70) << "assets/files.txt is missing or cut short";
    for (const QStringList &row : rows) {
        SCOPED_TRACE(row[0].toStdString());
        const QString path = kAssets + row[0], kind = row[1];
        const std::string size = row[2].toStdString();
        if (kind == QLatin1String("picture") || kind == QLatin1String("icon") || kind == QLatin1String("theme")) {
            EXPECT_EQ(text(amorra::loadPicture(kAssets, row[0]).size()), size);
        } else if (kind == QLatin1String("animation")) {
            QMovie movie(path);
            EXPECT_GT(movie.frameCount(), 1);
            EXPECT_EQ(movie.loopCount(), -1); // forever
            EXPECT_TRUE(movie.jumpToFrame(0));
            EXPECT_EQ(text(movie.currentImage().size()), size);
        } else if (kind == QLatin1String("sound")) {
            const auto clip = amorra::parseWav(bytesOf(path));
            EXPECT_GT(clip ? clip->durationMs() : 0, 200);
        } else if (kind == QLatin1String("guide")) {
            QTextDocument guide;
            EXPECT_TRUE(amorra::readRtf(bytesOf(path), &guide));
            EXPECT_TRUE(guide.toPlainText().contains(QLatin1String("Take Her Out")));
        } else {
            // A help page opens offline: every picture and page it names is installed beside it.
            static const QRegularExpression ref(QStringLiteral(R"re((?:src|href)="([^"#]+))re"));
            const QString html = QString::fromUtf8(bytesOf(path));
            EXPECT_FALSE(html.isEmpty());
            for (auto it = ref.globalMatch(html); it.hasNext();) {
                const QString target = it.next().captured(1);
                EXPECT_TRUE(QFileInfo(QFileInfo(path).dir(), target).isFile()) << target.toStdString();
            }
        }
    }
}

TEST(AssetFiles, everyFileInAssetsIsOnTheList)
{
    QStringList listed{QStringLiteral("files.txt")};
    for (const QStringList &row : fileList())
        listed << row[0];
    for (QDirIterator it(kAssets, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString file = QDir(kAssets).relativeFilePath(it.next());
        EXPECT_TRUE(listed.contains(file)) << file.toStdString() << " is not in assets/files.txt, so it is not installed";
    }
}
