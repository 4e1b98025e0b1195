#include "printing/Paper.h"

#include "platform/core/Error.h"
#include "platform/print/Printer.h"

#include <QPageLayout>
#include <QPrinter>

#include <algorithm>

namespace printing {

namespace {

// A standard size of the toolkit under the list's name, so that a printer that
// keeps the name (the file printer does) gives the very paper back.
QPageSize standard(QPageSize::PageSizeId id, const char* entry)
{
    return QPageSize(QPageSize::definitionSize(id), QPageSize::definitionUnits(id),
                     QString::fromLatin1(entry));
}

QPageSize inches(double width, double height, const char* entry)
{
    return QPageSize(QSizeF(width, height), QPageSize::Inch, QString::fromLatin1(entry));
}

[[noreturn]] void invalidValue()
{
    throw platform::Error(platform::err::InvalidPropertyValue);
}

} // namespace

const std::array<Paper, PaperCount>& papers()
{
    // The numbers below 256 are the Windows paper numbers; those from 257 were the
    // numbers of printer drivers, and stand here for the sizes those drivers gave.
    // Banner papers are continuous sheets of Letter and A4 size.
    static const std::array<Paper, PaperCount> table = {{
        {"Letter", 1, standard(QPageSize::Letter, "Letter")},
        {"A4", 9, standard(QPageSize::A4, "A4")},
        {"Legal", 5, standard(QPageSize::Legal, "Legal")},
        {"B5", 13, standard(QPageSize::JisB5, "B5")},
        {"Executive", 261, standard(QPageSize::ExecutiveStandard, "Executive")},
        {"A5", 11, standard(QPageSize::A5, "A5")},
        {"A6 Card", 264, standard(QPageSize::A6, "A6 Card")},
        {"Index Card", 257, inches(3, 5, "Index Card")},
        {"Banner Letter", 268, standard(QPageSize::Letter, "Banner Letter")},
        {"Banner A4", 269, standard(QPageSize::A4, "Banner A4")},
        {"Postcard", 258, inches(4, 6, "Postcard")},
        {"Envelope 6 3/4", 267, standard(QPageSize::EnvelopePersonal, "Envelope 6 3/4")},
        {"Envelope #9", 19, standard(QPageSize::Envelope9, "Envelope #9")},
        {"Envelope #10", 20, standard(QPageSize::Comm10E, "Envelope #10")},
        {"Envelope DL", 27, standard(QPageSize::DLE, "Envelope DL")},
        {"Envelope C5", 28, standard(QPageSize::C5E, "Envelope C5")},
        {"Envelope C6", 31, standard(QPageSize::EnvelopeC6, "Envelope C6")},
        {"Envelope B5", 259, standard(QPageSize::EnvelopeB5, "Envelope B5")},
        {"Envelope 7 3/4", 260, standard(QPageSize::EnvelopeMonarch, "Envelope 7 3/4")},
        {"Baronial", 265, inches(4.375, 5.75, "Baronial")},
        {"Hagaki", 262, standard(QPageSize::Postcard, "Hagaki")},
        // Chosen, it keeps the sheet's present size under its own name.
        {"User Defined", UserDefinedPaper, QPageSize()},
    }};
    return table;
}

int16_t paperSize(platform::Printer& printer)
{
    const QPageSize present = printer.device().pageLayout().pageSize();
    const auto& table = papers();
    const auto named = std::find_if(table.begin(), table.end(), [&](const Paper& paper) {
        return present.name() == QLatin1String(paper.entry);
    });
    if (named != table.end())
        return named->number;
    const auto sized = std::find_if(table.begin(), table.end(),
                                    [&](const Paper& paper) { return present.isEquivalentTo(paper.size); });
    if (sized != table.end())
        return sized->number;
    const int windowsNumber = present.windowsId();
    return windowsNumber > 0 ? int16_t(windowsNumber) : UserDefinedPaper;
}

void setPaperSize(platform::Printer& printer, int16_t number)
{
    const auto& table = papers();
    const auto row = std::find_if(table.begin(), table.end(),
                                  [number](const Paper& paper) { return paper.number == number; });
    QPageSize size;
    if (number == UserDefinedPaper) {
        const QPageSize present = printer.device().pageLayout().pageSize();
        size = QPageSize(present.size(QPageSize::Point), QPageSize::Point, QString::fromLatin1(row->entry),
                         QPageSize::ExactMatch);
    } else if (row != table.end()) {
        size = row->size;
    } else if (number > 0 && QPageSize::id(number) != QPageSize::Custom) {
        size = QPageSize(QPageSize::id(number));
    }
    if (!size.isValid() || !printer.device().setPageSize(size))
        invalidValue();
}

int16_t orientation(platform::Printer& printer)
{
    return printer.device().pageLayout().orientation() == QPageLayout::Landscape ? Landscape : Portrait;
}

void setOrientation(platform::Printer& printer, int16_t number)
{
    if (number != Portrait && number != Landscape)
        invalidValue();
    const auto wanted = number == Landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
    if (!printer.device().setPageOrientation(wanted))
        invalidValue();
}

} // namespace printing
