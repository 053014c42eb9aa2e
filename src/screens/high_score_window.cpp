#include "high_score_window.h"

#include "score_grid.h"
#include "widget_helpers.h"
#include "win_screen.h"

#include <QLabel>
#include <QPushButton>

namespace amorra {

namespace {
const char kCup[] = "champ.gif";
const char kBanner[] = "champlbl.gif";

QString qt(const std::string &s)
{
    return QString::fromStdString(s);
}

} // namespace

std::vector<std::shared_ptr<LoopFrames>> HighScoreWindow::readAnimationsAhead(const QString &assetDir)
{
    return {readAnimationAhead(assetDir, QString::fromLatin1(kCup)),
            readAnimationAhead(assetDir, QString::fromLatin1(kBanner))};
}

HighScoreWindow::HighScoreWindow(const HighScoreScreenData &data, const QString &assetDir, QWidget *parent)
    : OkWindow(parent)
{
    setObjectName(QStringLiteral("Form5"));
    setWindowTitle(QStringLiteral("Amorra - Top 20 SWEELA getters"));
    setAccessibleName(windowTitle());
    setFixedSize(twips(9690), twips(5130));

    m_grid = new ScoreGrid(data, this);

    auto *title = new QLabel(QStringLiteral("Ultimate SWEELA Getter..."), this);
    nameControl(title, QStringLiteral("Label2"), title->text());
    title->setFont(arialFont(8.25));
    title->setGeometry(twipsRect(7560, 0, 2055, 255));

    makeAnimation(this, assetDir, QString::fromLatin1(kCup), QStringLiteral("champ_gif"),
                  twipsRect(7440, 360, 2145, 2730));

    auto *champion = new QLabel(qt(data.champion), this);
    champion->setTextFormat(Qt::PlainText);
    champion->setAlignment(Qt::AlignCenter);
    champion->setGeometry(twipsRect(7440, 3120, 2175, 255));
    champion->setFont(arialFont(9, true));
    nameControl(champion, QStringLiteral("Label1"),
                champion->text().isEmpty() ? QStringLiteral("Champion") : QStringLiteral("Champion: ") + champion->text());

    // The banner's box would reach past the window's right edge: it keeps
    // its place, ends at the edge, and the picture shrinks to fit.
    makeAnimation(this, assetDir, QString::fromLatin1(kBanner), QStringLiteral("champlbl_gif"),
                  twipsRect(7440, 3480, 2400, 630).intersected(rect()));

    QPushButton *ok = makeButton(QStringLiteral("OK"), QStringLiteral("Command1"), Ok);
    ok->setGeometry(twipsRect(8160, 4440, 975, 375));
    setTabOrder(m_grid, ok);
    ok->setFocus();
}

} // namespace amorra
