#pragma once

#include "ok_window.h"

#include "scores/score_table.h"

class QTableWidget;

namespace amorra {

// "Amorra - Top 20 SWEELA getters": the table as the scores library filled
// it, the champion and his animations.
class HighScoreWindow : public OkWindow
{
    Q_OBJECT

public:
    HighScoreWindow(const HighScoreScreenData &data, const QString &assetDir, QWidget *parent = nullptr);
    QTableWidget *grid() const { return m_grid; }

private:
    QTableWidget *m_grid = nullptr;
};

} // namespace amorra
