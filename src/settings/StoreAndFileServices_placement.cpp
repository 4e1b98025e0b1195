// Window placement: a form's place, size and window state to and from the settings
// store, so that windows come back where the user left them, and the fixed place
// of a dialog's buttons.
//
// All lengths are twips. A form's Left, Top, Width and Height are its outer frame,
// measured from the screen's top left corner.

#include "settings/StoreAndFileServices.h"

#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/widgets/Form.h"
#include "platform/widgets/Screen.h"
#include "platform/widgets/Twips.h"

#include <QWidget>

#include <optional>

using platform::twips;

namespace {

const QString LeftValue = QStringLiteral("Left");
const QString TopValue = QStringLiteral("Top");
const QString WidthValue = QStringLiteral("Width");
const QString HeightValue = QStringLiteral("Height");
const QString StateValue = QStringLiteral("Window State");

constexpr int NormalState = 0;
constexpr int MaximizedState = 2;

// The buttons' fixed place: their top, the margin from the form's right inner
// edge to the right-hand button, and the gap between two buttons.
constexpr float ButtonTop = 165;
constexpr float ButtonMargin = 135;

QString windowKey(const QString& PROGRAMFLDR, const Form& form)
{
    return StoreAndFileServices::companyKey() + QLatin1Char('\\') + PROGRAMFLDR + QLatin1Char('\\') +
           form.Name() + QStringLiteral("\\Window");
}

QString readValue(const QString& key, const QString& item, const QString& present)
{
    return StoreAndFileServices::instance().REGSTRREAD(StoreAndFileServices::currentUserKey(), key, item,
                                                       present);
}

void writeValue(const QString& key, const QString& item, const QString& data)
{
    StoreAndFileServices::instance().REGSTRWRITE(StoreAndFileServices::currentUserKey(), key, item, data);
}

// Only FORMSAVE writes these values, so a stored text that isn't a number was put
// there by hand or is damaged. Rather than fail the form's load over it, such a
// value counts as absent. An absent value leaves the form's present value as it
// stands, which is what setting it again would mean: the present outer size isn't
// known until the window manager has framed the window, and setting it before
// would take the frame off the design size.
std::optional<float> storedLength(const QString& key, const QString& item)
{
    try {
        const QString text = readValue(key, item, QString());
        if (!text.isEmpty())
            return platform::toFloat(text);
    } catch (const platform::Error&) {
    }
    return std::nullopt;
}

// The same for the window state, where only 0, 1 and 2 are states.
int storedState(const QString& key, int present)
{
    try {
        const int state = platform::toInt16(readValue(key, StateValue, platform::numberText(present)));
        return state >= 0 && state <= MaximizedState ? state : present;
    } catch (const platform::Error&) {
        return present;
    }
}

struct Centre {
    int16_t left;
    int16_t top;
};

// Where the form, at its present size, stands in the middle of the screen. Each
// coordinate is rounded to a 16-bit integer; a form larger than the screen gets a
// negative one.
Centre centreOf(const Form& form)
{
    const double width = form.Width();
    const double height = form.Height();
    return {platform::toInt16((width + platform::Screen::Width()) / 2 - width),
            platform::toInt16((height + platform::Screen::Height()) / 2 - height)};
}

// Keeps a restored window on the screen. Left and top are corrected each on its
// own, in this order; a window that ends exactly at the screen's edge stays.
void keepOnScreen(Form& form, Centre centre)
{
    if (form.Left() < 0)
        form.setLeft(centre.left);
    if (form.Top() < 0)
        form.setTop(centre.top);
    if (form.Left() + form.Width() > platform::Screen::Width())
        form.setLeft(centre.left);
    if (form.Top() + form.Height() > platform::Screen::Height())
        form.setTop(centre.top);
}

void restorePosition(Form& form, const QString& key)
{
    if (const auto left = storedLength(key, LeftValue))
        form.setLeft(*left);
    if (const auto top = storedLength(key, TopValue))
        form.setTop(*top);
}

} // namespace

void StoreAndFileServices::FORMLOAD(const QString& PROGRAMFLDR, Form* FORMNAME, bool RESIZE)
{
    Form& form = *FORMNAME;
    const QString key = windowKey(PROGRAMFLDR, form);
    if (RESIZE) {
        form.setWindowState(storedState(key, form.WindowState()));
        // A maximized (or minimized) window gets neither size nor place: on
        // restore it goes back to its design size and place.
        if (form.WindowState() != NormalState)
            return;
        if (const auto height = storedLength(key, HeightValue))
            form.setHeight(*height);
        if (const auto width = storedLength(key, WidthValue))
            form.setWidth(*width);
    }
    // The centre comes from the size the form now has: its design size when only
    // the position is kept, else the size just restored.
    const Centre centre = centreOf(form);
    restorePosition(form, key);
    keepOnScreen(form, centre);
}

void StoreAndFileServices::FORMSAVE(const QString& PROGRAMFLDR, Form* FORMNAME, bool RESIZE)
{
    const Form& form = *FORMNAME;
    const QString key = windowKey(PROGRAMFLDR, form);
    const int state = form.WindowState();
    if (RESIZE) {
        // Maximized, only the state is kept, and the place and size stored at the
        // last close in normal state stay. Minimized, nothing is written, so the
        // next start comes up as after the close before.
        if (state != NormalState && state != MaximizedState)
            return;
        writeValue(key, StateValue, platform::numberText(state));
        if (state == MaximizedState)
            return;
    }
    writeValue(key, LeftValue, platform::floatText(form.Left()));
    writeValue(key, TopValue, platform::floatText(form.Top()));
    if (RESIZE) {
        writeValue(key, WidthValue, platform::floatText(form.Width()));
        writeValue(key, HeightValue, platform::floatText(form.Height()));
    }
}

// Buttons are placed in the coordinates of the container they sit on.
void StoreAndFileServices::RESIZEBTNCLOSE(Form* form, QWidget* BTNCLOSE)
{
    twips(BTNCLOSE).setTop(ButtonTop);
    twips(BTNCLOSE).setLeft(form->ScaleWidth() - ButtonMargin - twips(BTNCLOSE).Width());
}

// Both buttons have the same width, so the Cancel button's width serves for both.
void StoreAndFileServices::RESIZEBTNSOKCANCEL(Form* form, QWidget* BTNOK, QWidget* BTNCANCEL)
{
    twips(BTNOK).setTop(ButtonTop);
    twips(BTNCANCEL).setTop(ButtonTop);
    twips(BTNCANCEL).setLeft(form->ScaleWidth() - ButtonMargin - twips(BTNCANCEL).Width());
    twips(BTNOK).setLeft(twips(BTNCANCEL).Left() - ButtonMargin - twips(BTNCANCEL).Width());
}
