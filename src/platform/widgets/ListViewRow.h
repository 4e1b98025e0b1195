#pragma once

#include <QTreeWidgetItem>
#include <QVariant>

namespace platform {

// A row of a ListView. A plain QTreeWidgetItem keeps its values in lists of its
// own, several allocations a row; a found list of thousands of pictures holds the
// single column's text, small icon, key and tag in members instead. Other columns
// and roles are kept as a QTreeWidgetItem keeps them.
class ListViewRow : public QTreeWidgetItem {
public:
    static constexpr int KeyRole = Qt::UserRole;
    static constexpr int TagRole = Qt::UserRole + 1;

    // icon: a QIcon, or no value for a row without one.
    ListViewRow(const QString& key, const QString& text, const QVariant& icon);

    QVariant data(int column, int role) const override;
    void setData(int column, int role, const QVariant& value) override;

private:
    // The member that holds a role of the first column, or null.
    const QVariant* member(int column, int role) const;

    QVariant text_;
    QVariant icon_;
    QVariant key_;
    QVariant tag_;
};

} // namespace platform
