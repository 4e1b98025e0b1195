#pragma once

#include "settings/StoredSetting.h"

#include <QString>

#include <array>

// The stored settings of the print preview and the page setup: where each is kept,
// and what the forms, and the code that prints, take when the store has none.
namespace printing {

// "...\GLOBAL\frmPPrev\Items", shared by the maker's programs: the preview's bars
// and zoom, and the four page margins.
QString previewKey();
// The switches and texts of the header and of the footer, the program's own.
QString headerKey();
QString footerKey();

// Whether the preview's bars are shown, and its zoom step (one that is no step
// opens at 50 %).
inline constexpr StoredSetting PreviewToolbar{.key = previewKey, .name = "Toolbar", .fallback = "True"};
inline constexpr StoredSetting PreviewStatusBar{.key = previewKey, .name = "Status Bar", .fallback = "True"};
inline constexpr StoredSetting PreviewZoom{.key = previewKey, .name = "Zoom", .fallback = "50 %"};

// Left, right, top and bottom, in inches as text.
inline constexpr std::array<StoredSetting, 4> Margins{{
    {.key = previewKey, .name = "Page Margin 0", .fallback = "1"},
    {.key = previewKey, .name = "Page Margin 1", .fallback = "1"},
    {.key = previewKey, .name = "Page Margin 2", .fallback = "1"},
    {.key = previewKey, .name = "Page Margin 3", .fallback = "1"},
}};
QString marginName(int number);

// The switches: on only when the text is the number 1 (a check box's value: 0
// clear, 1 checked, 2 greyed).
inline constexpr StoredSetting HeaderOn{.key = headerKey, .name = "Checked", .fallback = "1"};
inline constexpr StoredSetting HeaderTitleOn{.key = headerKey, .name = "chkTitle", .fallback = "1"};
inline constexpr StoredSetting HeaderLineOn{.key = headerKey, .name = "chkHLine", .fallback = "1"};
inline constexpr StoredSetting HeaderDateOn{.key = headerKey, .name = "chkDate", .fallback = "1"};
inline constexpr StoredSetting HeaderTimeOn{.key = headerKey, .name = "chkTime", .fallback = "1"};
inline constexpr StoredSetting FooterOn{.key = footerKey, .name = "Checked", .fallback = "1"};
inline constexpr StoredSetting FooterField1On{.key = footerKey, .name = "chkField1", .fallback = "1"};
inline constexpr StoredSetting FooterField2On{.key = footerKey, .name = "chkField2", .fallback = "1"};
inline constexpr StoredSetting FooterLineOn{.key = footerKey, .name = "chkFLine", .fallback = "1"};
inline constexpr StoredSetting FooterPageNumberOn{.key = footerKey, .name = "chkPgNo", .fallback = "1"};

// The texts, whose defaults are known only at run time.
QString defaultTitle();  // "<title> Report."
QString defaultField1(); // the machine's registered owner
QString defaultField2(); // the main window's file name, see mainFileName()
inline constexpr StoredSetting HeaderTitle{.key = headerKey, .name = "txtTitle", .fallbackOf = defaultTitle};
inline constexpr StoredSetting FooterField1{
    .key = footerKey, .name = "txtField1", .fallbackOf = defaultField1};
inline constexpr StoredSetting FooterField2{
    .key = footerKey, .name = "txtField2", .fallbackOf = defaultField2};

// The file name that the main window's print dialog holds, or "Untitled": the
// second footer field when none is stored.
QString mainFileName();

} // namespace printing
