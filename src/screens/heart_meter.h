#pragma once

#include <QWidget>

#include <array>

class QLabel;

namespace amorra {

// The white strip down the right of the main screen: her heart as a number
// at the top and up to twenty hearts from the bottom. Assistive technology
// reads it as a progress bar whose value, 0 to 100, is the number.
class HeartMeter : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kSegments = 20;

    HeartMeter(const QString &assetDir, QWidget *parent = nullptr);

    void setLit(int lit);
    int lit() const { return m_lit; }
    void setNumber(const QString &text);
    QString number() const;
    // The number as a value, for the accessibility tree.
    int value() const;

private:
    std::array<QLabel *, kSegments> m_hearts{};
    QLabel *m_number = nullptr;
    int m_lit = 0;
};

// Lets assistive technology read the heart meter's value.
void installHeartMeterAccessibility();

} // namespace amorra
