#pragma once

#include <QString>
#include <QTreeWidgetItem>
#include <QVariant>

namespace platform {

// A row of a ListView. A plain QTreeWidgetItem keeps its values in lists of
// variants of its own, several allocations a row; a found list of thousands of
// pictures holds the single column's text and key (as text), small icon and tag in
// members instead. Other columns and roles are kept as a QTreeWidgetItem keeps them.
class ListViewRow : public QTreeWidgetItem {
public:
    static constexpr int KeyRole = Qt::UserRole;
    static constexpr int TagRole = Qt::UserRole + 1;

    // icon: a QIcon, or no value for a row without one.
    ListViewRow(const QString& key, const QString& text, const QVariant& icon);

    QVariant data(int column, int role) const override;
    void setData(int column, int role, const QVariant& value) override;

private:
    QString text_;
    QString key_;
    QVariant icon_;
    QVariant tag_;
};

} // namespace platform
