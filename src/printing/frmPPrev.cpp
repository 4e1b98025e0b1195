// The print preview's life cycle and settings, and its commands: printing,
// closing, the bars, the About box, the page list, the keys of the work area and
// the mouse on the page.
#include "printing/frmPPrev.h"

#include "about/frmAbout.h"
#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/print/CommonDialog.h"
#include "platform/print/RichTextBox.h"
#include "platform/widgets/ComboBox.h"
#include "platform/widgets/Keys.h"
#include "platform/widgets/Screen.h"
#include "platform/widgets/StatusBar.h"
#include "platform/widgets/Toolbar.h"
#include "platform/widgets/Twips.h"
#include "presentation/ICOMNU.h"
#include "presentation/PresentationServices.h"
#include "printing/clsPrinting.h"
#include "resources/Icons.h"
#include "settings/StoreAndFileServices.h"

#include <QAction>
#include <QMenuBar>
#include <QScrollBar>
#include <QTimer>

using platform::resumeNext;
using platform::twips;

namespace {

const QString Global = QStringLiteral("GLOBAL");
constexpr int ScrollStep = 1000;

// A scroll bar refuses a value outside its range rather than stopping at the end.
void setScrollValue(QScrollBar* bar, int value)
{
    if (value < bar->minimum() || value > bar->maximum())
        throw platform::Error(platform::err::InvalidPropertyValue);
    bar->setValue(value);
}

} // namespace

frmPPrev::frmPPrev() : Form(QStringLiteral("frmPPrev"))
{
    // Its menus describe their own items, in its own status line while it is shown.
    setDescribesOwnMenus(true);
    setPrintPreview(true);
    setWindowTitle(QStringLiteral("Preview"));
    QFont tahoma = font();
    tahoma.setFamily(QStringLiteral("Tahoma"));
    setFont(tahoma);
    IMGLST = resources::previewImages();
    createMenus();
    createToolStrip();
    commands = platform::ToolbarCommands(TBARMAIN, {{"FIRST PAGE", MNUVIEWFIRST},
                                                    {"PREVIOUS PAGE", MNUVIEWPREVIOUS},
                                                    {"NEXT PAGE", MNUVIEWNEXT},
                                                    {"LAST PAGE", MNUVIEWLAST}});
    createWorkArea();
    createStatusBar();
    connectEvents();
    createMenuTracking();

    RTF2 = new platform::RichTextBox(this);
    RTF2->setObjectName(QStringLiteral("RTF2"));
    RTF2->hide();
    RTF3 = new platform::RichTextBox(this);
    RTF3->setObjectName(QStringLiteral("RTF3"));
    RTF3->hide();
    CMD1 = new platform::CommonDialog(QStringLiteral("CMD1"), this);
    PICSTDPAGE.setFontName(QStringLiteral("Tahoma"));

    // The designed client area of 7515 by 6510 twips; FORMLOAD restores the
    // user's placement when the preview opens.
    resize(platform::Screen::pixelsX(7515), platform::Screen::pixelsY(6510) + menuBar()->sizeHint().height());
}

frmPPrev::~frmPPrev() = default;

const QStringList& frmPPrev::zoomSteps()
{
    static const QStringList steps = {
        QStringLiteral("200 %"),      QStringLiteral("150 %"),      QStringLiteral("100 %"),
        QStringLiteral("75 %"),       QStringLiteral("50 %"),       QStringLiteral("25 %"),
        QStringLiteral("Page Width"), QStringLiteral("Whole Page"),
    };
    return steps;
}

QList<QAction*> frmPPrev::zoomItems() const
{
    return {MNUZOOM200, MNUZOOM150, MNUZOOM100, MNUZOOM75, MNUZOOM50, MNUZOOM25, MNUZOOMPW, MNUZOOMWP};
}

QString frmPPrev::settingsKey()
{
    return StoreAndFileServices::companyKey() + QStringLiteral("\\GLOBAL\\frmPPrev\\Items");
}

QString frmPPrev::readSetting(const QString& item, const QString& defaultValue)
{
    return StoreAndFileServices::instance().REGSTRREAD(StoreAndFileServices::currentUserKey(), settingsKey(),
                                                       item, defaultValue);
}

void frmPPrev::writeSetting(const QString& item, const QString& data)
{
    StoreAndFileServices::instance().REGSTRWRITE(StoreAndFileServices::currentUserKey(), settingsKey(), item,
                                                 data);
}

// Runs on the first touch of the form, which the print engine makes too. A step
// that fails (a stored bar setting that isn't "True" or "False") is skipped.
void frmPPrev::Form_Load()
{
    resumeNext([&] {
        MNUFILEEXIT->setText(QStringLiteral("&Close\tAlt+F4"));
        MNUVIEWFIRST->setText(QStringLiteral("&First Page\tHome"));
        MNUVIEWPREVIOUS->setText(QStringLiteral("&Previous Page\tPgUp"));
        MNUVIEWNEXT->setText(QStringLiteral("&Next Page\tPgDn"));
        MNUVIEWLAST->setText(QStringLiteral("&Last Page\tEnd"));
    });
    resumeNext([&] { ICONMENUS(); });
    resumeNext([&] {
        const bool shown = platform::toBool(readSetting(QStringLiteral("Toolbar"), QStringLiteral("True")));
        PICTBAR->setHidden(!shown);
        MNUVIEWTOOLBAR->setChecked(shown);
    });
    resumeNext([&] {
        const bool shown =
            platform::toBool(readSetting(QStringLiteral("Status Bar"), QStringLiteral("True")));
        SBMAIN->setHidden(!shown);
        MNUVIEWSTATUSBAR->setChecked(shown);
    });
    PICWINDOW->setFocus();
}

// A preview that was only loaded for the print engine, and never shown, saves
// nothing.
void frmPPrev::Form_Unload()
{
    if (!isVisible())
        return;
    resumeNext([&] { StoreAndFileServices::instance().FORMSAVE(Global, this, true); });
    resumeNext([&] { writeSetting(QStringLiteral("Zoom"), CBOPGZOOM->Text()); });
    resumeNext([&] {
        writeSetting(QStringLiteral("Status Bar"), platform::boolText(MNUVIEWSTATUSBAR->isChecked()));
    });
    resumeNext(
        [&] { writeSetting(QStringLiteral("Toolbar"), platform::boolText(MNUVIEWTOOLBAR->isChecked())); });
}

void frmPPrev::ICONMENUS()
{
    PresentationServices& lib = PresentationServices::instance();
    ICOMNU->Attach(this, true);
    ICOMNU->setImageList([this](int32_t index) { return IMGLST.image(index + 1); });
    for (const auto& [item, image] : {std::pair{"MNUFILEPRINT", "PRINT"},
                                      {"MNUVIEWFIRST", "FIRST PAGE"},
                                      {"MNUVIEWPREVIOUS", "PREVIOUS PAGE"},
                                      {"MNUVIEWNEXT", "NEXT PAGE"},
                                      {"MNUVIEWLAST", "LAST PAGE"},
                                      {"MNUHELPABOUT", "ABOUT"}})
        lib.ICOMNUSETUP(this, this, QString::fromLatin1(item), QString::fromLatin1(image));
}

void frmPPrev::TBARMAIN_ButtonClick(const QString& key)
{
    clsPrinting& printing = clsPrinting::instance();
    // The page buttons perform their Go To items; Print prints at once, without the
    // dialog that its menu item asks first.
    if (commands.trigger(key))
        return;
    if (key == QLatin1String("PRINT"))
        printing.PRINTDOCUMENT(this, RTF3, true);
    else if (key == QLatin1String("ZOOM OUT"))
        printing.ZOOMOUT();
    else if (key == QLatin1String("ZOOM IN"))
        printing.ZOOMIN();
}

// The menu asks the print dialog first; the toolbar's button prints all pages at once.
void frmPPrev::MNUFILEPRINT_Click()
{
    clsPrinting::instance().PRINTDOCUMENT(this, RTF3, false);
}

void frmPPrev::MNUFILEEXIT_Click()
{
    Forms::unload<frmPPrev>();
}

// The toggles are checkable items: the menu has flipped the check mark already,
// and the mark is set again to match the bar.
void frmPPrev::MNUVIEWTOOLBAR_Click()
{
    PICTBAR->setHidden(!PICTBAR->isHidden());
    MNUVIEWTOOLBAR->setChecked(!PICTBAR->isHidden());
    Form_Resize();
}

void frmPPrev::MNUVIEWSTATUSBAR_Click()
{
    SBMAIN->setHidden(!SBMAIN->isHidden());
    MNUVIEWSTATUSBAR->setChecked(!SBMAIN->isHidden());
    Form_Resize();
}

void frmPPrev::MNUHELPABOUT_Click()
{
    Forms::get<frmAbout>().Show(1, this);
}

void frmPPrev::CBOPGNO_Click()
{
    clsPrinting::instance().PAGESEL(platform::toInt16(CBOPGNO->Text()), &PICSTDPAGE);
}

void frmPPrev::IMGPREVIEW_MouseUp(int Button, int, float, float)
{
    if (Button == 1)
        clsPrinting::instance().ZOOMIN();
    else if (Button == 2)
        clsPrinting::instance().ZOOMOUT();
}

// Each statement stands by itself: a refused scroll value leaves the page where
// it is and the routine goes on.
void frmPPrev::PREVIEWKEYS(int KeyCode, int)
{
    const auto runIfEnabled = [](QAction* item) {
        if (item->isEnabled())
            item->trigger();
    };
    switch (KeyCode) {
    case platform::vbKeyHome: runIfEnabled(MNUVIEWFIRST); break;
    case platform::vbKeyPageUp: runIfEnabled(MNUVIEWPREVIOUS); break;
    case platform::vbKeyPageDown: runIfEnabled(MNUVIEWNEXT); break;
    case platform::vbKeyEnd: runIfEnabled(MNUVIEWLAST); break;
    case platform::vbKeyLeft:
        resumeNext([&] { setScrollValue(SCRHBAR, SCRHBAR->value() - ScrollStep); });
        break;
    case platform::vbKeyUp:
        resumeNext([&] { setScrollValue(SCRVBAR, SCRVBAR->value() - ScrollStep); });
        break;
    case platform::vbKeyRight:
        resumeNext([&] { setScrollValue(SCRHBAR, SCRHBAR->value() + ScrollStep); });
        break;
    case platform::vbKeyDown:
        resumeNext([&] { setScrollValue(SCRVBAR, SCRVBAR->value() + ScrollStep); });
        break;
    default: break;
    }
}
