#pragma once

#include <QString>

#include <cstdint>

namespace platform {
class Canvas;
class PictureSurface;
} // namespace platform

// The services of the printing layer: the headers and footers of printed and
// previewed pages, the page setup, and the centring of the next print dialog. They
// keep no state; one instance, reached through PrintServices::instance().
class PrintServices {
public:
    static PrintServices& instance();
    PrintServices(const PrintServices&) = delete;
    PrintServices& operator=(const PrintServices&) = delete;

    // --- Headers and footers ---------------------------------------------------
    // Draw a page's header and footer, before its body, as the page setup keeps
    // them (date, time, title; two fields and the page number PGNO; two rules).
    // Margins are twips from the sheet's edges. PAGEHEADERFOOTERINFO draws on the
    // current printer, PAGEHEADERFOOTERINFOPREVIEW on the preview's page surface,
    // with the few positions that differ between the two.
    void PAGEHEADERFOOTERINFO(const QString& PGNO, int16_t Left, int16_t Top, int16_t Bottom, int16_t Right);
    void PAGEHEADERFOOTERINFOPREVIEW(platform::PictureSurface* INCONTROL, const QString& PGNO, int16_t Left,
                                     int16_t Top, int16_t Bottom, int16_t Right);

    // --- Page setup -----------------------------------------------------------
    // Open the page setup modally, on its Page tab or on its Header/Footer tab, with
    // the hourglass in the main window's status line until the dialog has loaded.
    // They return once the dialog is closed.
    void PAGESETUPPAGESHOW();
    void PAGESETUPHEADFOOTSHOW();

    // --- The print dialog -----------------------------------------------------
    // The print dialog that opens next is centred on the screen; HOOKFRMUNLOAD
    // withdraws a request that no dialog has taken yet.
    void HOOKFRMLOAD();
    void HOOKFRMUNLOAD();

private:
    PrintServices() = default;
    void drawHeaderFooter(platform::Canvas& device, bool preview, const QString& PGNO, int16_t Left,
                          int16_t Top, int16_t Bottom, int16_t Right);
};
