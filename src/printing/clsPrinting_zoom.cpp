// Zoom of the print preview: the steps, how each one sizes the page image and
// places it in the work area, and the check marks, buttons and scroll bars that
// follow the step. Zoom only resizes IMGPREVIEW; the page bitmap is never drawn
// again. The step is the text of CBOPGZOOM and nothing else.
#include "printing/clsPrinting.h"

#include "platform/core/Conversions.h"
#include "platform/widgets/ComboBox.h"
#include "platform/widgets/ImageControl.h"
#include "platform/widgets/Toolbar.h"
#include "platform/widgets/Twips.h"
#include "printing/frmPPrev.h"

#include <QAction>
#include <QFrame>
#include <QScrollBar>

#include <algorithm>

using platform::twips;

namespace {

// The inset of the image from the work area's edge, twice that, and the
// allowance for the work area's own border.
constexpr float Inset = 45;
constexpr float TwoInsets = 90;
constexpr float Border = 60;
// What the scroll bars' maximums add to the overhang of the image.
constexpr float VerticalSlack = 415;
constexpr float HorizontalSlack = 400;

const QString PageWidth = QStringLiteral("Page Width");
const QString WholePage = QStringLiteral("Whole Page");
// In zoomSteps() the percentages come first, from the largest down.
constexpr qsizetype PercentageSteps = 6;

frmPPrev& preview()
{
    return Forms::get<frmPPrev>();
}

// A scroll maximum: the overhang of the image and some slack, in the 32 bits of
// the toolkit's scroll bar, and never below the minimum of 0.
int scrollMaximum(float overhang)
{
    return std::max(0, platform::toInt32(double(overhang)));
}

} // namespace

void clsPrinting::ZOOMSEL()
{
    frmPPrev& form = preview();
    auto window = twips(form.PICWINDOW);
    auto image = twips(form.IMGPREVIEW);
    window.setTop(form.PICTBAR->isHidden() ? 0 : twips(form.PICTBAR).Height());
    const QString step = form.CBOPGZOOM->Text();
    const float VW = twips(form.SCRVBAR).Width();
    const float HH = twips(form.SCRHBAR).Height();
    const double percentage = platform::val(step);
    if (percentage > 0) {
        ZOOMSIZE(percentage);
        const float PW = window.Width();
        const float PH = window.Height();
        const float PT = window.Top();
        const float IW = image.Width();
        const float IH = image.Height();
        image.setLeft(PW - VW - Border <= IW ? Inset : (PW - IW - VW - Border) / 2);
        image.setTop(PH - PT + TwoInsets > IH ? (PH - IH - PT + TwoInsets) / 2 : Inset);
    } else if (step == WholePage) {
        form.IMGPREVIEW->hide();
        const double ratio = double(form.PICSTDPAGE.Width()) / form.PICSTDPAGE.Height();
        // A window too low for the insets and the scroll bar keeps the old height.
        if (window.Height() - TwoInsets - TwoInsets - HH > 0)
            image.setHeight(window.Height() - TwoInsets - TwoInsets - HH);
        image.setWidth(float(image.Height() * ratio));
        image.setLeft((window.Width() - image.Width() - VW - Border) / 2);
        image.setTop(Inset);
        if (image.Left() < 0)
            image.setLeft(Inset);
        form.IMGPREVIEW->show();
    } else if (step == PageWidth) {
        form.IMGPREVIEW->hide();
        const double ratio = double(form.PICSTDPAGE.Height()) / form.PICSTDPAGE.Width();
        image.setWidth(window.Width() - VW - TwoInsets - TwoInsets);
        image.setHeight(float(image.Width() * ratio));
        image.setLeft(Inset);
        image.setTop((window.Height() - image.Height() - window.Top() + TwoInsets) / 2);
        if (image.Top() < 0)
            image.setTop(Inset);
        form.IMGPREVIEW->show();
    }
    ZOOMSTATE();
}

// The page at PERCENTAGE of the page surface's size.
void clsPrinting::ZOOMSIZE(double percentage)
{
    frmPPrev& form = preview();
    auto image = twips(form.IMGPREVIEW);
    form.IMGPREVIEW->hide();
    image.setWidth(float(form.PICSTDPAGE.Width() / 100.0 * percentage));
    image.setHeight(float(form.PICSTDPAGE.Height() / 100.0 * percentage));
    form.IMGPREVIEW->show();
}

// One step up or down among the percentages; the ends don't wrap, and from a
// fitted step only the list or the menu leads away.
void clsPrinting::ZOOMIN()
{
    frmPPrev& form = preview();
    const qsizetype step = frmPPrev::zoomSteps().indexOf(form.CBOPGZOOM->Text());
    if (step > 0 && step < PercentageSteps)
        form.CBOPGZOOM->setText(frmPPrev::zoomSteps().at(step - 1));
    ZOOMSTATE();
}

void clsPrinting::ZOOMOUT()
{
    frmPPrev& form = preview();
    const qsizetype step = frmPPrev::zoomSteps().indexOf(form.CBOPGZOOM->Text());
    if (step >= 0 && step < PercentageSteps - 1)
        form.CBOPGZOOM->setText(frmPPrev::zoomSteps().at(step + 1));
    ZOOMSTATE();
}

void clsPrinting::ZOOMSTATE()
{
    frmPPrev& form = preview();
    const QList<QAction*> items = form.zoomItems();
    for (QAction* item : items)
        item->setChecked(false);

    // The step's mark, and whether the two zoom buttons lead anywhere from it; a
    // text that is no step sets no mark and leaves the buttons as they are.
    const qsizetype step = frmPPrev::zoomSteps().indexOf(form.CBOPGZOOM->Text());
    if (step >= 0) {
        items.at(step)->setChecked(true);
        const bool percentage = step < PercentageSteps;
        form.TBARMAIN->Buttons(QStringLiteral("ZOOM IN"))->setEnabled(percentage && step > 0);
        form.TBARMAIN->Buttons(QStringLiteral("ZOOM OUT"))
            ->setEnabled(percentage && step < PercentageSteps - 1);
    }

    const float PW = twips(form.PICWINDOW).Width();
    const float PH = twips(form.PICWINDOW).Height();
    const float IW = twips(form.IMGPREVIEW).Width();
    const float IH = twips(form.IMGPREVIEW).Height();
    form.SCRVBAR->setEnabled(IH > PH);
    form.SCRHBAR->setEnabled(IW > PW);
    form.SCRVBAR->setMaximum(scrollMaximum(IH - PH + VerticalSlack));
    form.SCRHBAR->setMaximum(scrollMaximum(IW - PW + HorizontalSlack));
}
