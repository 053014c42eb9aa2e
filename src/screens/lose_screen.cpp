#include "lose_screen.h"

#include "widget_helpers.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace amorra {

LoseScreen::LoseScreen(const QString &text, QWidget *parent)
    : OkWindow(parent)
{
    setObjectName(QStringLiteral("Form8"));
    setAccessibleName(gameTitle());
    setFixedSize(320, 146);

    auto *frame = new QGroupBox(this);
    nameControl(frame, QStringLiteral("Frame1"), QStringLiteral("Message"));
    frame->setGeometry(8, 4, 304, 96);

    const QString shown =
        text.isEmpty() ? QStringLiteral("Sorry Buddy !!! I guess you aren't much of a ladies man after all.") : text;
    auto *label = new QLabel(shown, frame);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignCenter);
    label->setFont(arialFont(10, true));
    label->setGeometry(10, 8, 284, 80);
    nameControl(label, QStringLiteral("Label1"), shown);

    QPushButton *ok = makeButton(QStringLiteral("OK"), QStringLiteral("Command1"), Ok);
    ok->setGeometry((width() - 65) / 2, 110, 65, 25);
    ok->setFocus();
}

} // namespace amorra
