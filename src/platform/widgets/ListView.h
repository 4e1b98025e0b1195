#pragma once

#include <QTreeView>

#include <cstdint>

namespace platform {

class ImageList;
class ListViewModel;

// A list view in report style with one column, offering the item calls the forms
// use: ListItems().Add/Remove/Clear/Count, item i's Selected mark, and the current
// item. Indexes count from 1. Each item carries a key, a text, a small icon key and
// a Tag for the caller's own use.
class ListView : public QTreeView {
    Q_OBJECT
public:
    explicit ListView(const QString& columnHeader, QWidget* parent = nullptr);

    void setSmallIcons(const ImageList* images) { smallIcons_ = images; }

    // One item of the list; it stands for its row until rows are added or removed.
    class ListItem {
    public:
        ListItem() = default;
        bool isNull() const { return view_ == nullptr; }
        int32_t Index() const { return row_ + 1; }
        QString Key() const;
        QString Text() const;
        bool Selected() const;
        void setSelected(bool selected);
        qint64 Tag() const;
        void setTag(qint64 tag);

    private:
        friend class ListView;
        ListItem(const ListView* view, int row) : view_(view), row_(row) {}
        const ListView* view_ = nullptr;
        int row_ = -1;
    };

    // An item to add: its key, text and small icon key.
    struct NewItem {
        QString key;
        QString text;
        QString smallIcon;
    };

    class Items {
    public:
        // Inserts at position index (1 to Count + 1); out of range throws.
        ListItem Add(int32_t index, const QString& key, const QString& text, const QString& smallIcon);
        // Appends.
        ListItem Add(const QString& key, const QString& text, const QString& smallIcon);
        // Appends all of them as Add would one by one, but in one insertion, so
        // that a list of thousands fills without a cost for each row in the view.
        void AddAll(const QList<NewItem>& items);
        void Remove(int32_t index);
        void Clear();
        int32_t Count() const;
        // Item i, from 1; out of range throws.
        ListItem operator()(int32_t index) const;

    private:
        friend class ListView;
        explicit Items(ListView* view) : view_(view) {}
        ListView* view_;
    };

    Items ListItems() { return Items(this); }

    // The current item, or a null item when there is none.
    ListItem SelectedItem() const;

    // Width of the single column, in twips.
    float columnWidth() const;
    void setColumnWidth(float twips);

private:
    // The row of item index (from 1); out of range throws.
    int rowOf(int32_t index) const;
    // The small icon of a key as a row holds it: no value without an image list or a key.
    QVariant smallIcon(const QString& key) const;
    ListViewModel* rows_;
    const ImageList* smallIcons_ = nullptr;
    float columnTwips_ = -1;
};

} // namespace platform
