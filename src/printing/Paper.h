#pragma once

#include <QPageSize>
#include <QString>

#include <array>
#include <cstdint>

namespace platform {
class Printer;
}

// The papers of the page setup and how paper and orientation reach the printer.
// A paper is a number given to the printer; the sheet's size is always asked back
// from the device, never kept here.
namespace printing {

struct Paper {
    const char* entry; // as the paper list shows it
    int16_t number;    // the printer's paper number
    QPageSize size;    // what the number chooses on the toolkit's printer
};

constexpr size_t PaperCount = 22;
// A paper of the sheet's present size that no other number names.
constexpr int16_t UserDefinedPaper = 256;
constexpr int16_t Portrait = 1;
constexpr int16_t Landscape = 2;

// The papers in the order of the paper list.
const std::array<Paper, PaperCount>& papers();

// The printer's paper number: the paper of the list whose name or, failing that,
// whose size the printer reports; else the Windows number of a standard size, or
// UserDefinedPaper for a size that has none.
int16_t paperSize(platform::Printer& printer);
// Chooses a paper by its number: one of the list, or any standard size by its
// Windows number. A number that names no paper, or a paper the printer doesn't
// take, is an invalid property value and leaves the printer's paper.
void setPaperSize(platform::Printer& printer, int16_t number);

// 1 portrait, 2 landscape; any other number is an invalid property value.
int16_t orientation(platform::Printer& printer);
void setOrientation(platform::Printer& printer, int16_t number);

} // namespace printing
