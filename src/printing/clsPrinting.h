#pragma once

#include "platform/print/PageFormatter.h"

#include <QString>

#include <cstdint>

class Form;

namespace platform {
class CommonDialog;
class PictureSurface;
class RichTextBox;
} // namespace platform

// The length in characters of the plain text that the current print pass walks.
extern int32_t TEXTLEN;

// The print service: puts a rich text document on paper with the page setup's
// margins and a header and footer on every page, and shows it in the print
// preview. The rich text box does the layout; this class keeps the bookkeeping
// round it. It works through the hidden controls of frmPPrev: RTF2 holds the
// document to page, RTF3 the range being printed, PICSTDPAGE the preview page.
// One shared instance.
class clsPrinting {
public:
    static clsPrinting& instance();

    // --- The print engine -------------------------------------------------------
    // Copies the control's text, or only its selection when it has one, into RTF2
    // and sets the print dialog of FORMNAME (its CMD1) to offer the selection.
    void INITIALIZEPATH(Form* FORMNAME, platform::RichTextBox* RICHTEXTPATH);
    // Reads the four page margins, in inches, of the page setup.
    void GETMARGINS();
    // The number of pages of RTF2 on the current printer with whole-inch margins;
    // also sets FORMNAME's print dialog to offer pages 1 to that count.
    int32_t PAGECOUNT(Form* FORMNAME, int32_t CURSORPOS, int16_t PGLEFTMARGIN, int16_t PGTOPMARGIN,
                      int16_t PGRIGHTMARGIN, int16_t PGBOTTOMMARGIN);
    // Prints RICHTEXT1 (or, when that is RTF3, the document the preview holds):
    // counts, asks the print dialog unless HIDEDIALOG, and prints the chosen pages
    // with header and footer. Cancel or any failure stops it without a word.
    void PRINTDOCUMENT(Form* FORMNAME, platform::RichTextBox* RICHTEXT1, bool HIDEDIALOG);

    // --- The print preview --------------------------------------------------------
    // Opens the preview of the control's document over FORMNAME, modally; returns
    // once the window is closed. CURSORPOS has no effect: it opens on page 1.
    void PRINTPREVIEW(Form* FORMNAME, platform::RichTextBox* RICHTEXTPATH, int32_t TEXTSELSTART);
    // Draws page PAGENUMBER (from 1) of RTF2 on INCONTROL and shows it.
    void PAGESEL(int16_t PAGENUMBER, platform::PictureSurface* INCONTROL);
    void PAGESTART();
    void PAGEEND();
    void PAGENEXT();
    void PAGEPREVIOUS();

    // --- Zoom -------------------------------------------------------------------
    void ZOOMSEL();
    void ZOOMIN();
    void ZOOMOUT();

    // What the engine keeps between calls, for the preview and for tests.
    double marginLeft() const { return MARGINLEFT; }
    double marginTop() const { return MARGINTOP; }
    double marginRight() const { return MARGINRIGHT; }
    double marginBottom() const { return MARGINBOTTOM; }
    const platform::RECT& drawRect() const { return RCDRAW; }
    const platform::RECT& pageRect() const { return RCPAGE; }
    int32_t pageTotal() const { return PAGETOTAL; }
    int16_t currentPage() const { return CURPAGE; }

private:
    clsPrinting() = default;

    void DEVICESETUP(int16_t left, int16_t top, int16_t right, int16_t bottom);
    void PAGESTATE();
    void ZOOMSIZE(double percentage);
    void ZOOMSTATE();

    // Sizes the preview's page surface and sets the rectangles for drawing on it,
    // with the margins' fractions.
    void surfaceSetup(platform::PictureSurface* surface);
    // How many pages the surface's layout of RTF2 takes; it may be more than the
    // printer's count, since the surface is smaller than the paper.
    int32_t surfacePageCount(platform::PictureSurface* surface);
    // The four margins as whole inches, halves to the even neighbour.
    int16_t wholeInches(double inches) const;
    // The print dialog (CMD1) of a form; a form without one fails.
    static platform::CommonDialog& dialogOf(Form* form);

    platform::FORMATRANGE FRSCAN;
    platform::FORMATRANGE FRPRINT;
    platform::RECT RCDRAW;
    platform::RECT RCPAGE;
    int16_t OFFSETX = 0;
    int16_t OFFSETY = 0;
    int32_t TEXTPOS = 0;
    int16_t CURPAGE = 0;
    double MARGINBOTTOM = 0;
    double MARGINLEFT = 0;
    double MARGINRIGHT = 0;
    double MARGINTOP = 0;
    // The sheet in the printer's pixels, for the status bar. 32-bit: at 1200 dots
    // an inch a sheet of 28 inches already needs more than 16 bits.
    int32_t PAPERWIDTH = 0;
    int32_t PAPERHEIGHT = 0;
    int32_t PAGETOTAL = 0;
};
