#include "game_over_dialog.h"

#include "widget_helpers.h"

#include <QLabel>
#include <QPushButton>

namespace amorra {

GameOverDialog::GameOverDialog(const QString &assetDir, QWidget *parent)
    : OkWindow(parent)
{
    setObjectName(QStringLiteral("Form12"));
    setAccessibleName(gameTitle());
    setFixedSize(260, 112);

    auto *picture = new QLabel(this);
    nameControl(picture, QStringLiteral("Image1"), QStringLiteral("Game over"));
    picture->setPixmap(loadPicture(assetDir, QStringLiteral("pictures/gameover.png")));
    picture->setGeometry(8, 8, 96, 96);

    QPushButton *ok = makeButton(QStringLiteral("OK"), QStringLiteral("Command1"), Ok);
    ok->setGeometry(136, 22, 100, 28);
    QPushButton *again = makeButton(QStringLiteral("Play Again"), QStringLiteral("Command2"), PlayAgain);
    again->setGeometry(136, 62, 100, 28);
    ok->setFocus();
}

} // namespace amorra
