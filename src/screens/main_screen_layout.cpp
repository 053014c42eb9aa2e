// Building the main screen's controls and menus, at the design's positions.
#include "main_screen.h"

#include "action_list.h"
#include "heart_meter.h"
#include "slanted_font.h"
#include "widget_helpers.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace amorra {

namespace {

QLabel *filledLabel(QWidget *parent, const QRect &shape, const QRect &labelBox, const QFont &font, const QColor &text,
                    const QColor &background)
{
    auto *backdrop = new QFrame(parent);
    backdrop->setGeometry(shape);
    setColours(backdrop, text, background);
    auto *label = new QLabel(parent);
    label->setGeometry(labelBox);
    label->setFont(font);
    label->setAlignment(Qt::AlignCenter);
    label->setTextFormat(Qt::PlainText);
    setColours(label, text, background);
    return label;
}

// The action button: flat lavender in a thin frame, darker while pressed and
// framed thicker while it has the keyboard, the same on every desktop.
class FlatButton : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const qreal frame = hasFocus() ? 2 : 1;
        painter.setPen(QPen(hasFocus() ? QColor(0, 0, 128) : QColor(96, 96, 128), frame));
        painter.setBrush(isDown() ? QColor(160, 160, 240) : QColor(192, 192, 255));
        painter.drawRoundedRect(QRectF(rect()).adjusted(frame / 2, frame / 2, -frame / 2, -frame / 2), 3, 3);
        painter.setPen(Qt::black);
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
    }
};

QProgressBar *ratingBar(QWidget *parent, const QString &name, const QString &role, int top)
{
    auto *bar = new QProgressBar(parent);
    nameControl(bar, name, role);
    bar->setRange(0, 100);
    bar->setTextVisible(false);
    bar->setGeometry(twipsRect(3360, top, 3255, 135));
    return bar;
}

void smallPicture(QWidget *parent, const QString &assetDir, const QString &file, int left, int barTop)
{
    auto *picture = new QLabel(parent);
    picture->setObjectName(file.section(QLatin1Char('/'), -1).section(QLatin1Char('.'), 0, 0));
    picture->setPixmap(loadPicture(assetDir, file));
    // Centred on its bar.
    picture->setGeometry(left, twips(barTop) + twips(135) / 2 - 8, 16, 16);
}

} // namespace

QToolButton *MainScreen::addModeButton(QWidget *parent, ActionMode mode, const QString &caption, const QString &name,
                                       const QString &picture, const QRect &geometry, const QString &tip)
{
    auto *button = new QToolButton(parent);
    nameControl(button, name, caption, tip);
    button->setText(caption);
    button->setIcon(QIcon(loadPicture(m_assetDir, picture)));
    button->setIconSize(QSize(32, 32));
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setGeometry(geometry);
    clickOnEnter(button);
    connect(button, &QToolButton::clicked, this, [this, mode, button] {
        m_lastMode = button;
        Q_EMIT modeClicked(mode);
        // The keyboard goes where the player chooses next.
        if (m_list->count() > 0 && isEnabled())
            m_list->setFocus(Qt::OtherFocusReason);
    });
    return button;
}

void MainScreen::buildScreen()
{
    auto *screen = new QWidget(this);
    screen->setObjectName(QStringLiteral("Form1_client"));
    screen->setFixedSize(twips(7425), twips(7335));
    screen->setFont(sansSerifFont(8.25));
    // A plain window with its menu bar above the screen: a main window's
    // docks and toolbars would be code and memory the game never uses.
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_menuBar = new QMenuBar(this);
    layout->setMenuBar(m_menuBar);
    layout->addWidget(screen);

    auto *modePanel = new QGroupBox(screen);
    modePanel->setObjectName(QStringLiteral("mode_panel"));
    modePanel->setGeometry(twipsRect(120, 0, 1335, 5775));
    m_modeButtons[0] = addModeButton(screen, ActionMode::Phone, QStringLiteral("Call Her"), QStringLiteral("Command2"),
                                     QStringLiteral("pictures/mode_phone.png"), twipsRect(240, 240, 1095, 855),
                                     QStringLiteral("Call Her and smooth talk her"));
    m_modeButtons[1] = addModeButton(screen, ActionMode::Gift, QStringLiteral("Buy A Gift"),
                                     QStringLiteral("Command1"), QStringLiteral("pictures/mode_gift.png"),
                                     twipsRect(240, 1200, 1095, 855), QStringLiteral("Get her a Gift"));
    m_modeButtons[2] = addModeButton(screen, ActionMode::Date, QStringLiteral("Take Her Out"),
                                     QStringLiteral("Command3"), QStringLiteral("pictures/mode_date.png"),
                                     twipsRect(240, 2160, 1095, 1095), QStringLiteral("Take her out on a date"));
    m_modeButtons[3] = addModeButton(
        screen, ActionMode::Work, QStringLiteral("Go to Work"), QStringLiteral("Command4"),
        QStringLiteral("pictures/mode_work.png"), twipsRect(240, 3360, 1095, 1095),
        QStringLiteral("Go to the employment agency to look for Work. Your LUCK will determine the job availability."));
    m_modeButtons[4] = addModeButton(
        screen, ActionMode::Shop, QStringLiteral("Go Shopping"), QStringLiteral("Command5"),
        QStringLiteral("pictures/mode_shop.png"), twipsRect(240, 4560, 1095, 1095),
        QStringLiteral("Go Shopping for stuff. The things you buy will improve your LOOKS, BRAINS  OR LUCK"));
    m_takeHerOut = m_modeButtons[2];
    // One caption size for the five, the largest at which each fits.
    QFont captions = screen->font();
    for (QToolButton *button : m_modeButtons)
        captions = fittedFont(captions, button->text(), button->width() - 8);
    for (QToolButton *button : m_modeButtons)
        button->setFont(captions);

    const QFont dayFont = designFont({QStringLiteral("Arial Black"), QStringLiteral("Arial"),
                                      QStringLiteral("Liberation Sans"), QStringLiteral("Nimbus Sans"),
                                      QStringLiteral("DejaVu Sans")},
                                     24, true);
    // Labels that tell a value are read by their text, "Day 5", not a fixed name.
    m_day = filledLabel(screen, twipsRect(1560, 120, 3615, 975), twipsRect(1680, 240, 3375, 735), dayFont,
                        QColor(64, 64, 64), QColor(192, 192, 255));
    nameControl(m_day, QStringLiteral("days_lbl"), QString(), QStringLiteral("Total number of days"));

    m_money = filledLabel(screen, twipsRect(1560, 1080, 3615, 735), twipsRect(1680, 1200, 3375, 375),
                          arialFont(14.25), Qt::black, QColor(192, 255, 192));
    nameControl(m_money, QStringLiteral("money_lbl"), QString(), QStringLiteral("Amount of money you have"));

    m_face = new QLabel(screen);
    nameControl(m_face, QStringLiteral("Picture7"), QStringLiteral("Her picture"));
    m_face->setGeometry(twipsRect(5280, 120, 1575, 1695));
    m_face->setAlignment(Qt::AlignCenter);

    m_heart = new HeartMeter(m_assetDir, screen);
    nameControl(m_heart, QStringLiteral("heart_panel"), QStringLiteral("Heart meter"), QStringLiteral("Heart Bar"));
    m_heart->setGeometry(twipsRect(6960, 120, 340, 5655));

    m_talk = new QTextEdit(screen);
    nameControl(m_talk, QStringLiteral("Talk"), QStringLiteral("Talk"), QStringLiteral("Dialog window"));
    m_talk->setGeometry(twipsRect(1560, 1920, 5295, 855));
    m_talk->setReadOnly(true);
    m_talk->setFont(arialFont(9, true));
    setColours(m_talk, Qt::black, Qt::white);
    m_talk->setAcceptRichText(false);
    // Her three-line greeting fits without a scroll bar.
    m_talk->document()->setDocumentMargin(2);

    m_listFrame = new QGroupBox(screen);
    nameControl(m_listFrame, QStringLiteral("Frame1"), QStringLiteral("Actions"));
    m_listFrame->setGeometry(twipsRect(1560, 2760, 5295, 3015));

    m_list = new ActionList(m_listFrame);
    nameControl(m_list, QStringLiteral("Do_List"), QStringLiteral("Action list"));
    m_list->setGeometry(twipsRect(120, 240, 5055, 2205));
    m_list->setFont(sansSerifFont(8.25, true));
    connect(m_list, &ActionList::rowChosen, this, &MainScreen::listRowChosen);
    connect(m_list, &ActionList::rowActivated, this, [this] {
        if (m_ok->isVisible() && m_ok->isEnabled())
            m_ok->click();
        else
            Q_EMIT listRowChosen();
    });

    m_ok = new FlatButton(QStringLiteral("GO"), m_listFrame);
    nameControl(m_ok, QStringLiteral("cmd_ok"), QStringLiteral("GO"));
    m_ok->setGeometry(twipsRect(4320, 2520, 855, 375));
    m_ok->setFont(arialFont(8.25, true));
    m_ok->setAutoDefault(true);
    connect(m_ok, &QPushButton::clicked, this, [this] {
        Q_EMIT actionClicked();
        // The button hides itself: the keyboard goes back to the list, so
        // the next row is one key away.
        if (!m_ok->isVisible() && isEnabled())
            keyboardHome()->setFocus(Qt::OtherFocusReason);
    });

    m_askOut = new QPushButton(QStringLiteral("Do you want to go out sometime?"), m_listFrame);
    nameControl(m_askOut, QStringLiteral("ask_out_cmd"), m_askOut->text(), QStringLiteral("Click to ask her out."));
    m_askOut->setGeometry(twipsRect(120, 2520, 3015, 375));
    m_askOut->setFont(arialFont(8.25, true));
    m_askOut->setAutoDefault(true);
    connect(m_askOut, &QPushButton::pressed, this, [this] { m_list->setPressedLook(true); });
    connect(m_askOut, &QPushButton::released, this, [this] { m_list->setPressedLook(false); });
    connect(m_askOut, &QPushButton::clicked, this, &MainScreen::askOutClicked);

    auto *bottom = new QGroupBox(screen);
    bottom->setObjectName(QStringLiteral("bottom_frame"));
    bottom->setGeometry(twipsRect(120, 5760, 7215, 1455));
    auto *spentBox = new QGroupBox(bottom);
    nameControl(spentBox, QStringLiteral("spent_frame"), QStringLiteral("Total Money spent on her"),
                QStringLiteral("The less you spend the higher your score is!"));
    spentBox->setGeometry(twipsRect(120, 120, 2535, 1215));
    // The green amount is the game's colour: it sits on the game's white.
    QPalette spentColours = spentBox->palette();
    spentColours.setColor(QPalette::Window, Qt::white);
    spentColours.setColor(QPalette::WindowText, Qt::black);
    spentBox->setPalette(spentColours);
    spentBox->setAutoFillBackground(true);
    auto *spentCaption = new QLabel(QStringLiteral("Total Money spent on her"), spentBox);
    spentCaption->setFont(slanted(arialFont(9, true)));
    spentCaption->setGeometry(twipsRect(120, 240, 2295, 255));
    m_spent = new QLabel(spentBox);
    m_spent->setObjectName(QStringLiteral("moneyspent_lbl"));
    m_spent->setTextFormat(Qt::PlainText);
    m_spent->setFont(arialFont(15.75, true));
    QPalette green = m_spent->palette();
    green.setColor(QPalette::WindowText, QColor(0, 128, 0));
    m_spent->setPalette(green);
    m_spent->setGeometry(twipsRect(120, 600, 2175, 375));

    m_looks = ratingBar(bottom, QStringLiteral("looksSTAT"), QStringLiteral("Looks rating"), 240);
    m_brains = ratingBar(bottom, QStringLiteral("brainsSTAT"), QStringLiteral("Brains rating"), 640);
    m_luck = ratingBar(bottom, QStringLiteral("luckSTAT"), QStringLiteral("Luck rating"), 1080);
    const int tops[3] = {240, 640, 1080};
    const char *kinds[3] = {"looks", "brains", "luck"};
    for (int i = 0; i < 3; ++i) {
        const QString kind = QLatin1String(kinds[i]);
        smallPicture(bottom, m_assetDir, QStringLiteral("pictures/stat_%1_a.png").arg(kind), twips(2880), tops[i]);
        smallPicture(bottom, m_assetDir, QStringLiteral("pictures/stat_%1_b.png").arg(kind), twips(6720), tops[i]);
    }

    // The keyboard follows the screen: modes top to bottom, then the talk,
    // the list and its two buttons.
    QWidget *order[] = {m_modeButtons[0], m_modeButtons[1], m_modeButtons[2], m_modeButtons[3],
                        m_modeButtons[4], m_talk,           m_list,           m_askOut,
                        m_ok};
    for (size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void MainScreen::buildMenus()
{
    QMenuBar *bar = m_menuBar;
    auto item = [this](QMenu *menu, const QString &text, const QString &name, void (MainScreen::*signal)()) {
        QAction *action = menu->addAction(text);
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, signal);
        return action;
    };

    QMenu *file = bar->addMenu(QStringLiteral("&File"));
    file->setObjectName(QStringLiteral("file_mnu"));
    item(file, QStringLiteral("Start &New Game"), QStringLiteral("newgame"), &MainScreen::newGameChosen);
    item(file, QStringLiteral("&Play Again"), QStringLiteral("rstart"), &MainScreen::playAgainChosen);
    file->addSeparator();
    item(file, QStringLiteral("&Exit"), QStringLiteral("exit"), &MainScreen::exitChosen)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));

    // A menu title that is itself the command.
    QAction *top20 = bar->addAction(QStringLiteral("&Top 20 SWEELA getters"));
    top20->setObjectName(QStringLiteral("top20"));
    connect(top20, &QAction::triggered, this, &MainScreen::top20Chosen);

    QMenu *sounds = bar->addMenu(QStringLiteral("&Sounds"));
    sounds->setObjectName(QStringLiteral("sounds_mnu"));
    m_soundItem = sounds->addAction(QStringLiteral("&Enabled"));
    m_soundItem->setObjectName(QStringLiteral("sndenable"));
    m_soundItem->setCheckable(true);
    m_soundItem->setChecked(true);
    connect(m_soundItem, &QAction::triggered, this, [this](bool checkedNow) { Q_EMIT soundItemClicked(!checkedNow); });

    QMenu *help = bar->addMenu(QStringLiteral("&Help"));
    help->setObjectName(QStringLiteral("help_mnu"));
    item(help, QStringLiteral("&Quick Start Guide"), QStringLiteral("quickstart"), &MainScreen::quickStartChosen);
    item(help, QStringLiteral("&Online Help"), QStringLiteral("onlinehelp"), &MainScreen::onlineHelpChosen)
        ->setShortcut(QKeySequence(Qt::Key_F1));
    help->addSeparator();
    item(help, QStringLiteral("&About"), QStringLiteral("about"), &MainScreen::aboutChosen);
}

} // namespace amorra
