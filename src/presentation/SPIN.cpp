#include "presentation/SPIN.h"

#include "platform/core/Conversions.h"

#include <QLineEdit>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace zuv {

namespace {

// Digits after the decimal point of the number at the start of a text.
int decimalsOf(const QString& text)
{
    static const QRegularExpression fraction(QStringLiteral("^\\s*[-+]?[0-9]*\\.([0-9]+)"));
    return static_cast<int>(fraction.match(text).capturedLength(1));
}

} // namespace

SPIN::SPIN(QWidget* parent) : QAbstractSpinBox(parent)
{
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(lineEdit(), &QLineEdit::textChanged, this, &SPIN::Change);
}

QString SPIN::text() const
{
    return lineEdit()->text();
}

void SPIN::setText(const QString& text)
{
    lineEdit()->setText(text);
}

void SPIN::stepBy(int steps)
{
    const QString present = text();
    // The shortest text of the step, so that 0.1 counts one decimal.
    const int decimals = std::max(decimalsOf(present), decimalsOf(QString::number(increment_, 'g', 15)));
    const double scale = std::pow(10.0, decimals);
    double value = std::min(std::max(platform::val(present) + steps * increment_, min_), max_);
    value = std::round(value * scale) / scale;
    // Not "-0.0" after stepping down to nothing.
    if (value == 0)
        value = 0;
    setText(QString::number(value, 'f', decimals));
    selectAll();
}

QValidator::State SPIN::validate(QString& input, int&) const
{
    static const QRegularExpression numberSoFar(QStringLiteral("^-?[0-9]*\\.?[0-9]*$"));
    if (!numeric_ || numberSoFar.match(input).hasMatch())
        return QValidator::Acceptable;
    return QValidator::Invalid;
}

QAbstractSpinBox::StepEnabled SPIN::stepEnabled() const
{
    if (isReadOnly())
        return StepNone;
    const double value = platform::val(text());
    StepEnabled enabled = StepNone;
    if (value < max_)
        enabled |= StepUpEnabled;
    if (value > min_)
        enabled |= StepDownEnabled;
    return enabled;
}

} // namespace zuv
