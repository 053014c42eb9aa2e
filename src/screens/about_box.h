#pragma once

#include "ok_window.h"

namespace amorra {

// The About box: two pictures and, lying over them, a clickable area that
// opens the game's home page.
class AboutBox : public OkWindow
{
    Q_OBJECT

public:
    explicit AboutBox(const QString &assetDir, QWidget *parent = nullptr);

Q_SIGNALS:
    void homePageRequested();
};

} // namespace amorra
