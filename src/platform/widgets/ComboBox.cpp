#include "platform/widgets/ComboBox.h"

#include "platform/core/Error.h"

namespace platform {

ComboBox::ComboBox(QWidget* parent) : QComboBox(parent)
{
    setEditable(false);
    // The user's pick: nothing above this handler to hand a failure to.
    connect(this, &QComboBox::activated, this, guarded([this] {
                if (click_)
                    click_();
            }));
}

bool ComboBox::hasEntry(const QString& text) const
{
    return findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0;
}

void ComboBox::setText(const QString& text)
{
    const int index = findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0)
        throw Error(err::InvalidPropertyValue);
    setCurrentIndex(index);
    if (click_)
        click_();
}

} // namespace platform
