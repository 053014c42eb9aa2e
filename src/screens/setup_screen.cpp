#include "setup_screen.h"

#include "widget_helpers.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>

namespace amorra {

SetupScreen::SetupScreen(const QString &lastName, const QString &assetDir, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_lastName(lastName)
{
    setObjectName(QStringLiteral("Form2"));
    setWindowTitle(gameTitle());
    announceWindowRoles(); // before anything makes a screen reader look at the window
    setAccessibleName(QStringLiteral("Player setup"));
    keepWindowSize(this);
    setFixedSize(480, 424);
    // The design's font, so that a larger desktop font cannot push text out
    // of its box; one face and size throughout, as each further one costs
    // the first window a millisecond or more of loading and drawing glyphs.
    setFont(sansSerifFont(9));

    auto *banner = new QLabel(this);
    nameControl(banner, QStringLiteral("Image1"), QStringLiteral("Amorra"));
    banner->setPixmap(loadPicture(assetDir, QStringLiteral("pictures/setup_banner.argb")));
    banner->setGeometry(60, 8, 360, 64);

    auto *side = new QLabel(this);
    nameControl(side, QStringLiteral("Image2"), QStringLiteral("Picture"));
    side->setPixmap(loadPicture(assetDir, QStringLiteral("pictures/setup_side.argb")));
    side->setGeometry(8, 84, 96, 160);

    auto *nameFrame = new QGroupBox(QStringLiteral("Please enter your name"), this);
    nameControl(nameFrame, QStringLiteral("Frame1"), nameFrame->title());
    nameFrame->setGeometry(112, 80, 360, 56);
    m_name = new QLineEdit(nameFrame);
    nameControl(m_name, QStringLiteral("name_txt"), QStringLiteral("Your name"));
    m_name->setMaxLength(kNameLength);
    m_name->setGeometry(10, 22, 340, 24);

    auto *rateFrame = new QGroupBox(QStringLiteral("How would you rate your self"), this);
    nameControl(rateFrame, QStringLiteral("Frame2"), rateFrame->title());
    rateFrame->setGeometry(112, 144, 360, 176);
    m_looks = addSlider(rateFrame, 20, QStringLiteral("How good looking are you?"), QStringLiteral("looks_sld"),
                        QStringLiteral("Rate how good looking you think you are from 1 to 100"));
    m_smart = addSlider(rateFrame, 72, QStringLiteral("How smart are you?"), QStringLiteral("smart_sld"),
                        QStringLiteral("Rate how smart you think you are from 1 to 100"));
    m_luck = addSlider(rateFrame, 124, QStringLiteral("How lucky are you?"), QStringLiteral("luck_sld"),
                       QStringLiteral("Rate how lucky you think you are from 1 to 100"));

    auto *advice = new QLabel(
        QStringLiteral("Remember, the more looks you have the more impact you make on her, the more brains you have, "
                       "the more money you make and the more luck on your side, the better your chances, BUT be "
                       "honest!"),
        this);
    advice->setObjectName(QStringLiteral("Label4")); // read by its text
    advice->setWordWrap(true);
    advice->setGeometry(8, 328, 464, 48);

    m_points = new QLabel(QString::fromStdString(initialPointsLabel()), this);
    // Read by its text, "Points Left :0".
    nameControl(m_points, QStringLiteral("points"), QString(), QStringLiteral("Points left for allocation"));
    m_points->setGeometry(8, 390, 200, 24);

    auto *start = new QPushButton(QStringLiteral(" START >"), this);
    nameControl(start, QStringLiteral("Command1"), QStringLiteral("START"));
    start->setAutoDefault(true);
    start->setGeometry(376, 386, 96, 30);
    connect(start, &QPushButton::clicked, this, &SetupScreen::startPressed);
    // Enter in the name box starts, as the player would expect.
    connect(m_name, &QLineEdit::returnPressed, start, &QPushButton::click);

    connect(m_looks, &QSlider::valueChanged, this, [this] { sliderMoved(Slider::Looks); });
    connect(m_smart, &QSlider::valueChanged, this, [this] { sliderMoved(Slider::Smart); });
    connect(m_luck, &QSlider::valueChanged, this, [this] { sliderMoved(Slider::Luck); });

    setTabOrder(m_name, m_looks);
    setTabOrder(m_looks, m_smart);
    setTabOrder(m_smart, m_luck);
    setTabOrder(m_luck, start);
    fitTexts(this);
    showLastName();
}

QSlider *SetupScreen::addSlider(QWidget *frame, int top, const QString &question, const QString &name,
                                const QString &tip)
{
    auto *label = new QLabel(question, frame);
    label->setGeometry(10, top, 340, 18);
    auto *slider = new QSlider(Qt::Horizontal, frame);
    nameControl(slider, name, question, tip);
    slider->setRange(0, 100);
    slider->setValue(50);
    slider->setPageStep(10);
    slider->setTickPosition(QSlider::TicksBelow);
    slider->setTickInterval(10);
    slider->setGeometry(10, top + 20, 340, 26);
    label->setBuddy(slider);
    return slider;
}

void SetupScreen::sliderMoved(Slider which)
{
    // A correction moves the partners without running the rule for them.
    if (m_correcting)
        return;
    const SliderOutcome outcome = moveSlider(which, {m_looks->value(), m_smart->value(), m_luck->value()});
    m_correcting = true;
    m_looks->setValue(outcome.values.looks);
    m_smart->setValue(outcome.values.smart);
    m_luck->setValue(outcome.values.luck);
    m_correcting = false;
    if (outcome.pointsLabel)
        m_points->setText(QString::fromStdString(*outcome.pointsLabel));
}

QString SetupScreen::nameText() const
{
    return m_name->text();
}

SetupValues SetupScreen::values() const
{
    return {m_name->text().toStdString(), m_looks->value(), m_smart->value(), m_luck->value()};
}

void SetupScreen::focusName()
{
    activateWindow();
    m_name->setFocus();
}

void SetupScreen::showLastName()
{
    m_name->setText(m_lastName);
    m_name->selectAll();
}

void SetupScreen::showEvent(QShowEvent *event)
{
    showLastName();
    m_name->setFocus();
    QWidget::showEvent(event);
}

void SetupScreen::closeEvent(QCloseEvent *event)
{
    // The game only ever hides or deletes this screen; a close is the player's.
    Q_EMIT closedByPlayer();
    QWidget::closeEvent(event);
}

} // namespace amorra
