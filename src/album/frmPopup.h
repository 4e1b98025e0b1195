#pragma once

#include "platform/Form.h"

// The owner of the two context menus of the main window's lists, and of the
// preview of their current items. Never shown itself.
class frmPopup : public Form {
    Q_OBJECT
public:
    frmPopup();

    // Preview of the current item of the found list, and of the album.
    void PREVIEWFOUND();
    void PREVIEWSELECTED();

private:
    static void preview(const QString& path);
};
