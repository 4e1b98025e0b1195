#pragma once

#include "platform/widgets/Form.h"

class QAction;
class QMenu;

namespace zuv {
class ICOMNU;
}

// The owner of the two context menus of the main window's lists, and of the
// preview and properties of their current items. Never shown itself.
class frmPopup : public Form {
    Q_OBJECT
public:
    frmPopup();

    void Form_Load() override;
    void ICONMENUSPOPUP();

    // Preview of the current item of the found list, and of the album.
    void PREVIEWFOUND();
    void PREVIEWSELECTED();

    // The found menu; its top item is never seen, its items form the menu.
    QMenu* MNUFOUNDTOP = nullptr;
    QAction* MNUFOUNDPREVIEW = nullptr;
    QAction* MNUFOUNDADD = nullptr;
    QAction* MNUFOUNDADDALL = nullptr;
    QAction* MNUFOUNDPROPS = nullptr;
    // The selected menu.
    QMenu* MNUSELECTEDTOP = nullptr;
    QAction* MNUSELECTEDPREVIEW = nullptr;
    QAction* MNUSELECTEDCLEAR = nullptr;
    QAction* MNUSELECTEDCLEARALL = nullptr;
    QAction* MNUSELECTEDPROPS = nullptr;
    zuv::ICOMNU* ICOMNU = nullptr;

private:
    void createMenus();
    void MNUFOUNDPROPS_Click();
    void MNUSELECTEDPROPS_Click();
    static void preview(const QString& path);
    static void showProperties(const QString& path);
};
