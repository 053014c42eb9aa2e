#include "text_notice.h"

#include "widget_helpers.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace amorra {

TextNotice::TextNotice(const QString &text, QWidget *parent)
    : OkWindow(parent)
{
    setObjectName(QStringLiteral("Form11"));
    setAccessibleName(gameTitle());
    const int width = twips(4680);
    const int height = twips(2040);
    setFixedSize(width, height);

    QPushButton *ok = makeButton(QStringLiteral("OK"), QStringLiteral("Command1"), Ok);
    const int okTop = height - 8 - 25;
    ok->setGeometry((width - 65) / 2, okTop, 65, 25);

    auto *frame = new QGroupBox(this);
    nameControl(frame, QStringLiteral("Frame1"), QStringLiteral("Message"));
    frame->setGeometry(8, 4, width - 16, okTop - 12);

    // The label's own text until a refusal replaces it.
    const QString shown = text.isEmpty() ? QStringLiteral("Can't you see that this job is NOT available today!!") : text;
    m_message = new QLabel(shown, frame);
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->setFont(arialFont(9, true));
    m_message->setAlignment(Qt::AlignCenter);
    m_message->setGeometry(10, 8, frame->width() - 20, frame->height() - 14);
    nameControl(m_message, QStringLiteral("Label1"), shown);
    ok->setFocus();
}

QString TextNotice::message() const
{
    return m_message->text();
}

} // namespace amorra
