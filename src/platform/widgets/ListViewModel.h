#pragma once

#include <QAbstractListModel>
#include <QString>
#include <QVariant>

#include <vector>

namespace platform {

// The rows of a ListView: one column of text, each row with its key, small icon
// and tag. A found list holds thousands of rows, which are plain values here, put
// in or taken out in one step each, rather than an object of the toolkit per row.
class ListViewModel : public QAbstractListModel {
    Q_OBJECT
public:
    struct Row {
        QString key;
        QString text;
        QVariant icon; // a QIcon, or no value for a row without one
        qint64 tag = 0;
    };

    explicit ListViewModel(const QString& header, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // position: 0 to rowCount().
    void insert(int position, std::vector<Row> rows);
    void remove(int position);
    void clear();
    Row& row(int position) { return rows_[size_t(position)]; }
    const Row& row(int position) const { return rows_[size_t(position)]; }

private:
    QString header_;
    std::vector<Row> rows_;
};

} // namespace platform
