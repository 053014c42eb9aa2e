#include "win_screen.h"

#include "looping_picture.h"
#include "slanted_font.h"
#include "widget_helpers.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QPushButton>

#include <utility>

namespace amorra {

namespace {

constexpr int kWidth = 400;
// Each text is centred across the window, 8 pixels clear of either edge.
constexpr int kTextLeft = 8;
constexpr int kTextWidth = kWidth - 2 * kTextLeft;

QLabel *centredLabel(QWidget *parent, const QString &text, const QString &objectName, const QFont &font, int top,
                     int height, const QColor &colour = Qt::black)
{
    auto *label = new QLabel(text, parent);
    // The pink window is the game's, so are its texts' dark colours.
    QPalette ink = label->palette();
    ink.setColor(QPalette::WindowText, colour);
    label->setPalette(ink);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setFont(font);
    label->setGeometry(kTextLeft, top, kTextWidth, height);
    nameControl(label, objectName, text);
    return label;
}

const char kHeadline[] = "Well done! Looks like you landed a SWEELA!!!";

QFont headlineFont()
{
    return arialFont(12, true);
}

QFont wordsFont()
{
    return slanted(arialFont(11, true));
}

QFont figuresFont()
{
    return arialFont(10, true);
}

QString herWords(const QString &playerName)
{
    return QStringLiteral("OHH ... ") + playerName + QStringLiteral(" I Love you!!!");
}

QString animationPath(const QString &assetDir, const QString &file)
{
    const QString path = assetDir.isEmpty() ? QString() : QDir(assetDir).filePath(file);
    return QFileInfo(path).isFile() ? path : QString();
}

} // namespace

QWidget *makeAnimation(QWidget *parent, const QString &assetDir, const QString &file, const QString &objectName,
                       const QRect &geometry)
{
    auto *box = new LoopingPicture(animationPath(assetDir, file), parent);
    box->setGeometry(geometry);
    nameControl(box, objectName, QStringLiteral("Animation"));
    return box;
}

std::shared_ptr<LoopFrames> readAnimationAhead(const QString &assetDir, const QString &file)
{
    return LoopingPicture::readAhead(animationPath(assetDir, file));
}

WinScreen::WinScreen(const QString &playerName, const QString &moneyText, const QString &daysText,
                     const QString &scoreText, const QString &assetDir, QWidget *parent)
    : OkWindow(parent)
{
    setObjectName(QStringLiteral("Form3"));
    setAccessibleName(gameTitle());
    setFixedSize(kWidth, 318);
    centredLabel(this, QString::fromLatin1(kHeadline), QStringLiteral("Label1"), headlineFont(), 8, 24,
                 QColor(128, 0, 64));

    makeAnimation(this, assetDir, QStringLiteral("hearts.gif"), QStringLiteral("Gif89a2"), QRect(30, 76, 48, 48));
    makeAnimation(this, assetDir, QStringLiteral("couple_kiss.gif"), QStringLiteral("Gif89a1"),
                  QRect(120, 40, 160, 120));
    makeAnimation(this, assetDir, QStringLiteral("hearts.gif"), QStringLiteral("Gif89a3"), QRect(322, 76, 48, 48));

    centredLabel(this, herWords(playerName), QStringLiteral("Label2"), wordsFont(), 168, 24, QColor(192, 0, 0));

    centredLabel(this, scoreText, QStringLiteral("score_lbl"), figuresFont(), 198, 20);
    centredLabel(this, daysText, QStringLiteral("days_lbl"), figuresFont(), 220, 20);
    centredLabel(this, moneyText, QStringLiteral("money_lbl"), figuresFont(), 242, 20);

    QPushButton *ok = makeButton(QStringLiteral("OK"), QStringLiteral("Command1"), Ok);
    ok->setGeometry((width() - 65) / 2, 278, 65, 25);
    ok->setFocus();
}

void WinScreen::drawTextsAhead(const QString &playerName)
{
    QImage scratch(kWidth, 24, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&scratch);
    const std::pair<QFont, QString> lines[] = {
        {fittedFont(headlineFont(), QString::fromLatin1(kHeadline), kTextWidth), QString::fromLatin1(kHeadline)},
        {fittedFont(wordsFont(), herWords(playerName), kTextWidth), herWords(playerName)},
        {figuresFont(), QStringLiteral("Your Score : Total Days Money Spent $0123456789")}};
    for (const auto &[font, text] : lines) {
        painter.setFont(font);
        painter.drawText(0, 20, text);
    }
}

void WinScreen::paintEvent(QPaintEvent *event)
{
    // The window is pink; its button keeps the desktop's colours.
    QPainter(this).fillRect(event->rect(), QColor(255, 228, 240));
}

} // namespace amorra
