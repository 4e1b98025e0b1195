#pragma once

#include "platform/widgets/Form.h"

class QPushButton;

namespace platform {
class Error;
class PictureBox;
} // namespace platform
namespace zuv {
class PANEL;
}

// The picture preview: one picture at its natural size from the top left corner
// of a box, in a modal window over the main window, with a Close button that
// Enter and Esc press too. Its place and size are kept for all the maker's
// programs.
class frmPPrevPhoto : public Form {
    Q_OBJECT
public:
    frmPPrevPhoto();

    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;

    // Loads the picture behind the path into the box; a picture that can't be
    // loaded leaves the box empty with a line that says why.
    void loadPicture(const QString& path);
    // Says in the picture's place why it can't be shown.
    void showFailure(const platform::Error& error);

    platform::PictureBox* PICPREVIEW = nullptr;
    zuv::PANEL* PANEL1 = nullptr;
    QPushButton* BTNCLOSE = nullptr;

private:
    void BTNCLOSE_Click();
};
