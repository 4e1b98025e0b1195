#include "presentation/CommandDescriptions.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace descriptions {

namespace {

// What the text of a row depends on beyond the caption.
enum class Condition : uint8_t {
    // One text whatever the circumstances.
    Always,
    // The program is Vistarro, which has nothing to save at closing.
    TitleIsVistarro,
    // The print preview is on the screen; its text then goes to the preview.
    PreviewVisible,
};

// One row. A caption matches when its first comparedLength characters equal the
// keyword, with case and with the accelerator marker "&". comparedLength is the
// keyword's length, except for a few rows where it is longer, and those match
// only a caption that is exactly the keyword.
//
// A text may hold the markers {type} (the caller's word), {title} (the program's
// title) and {file} (the file name in a recent-list caption). A row with a
// condition shows text when the condition holds and otherwise when it doesn't.
struct CaptionRow {
    std::u16string_view keyword;
    int comparedLength;
    std::u16string_view text;
    Condition condition = Condition::Always;
    std::u16string_view otherwise = {};
};

// The rows in the order of the search: the first matching row wins, so a keyword
// that begins with another keyword stands before it. Keyword, compared length,
// text, and for two rows the condition and the text when it fails. The texts end
// without the full stop that the status line adds.
constexpr std::array<CaptionRow, 115> Rows{{
    {u"&New Window", 11, u"Open another window of the program"},
    {u"&New", 4, u"Create a new {type}"},
    {u"&Open", 5, u"Open an existing {type}"},
    {u"&ReOpen", 7, u"Reopen the current {type} and loosing any changes"},
    {u"&Save", 5, u"Save current {type}"},
    {u"Save &As", 8, u"Save current {type} with new name"},
    {u"&HTML Export", 12, u"Save current {type} as an HTML document"},
    {u"E&xcel Export", 13, u"Save current {type} as an Excel document"},
    {u"&Rename", 7, u"Rename current {type}"},
    {u"&Delete", 7, u"Delete current {type}"},
    {u"Page Set&up", 11, u"Change the margins, header and footer of the printed page"},
    {u"&Print", 6, u"Print the current {type}"},
    {u"Print Pre&view", 14, u"Show the pages as they will be printed"},
    {u"&Zoom In", 8, u"Zoom in to {type}"},
    {u"&Zoom Out", 9, u"Zoom out of {type}"},
    {u"200 %", 5, u"View {type} at 200 %"},
    {u"150 %", 5, u"View {type} at 150 %"},
    {u"100 %", 5, u"View {type} at 100 %"},
    {u"75 %", 4, u"View {type} at 75 %"},
    {u"50 %", 4, u"View {type} at 50 %"},
    {u"25 %", 4, u"View {type} at 25 %"},
    {u"&Page Width", 11, u"View {type} at page width"},
    {u"&Whole Page", 11, u"View the whole page"},
    {u"&Previous Page", 14, u"Show the previous page"},
    {u"&Next Page", 10, u"Show the next page"},
    {u"&First Page", 11, u"Show the first page"},
    {u"&Last Page", 10, u"Show the last page"},
    {u"&HTML Preview", 13, u"View the {type} in the default browser"},
    {u"Pre&view", 8, u"Show a full preview of the selected picture"},
    {u"&Run Viewer", 16, u"View the photos"},
    {u"Pre&ferences", 12, u"Change settings that affect how {title} works"},
    {u"&1", 2, u"View {file}"},
    {u"&2", 2, u"View {file}"},
    {u"&3", 2, u"View {file}"},
    {u"&4", 2, u"View {file}"},
    {u"&5", 2, u"View {file}"},
    {u"&6", 2, u"View {file}"},
    {u"&7", 2, u"View {file}"},
    {u"&8", 2, u"View {file}"},
    {u"&9", 2, u"View {file}"},
    {u"&0", 2, u"View {file}"},
    {u"Cl&ear Recent List", 18, u"Clear the list of recently opened files"},
    {u"E&xit", 5, u"Quits {title}", Condition::TitleIsVistarro, u"Quits {title}; prompts to save {type}"},
    {u"&Close", 6, u"Close Print Preview", Condition::PreviewVisible, u"Close the current document"},
    {u"&Undo", 5, u"Undo the last action"},
    {u"Cu&t", 4, u"Cut the selection and put it on the Clipboard"},
    {u"&Copy to", 8, u"Copy the picture to another folder"},
    {u"&Copy", 5, u"Copy the selection to the Clipboard"},
    {u"&Address", 13, u"Insert full address"},
    {u"&Add", 4, u"Add to current {type}"},
    {u"A&dd All", 8, u"Add all to current {type}"},
    {u"&Move to", 8, u"Move the picture to another folder"},
    {u"&Paste", 6, u"Insert the Clipboard contents at the insertion point"},
    {u"Cl&ear", 6, u"Erase the selection"},
    {u"&Remove", 7, u"Remove from current {type}"},
    {u"Re&move", 7, u"Remove All from current {type}"},
    {u"Select &All", 11, u"Select the entire contents"},
    {u"Spe&ll Checker", 14, u"Check {type} for misspelt words"},
    {u"&Calculate", 10, u"Calculate the totals"},
    {u"&Salary Details", 15, u"Show the salary details"},
    {u"&Find", 5, u"Find the specified text"},
    {u"Find &Next", 10, u"Repeat the last find"},
    {u"&Replace", 8, u"Replace the specified text with different text"},
    {u"&Go To", 6, u"Go to a specified place"},
    {u"&Standard Toolbar", 17, u"Show or hide the standard toolbar"},
    {u"&Formatting Toolbar", 19, u"Show or hide the formatting toolbar"},
    {u"R&uler", 15, u"Show or hide the ruler"},
    {u"S&tatus Bar", 11, u"Show or hide the status bar"},
    {u"&Header/Footer", 14, u"Edit the header and footer of the printed pages"},
    {u"&Properties", 11, u"Display properties from current {type}"},
    {u"Proper&ties", 11, u"Display properties from current {type}"},
    {u"&Date Of Birth", 14, u"Insert date of birth"},
    {u"&Date", 5, u"Insert the current date"},
    {u"&Time", 5, u"Insert the current time"},
    {u"Phone &N", 8, u"Insert phone number"},
    {u"&Fax N", 6, u"Insert fax number"},
    {u"&Email Address", 14, u"Insert email address"},
    {u"&Website Address", 16, u"Insert website address"},
    {u"&Full Name", 10, u"Insert full name"},
    {u"&Job Title", 10, u"Insert job title"},
    {u"&Mobile Phone", 13, u"Insert mobile phone number"},
    {u"&Pager", 6, u"Insert pager number"},
    {u"&Picture", 8, u"Insert a picture from a file"},
    {u"&Symbol", 7, u"Insert a symbol"},
    {u"&File", 5, u"Insert the contents of a file"},
    {u"&HTML Color Code", 16, u"Insert the HTML code of a colour"},
    {u"In&sert and Close", 17, u"Insert the picture into the {type} and close dialog"},
    {u"&Insert", 7, u"Insert the picture and keep the dialog open"},
    {u"&Settings", 9, u"Change the settings"},
    {u"&Left", 5, u"Align the paragraph to the left"},
    {u"C&enter", 7, u"Centre the paragraph"},
    {u"&Right", 6, u"Align the paragraph to the right"},
    {u"Fo&nt", 5, u"Change the font of the selection"},
    {u"C&olor", 6, u"Change the colour of the selection"},
    {u"&Bold", 5, u"Make the selection bold"},
    {u"&Italic", 7, u"Make the selection italic"},
    {u"&Underline", 10, u"Underline the selection"},
    {u"Bulle&ts", 8, u"Add or remove bullets"},
    {u"&Increase Font Size", 19, u"Increase the font size of the selection"},
    {u"&Decrease Font Size", 19, u"Decrease the font size of the selection"},
    {u"&Increase Indent", 16, u"Increase the indent of the paragraph"},
    {u"&Decrease Indent", 16, u"Decrease the indent of the paragraph"},
    {u"For&mat Painter", 15, u"Copy the formatting of the selection to other text"},
    {u"&Small Capitals", 15, u"Show the selection in small capitals"},
    {u"&Paragraph", 10, u"Change the indents and spacing of the paragraph"},
    {u"&Tabs", 5, u"Set the tab stops"},
    {u"Ca&scade", 8, u"Arrange windows so they overlap"},
    {u"Tile &Horizontal", 16, u"Arrange windows one above the other"},
    {u"Tile &Vertical", 14, u"Arrange windows side by side"},
    {u"Arrange &Icons", 14, u"Arrange the icons of minimized windows"},
    {u"Close &All", 10, u"Close all windows"},
    {u"&Help Topics", 12, u"Display help contents for {title}"},
    {u"&ZUV Online", 11, u"Visit ZUV Online website"},
    {u"&About", 6, u"Display information about {title}"},
    {u"Nex&t", 5, u"Go to the next step"},
}};

constexpr bool matches(const CaptionRow& row, std::u16string_view caption)
{
    return caption.substr(0, static_cast<size_t>(row.comparedLength)) == row.keyword;
}

constexpr const CaptionRow* firstMatch(std::u16string_view caption)
{
    const auto found = std::find_if(Rows.begin(), Rows.end(),
                                    [caption](const CaptionRow& row) { return matches(row, caption); });
    return found == Rows.end() ? nullptr : &*found;
}

// A row that an earlier row shadows could never be reached: its own keyword
// must find it.
constexpr bool everyRowReachable()
{
    return std::all_of(Rows.begin(), Rows.end(),
                       [](const CaptionRow& row) { return firstMatch(row.keyword) == &row; });
}
static_assert(everyRowReachable(), "a keyword stands behind a shorter keyword that it begins with");

// A row left out of the list above would stand at the end with no keyword and
// match every caption.
constexpr bool keywordsFit()
{
    return std::all_of(Rows.begin(), Rows.end(), [](const CaptionRow& row) {
        return !row.keyword.empty() && row.comparedLength >= static_cast<int>(row.keyword.size());
    });
}
static_assert(keywordsFit(), "an empty keyword, or a compared length shorter than its keyword");

struct SystemCommand {
    int32_t number;
    std::u16string_view text;
};

constexpr std::array<SystemCommand, 6> SystemCommands{{
    {61728, u"Restore the window to normal size"},                          // SC_RESTORE
    {61456, u"Change the window position"},                                 // SC_MOVE
    {61440, u"Change the window size"},                                     // SC_SIZE
    {61472, u"Reduce the window to an icon"},                               // SC_MINIMIZE
    {61488, u"Enlarge the window to full size"},                            // SC_MAXIMIZE
    {61536, u"Close the current window and prompts to save the documents"}, // SC_CLOSE
}};

QString toQString(std::u16string_view text)
{
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

bool conditionHolds(Condition condition, const Circumstances& circumstances)
{
    switch (condition) {
    case Condition::TitleIsVistarro: return circumstances.title == QStringLiteral("Vistarro");
    case Condition::PreviewVisible: return circumstances.previewVisible;
    case Condition::Always: break;
    }
    return true;
}

// The row's text with its markers filled in one pass, so that a filled word is
// never read again as a marker.
QString fill(std::u16string_view text, QStringView caption, const Circumstances& circumstances)
{
    QString result;
    size_t from = 0;
    while (from < text.size()) {
        const size_t open = text.find(u'{', from);
        const size_t close = open == text.npos ? text.npos : text.find(u'}', open);
        if (close == text.npos) {
            result += toQString(text.substr(from));
            break;
        }
        result += toQString(text.substr(from, open - from));
        const std::u16string_view marker = text.substr(open, close + 1 - open);
        if (marker == u"{type}")
            result += circumstances.fileType;
        else if (marker == u"{title}")
            result += circumstances.title;
        else if (marker == u"{file}")
            result += RECENTFILENAME(caption);
        else
            result += toQString(marker);
        from = close + 1;
    }
    return result;
}

const CaptionRow* findRow(QStringView caption)
{
    return firstMatch(std::u16string_view(caption.utf16(), static_cast<size_t>(caption.size())));
}

} // namespace

std::optional<Description> describe(QStringView caption, const Circumstances& circumstances)
{
    const CaptionRow* row = findRow(caption);
    if (!row)
        return std::nullopt;
    const bool holds = conditionHolds(row->condition, circumstances);
    return Description{fill(holds ? row->text : row->otherwise, caption, circumstances),
                       holds && row->condition == Condition::PreviewVisible};
}

// Linux paths: the separator is "/", and a backslash is an ordinary character of
// a file name.
QString RECENTFILENAME(QStringView CAPTION)
{
    const QStringView path = CAPTION.mid(3);
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1).toString();
}

std::optional<QString> systemCommandText(int32_t number)
{
    const auto found =
        std::find_if(SystemCommands.begin(), SystemCommands.end(),
                     [number](const SystemCommand& command) { return command.number == number; });
    if (found == SystemCommands.end())
        return std::nullopt;
    return toQString(found->text);
}

} // namespace descriptions
