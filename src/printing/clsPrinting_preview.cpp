// The print preview: opening it over a caller's document, drawing one page on
// the page surface, and paging. A page is laid out and drawn from page 1 on at
// every change of page, since no break positions are kept; only the page shown
// exists as a bitmap.
#include "printing/clsPrinting.h"

#include "platform/core/Conversions.h"
#include "platform/print/PictureSurface.h"
#include "platform/print/Printer.h"
#include "platform/print/RichTextBox.h"
#include "platform/widgets/ComboBox.h"
#include "platform/widgets/ImageControl.h"
#include "platform/widgets/StatusBar.h"
#include "platform/widgets/Toolbar.h"
#include "printing/PrintServices.h"
#include "printing/frmPPrev.h"
#include "settings/StoreAndFileServices.h"

#include <QAction>

#include <algorithm>

using platform::toInt16;
using platform::toInt32;

namespace {

constexpr double TwipsPerInch = 1440.0;
// The page surface is this much narrower and shorter than the paper.
constexpr float SurfaceNarrower = 150;
constexpr float SurfaceShorter = 400;
// The rows the two lists show when they drop down.
const QString ListRows = QStringLiteral("15");

frmPPrev& preview()
{
    return Forms::get<frmPPrev>();
}

// A length of the paper in device pixels as inches, to two places, the way the
// status bar shows it: "##.00", so 8.5 is "8.50" and a half inch ".50".
QString paperInches(int32_t pixels, bool alongX)
{
    StoreAndFileServices& lib = StoreAndFileServices::instance();
    const platform::Printer& printer = platform::currentPrinter();
    const float twipsPerPixelX = printer.ScaleX(1, platform::ScalePixels, platform::ScaleTwips);
    const float twipsPerPixelY = printer.ScaleY(1, platform::ScalePixels, platform::ScaleTwips);
    const double inches = lib.SHOWUNITS(pixels, alongX, twipsPerPixelX, twipsPerPixelY);
    const double rounded = platform::toDouble(lib.CURRENCYFMT(QString::number(inches, 'g', 15)));
    QString text = QString::number(rounded, 'f', 2);
    if (text.startsWith(QLatin1String("0.")))
        text.remove(0, 1);
    return text;
}

} // namespace

void clsPrinting::PRINTPREVIEW(Form* FORMNAME, platform::RichTextBox* RICHTEXTPATH, int32_t TEXTSELSTART)
{
    INITIALIZEPATH(FORMNAME, RICHTEXTPATH);
    GETMARGINS();
    int32_t count = PAGECOUNT(FORMNAME, TEXTSELSTART, wholeInches(MARGINLEFT), wholeInches(MARGINTOP),
                              wholeInches(MARGINRIGHT), wholeInches(MARGINBOTTOM));
    frmPPrev& form = preview();
    // The surface is smaller than the paper and keeps the margins' fractions, so
    // its pages can hold less: the list offers as many as the preview needs to
    // show the whole text.
    count = std::max(count, surfacePageCount(&form.PICSTDPAGE));
    form.ICONMENUS();
    form.CBOPGZOOM->Clear();
    for (const QString& step : frmPPrev::zoomSteps())
        form.CBOPGZOOM->AddItem(step);

    PAGESEL(CURPAGE, &form.PICSTDPAGE);
    form.IMGPREVIEW->setPicture(form.PICSTDPAGE.Image());
    ZOOMSIZE(100);

    form.CBOPGNO->Clear();
    for (int32_t page = 1; page <= count; ++page)
        form.CBOPGNO->AddItem(QString::number(page));
    // The assignments raise the lists' Click: the zoom applies, and the first
    // page is drawn once more. A stored zoom that is no step opens at 50 %.
    const QString stored = StoreAndFileServices::instance().REGSTRREAD(
        StoreAndFileServices::currentUserKey(), frmPPrev::settingsKey(), QStringLiteral("Zoom"),
        QStringLiteral("50 %"));
    form.CBOPGZOOM->setText(form.CBOPGZOOM->hasEntry(stored) ? stored : QStringLiteral("50 %"));
    form.CBOPGNO->setText(QString::number(CURPAGE));
    PAGETOTAL = form.CBOPGNO->ListCount();
    PAGESTATE();

    platform::Printer& printer = platform::currentPrinter();
    PAPERWIDTH = printer.GetDeviceCaps(platform::PHYSICALWIDTH);
    PAPERHEIGHT = printer.GetDeviceCaps(platform::PHYSICALHEIGHT);
    form.SBMAIN->setPanelText(3, paperInches(PAPERWIDTH, true) + QStringLiteral(" x ") +
                                     paperInches(PAPERHEIGHT, false) + QStringLiteral(" inches"));
    form.SBMAIN->setPanelText(8, QString::number(PAGETOTAL));

    StoreAndFileServices::instance().COMBOINIT(QString(), ListRows, form.CBOPGNO, true);
    StoreAndFileServices::instance().COMBOINIT(QString(), ListRows, form.CBOPGZOOM, true);
    StoreAndFileServices::instance().FORMLOAD(QStringLiteral("GLOBAL"), &form, true);
    form.Show(1, FORMNAME);
}

void clsPrinting::surfaceSetup(platform::PictureSurface* surface)
{
    const platform::Printer& printer = platform::currentPrinter();
    surface->setHeight(printer.Height() - SurfaceShorter);
    surface->setWidth(printer.Width() - SurfaceNarrower);
    surface->setScaleWidth(printer.ScaleWidth());
    surface->setScaleHeight(printer.ScaleHeight());

    // A screen surface has no unprintable margin: both come out as 0.
    OFFSETX = toInt16(surface->ScaleX(float(surface->GetDeviceCaps(platform::PHYSICALOFFSETX)),
                                      platform::ScalePixels, platform::ScaleTwips));
    OFFSETY = toInt16(surface->ScaleY(float(surface->GetDeviceCaps(platform::PHYSICALOFFSETY)),
                                      platform::ScalePixels, platform::ScaleTwips));
    RCPAGE = {0, 0, toInt32(surface->ScaleWidth()), toInt32(surface->ScaleHeight())};
    // Unlike on paper, the margins keep their fractions here.
    RCDRAW.left = toInt32(MARGINLEFT * TwipsPerInch - OFFSETX);
    RCDRAW.top = toInt32(MARGINTOP * TwipsPerInch - OFFSETY);
    RCDRAW.right = toInt32(surface->Width() - MARGINRIGHT * TwipsPerInch - OFFSETX);
    RCDRAW.bottom = toInt32(surface->Height() - MARGINBOTTOM * TwipsPerInch - OFFSETY);
    FRSCAN = {surface, surface, RCDRAW, RCPAGE, {0, -1}};
}

int32_t clsPrinting::surfacePageCount(platform::PictureSurface* surface)
{
    platform::RichTextBox& document = *preview().RTF2;
    surfaceSetup(surface);
    int32_t count = 1;
    for (;;) {
        const int32_t start = FRSCAN.chrg.cpMin;
        TEXTPOS = document.FormatRange(false, &FRSCAN);
        if (TEXTPOS >= TEXTLEN || TEXTPOS <= start)
            break;
        FRSCAN.continueAt(TEXTPOS, surface);
        ++count;
    }
    document.FormatRange(false, nullptr);
    return count;
}

// Walks the document from page 1, drawing each page on INCONTROL and wiping it
// until page PAGENUMBER stands, or the last page if the text ends before. Any
// failure on the way leaves the surface as it is; the status bar and the image
// show it all the same.
void clsPrinting::PAGESEL(int16_t PAGENUMBER, platform::PictureSurface* INCONTROL)
{
    frmPPrev& form = preview();
    try {
        GETMARGINS();
        INCONTROL->Cls();
        surfaceSetup(INCONTROL);

        TEXTPOS = 0;
        for (int32_t page = 1;; ++page) {
            PrintServices::instance().PAGEHEADERFOOTERINFOPREVIEW(
                INCONTROL, QString::number(page), toInt16(MARGINLEFT * TwipsPerInch),
                toInt16(MARGINTOP * TwipsPerInch), toInt16(MARGINBOTTOM * TwipsPerInch),
                toInt16(MARGINRIGHT * TwipsPerInch));
            const int32_t start = FRSCAN.chrg.cpMin;
            TEXTPOS = form.RTF2->FormatRange(true, &FRSCAN);
            // A page that doesn't move on ends the walk as the end of the text does.
            if (TEXTPOS >= TEXTLEN || TEXTPOS <= start)
                break;
            if (page == PAGENUMBER)
                break;
            INCONTROL->Cls();
            FRSCAN.continueAt(TEXTPOS, INCONTROL);
        }
        form.RTF2->FormatRange(false, nullptr);
        INCONTROL->Refresh();
    } catch (...) {
        form.RTF2->FormatRange(false, nullptr);
    }
    form.SBMAIN->setPanelText(6, form.CBOPGNO->Text());
    form.SBMAIN->setPanelText(8, QString::number(PAGETOTAL));
    form.IMGPREVIEW->setPicture(form.PICSTDPAGE.Image());
}

// The page shown is the text of the page list; each assignment to it raises its
// Click, which draws the page.
void clsPrinting::PAGESTART()
{
    if (PAGETOTAL != 1)
        preview().CBOPGNO->setText(QStringLiteral("1"));
    PAGESTATE();
}

void clsPrinting::PAGEEND()
{
    if (PAGETOTAL != 1)
        preview().CBOPGNO->setText(QString::number(PAGETOTAL));
    PAGESTATE();
}

void clsPrinting::PAGENEXT()
{
    platform::ComboBox& list = *preview().CBOPGNO;
    const int32_t page = toInt32(platform::val(list.Text()));
    if (PAGETOTAL != 1 && page < PAGETOTAL)
        list.setText(QString::number(page + 1));
    PAGESTATE();
}

void clsPrinting::PAGEPREVIOUS()
{
    platform::ComboBox& list = *preview().CBOPGNO;
    const int32_t page = toInt32(platform::val(list.Text()));
    if (PAGETOTAL != 1 && page > 1)
        list.setText(QString::number(page - 1));
    PAGESTATE();
}

// The Go To items and the page buttons by the page shown and the number of pages.
// Choosing a page in the list doesn't come here: the commands keep the state of
// the last paging command until the next one.
void clsPrinting::PAGESTATE()
{
    frmPPrev& form = preview();
    const int32_t page = toInt32(platform::val(form.CBOPGNO->Text()));
    const bool several = PAGETOTAL >= 2;
    const bool back = several && page != 1;
    const bool forward = several && page != PAGETOTAL;
    for (const char* key : {"FIRST PAGE", "PREVIOUS PAGE"})
        form.commands.setEnabled(QString::fromLatin1(key), back);
    for (const char* key : {"NEXT PAGE", "LAST PAGE"})
        form.commands.setEnabled(QString::fromLatin1(key), forward);
}
