// Every file on the game's list opens with the loader the game uses for it,
// at the size its window shows it at, and nothing in assets/ is left off the
// list (a file left off would not be installed).
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

namespace {

const QString kAssets = QStringLiteral(AMORRA_ASSETS_DIR);

struct Listed
{
    QString file, kind;
    QSize size;
};

std::vector<Listed> fileList()
{
    QFile list(kAssets + QStringLiteral("/files.txt"));
    std::vector<Listed> rows;
    if (!list.open(QIODevice::ReadOnly))
        return rows;
    for (const QByteArray &line : list.readAll().split('\n')) {
        const QStringList cols = QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (cols.size() < 2 || cols[0].startsWith(QLatin1Char('#')))
            continue;
        const QStringList wh = cols.value(2).split(QLatin1Char('x'));
        rows.push_back({cols[0], cols[1], wh.size() == 2 ? QSize(wh[0].toInt(), wh[1].toInt()) : QSize()});
    }
    return rows;
}

QByteArray bytesOf(const QString &file)
{
    QFile f(kAssets + QLatin1Char('/') + file);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

TEST(AssetFiles, everyListedFileOpensWithTheGamesLoaderAtItsWindowsSize)
{
    const std::vector<Listed> rows = fileList();
    ASSERT_GT(rows.size(), 70u) << "assets/files.txt is missing or cut short";
    for (const Listed &row : rows) {
        SCOPED_TRACE(row.file.toStdString());
        const QString path = kAssets + QLatin1Char('/') + row.file;
        if (row.kind == QLatin1String("picture") || row.kind == QLatin1String("icon")
            || row.kind == QLatin1String("theme")) {
            EXPECT_EQ(amorra::loadPicture(kAssets, row.file).size(), row.size);
        } else if (row.kind == QLatin1String("animation")) {
            QMovie movie(path);
            EXPECT_TRUE(movie.isValid());
            EXPECT_GT(movie.frameCount(), 1);
            EXPECT_EQ(movie.loopCount(), -1); // forever
            EXPECT_TRUE(movie.jumpToFrame(0));
            EXPECT_EQ(movie.currentImage().size(), row.size);
        } else if (row.kind == QLatin1String("sound")) {
            const auto clip = amorra::parseWav(bytesOf(row.file));
            ASSERT_TRUE(clip.has_value());
            EXPECT_GT(clip->durationMs(), 200);
        } else if (row.kind == QLatin1String("guide")) {
            QTextDocument guide;
            EXPECT_TRUE(amorra::readRtf(bytesOf(row.file), &guide));
            EXPECT_TRUE(guide.toPlainText().contains(QLatin1String("Take Her Out")));
        } else if (row.kind == QLatin1String("page")) {
            // The help opens offline: each picture and page it names is installed beside it.
            const QString html = QString::fromUtf8(bytesOf(row.file));
            EXPECT_FALSE(html.isEmpty());
            static const QRegularExpression ref(QStringLiteral(R"re((?:src|href)="([^"#]*))re"));
            for (auto it = ref.globalMatch(html); it.hasNext();) {
                const QString target = it.next().captured(1);
                EXPECT_FALSE(target.contains(QLatin1Char(':'))) << target.toStdString();
                EXPECT_TRUE(target.isEmpty() || QFileInfo(QFileInfo(path).dir(), target).isFile()) << target.toStdString();
            }
        } else {
            ADD_FAILURE() << "unknown kind " << row.kind.toStdString();
        }
    }
}

TEST(AssetFiles, everyFileInAssetsIsOnTheList)
{
    QStringList listed{QStringLiteral("files.txt")};
    for (const Listed &row : fileList())
        listed << row.file;
    for (QDirIterator it(kAssets, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString file = QDir(kAssets).relativeFilePath(it.next());
        EXPECT_TRUE(listed.contains(file)) << file.toStdString() << " is not in assets/files.txt";
    }
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
