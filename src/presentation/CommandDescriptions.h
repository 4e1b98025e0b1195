#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

// The table that turns the visible caption of a command into the sentence that
// the status line shows for it. Menus and toolbars carry no descriptions of their
// own: the caption's leading characters pick the row. One table serves every
// window of the maker's programs, so it holds far more commands than this program
// has; the caller's word for what it works on ("album", "document") fills the
// gaps, so that one row reads "Add to current album" in one window and "Print the
// current document" in another.
namespace descriptions {

// What the conditions and the markers are filled from.
struct Circumstances {
    QString fileType;
    QString title;
    bool previewVisible = false;
};

struct Description {
    QString text; // without the closing full stop
    // The text belongs to the print preview's status line, whichever window asked.
    bool toPreview = false;
};

// The description of a caption, or none when no row matches. A caption matches a
// row when its leading characters equal the row's keyword, with case and with the
// accelerator marker "&"; the first row that matches wins.
std::optional<Description> describe(QStringView caption, const Circumstances& circumstances);

// The file name in a recent-list caption ("&3 /home/me/Trip/one.jpg" gives
// "one.jpg"): the text after the caption's first three characters, from its last
// path separator on.
QString RECENTFILENAME(QStringView CAPTION);

// The text of a window command (restore, move, size, minimize, maximize, close)
// by its number on the original platform, none for any other number.
std::optional<QString> systemCommandText(int32_t number);

} // namespace descriptions
