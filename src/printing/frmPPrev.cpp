#include "printing/frmPPrev.h"

#include "platform/CommonDialog.h"
#include "platform/RichTextBox.h"

frmPPrev::frmPPrev() : Form(QStringLiteral("frmPPrev"))
{
    RTF2 = new platform::RichTextBox(this);
    RTF2->setObjectName(QStringLiteral("RTF2"));
    RTF2->hide();
    RTF3 = new platform::RichTextBox(this);
    RTF3->setObjectName(QStringLiteral("RTF3"));
    RTF3->hide();
    CMD1 = new platform::CommonDialog(QStringLiteral("CMD1"), this);
    PICSTDPAGE.setFontName(QStringLiteral("Tahoma"));
}

frmPPrev::~frmPPrev() = default;
