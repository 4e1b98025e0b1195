#pragma once

#include <QComboBox>

#include <functional>

namespace platform {

// A drop-down list: a combo box whose text is always one of its entries. Its
// Click runs when the user picks an entry and also when the program assigns the
// text, as the form runtime's lists do: code that assigns a page or a zoom step
// relies on the Click that follows. A failure in a Click that the program set off
// passes to the code that assigned; one that the user set off ends there.
class ComboBox : public QComboBox {
    Q_OBJECT
public:
    explicit ComboBox(QWidget* parent = nullptr);

    // The handler of Click.
    void onClick(std::function<void()> handler) { click_ = std::move(handler); }

    // The entry shown, or "" when none is.
    QString Text() const { return currentText(); }
    // Shows the entry with exactly this text and runs Click, also when it was
    // shown already. A text that no entry has is an invalid property value.
    void setText(const QString& text);
    // Whether an entry has exactly this text.
    bool hasEntry(const QString& text) const;

    void AddItem(const QString& text) { addItem(text); }
    int ListCount() const { return count(); }
    // Empties the list; no entry is shown afterwards.
    void Clear() { clear(); }

private:
    std::function<void()> click_;
};

} // namespace platform
