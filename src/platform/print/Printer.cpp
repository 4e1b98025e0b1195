#include "platform/print/Printer.h"

#include "platform/core/Error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

namespace platform {

namespace {

constexpr double TwipsPerPoint = 20.0;

QString defaultPdfFolder()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return documents.isEmpty() || !QDir(documents).exists() ? QDir::homePath() : documents;
}

// "<documents>/<name>.pdf", for a job whose file nobody has chosen.
QString defaultPdfFile(QString name)
{
    if (name.isEmpty())
        name = QStringLiteral("Untitled");
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    return defaultPdfFolder() + QLatin1Char('/') + name + QStringLiteral(".pdf");
}

} // namespace

Printer::Printer() : printer_(std::make_unique<QPrinter>(QPrinter::HighResolution))
{
    setFontName(QStringLiteral("Sans Serif"));
    const QString systemDefault = QPrinterInfo::defaultPrinterName();
    if (systemDefault.isEmpty())
        configurePdf();
    else
        printer_->setPrinterName(systemDefault);
}

Printer::~Printer()
{
    KillDoc();
}

QString Printer::DeviceName() const
{
    return printer_->outputFormat() == QPrinter::PdfFormat ? QString::fromLatin1(PdfPrinterName)
                                                           : printer_->printerName();
}

void Printer::selectPrinter(const QString& name)
{
    if (documentOpen())
        throw Error(err::InvalidCall);
    if (name == QLatin1String(PdfPrinterName)) {
        configurePdf();
        return;
    }
    if (!QPrinterInfo::availablePrinterNames().contains(name))
        throw Error(err::InvalidPropertyValue);
    printer_->setOutputFormat(QPrinter::NativeFormat);
    printer_->setPrinterName(name);
}

void Printer::configurePdf()
{
    printer_->setOutputFormat(QPrinter::PdfFormat);
    // A file has no unprintable edge: the printable area is the whole sheet.
    printer_->setFullPage(false);
    printer_->setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Point);
    if (pdfFileName_.isEmpty())
        pdfFileName_ = defaultPdfFile(QCoreApplication::applicationName());
    printer_->setOutputFileName(pdfFileName_);
}

float Printer::Width() const
{
    return float(printer_->pageLayout().fullRect(QPageLayout::Point).width() * TwipsPerPoint);
}

float Printer::Height() const
{
    return float(printer_->pageLayout().fullRect(QPageLayout::Point).height() * TwipsPerPoint);
}

float Printer::drawableWidth() const
{
    return float(printer_->pageLayout().paintRect(QPageLayout::Point).width() * TwipsPerPoint);
}

float Printer::drawableHeight() const
{
    return float(printer_->pageLayout().paintRect(QPageLayout::Point).height() * TwipsPerPoint);
}

int Printer::GetDeviceCaps(int index) const
{
    const QPageLayout layout = printer_->pageLayout();
    const int resolution = printer_->resolution();
    switch (index) {
    case PHYSICALWIDTH: return layout.fullRectPixels(resolution).width();
    case PHYSICALHEIGHT: return layout.fullRectPixels(resolution).height();
    case PHYSICALOFFSETX: return layout.paintRectPixels(resolution).left();
    case PHYSICALOFFSETY: return layout.paintRectPixels(resolution).top();
    default: return Canvas::GetDeviceCaps(index);
    }
}

double Printer::dpiX() const
{
    return printer_->resolution();
}

double Printer::dpiY() const
{
    return printer_->resolution();
}

int Printer::Copies() const
{
    return printer_->copyCount();
}

void Printer::setCopies(int copies)
{
    if (copies < 1)
        throw Error(err::InvalidPropertyValue);
    printer_->setCopyCount(copies);
}

QString Printer::OutputFileName() const
{
    return pdfFileName_;
}

void Printer::setOutputFileName(const QString& path)
{
    fileChosen_ = true;
    pdfFileName_ = path;
    if (printer_->outputFormat() == QPrinter::PdfFormat)
        printer_->setOutputFileName(path);
}

void Printer::setDocName(const QString& name)
{
    printer_->setDocName(name);
    if (fileChosen_)
        return;
    pdfFileName_ = defaultPdfFile(name);
    if (printer_->outputFormat() == QPrinter::PdfFormat)
        printer_->setOutputFileName(pdfFileName_);
}

QPainter* Printer::outputPainter()
{
    if (!painter_) {
        auto painter = std::make_unique<QPainter>();
        if (!painter->begin(printer_.get()))
            throw Error(err::PrinterError);
        painter_ = std::move(painter);
    }
    return painter_.get();
}

void Printer::NewPage()
{
    outputPainter();
    if (!printer_->newPage())
        throw Error(err::PrinterError);
}

void Printer::EndDoc()
{
    if (!painter_)
        return;
    const bool written = painter_->end();
    painter_.reset();
    if (!written)
        throw Error(err::PrinterError);
}

void Printer::KillDoc()
{
    if (!painter_)
        return;
    printer_->abort();
    painter_->end();
    painter_.reset();
    if (printer_->outputFormat() == QPrinter::PdfFormat)
        QFile::remove(pdfFileName_);
}

QStringList Printers()
{
    QStringList names = QPrinterInfo::availablePrinterNames();
    names.append(QString::fromLatin1(Printer::PdfPrinterName));
    return names;
}

Printer& currentPrinter()
{
    static Printer* printer = nullptr;
    if (!printer) {
        printer = new Printer();
        // The printer lives as long as the application object.
        qAddPostRoutine([] {
            delete printer;
            printer = nullptr;
        });
    }
    return *printer;
}

} // namespace platform
