#pragma once

#include <QAbstractSpinBox>

namespace zuv {

// A text box for a number with up and down arrows. The text is the value: it is
// read and written as text and kept as it stands, whatever it holds; only the
// arrows (the buttons, the Up and Down keys, the wheel) read it as a number, as
// far as it looks like one, step it by Increment and write it back, never past
// Min or Max, with as many decimals as the text or the step has.
//
// Change is raised after every change of the text: typed, stepped or set by code.
class SPIN : public QAbstractSpinBox {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY Change)

public:
    explicit SPIN(QWidget* parent = nullptr);

    QString text() const;
    void setText(const QString& text);

    // With numerictype on, typing takes only what can make a number: digits, one
    // decimal point and a leading minus sign. Text set by code is taken whole.
    bool numerictype() const { return numeric_; }
    void setNumerictype(bool numeric) { numeric_ = numeric; }

    // The arrows' range and step. Min 0, Max 32767, Increment 0.1: the margins
    // of a page, in inches with one decimal.
    double Min() const { return min_; }
    double Max() const { return max_; }
    double Increment() const { return increment_; }
    void setMin(double min) { min_ = min; }
    void setMax(double max) { max_ = max; }
    void setIncrement(double increment) { increment_ = increment; }

    void stepBy(int steps) override;
    QValidator::State validate(QString& input, int& pos) const override;

signals:
    void Change();

protected:
    StepEnabled stepEnabled() const override;

private:
    bool numeric_ = true;
    double min_ = 0;
    double max_ = 32767;
    double increment_ = 0.1;
};

} // namespace zuv
