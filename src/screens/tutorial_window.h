#pragma once

#include "ok_window.h"

class QCheckBox;
class QTextEdit;

namespace amorra {

// The quick start guide: the Rich Text file shown read-only, with
// "Don't show this again" when it opened by itself at start-up.
class TutorialWindow : public OkWindow
{
    Q_OBJECT

public:
    // Loads `guideFile` (a missing or damaged file shows an empty guide).
    explicit TutorialWindow(const QString &guideFile, QWidget *parent = nullptr);

    void hideDontShow();
    // Ticked, and shown at all.
    bool dontShowAgain() const;
    QTextEdit *guide() const { return m_guide; }

private:
    QTextEdit *m_guide = nullptr;
    QCheckBox *m_dontShow = nullptr;
};

} // namespace amorra
