#pragma once

#include "platform/print/Canvas.h"

#include <QStringList>

#include <memory>

class QPrinter;

namespace platform {

// The printer object: the current printer of the program as a drawing object.
// The first output opens the document, NewPage finishes a page and EndDoc sends
// the job. Sizes are those of the chosen paper: Width and Height the whole sheet,
// ScaleWidth and ScaleHeight the printable area in twips, whose top left corner
// is the origin of all drawing.
//
// Besides the system's printers there is always the file printer "Print to
// PDF", which writes the job to OutputFileName, so a machine without a printer
// can still print.
class Printer : public Canvas {
public:
    static constexpr const char* PdfPrinterName = "Print to PDF";

    Printer();
    ~Printer() override;
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    // The printer's name as Printers lists it.
    QString DeviceName() const;
    // Switches to another printer of Printers(); an unknown name is an invalid
    // value. A job in progress must be ended first.
    void selectPrinter(const QString& name);

    float Width() const override;
    float Height() const override;
    int GetDeviceCaps(int index) const override;

    int Copies() const;
    void setCopies(int copies);

    // Where "Print to PDF" writes; until one is chosen, a file in the user's
    // documents folder named after the document.
    QString OutputFileName() const;
    void setOutputFileName(const QString& path);
    // The job's name as the print queue shows it.
    void setDocName(const QString& name);

    // Finishes the page and starts the next one (opening the document first if
    // nothing was output yet).
    void NewPage();
    // Finishes the document and sends the job; without an open document nothing
    // happens.
    void EndDoc();
    // Abandons the job in progress: nothing reaches the printer, and a PDF file
    // begun for it is removed.
    void KillDoc();
    bool documentOpen() const { return painter_ != nullptr; }

    // Null while no document is open: drawing then reaches nothing.
    QPainter* activePainter() override { return painter_.get(); }
    double dpiX() const override;
    double dpiY() const override;

    // The toolkit's printer, for the print and page setup dialogs, which choose
    // the printer, the paper and the orientation on it.
    QPrinter& device() { return *printer_; }

protected:
    QPainter* outputPainter() override;
    float drawableWidth() const override;
    float drawableHeight() const override;

private:
    void configurePdf();

    std::unique_ptr<QPrinter> printer_;
    std::unique_ptr<QPainter> painter_;
    QString pdfFileName_;
    bool fileChosen_ = false;
};

// The printers that can be chosen: the system's, then "Print to PDF".
QStringList Printers();
// The current printer ("Printer"): the system's default printer, or "Print to
// PDF" when there is none.
Printer& currentPrinter();

} // namespace platform
