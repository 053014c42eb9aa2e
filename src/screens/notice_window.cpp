#include "notice_window.h"

#include "widget_helpers.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace amorra {

namespace {

struct NoticeLook
{
    const char *objectName;
    const char *picture; // nullptr: her words in a frame
    QSize pictureSize;
    QSize clientTwips;
};

NoticeLook lookOf(NoticeKind kind)
{
    switch (kind) {
    case NoticeKind::Cat:
        return {"Form4", "pictures/notice_cat.png", {96, 75}, {2835, 2595}};
    case NoticeKind::FoundMoney:
        return {"Form6", "pictures/notice_found.png", {252, 106}, {4560, 2745}};
    case NoticeKind::SpeedingFine:
        return {"Form7", "pictures/notice_fine.png", {250, 126}, {3975, 3195}};
    case NoticeKind::Ignoring:
        return {"Form9", nullptr, {}, {4680, 2040}};
    case NoticeKind::Boring:
    case NoticeKind::TextNotice:
        break;
    }
    return {"Form10", nullptr, {}, {4680, 2295}};
}

} // namespace

QString noticeMessage(NoticeKind kind, const QString &girlName)
{
    switch (kind) {
    case NoticeKind::Cat:
        return QStringLiteral("OOPS!! You Stepped on her precious FELIX");
    case NoticeKind::FoundMoney:
        return QStringLiteral("You find a hundred dollar bill on the floor");
    case NoticeKind::SpeedingFine:
        return QStringLiteral("You got pulled over for speeding. You get a $60 fine!!!");
    case NoticeKind::Ignoring:
        return girlName + QStringLiteral(": You are IGNORING me!! You only care about work work work...");
    case NoticeKind::Boring:
        return girlName + QStringLiteral(": You are getting a bit BORING!! we do the samething alot");
    case NoticeKind::TextNotice:
        break;
    }
    return QString();
}

NoticeWindow::NoticeWindow(NoticeKind kind, const QString &girlName, const QString &assetDir, QWidget *parent)
    : OkWindow(parent)
    , m_kind(kind)
{
    const NoticeLook look = lookOf(kind);
    const int width = twips(look.clientTwips.width());
    const int height = twips(look.clientTwips.height());
    setFixedSize(width, height);
    setObjectName(QLatin1String(look.objectName));
    setAccessibleName(gameTitle());

    QPushButton *ok = makeButton(QStringLiteral("OK"), QStringLiteral("Command1"), Ok);
    const int okTop = height - 8 - 25;
    ok->setGeometry((width - 65) / 2, okTop, 65, 25);

    m_message = new QLabel(noticeMessage(kind, girlName), this);
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->setFont(arialFont(9, true));
    nameControl(m_message, QStringLiteral("Label1"), m_message->text());

    if (look.picture) {
        auto *picture = new QLabel(this);
        nameControl(picture, QStringLiteral("Picture1"), QStringLiteral("Picture"));
        picture->setPixmap(loadPicture(assetDir, QLatin1String(look.picture)));
        picture->setGeometry((width - look.pictureSize.width()) / 2, 8, look.pictureSize.width(),
                             look.pictureSize.height());
        picture->setAlignment(Qt::AlignCenter);
        const int labelTop = 8 + look.pictureSize.height() + 2;
        m_message->setAlignment(Qt::AlignCenter);
        m_message->setGeometry(6, labelTop, width - 12, okTop - labelTop - 2);
    } else {
        auto *frame = new QGroupBox(this);
        nameControl(frame, QStringLiteral("Frame1"), QStringLiteral("Her words"));
        frame->setGeometry(8, 4, width - 16, okTop - 12);
        m_message->setParent(frame);
        m_message->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        m_message->setGeometry(10, 8, frame->width() - 20, frame->height() - 14);
    }
    ok->setFocus();
}

QString NoticeWindow::message() const
{
    return m_message->text();
}

} // namespace amorra
