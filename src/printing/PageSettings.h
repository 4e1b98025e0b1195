#pragma once

#include <QString>

// Where the page setup keeps its settings, for the dialog that edits them and the
// code that reads them.
namespace printing {

// The four page margins, in inches as text: "Page Margin 0" to "Page Margin 3" are
// left, right, top and bottom. Shared by the maker's programs.
QString marginsKey();
QString marginName(int number);
// The switches and texts of the header and of the footer, the program's own.
QString headerKey();
QString footerKey();

// The file name that the main window's print dialog holds, or "Untitled": the
// second footer field when none is stored.
QString mainFileName();

} // namespace printing
