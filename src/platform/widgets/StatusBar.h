#pragma once

#include <QWidget>

#include <vector>

class QLabel;

namespace platform {

// A status bar of text panels. Panel 1 takes the room the others leave; the
// others have fixed widths in twips. Panels count from 1.
class StatusBar : public QWidget {
    Q_OBJECT
public:
    StatusBar(const std::vector<float>& fixedPanelWidths, QWidget* parent = nullptr);

    int panelCount() const { return static_cast<int>(panels_.size()); }
    QString panelText(int panel) const;
    void setPanelText(int panel, const QString& text);

private:
    QLabel* panel(int number) const;
    std::vector<QLabel*> panels_;
};

} // namespace platform
