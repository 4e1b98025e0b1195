// The print engine: margins, the page rectangles, counting pages and printing a
// page range, each page with its header and footer before the body.
#include "printing/clsPrinting.h"

#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/print/CommonDialog.h"
#include "platform/print/Printer.h"
#include "platform/print/RichTextBox.h"
#include "printing/PrintServices.h"
#include "printing/frmPPrev.h"
#include "settings/StoreAndFileServices.h"

#include <algorithm>

using platform::resumeNext;
using platform::toInt16;
using platform::toInt32;

namespace {

// The print dialog's flags: no print to file, a device back, collated copies,
// and either the selection offered or none.
constexpr int32_t FlagsWholeText = 0x100114;
constexpr int32_t FlagsSelection = 0x100111;
constexpr double TwipsPerInch = 1440.0;

frmPPrev& home()
{
    return Forms::get<frmPPrev>();
}

platform::RichTextBox& need(platform::RichTextBox* box)
{
    if (!box)
        throw platform::Error(platform::err::ObjectNotSet);
    return *box;
}

// Twips of a whole-inch margin, in the 16 bits that the rectangle arithmetic
// keeps: more than 22 inches overflow.
int16_t inchesToTwips(int16_t inches)
{
    return toInt16(double(inches) * TwipsPerInch);
}

// Twips of a margin with its fraction, as the header and footer take them.
int16_t fractionToTwips(double inches)
{
    return toInt16(inches * TwipsPerInch);
}

} // namespace

void clsPrinting::INITIALIZEPATH(Form* FORMNAME, platform::RichTextBox* RICHTEXTPATH)
{
    platform::RichTextBox& document = *home().RTF2;
    bool wholeText = true;
    resumeNext([&] { wholeText = need(RICHTEXTPATH).SelLength() == 0; });
    if (wholeText) {
        resumeNext([&] { dialogOf(FORMNAME).Flags = FlagsWholeText; });
        resumeNext([&] { document.setTextRTF(need(RICHTEXTPATH).TextRTF()); });
    } else {
        resumeNext([&] { dialogOf(FORMNAME).Flags = FlagsSelection; });
        resumeNext([&] { document.setTextRTF(need(RICHTEXTPATH).SelRTF()); });
    }
    TEXTLEN = int32_t(document.Text().size());
}

void clsPrinting::GETMARGINS()
{
    const QString key = StoreAndFileServices::companyKey() + QStringLiteral("\\GLOBAL\\frmPPrev\\Items");
    auto margin = [&key](int number) {
        return platform::toDouble(StoreAndFileServices::instance().REGSTRREAD(
            StoreAndFileServices::currentUserKey(), key, QStringLiteral("Page Margin %1").arg(number),
            QStringLiteral("1")));
    };
    MARGINLEFT = margin(0);
    MARGINRIGHT = margin(1);
    MARGINTOP = margin(2);
    MARGINBOTTOM = margin(3);
}

int16_t clsPrinting::wholeInches(double inches) const
{
    return toInt16(inches);
}

void clsPrinting::DEVICESETUP(int16_t left, int16_t top, int16_t right, int16_t bottom)
{
    CURPAGE = 1;
    platform::Printer& printer = platform::currentPrinter();
    platform::PictureSurface& page = home().PICSTDPAGE;
    page.setHeight(printer.Height());
    page.setWidth(printer.Width());
    page.setScaleWidth(printer.ScaleWidth());
    page.setScaleHeight(printer.ScaleHeight());

    OFFSETX = toInt16(printer.ScaleX(float(printer.GetDeviceCaps(platform::PHYSICALOFFSETX)), 3, 1));
    OFFSETY = toInt16(printer.ScaleY(float(printer.GetDeviceCaps(platform::PHYSICALOFFSETY)), 3, 1));
    RCPAGE = {0, 0, toInt32(printer.ScaleWidth()), toInt32(printer.ScaleHeight())};
    RCDRAW.left = toInt16(double(inchesToTwips(left)) - OFFSETX);
    RCDRAW.top = toInt16(double(inchesToTwips(top)) - OFFSETY);
    RCDRAW.right = toInt32(double(printer.Width()) - right * TwipsPerInch - OFFSETX);
    RCDRAW.bottom = toInt32(double(printer.Height()) - bottom * TwipsPerInch - OFFSETY);

    FRSCAN = {&printer, &printer, RCDRAW, RCPAGE, {0, -1}};
    FRPRINT = FRSCAN;
}

int32_t clsPrinting::PAGECOUNT(Form* FORMNAME, int32_t /*CURSORPOS*/, int16_t PGLEFTMARGIN,
                               int16_t PGTOPMARGIN, int16_t PGRIGHTMARGIN, int16_t PGBOTTOMMARGIN)
{
    frmPPrev& form = home();
    form.PICSTDPAGE.Cls();
    DEVICESETUP(PGLEFTMARGIN, PGTOPMARGIN, PGRIGHTMARGIN, PGBOTTOMMARGIN);
    int32_t count = 1;
    TEXTPOS = 0;
    for (;;) {
        const int32_t start = FRSCAN.chrg.cpMin;
        TEXTPOS = form.RTF2->FormatRange(true, &FRSCAN);
        if (TEXTPOS == 0)
            return count;
        // A page that doesn't move on ends the count as the end of the text would.
        if (TEXTPOS >= TEXTLEN || TEXTPOS <= start)
            break;
        FRSCAN.continueAt(TEXTPOS, &platform::currentPrinter());
        ++count;
    }
    form.RTF2->FormatRange(false, nullptr);

    platform::CommonDialog& dialog = dialogOf(FORMNAME);
    dialog.FromPage = 1;
    dialog.ToPage = count;
    dialog.Max = count;
    dialog.Copies = 1;
    platform::currentPrinter().setCopies(dialog.Copies);
    dialog.CancelError = true;
    return count;
}

void clsPrinting::PRINTDOCUMENT(Form* FORMNAME, platform::RichTextBox* RICHTEXT1, bool HIDEDIALOG)
{
    frmPPrev& form = home();
    if (need(RICHTEXT1).objectName() != QLatin1String("RTF3"))
        INITIALIZEPATH(FORMNAME, RICHTEXT1);

    platform::Printer& printer = platform::currentPrinter();
    try {
        GETMARGINS();
        platform::CommonDialog& dialog = dialogOf(FORMNAME);
        dialog.CancelError = true;
        int32_t rangeStart = 0;
        int32_t rangeEnd = 0;
        int32_t page = 1;
        const int16_t left = wholeInches(MARGINLEFT);
        const int16_t top = wholeInches(MARGINTOP);
        const int16_t right = wholeInches(MARGINRIGHT);
        const int16_t bottom = wholeInches(MARGINBOTTOM);
        PAGECOUNT(FORMNAME, 1, left, top, right, bottom);
        if (!HIDEDIALOG) {
            PrintServices::instance().HOOKFRMLOAD();
            dialog.ShowPrinter();
            PrintServices::instance().HOOKFRMUNLOAD();
        }
        // The printer may have changed in the dialog: its page sets the rectangles.
        DEVICESETUP(left, top, right, bottom);
        // A dialog never shown holds no range yet: the job starts on page 1.
        const int32_t from = std::max(dialog.FromPage, 1);
        const int32_t to = dialog.ToPage;
        if (HIDEDIALOG) {
            printer.setCopies(1);
            dialog.Copies = 1;
        } else {
            printer.setCopies(dialog.Copies);
        }

        // Find where the pages FROM to TO begin and end in the document.
        bool fromFound = false;
        bool textEnded = false;
        TEXTPOS = 0;
        for (;;) {
            if (page == from) {
                rangeStart = TEXTPOS;
                fromFound = true;
            }
            const int32_t start = FRSCAN.chrg.cpMin;
            TEXTPOS = form.RTF2->FormatRange(true, &FRSCAN);
            if (TEXTPOS >= TEXTLEN || TEXTPOS <= start) {
                textEnded = true;
                break;
            }
            FRSCAN.continueAt(TEXTPOS, &platform::currentPrinter());
            if (page == to)
                break;
            ++page;
        }
        if (page == to)
            rangeEnd = TEXTPOS;
        // A range that runs past the end of the text (a printer with larger pages
        // chosen in the dialog) prints to the end; one that starts past it prints
        // nothing.
        if (!fromFound) {
            form.RTF2->FormatRange(false, nullptr);
            TEXTLEN = int32_t(form.RTF2->Text().size());
            return;
        }
        if (textEnded && page < to)
            rangeEnd = TEXTLEN;

        form.RTF3->setText(QString());
        form.RTF2->setSelStart(rangeStart);
        form.RTF2->setSelLength(rangeEnd - rangeStart);
        form.RTF3->setTextRTF(form.RTF2->SelRTF());

        TEXTPOS = 0;
        TEXTLEN = int32_t(form.RTF3->Text().size());
        form.RTF2->FormatRange(false, nullptr);

        printer.Print(QString());
        page = 1;
        for (;;) {
            PrintServices::instance().PAGEHEADERFOOTERINFO(
                QString::number(page), fractionToTwips(MARGINLEFT), fractionToTwips(MARGINTOP),
                fractionToTwips(MARGINBOTTOM), fractionToTwips(MARGINRIGHT));
            const int32_t start = FRPRINT.chrg.cpMin;
            TEXTPOS = form.RTF3->FormatRange(true, &FRPRINT);
            if (TEXTPOS >= TEXTLEN || TEXTPOS <= start)
                break;
            printer.NewPage();
            printer.Print(QString());
            FRPRINT.continueAt(TEXTPOS, &platform::currentPrinter());
            ++page;
        }
        printer.EndDoc();
        form.RTF3->FormatRange(false, nullptr);
        form.RTF2->FormatRange(false, nullptr);
    } catch (...) {
        // Cancel in the dialog, or a failure on the way: nothing more is done, and
        // a job already begun is abandoned rather than half sent.
        printer.KillDoc();
        form.RTF3->FormatRange(false, nullptr);
        form.RTF2->FormatRange(false, nullptr);
    }
    // The preview goes on paging the whole document after a job of a part of it.
    TEXTLEN = int32_t(form.RTF2->Text().size());
}
