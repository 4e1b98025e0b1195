#include "platform/widgets/StatusBar.h"

#include "platform/core/Error.h"
#include "platform/widgets/Screen.h"

#include <QHBoxLayout>
#include <QLabel>

namespace platform {

namespace {

QLabel* makePanel(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setFrameShape(QFrame::StyledPanel);
    label->setFrameShadow(QFrame::Sunken);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

StatusBar::StatusBar(const std::vector<float>& fixedPanelWidths, QWidget* parent) : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(2);
    panels_.push_back(makePanel(this));
    // A long description must not widen the window.
    panels_.back()->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->addWidget(panels_.back(), 1);
    for (float twips : fixedPanelWidths) {
        panels_.push_back(makePanel(this));
        panels_.back()->setFixedWidth(Screen::pixelsX(twips));
        layout->addWidget(panels_.back());
    }
}

QLabel* StatusBar::panel(int number) const
{
    if (number < 1 || number > panelCount())
        throw Error(err::SubscriptOutOfRange);
    return panels_[number - 1];
}

QString StatusBar::panelText(int number) const
{
    return panel(number)->text();
}

void StatusBar::setPanelText(int number, const QString& text)
{
    panel(number)->setText(text);
}

} // namespace platform
