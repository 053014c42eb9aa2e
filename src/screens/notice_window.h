#pragma once

#include "ok_window.h"

#include "view/game_view.h"

class QLabel;

namespace amorra {

// The notices of the chance events and her complaints (cat, found money,
// speeding fine, ignoring, boring): a picture or a framed line of her words,
// and "OK".
class NoticeWindow : public OkWindow
{
    Q_OBJECT

public:
    // `girlName` heads her complaints; `assetDir` holds the pictures.
    NoticeWindow(NoticeKind kind, const QString &girlName, const QString &assetDir, QWidget *parent = nullptr);

    NoticeKind kind() const { return m_kind; }
    QString message() const;

private:
    NoticeKind m_kind;
    QLabel *m_message = nullptr;
};

// The message a notice shows; her name heads the complaints.
QString noticeMessage(NoticeKind kind, const QString &girlName);

} // namespace amorra
