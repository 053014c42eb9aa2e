#pragma once

#include "ok_window.h"

#include <memory>

namespace amorra {

struct LoopFrames;

// "Well done! ..." with the kissing couple, her words, and the score, days
// and money of the moment of the win.
class WinScreen : public OkWindow
{
    Q_OBJECT

public:
    WinScreen(const QString &playerName, const QString &moneyText, const QString &daysText, const QString &scoreText,
              const QString &assetDir, QWidget *parent = nullptr);

    // Its fonts made and their glyphs drawn while the player plays, so that
    // the winning click needs no font of its own (each takes about half a
    // millisecond to set up, its glyphs more).
    static void drawTextsAhead(const QString &playerName);

protected:
    void paintEvent(QPaintEvent *event) override;
};

// An animated picture from the game's folder, playing; an empty box when
// the file is missing or unreadable.
QWidget *makeAnimation(QWidget *parent, const QString &assetDir, const QString &file, const QString &objectName,
                       const QRect &geometry);
// The first frame of such a picture read now; while held, the picture that
// a window makes of the same file starts from it.
std::shared_ptr<LoopFrames> readAnimationAhead(const QString &assetDir, const QString &file);

} // namespace amorra
