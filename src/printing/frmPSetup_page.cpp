// The page setup's first tab: printer, paper and orientation, which go to the
// printer at once, the margins, and the miniature of the sheet drawn to scale.
#include "printing/frmPSetup.h"

#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/print/Printer.h"
#include "platform/widgets/Twips.h"
#include "presentation/SPIN.h"
#include "printing/Paper.h"
#include "settings/StoreAndFileServices.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>

using platform::resumeNext;
using platform::twips;

namespace {

constexpr int DivisionByZero = 11;
// The sheet's long side keeps this much of the frame free.
constexpr double FrameRoom = 200;
// The text area's outline stands this far above and left of the margins.
constexpr double AreaOutline = 15;
constexpr double ShadowOffset = 60;

double ratio(double dividend, double divisor)
{
    if (divisor == 0)
        throw platform::Error(DivisionByZero, QStringLiteral("Division by zero"));
    return dividend / divisor;
}

// A number as the runtime writes it into text, up to 15 significant digits.
QString asText(double value)
{
    return QString::number(value, 'g', 15);
}

// The sheet's proportion along one side in whole inches: the inches shown with one
// decimal, then two, plus a half, rounded to the even neighbour. So 7.5 inches give
// 8, 10.0 give 10 and 11.0 give 12.
double proportion(double inches)
{
    StoreAndFileServices& library = StoreAndFileServices::instance();
    const QString shown = library.CURRENCYFMT(library.TEXTJUSTIFY(asText(inches)));
    return platform::bankersRound(platform::toDouble(shown) + 0.5);
}

// The "##.00" format: two decimals, and no zero in front of the point.
QString sizeText(double inches)
{
    QString text = QString::number(
        platform::toDouble(StoreAndFileServices::instance().CURRENCYFMT(asText(inches))), 'f', 2);
    if (text.startsWith(QLatin1String("0.")))
        text.remove(0, 1);
    else if (text.startsWith(QLatin1String("-0.")))
        text.remove(1, 1);
    return text;
}

} // namespace

void frmPSetup::TABSTRIP1_Click()
{
    const QString key = TABSTRIP1->tabData(TABSTRIP1->currentIndex()).toString().toUpper();
    if (key == QLatin1String(PageKey)) {
        FRAMPAGE->show();
        FRAMHEADERFOOTER->hide();
    } else if (key == QLatin1String(HeaderFooterKey)) {
        FRAMHEADERFOOTER->show();
        FRAMPAGE->hide();
    }
}

// The sheet isn't drawn again: the miniature keeps the last paper until the next
// change of paper, orientation or margin.
void frmPSetup::CBOPRINTERS_Click()
{
    resumeNext([&] {
        const QStringList printers = platform::Printers();
        const int index = CBOPRINTERS->currentIndex();
        if (index < 0 || index >= printers.size())
            throw platform::Error(platform::err::SubscriptOutOfRange);
        platform::currentPrinter().selectPrinter(printers.at(index));
    });
    BTNOK->setEnabled(true);
}

void frmPSetup::CBOPAPER_Click()
{
    platform::Printer& printer = platform::currentPrinter();
    resumeNext([&] {
        const int index = CBOPAPER->currentIndex();
        if (index < 0 || size_t(index) >= printing::PaperCount)
            throw platform::Error(platform::err::SubscriptOutOfRange);
        printing::setPaperSize(printer, printing::papers()[size_t(index)].number);
    });
    // What the printer took, which may not be what was asked for.
    resumeNext([&] { PAPERTEXT = QString::number(printing::paperSize(printer)); });
    PAGEDRAW();
    BTNOK->setEnabled(true);
}

void frmPSetup::OPTORIENTPORT_Click()
{
    resumeNext([] { printing::setOrientation(platform::currentPrinter(), printing::Portrait); });
    ORIENTTEXT = QString::number(printing::Portrait);
    PAGEDRAW();
    BTNOK->setEnabled(true);
}

void frmPSetup::OPTORIENTLAND_Click()
{
    resumeNext([] { printing::setOrientation(platform::currentPrinter(), printing::Landscape); });
    ORIENTTEXT = QString::number(printing::Landscape);
    PAGEDRAW();
    BTNOK->setEnabled(true);
}

void frmPSetup::UDN_Change()
{
    BTNOK->setEnabled(true);
    if (!MARGINSBUSY)
        PAGEDRAW();
}

void frmPSetup::BTNDEFAULTS_Click()
{
    MARGINSBUSY = true;
    for (zuv::SPIN* margin : {UDNLEFT, UDNRIGHT, UDNTOP, UDNBOTTOM})
        margin->setText(QStringLiteral("1.0"));
    MARGINSBUSY = false;
    PAGEDRAW();
}

void frmPSetup::PAPERSELECT()
{
    const int16_t present = printing::paperSize(platform::currentPrinter());
    const auto& table = printing::papers();
    for (size_t i = table.size(); i-- > 0;) {
        if (table[i].number == present) {
            CBOPAPER->setCurrentIndex(int(i));
            return;
        }
    }
}

// Every value is asked of the printer anew; a step that fails is skipped and the
// miniature keeps what that step would have changed.
void frmPSetup::PAGEDRAW()
{
    platform::Printer& printer = platform::currentPrinter();
    StoreAndFileServices& library = StoreAndFileServices::instance();
    // The device is measured in its pixels; the print engine computes in twips, so
    // the printer's own scale is given back afterwards.
    const int scaleMode = printer.ScaleMode();
    resumeNext([&] { printer.setScaleMode(platform::ScalePixels); });

    int32_t physicalWidth = 0;
    int32_t physicalHeight = 0;
    int32_t printableWidth = 0;
    int32_t printableHeight = 0;
    resumeNext([&] { physicalWidth = printer.GetDeviceCaps(platform::PHYSICALWIDTH); });
    resumeNext([&] { physicalHeight = printer.GetDeviceCaps(platform::PHYSICALHEIGHT); });
    resumeNext([&] { printableWidth = platform::toInt32(double(printer.ScaleWidth())); });
    resumeNext([&] { printableHeight = platform::toInt32(double(printer.ScaleHeight())); });
    const float twipsPerPixelX = printer.ScaleX(1, platform::ScalePixels, platform::ScaleTwips);
    const float twipsPerPixelY = printer.ScaleY(1, platform::ScalePixels, platform::ScaleTwips);
    const auto inches = [&](int32_t pixels, bool alongX) {
        return library.SHOWUNITS(pixels, alongX, twipsPerPixelX, twipsPerPixelY);
    };

    double H = 0;
    double W = 0;
    resumeNext([&] { H = proportion(inches(printableHeight, false)); });
    resumeNext([&] { W = proportion(inches(printableWidth, true)); });

    const double frame = PictureWindowSize;
    resumeNext([&] {
        if (W >= H) {
            twips(PICPAPER).setWidth(float(frame - FrameRoom));
            const double h = platform::bankersRound(ratio(frame - FrameRoom, W) * H);
            twips(PICPAPER).setHeight(float(h));
            twips(PICPAPER).setTop(float((frame - FrameRoom - h) / 2));
            twips(PICPAPER).setLeft(float((frame - twips(PICPAPER).Width()) / 2));
        } else {
            twips(PICPAPER).setHeight(float(frame - FrameRoom));
            const double w = platform::bankersRound(ratio(frame - FrameRoom, H) * W);
            twips(PICPAPER).setWidth(float(w));
            twips(PICPAPER).setLeft(float((frame - FrameRoom - w) / 2));
            twips(PICPAPER).setTop(float((frame - twips(PICPAPER).Height()) / 2));
        }
    });

    // The margins in the miniature's twips; one of 0 or less stays as it is.
    double left = platform::val(UDNLEFT->text());
    double right = platform::val(UDNRIGHT->text());
    double top = platform::val(UDNTOP->text());
    double bottom = platform::val(UDNBOTTOM->text());
    const double paperWidth = twips(PICPAPER).Width();
    const double paperHeight = twips(PICPAPER).Height();
    for (auto* across : {&left, &right}) {
        resumeNext([&] {
            if (*across > 0)
                *across = ratio(paperWidth, ratio(W, *across));
        });
    }
    for (auto* down : {&top, &bottom}) {
        resumeNext([&] {
            if (*down > 0)
                *down = ratio(paperHeight, ratio(H, *down));
        });
    }

    resumeNext([&] {
        const double areaWidth = paperWidth - left - right;
        if (areaWidth >= 0) {
            twips(SHPAREA).setWidth(float(areaWidth));
            twips(SHPAREA).setLeft(float(left - AreaOutline));
        } else {
            twips(SHPAREA).setWidth(0);
        }
    });
    resumeNext([&] {
        const double areaHeight = paperHeight - bottom - top;
        twips(SHPAREA).setHeight(float(areaHeight >= 0 ? areaHeight : 0));
        twips(SHPAREA).setTop(float(top - AreaOutline));
    });
    resumeNext([&] {
        twips(PICSHADOW).Move(twips(PICPAPER).Left() + float(ShadowOffset),
                              twips(PICPAPER).Top() + float(ShadowOffset), float(paperWidth),
                              float(paperHeight));
    });

    const QChar inch = QLatin1Char('"');
    resumeNext([&] {
        LBLHEIGHT->setText(QStringLiteral("Height: ") + sizeText(inches(physicalHeight, false)) + inch);
    });
    resumeNext(
        [&] { LBLWIDTH->setText(QStringLiteral("Width: ") + sizeText(inches(physicalWidth, true)) + inch); });

    resumeNext([&] { printer.setScaleMode(scaleMode); });
    emit pageDrawn();
}
