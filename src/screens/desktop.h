#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

class QUrl;
class QWidget;

namespace amorra {

// What the game asks of the desktop it runs on. The real one talks to the
// window system; tests hand in a recording one.
class Desktop
{
public:
    virtual ~Desktop() = default;
    // The desktop's size in the screen's device pixels.
    virtual QSize screenSize() const = 0;
    // A modal message box with one OK button.
    virtual void showMessage(QWidget *parent, const QString &text, const QString &title, bool exclamation) = 0;
    // Hands a web page to the user's browser; false when that failed.
    virtual bool openUrl(const QUrl &url) = 0;
    // Ends the program once control is back in the event loop.
    virtual void quit() = 0;
};

class QtDesktop final : public Desktop
{
public:
    // `hidden`: environment variables of the game that the programs it
    // starts (the browser) must not inherit.
    explicit QtDesktop(QStringList hidden = {});
    QSize screenSize() const override;
    void showMessage(QWidget *parent, const QString &text, const QString &title, bool exclamation) override;
    bool openUrl(const QUrl &url) override;
    void quit() override;

private:
    QStringList m_hidden;
};

// The smallest desktop the game's windows fit on.
bool desktopLargeEnough(QSize size);

} // namespace amorra
