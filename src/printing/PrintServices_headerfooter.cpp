// Headers and footers of printed and previewed pages, drawn straight onto the
// device before the page's body, from the settings that the page setup keeps.
#include "printing/PrintServices.h"

#include "platform/core/App.h"
#include "platform/core/Conversions.h"
#include "platform/print/PictureSurface.h"
#include "platform/print/Printer.h"
#include "printing/PageSettings.h"
#include "settings/StoreAndFileServices.h"

#include <QDateTime>

namespace {

constexpr uint32_t Black = 0;
// Centring is estimated at this many twips a character; no text is measured.
constexpr double TwipsPerCharacter = 170.0;

QString settingsKey(const QString& part)
{
    return StoreAndFileServices::programKey() + QStringLiteral("\\frmPPrev\\Items\\") + part;
}

// A switch is on only when its text is the number 1; a text that isn't a number
// fails as a type mismatch.
bool switchOn(const QString& part, const QString& name)
{
    return platform::toInt16(StoreAndFileServices::instance().REGSTRREAD(
               StoreAndFileServices::currentUserKey(), settingsKey(part), name, QStringLiteral("1"))) == 1;
}

QString storedText(const QString& part, const QString& name, const QString& fallback)
{
    return StoreAndFileServices::instance().REGSTRREAD(StoreAndFileServices::currentUserKey(),
                                                       settingsKey(part), name, fallback);
}

void printAt(platform::Canvas& device, double x, double y, const QString& text)
{
    device.setCurrentX(float(x));
    device.setCurrentY(float(y));
    device.Print(text);
}

double centred(const platform::Canvas& device, const QString& text)
{
    return (device.Width() - text.size() * TwipsPerCharacter) / 2;
}

} // namespace

void PrintServices::PAGEHEADERFOOTERINFO(const QString& PGNO, int16_t Left, int16_t Top, int16_t Bottom,
                                         int16_t Right)
{
    drawHeaderFooter(platform::currentPrinter(), false, PGNO, Left, Top, Bottom, Right);
}

void PrintServices::PAGEHEADERFOOTERINFOPREVIEW(platform::PictureSurface* INCONTROL, const QString& PGNO,
                                                int16_t Left, int16_t Top, int16_t Bottom, int16_t Right)
{
    drawHeaderFooter(*INCONTROL, true, PGNO, Left, Top, Bottom, Right);
}

void PrintServices::drawHeaderFooter(platform::Canvas& device, bool preview, const QString& PGNO,
                                     int16_t Left, int16_t Top, int16_t Bottom, int16_t Right)
{
    const QString header = QStringLiteral("Header");
    const QString footer = QStringLiteral("Footer");
    device.setScaleMode(platform::ScaleTwips);
    const double width = device.Width();
    // On paper the rules reach 200 twips into the left margin and the title and
    // second field stand a little differently than on the screen.
    const double ruleLeft = preview ? Left : Left - 200;

    const bool headerOn = switchOn(header, QStringLiteral("Checked"));
    const bool headerLine = switchOn(header, QStringLiteral("chkHLine"));
    const bool date = switchOn(header, QStringLiteral("chkDate"));
    const bool time = switchOn(header, QStringLiteral("chkTime"));
    const bool title = switchOn(header, QStringLiteral("chkTitle"));
    device.setFontSize(10);
    if (headerOn) {
        const double textY = Top - 700;
        if (headerLine)
            device.Line(float(ruleLeft), Top - 300, float(width - Right), Top - 300, Black);
        if (date)
            printAt(device, Left + 200, textY, QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy")));
        if (time)
            printAt(device, width - 2500, textY, QTime::currentTime().toString(QStringLiteral("H:mm:ss")));
        if (title) {
            const QString text = storedText(header, QStringLiteral("txtTitle"),
                                            platform::App::Title() + QStringLiteral(" Report."));
            printAt(device, centred(device, text) + (preview ? 700 : 400), textY, text);
        }
    }

    const bool footerOn = switchOn(footer, QStringLiteral("Checked"));
    const bool footerLine = switchOn(footer, QStringLiteral("chkFLine"));
    const bool field1 = switchOn(footer, QStringLiteral("chkField1"));
    const bool field2 = switchOn(footer, QStringLiteral("chkField2"));
    const bool pageNumber = switchOn(footer, QStringLiteral("chkPgNo"));
    if (!footerOn)
        return;
    // The footer's line in 32 bits: a sheet taller than 22.75 inches (A2 and up)
    // would overflow 16.
    const int32_t y = platform::toInt32(device.Height() - Bottom);
    const double textY = y + 360;
    if (footerLine)
        device.Line(float(ruleLeft), y + 200, float(width - Right), y + 200, Black);
    if (field1)
        printAt(device, Left + 300, textY,
                storedText(footer, QStringLiteral("txtField1"),
                           StoreAndFileServices::instance().GETCOMPANYNAME()));
    if (field2)
        printAt(device, width - (preview ? 5000 : 4000), textY,
                storedText(footer, QStringLiteral("txtField2"), printing::mainFileName()));
    if (pageNumber)
        printAt(device, centred(device, PGNO), textY, PGNO);
}
