#include "heart_meter.h"

#include "widget_helpers.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QAccessibleWidget>
#include <QLabel>

namespace amorra {

namespace {

class HeartMeterAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit HeartMeterAccessible(QWidget *w)
        : QAccessibleWidget(w, QAccessible::ProgressBar)
    {
    }

    // The number and the hearts are the meter's value, not parts to visit.
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }

    void *interface_cast(QAccessible::InterfaceType t) override
    {
        if (t == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(t);
    }

    QString text(QAccessible::Text t) const override
    {
        if (t == QAccessible::Value)
            return meter()->number();
        return QAccessibleWidget::text(t);
    }

    QVariant currentValue() const override { return meter()->value(); }
    void setCurrentValue(const QVariant &) override {} // read only
    QVariant maximumValue() const override { return 100; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

private:
    HeartMeter *meter() const { return static_cast<HeartMeter *>(widget()); }
};

QAccessibleInterface *heartMeterFactory(const QString &className, QObject *object)
{
    if (className == QLatin1String("amorra::HeartMeter") && object && object->isWidgetType())
        return new HeartMeterAccessible(static_cast<QWidget *>(object));
    return nullptr;
}

} // namespace

void installHeartMeterAccessibility()
{
    static bool installed = false;
    if (!installed) {
        QAccessible::installFactory(heartMeterFactory);
        installed = true;
    }
}

HeartMeter::HeartMeter(const QString &assetDir, QWidget *parent)
    : QWidget(parent)
{
    installHeartMeterAccessibility();
    setAutoFillBackground(true);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, Qt::white);
    setPalette(pal);

    m_number = new QLabel(QStringLiteral("0"), this);
    nameControl(m_number, QStringLiteral("heart_rate"), QStringLiteral("Heart"));
    m_number->setFont(sansSerifFont(8.25, true));
    QPalette red = m_number->palette();
    red.setColor(QPalette::WindowText, QColor(192, 0, 0));
    m_number->setPalette(red);
    m_number->setAlignment(Qt::AlignCenter);
    // The design's box is 17 pixels wide; "100" needs the strip's full width.
    m_number->setGeometry(0, twips(120), twips(340), twips(255));

    const QPixmap heart = loadPicture(assetDir, QStringLiteral("pictures/heart.png"));
    for (int k = 0; k < kSegments; ++k) {
        auto *segment = new QLabel(this);
        segment->setObjectName(QStringLiteral("heart%1").arg(k));
        segment->setPixmap(heart);
        segment->setGeometry(twipsRect(30, 5280 - 240 * k, 255, 255));
        segment->hide();
        segment->setAttribute(Qt::WA_TransparentForMouseEvents);
        m_hearts[size_t(k)] = segment;
    }
}

void HeartMeter::setLit(int lit)
{
    m_lit = qBound(0, lit, kSegments);
    for (int k = 0; k < kSegments; ++k)
        m_hearts[size_t(k)]->setVisible(k < m_lit);
    QAccessibleValueChangeEvent event(this, value());
    QAccessible::updateAccessibility(&event);
}

void HeartMeter::setNumber(const QString &text)
{
    m_number->setText(text);
    QAccessibleValueChangeEvent event(this, value());
    QAccessible::updateAccessibility(&event);
}

QString HeartMeter::number() const
{
    return m_number->text();
}

int HeartMeter::value() const
{
    return m_number->text().toInt();
}

} // namespace amorra
