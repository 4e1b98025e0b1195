// The message catalogue. Callers hold numbers, never message texts.

#include "presentation/PresentationServices.h"

#include "platform/core/App.h"
#include "platform/core/Conversions.h"
#include "platform/widgets/MsgBox.h"
#include "settings/StoreAndFileServices.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <optional>

namespace {

// One row of the catalogue. The text and the title may hold markers, filled in
// one pass, so that a parameter that happens to look like a marker stays as it is:
// {FILE1} to {FILE3} the parameters, {PLURAL2} and {PLURAL3} the plural ending for
// the count in FILE2 or FILE3, {CRLF} a line break, {TITLE} the program's title
// and {PATH} its folder.
struct MessageRow {
    int16_t number;
    const char* text;
    int32_t flags; // the original platform's message box flags, see platform::MsgBox::askFlags
    const char* title;
    bool beepFirst = false;
};

constexpr int32_t Critical = 16;
constexpr int32_t Exclamation = 48;
constexpr int32_t Information = 64;
constexpr int32_t YesNoCancelQuestion = 35;
constexpr int32_t YesNoQuestion = 36;
constexpr int32_t YesNoQuestionNoDefault = 292;

// The statements of MESSAGEBOX, one OK button each.
constexpr std::array<MessageRow, 13> Statements{{
    {1, "Spell Checker has now finished checking your document.", Information, "Spell Checker"},
    {3, "The text '{FILE1}' has been found '{FILE2}' time{PLURAL2}.", Information, "Find"},
    {6, "The text '{FILE1}' have all been replaced by '{FILE2}' {FILE3} time{PLURAL3}.", Information,
     "Replace"},
    {9, "The line number entered is larger than the current {FILE1} lines available.", Exclamation, "Go To"},
    {10, "There is a problem saving the document '{FILE1}'. This is possibly a read-only document.",
     Exclamation, "Save"},
    {12, "You cannot enter a value which leaves you with no room to print.", Exclamation, "Page Setup"},
    {13, "There is no printer installed. You will not be able to use the printer functions.", Critical,
     "{PATH}", true},
    {14, "There are problems reading {FILE1} so the details will be only partly available.", Exclamation,
     "Properties"},
    {15,
     "{FILE1} is either an invalid format or the document is corrupt. {CRLF} Try re-saving the image to a "
     "different name from within a paint package and trying again.",
     Critical, "{TITLE}", true},
    {19, "The document '{FILE1}' cannot be reopened. The document may no longer exist.", Exclamation,
     "ReOpen"},
    {22, "There is a problem with reading TGA 16 bit format, please try another format.", Exclamation,
     "Picture"},
    {24,
     "You have reached the limit of documents that can be opened in a session, sorry.{CRLF}You could always "
     "close Gazetteer and re-launch it.",
     Critical, "{TITLE}", true},
    {25, "The document {FILE1} is no longer available and will now be removed from the list.", Exclamation,
     "{TITLE}"},
}};

// The questions of MESSAGEBOXFCN. None beeps.
constexpr std::array<MessageRow, 5> Questions{{
    {2, "Are you really sure you want to delete '{FILE1}' to the Recycle Bin ?", YesNoQuestionNoDefault,
     "Clear Picture"},
    {3, "The document '{FILE1}' already exists.{CRLF}Do you really want to overwrite this ?", YesNoQuestion,
     "Save As"},
    {5, "Continuing will loose any unsaved changes for the {FILE1}{CRLF}Do you want to continue ?",
     YesNoQuestion, "ReOpen"},
    {6, "Do you wish to save '{FILE1}' before you close ?", YesNoCancelQuestion, "{TITLE}"},
    {8, "You have unsaved work, do you want to save first ?", YesNoCancelQuestion, "New"},
}};

template <size_t N> const MessageRow* findRow(const std::array<MessageRow, N>& rows, int16_t number)
{
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const MessageRow& r) { return r.number == number; });
    return row == rows.end() ? nullptr : &*row;
}

// The ending of "time" for a count: none for exactly one, "s" for any other
// number. The count must be the text of a number; anything else throws a type
// mismatch to the caller.
QString PLURAL(const QString& count)
{
    return platform::toDouble(count) == 1.0 ? QString() : QStringLiteral("s");
}

QString fill(const char* pattern, const std::array<QString, 3>& files)
{
    static const QRegularExpression marker(QStringLiteral("\\{([A-Z0-9]+)\\}"));
    const QString text = QString::fromUtf8(pattern);
    QString result;
    qsizetype from = 0;
    for (const QRegularExpressionMatch& match : marker.globalMatch(text)) {
        result += text.mid(from, match.capturedStart() - from);
        const QString name = match.captured(1);
        if (name == QLatin1String("FILE1"))
            result += files[0];
        else if (name == QLatin1String("FILE2"))
            result += files[1];
        else if (name == QLatin1String("FILE3"))
            result += files[2];
        else if (name == QLatin1String("PLURAL2"))
            result += PLURAL(files[1]);
        else if (name == QLatin1String("PLURAL3"))
            result += PLURAL(files[2]);
        else if (name == QLatin1String("CRLF"))
            result += QStringLiteral("\r\n");
        else if (name == QLatin1String("TITLE"))
            result += platform::App::Title();
        else if (name == QLatin1String("PATH"))
            result += platform::App::Path();
        from = match.capturedEnd();
    }
    return result + text.mid(from);
}

// Shows the row's box, or for a number with no row an empty one with an OK button
// and no icon, and returns the pressed button's code.
int32_t show(const MessageRow* row, const std::array<QString, 3>& files)
{
    if (!row)
        return platform::MsgBox::askFlags(nullptr, 0, platform::App::Title(), QString());
    if (row->beepFirst)
        platform::MsgBox::beep();
    return platform::MsgBox::askFlags(nullptr, row->flags, fill(row->title, files), fill(row->text, files));
}

} // namespace

PresentationServices& PresentationServices::instance()
{
    static PresentationServices services;
    return services;
}

void PresentationServices::MESSAGEBOX(int16_t MSGNO, const QString& FILE1, const QString& FILE2,
                                      const QString& FILE3, const QString& /*FILE4*/)
{
    show(findRow(Statements, MSGNO), {FILE1, FILE2, FILE3});
}

int32_t PresentationServices::MESSAGEBOXFCN(int16_t MSGNO, const QString& FILE1, const QString& FILE2,
                                            const QString& FILE3, const QString& /*FILE4*/)
{
    return show(findRow(Questions, MSGNO), {FILE1, FILE2, FILE3});
}

bool PresentationServices::OVERWRITECHK(const QString& FILENAME)
{
    if (!StoreAndFileServices::instance().FILEEXISTS(FILENAME))
        return true;
    return MESSAGEBOXFCN(3, FILENAME) == 6;
}
