#pragma once

#include "platform/core/App.h"
#include "settings/StoredSetting.h"

// The main window's stored settings: where each is kept, and what the window takes
// when the store has none. The album itself is settings/AlbumStore.h.
namespace album {

QString preferencesKey(); // ...\fPREFERENCES\Items
QString viewKey();        // ...\me\View

// The folder last browsed, in the tree at the next start.
inline constexpr StoredSetting FilesLocation{
    .key = preferencesKey, .name = "Files Location", .fallbackOf = platform::App::Path};
// The splitter bars, in twips. The top one is written as "Splitter Bar top".
inline constexpr StoredSetting SplitterLeft{
    .key = preferencesKey, .name = "Splitter Bar Left", .fallback = "3585"};
inline constexpr StoredSetting SplitterTop{
    .key = preferencesKey, .name = "Splitter Bar Top", .fallback = "2340", .writtenName = "Splitter Bar top"};
// Whether the bars are shown.
inline constexpr StoredSetting ToolbarShown{.key = viewKey, .name = "Standard Toolbar", .fallback = "True"};
inline constexpr StoredSetting StatusBarShown{.key = viewKey, .name = "Status Bar", .fallback = "True"};

} // namespace album
