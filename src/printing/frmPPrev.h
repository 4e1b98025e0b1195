#pragma once

#include "platform/Form.h"
#include "platform/PictureSurface.h"

namespace platform {
class CommonDialog;
class RichTextBox;
} // namespace platform

// The print preview window. It is also the home of the hidden controls that the
// print engine works with, so it is loaded, without being shown, whenever a
// document is counted or printed: RTF2 holds the document to page, RTF3 the
// range being printed, PICSTDPAGE the page surface, CMD1 the print dialog of jobs
// started here.
class frmPPrev : public Form {
    Q_OBJECT
public:
    frmPPrev();
    ~frmPPrev() override;

    platform::RichTextBox* RTF2 = nullptr;
    platform::RichTextBox* RTF3 = nullptr;
    platform::CommonDialog* CMD1 = nullptr;
    platform::PictureSurface PICSTDPAGE;
};
