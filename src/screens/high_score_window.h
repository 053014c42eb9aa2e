#pragma once

#include "ok_window.h"

#include "scores/score_table.h"

#include <memory>
#include <vector>

namespace amorra {

struct LoopFrames;
class ScoreGrid;

// "Amorra - Top 20 SWEELA getters": the table as the scores library filled
// it, the champion and his animations.
class HighScoreWindow : public OkWindow
{
    Q_OBJECT

public:
    HighScoreWindow(const HighScoreScreenData &data, const QString &assetDir, QWidget *parent = nullptr);
    ScoreGrid *grid() const { return m_grid; }

    // Its animations' first frames, read while the win screen is up: they
    // are the longest part of its opening (about 3 ms).
    static std::vector<std::shared_ptr<LoopFrames>> readAnimationsAhead(const QString &assetDir);

private:
    ScoreGrid *m_grid = nullptr;
};

} // namespace amorra
