#pragma once

#include "core/game.h"
#include "core/setup_rules.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QSlider;

namespace amorra {

// The first screen of a run: the player's name and the three sliders that
// share 150 points. It stays loaded, hidden, during play, because every new
// game reads it again.
class SetupScreen : public QWidget
{
    Q_OBJECT

public:
    // `lastName` is the remembered name, shown selected in the name box.
    SetupScreen(const QString &lastName, const QString &assetDir, QWidget *parent = nullptr);

    QString nameText() const;
    SetupValues values() const;
    void focusName();

Q_SIGNALS:
    void startPressed();
    // The player closed the window with its close box.
    void closedByPlayer();

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    QSlider *addSlider(QWidget *frame, int top, const QString &question, const QString &name, const QString &tip);
    void sliderMoved(Slider which);
    void showLastName();

    QString m_lastName;
    QLineEdit *m_name = nullptr;
    QSlider *m_looks = nullptr;
    QSlider *m_smart = nullptr;
    QSlider *m_luck = nullptr;
    QLabel *m_points = nullptr;
    bool m_correcting = false;
};

} // namespace amorra
