#pragma once

#include "ok_window.h"

class QLabel;

namespace amorra {

// The small notice through which an action tells the player why it was
// refused ("You ain't got the dough Bro!" and the like).
class TextNotice : public OkWindow
{
    Q_OBJECT

public:
    explicit TextNotice(const QString &text, QWidget *parent = nullptr);
    QString message() const;

private:
    QLabel *m_message = nullptr;
};

} // namespace amorra
