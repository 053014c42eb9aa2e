#include "tutorial_window.h"

#include "rtf_reader.h"
#include "widget_helpers.h"

#include "core/data_files.h"

#include <QCheckBox>
#include <QFile>
#include <QGroupBox>
#include <QPushButton>
#include <QTextCursor>
#include <QTextEdit>

namespace amorra {

namespace {
// A guide is a few pages; anything far larger is not one.
constexpr size_t kLargestGuide = 4 * 1024 * 1024;
} // namespace

TutorialWindow::TutorialWindow(const QString &guideFile, QWidget *parent)
    : OkWindow(parent)
{
    setObjectName(QStringLiteral("tute_frm"));
    setAccessibleDescription(QStringLiteral("Quick Start Guide"));
    setFixedSize(twips(8655), twips(4845));

    auto *frame = new QGroupBox(this);
    nameControl(frame, QStringLiteral("Frame1"), QStringLiteral("Quick Start Guide"));
    frame->setGeometry(twipsRect(0, 0, 8535, 4215));

    m_guide = new QTextEdit(frame);
    nameControl(m_guide, QStringLiteral("tute_rtf"), QStringLiteral("Quick start guide text"));
    m_guide->setGeometry(twipsRect(120, 240, 8295, 3855));
    m_guide->setReadOnly(true);
    // The guide is a light page with its own colours on any desktop.
    QPalette page = m_guide->palette();
    page.setColor(QPalette::Base, Qt::white);
    page.setColor(QPalette::Text, Qt::black);
    m_guide->setPalette(page);
    m_guide->setTabStopDistance(24); // the guide's bullets are a bullet and a tab
    m_guide->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // A missing, unreadable or oversized guide leaves the window empty.
    const FileRead file = readPlayerFile(QFile::encodeName(guideFile).toStdString(), kLargestGuide);
    if (file.outcome == ReadOutcome::Read && !file.longer)
        readRtf(QByteArray::fromStdString(file.bytes), m_guide->document());
    m_guide->moveCursor(QTextCursor::Start); // open at the top of the guide

    m_dontShow = new QCheckBox(QStringLiteral("Don't show this again"), this);
    nameControl(m_dontShow, QStringLiteral("dont_show_chk"), m_dontShow->text());
    m_dontShow->setGeometry(twipsRect(120, 4440, 2295, 255));

    QPushButton *ok = makeButton(QStringLiteral("OK"), QStringLiteral("ok_cmd"), Ok);
    ok->setGeometry(twipsRect(7560, 4320, 855, 375));
    setTabOrder(m_guide, m_dontShow);
    setTabOrder(m_dontShow, ok);
    ok->setFocus();
}

void TutorialWindow::hideDontShow()
{
    m_dontShow->hide();
}

bool TutorialWindow::dontShowAgain() const
{
    return !m_dontShow->isHidden() && m_dontShow->isChecked();
}

} // namespace amorra
