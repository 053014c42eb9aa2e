#include "about_box.h"

#include "widget_helpers.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionFocusRect>

namespace amorra {

namespace {

// Invisible over the pictures; only the keyboard focus shows where it is.
class HotSpot : public QAbstractButton
{
public:
    using QAbstractButton::QAbstractButton;

protected:
    void paintEvent(QPaintEvent *) override
    {
        if (!hasFocus())
            return;
        QPainter painter(this);
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
};

} // namespace

AboutBox::AboutBox(const QString &assetDir, QWidget *parent)
    : OkWindow(parent)
{
    setObjectName(QStringLiteral("Form13"));
    setAccessibleDescription(QStringLiteral("About Amorra"));
    // Room for the whole picture, which is a little larger than the design's window.
    setFixedSize(qMax(twips(6015), 411), qMax(twips(2520), 172));

    auto *main = new QLabel(this);
    nameControl(main, QStringLiteral("Image1"), QStringLiteral("Amorra"));
    main->setPixmap(loadPicture(assetDir, QStringLiteral("pictures/about_main.png")));
    main->setGeometry(0, 0, 411, 172);

    auto *logo = new QLabel(this);
    nameControl(logo, QStringLiteral("Image2"), QStringLiteral("Amorra logo"));
    logo->setPixmap(loadPicture(assetDir, QStringLiteral("pictures/about_logo.png")));
    logo->setGeometry(8, 8, 288, 87);

    auto *spot = new HotSpot(this);
    nameControl(spot, QStringLiteral("Label1"), QStringLiteral("Amorra home page"),
                QStringLiteral("Visit the Amorra home page"));
    spot->setGeometry(twipsRect(4200, 120, 1695, 2295));
    spot->setFocusPolicy(Qt::StrongFocus);
    clickOnEnter(spot);
    const QPixmap pointer = loadPicture(assetDir, QStringLiteral("pictures/about_pointer.png"));
    spot->setCursor(pointer.isNull() ? QCursor(Qt::PointingHandCursor) : QCursor(pointer, 0, 0));
    connect(spot, &QAbstractButton::clicked, this, &AboutBox::homePageRequested);

    QPushButton *ok = makeButton(QStringLiteral("OK"), QStringLiteral("Command1"), Ok);
    ok->setGeometry(twipsRect(1560, 2040, 735, 255));
    setTabOrder(ok, spot);
    ok->setFocus();
}

} // namespace amorra
