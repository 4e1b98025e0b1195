#include "viewer/frmPPrevPhoto.h"

#include "platform/core/Error.h"
#include "platform/core/Picture.h"
#include "platform/widgets/PictureBox.h"
#include "platform/widgets/Twips.h"
#include "presentation/PANEL.h"
#include "settings/StoreAndFileServices.h"

#include <QPushButton>

#include <new>

using platform::resumeNext;
using platform::twips;

frmPPrevPhoto::frmPPrevPhoto() : Form(QStringLiteral("frmPPrevPhoto"))
{
    setWindowTitle(QStringLiteral("Picture Preview"));
    PICPREVIEW = new platform::PictureBox(clientArea());
    twips(PICPREVIEW).setLeft(60);
    twips(PICPREVIEW).setTop(60);
    PANEL1 = new zuv::PANEL(clientArea());
    twips(PANEL1).setHeight(645);
    BTNCLOSE = new QPushButton(QStringLiteral("&Close"), PANEL1);
    twips(BTNCLOSE).setWidth(1125);
    twips(BTNCLOSE).setHeight(345);
    setCloseButton(BTNCLOSE);
    connect(BTNCLOSE, &QPushButton::clicked, this, platform::guarded(this, &frmPPrevPhoto::BTNCLOSE_Click));
    setWindowState(2);
}

void frmPPrevPhoto::Form_Load()
{
    StoreAndFileServices::instance().FORMLOAD(QStringLiteral("GLOBAL"), this, true);
}

void frmPPrevPhoto::Form_Unload()
{
    StoreAndFileServices::instance().FORMSAVE(QStringLiteral("GLOBAL"), this, true);
}

void frmPPrevPhoto::showFailure(const platform::Error& error)
{
    PICPREVIEW->setMessage(tr("The picture can't be shown: %1.").arg(error.description()));
}

void frmPPrevPhoto::loadPicture(const QString& path)
{
    try {
        PICPREVIEW->setPicture(platform::LoadPicture(path));
    } catch (const platform::Error& error) {
        showFailure(error);
    } catch (const std::bad_alloc&) {
        showFailure(platform::Error(platform::err::OutOfMemory));
    }
}

// The box keeps a margin of 60 twips at the left, top and right, and reaches
// down to the panel that holds the Close button.
void frmPPrevPhoto::Form_Resize()
{
    resumeNext([&] {
        twips(PICPREVIEW).setWidth(ScaleWidth() - twips(PICPREVIEW).Left() - twips(PICPREVIEW).Left());
    });
    resumeNext([&] { twips(PICPREVIEW).setTop(twips(PICPREVIEW).Left()); });
    resumeNext([&] {
        twips(PICPREVIEW).setHeight(ScaleHeight() - twips(PANEL1).Height() - twips(PICPREVIEW).Top());
    });
    resumeNext([&] { PANEL1->setDialogresize(WindowState() != 2); });
    resumeNext([&] { StoreAndFileServices::instance().RESIZEBTNCLOSE(this, BTNCLOSE); });
}

void frmPPrevPhoto::BTNCLOSE_Click()
{
    Forms::unload<frmPPrevPhoto>();
}
