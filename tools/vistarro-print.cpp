// vistarro-print: page through, zoom and print a document with Vistarro's print
// preview.
//
//   vistarro-print FILE
//
// FILE is a rich text (.html, .htm) or a plain text file. The window shows the
// document and opens the print preview at once; File > Print Preview opens it
// again, File > Page Setup edits the margins, header and footer, and File >
// Properties counts the document's pages, lines, characters and words. Printing goes to the system's default
// printer, or, on a machine without one, to "Print to PDF", which writes <documents>/<FILE's base name>.pdf.
// Exit status: 0, or 2 for a usage error or a file that can't be read.

#include "library/clsLibrary.h"
#include "picinfo/frmProps.h"
#include "platform/core/App.h"
#include "platform/core/Error.h"
#include "platform/print/CommonDialog.h"
#include "platform/print/Printer.h"
#include "platform/print/RichTextBox.h"
#include "platform/widgets/Form.h"
#include "platform/widgets/MsgBox.h"
#include "printing/clsPrinting.h"
#include "printing/frmPPrev.h"
#include "resources/Icons.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QMenuBar>
#include <QStringDecoder>
#include <QTimer>
#include <QUrl>

#include <cstdio>

namespace {

// The document's window: the text, the print dialog that the print engine asks
// for by the name CMD1, and a File menu.
class frmPrint : public Form {
public:
    frmPrint() : Form(QStringLiteral("frmPrint"))
    {
        RTF1 = new platform::RichTextBox(clientArea());
        RTF1->setObjectName(QStringLiteral("RTF1"));
        RTF1->setReadOnly(true);
        CMD1 = new platform::CommonDialog(QStringLiteral("CMD1"), this);
        QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
        connect(file->addAction(QStringLiteral("Print Pre&view")), &QAction::triggered, this,
                &frmPrint::MNUFILEPREVIEW_Click);
        connect(file->addAction(QStringLiteral("Page Set&up...")), &QAction::triggered, this,
                [] { clsLibrary::instance().PAGESETUPPAGESHOW(); });
        connect(file->addAction(QStringLiteral("P&roperties")), &QAction::triggered, this,
                &frmPrint::MNUFILEPROPERTIES_Click);
        file->addSeparator();
        connect(file->addAction(QStringLiteral("E&xit")), &QAction::triggered, this,
                [] { Forms::unload<frmPrint>(); });
        resize(720, 540);
    }

    void Form_Resize() override { RTF1->setGeometry(clientArea()->rect()); }

    // The print preview goes before this window: it is a window of its own.
    void Form_Unload() override
    {
        Forms::unload<frmPPrev>();
        QCoreApplication::quit();
    }

    void MNUFILEPREVIEW_Click()
    {
        try {
            clsPrinting::instance().PRINTPREVIEW(this, RTF1, RTF1->SelStart());
        } catch (const platform::Error& error) {
            platform::MsgBox::ask(this, QMessageBox::Warning, platform::App::Title(),
                                  QStringLiteral("The preview can't be shown: %1.").arg(error.description()),
                                  QMessageBox::Ok, QMessageBox::Ok);
        }
    }

    void MNUFILEPROPERTIES_Click()
    {
        clsLibrary::instance().GETPROPERTIES(frmProps::load, path, this, QStringLiteral("DOCUMENT"),
                                             RTF1->Text(), RTF1->SelRTF(), RTF1);
    }

    platform::RichTextBox* RTF1 = nullptr;
    platform::CommonDialog* CMD1 = nullptr;
    QString path;
};

// The file's text: HTML in the encoding that it declares (UTF-8 if none), plain
// text as UTF-8.
bool loadDocument(const QString& path, platform::RichTextBox& box)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("html") || suffix == QLatin1String("htm")) {
        QStringDecoder decoder(QStringConverter::encodingForHtml(bytes).value_or(QStringConverter::Utf8));
        box.setHtml(decoder(bytes));
        // Pictures named relative to the file are found beside it.
        box.document()->setBaseUrl(QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()));
    } else {
        box.setText(QString::fromUtf8(bytes));
    }
    return true;
}

} // namespace

int main(int argc, char* argv[])
{
    platform::App::chooseDisplayPlatform();
    QApplication app(argc, argv);
    platform::App::restoreDisplayEnvironment();
    QApplication::setApplicationName(platform::App::Title());
    QApplication::setOrganizationName(platform::App::CompanyName());
    QApplication::setWindowIcon(resources::windowIcon());
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2 || arguments.at(1).startsWith(QLatin1Char('-'))) {
        std::fputs("Usage: vistarro-print FILE\n"
                   "Shows a rich text (.html, .htm) or plain text file in Vistarro's print preview.\n",
                   stderr);
        return 2;
    }
    const QString path = arguments.at(1);

    auto& window = Forms::get<frmPrint>();
    Forms::setMainForm(&window);
    if (!loadDocument(path, *window.RTF1)) {
        std::fprintf(stderr, "vistarro-print: can't read %s\n", qPrintable(path));
        return 2;
    }
    const QFileInfo info(path);
    window.path = info.absoluteFilePath();
    window.setWindowTitle(info.fileName() + QStringLiteral(" - ") + platform::App::Title());
    // The footer's second field shows the name of the document that the window holds.
    window.CMD1->FileName = info.fileName();
    platform::currentPrinter().setDocName(info.completeBaseName());
    window.Show();
    QTimer::singleShot(0, &window, &frmPrint::MNUFILEPREVIEW_Click);
    return QApplication::exec();
}
