#pragma once

#include <QIcon>
#include <QList>
#include <QObject>
#include <QPointer>

#include <cstdint>
#include <functional>
#include <vector>

class QAction;
class QEvent;
class QMenu;
class QMenuBar;
class QWidget;

namespace zuv {

// The icon menu control, an invisible part of a form. It numbers the items of
// the form's menus, shows an image on an item and marks a menu's default item,
// and tells, as the pointer (or the keyboard) moves through a menu, which item
// it is on, so that the window can describe the command in its status bar.
//
// Numbers count from 1 in the order of the menus as they are built: the menu bar
// from left to right, each menu's title and then its items from the top, a
// submenu's items right after the submenu's title; then the form's other menus
// (the popup menus, which stand under a title that is never seen) in the order
// they were made. Separators count too. 0 is no item.
//
// An item is named by the object name of its action, or, for a menu's title, of
// the menu. An unknown name or number is the runtime's "Invalid procedure call".
class ICOMNU : public QObject {
    Q_OBJECT

public:
    explicit ICOMNU(QObject* parent = nullptr);

    // Numbers the menus of the form (its menu bar and the menus that are its
    // children) and follows the pointer through them. With menuBar on, the titles
    // of the menu bar report too (StatusResetA). Calling it again numbers afresh,
    // taking in what was added since; what an item holds stays with it.
    void Attach(QWidget* form, bool menuBar = false);

    // A window of the program may build the menu of window commands that its
    // frame would have (restore, move, size, minimize, maximize, close), each
    // action carrying the command number of the original platform as its data
    // (61728 restore ... 61536 close). Its items report ItemReportPlain with
    // those numbers; they have no number here and no caption.
    void AttachSystemMenu(QMenu* menu);

    // The images that ItemIcon indexes: the image of a zero-based index.
    using ImageLookup = std::function<QIcon(int32_t index)>;
    void setImageList(ImageLookup images);

    // The image an item shows: a zero-based index into the image list, -1 none.
    int32_t ItemIcon(const QString& MENUITEM) const;
    int32_t ItemIcon(int32_t number) const;
    void setItemIcon(const QString& MENUITEM, int32_t index);
    void setItemIcon(int32_t number, int32_t index);

    // The default item of a menu, shown in bold: the one a double click or Enter
    // performs where the menu stands for a list. One per menu.
    bool ItemDefault(const QString& MENUITEM) const;
    bool ItemDefault(int32_t number) const;
    void setItemDefault(const QString& MENUITEM, bool isDefault);
    void setItemDefault(int32_t number, bool isDefault);

    // The text of an item, with its & marker ("-" for a separator line); empty
    // for 0 and for an item gone.
    QString CAPTION(int32_t number) const;

    // The number of an attached item, 0 for anything else.
    int32_t itemNumber(const QAction* action) const;

    // Adds an item under the title ParentItemNumber (0: the menu bar) at place
    // ITEM among its items, counted from 1 (0, or past the end: last). The new
    // item takes the next free number. Returns its action, named MENUITEM.
    QAction* AddItem(const QString& CAPTION, const QString& MENUITEM, int32_t ITEM, int32_t ParentItemNumber,
                     bool CHECKED, bool Enabled);

signals:
    // The pointer is on an item; separator says the item is a separator line.
    // The second argument is not used.
    void ItemReport(int32_t number, int32_t unused, bool separator);
    // The same for an item of the window commands' menu.
    void ItemReportPlain(int32_t number, int32_t unused, bool separator);
    // The pointer is on a title of the menu bar; the argument is its number.
    void StatusResetA(int32_t number);
    // The pointer has left the items of a menu that stays open; the argument is
    // the number of the menu's title.
    void StatusResetB(int32_t number);
    // The menus are closed.
    void StatusResetC();
    // A popup menu closed; the first argument is the number of its title, the
    // others are 0. Raised just before StatusResetC.
    void StatusResetD(int32_t number, int32_t, int32_t, int32_t, int32_t, int32_t);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Item {
        QPointer<QAction> action;
        int32_t icon = -1;
    };

    void number(QAction* action, bool popup);
    void follow(QMenu* menu, bool popup);
    void stopFollowing();
    bool has(int32_t number) const;
    size_t indexOf(int32_t number) const;
    int32_t numberOf(const QString& MENUITEM) const;
    void showIcon(const Item& item) const;

    void report(QAction* action);
    void pointerOff(QMenu* menu);
    void menuClosing(QMenu* menu);
    void barHovered(QAction* action);

    std::vector<Item> items_; // item n at n - 1
    ImageLookup images_;
    QPointer<QMenuBar> bar_;
    QList<QPointer<QMenu>> menus_;
    QList<QPointer<QMenu>> popups_;
    QPointer<QMenu> systemMenu_;
    QPointer<QAction> reported_;
};

} // namespace zuv
