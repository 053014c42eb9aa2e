// The yardstick: the least a Qt 6 Widgets program can do to put a window
// with one button on the screen. The game is measured against it.
#include <QApplication>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QWidget window;
    window.setObjectName(QStringLiteral("minimal"));
    window.setWindowTitle(QStringLiteral("Amorra"));
    auto *layout = new QVBoxLayout(&window);
    auto *button = new QPushButton(QStringLiteral("OK"), &window);
    button->setObjectName(QStringLiteral("Command1"));
    layout->addWidget(button);
    // About the size of the game's setup screen.
    window.resize(480, 360);
    window.show();
    return app.exec();
}
