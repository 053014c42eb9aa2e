#pragma once

#include "ok_window.h"

namespace amorra {

// "Sorry Buddy !!! ..." or the month-limit text, and "OK".
class LoseScreen : public OkWindow
{
    Q_OBJECT

public:
    // An empty text keeps the screen's own message.
    explicit LoseScreen(const QString &text, QWidget *parent = nullptr);
};

} // namespace amorra
