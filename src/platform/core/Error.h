#pragma once

#include <QLoggingCategory>
#include <QString>

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <tuple>
#include <type_traits>
#include <utility>

namespace platform {

// The runtime's error numbers that the stand-ins raise.
namespace err {
constexpr int InvalidCall = 5;
constexpr int Overflow = 6;
constexpr int OutOfMemory = 7;
constexpr int SubscriptOutOfRange = 9;
constexpr int TypeMismatch = 13;
constexpr int ObjectNotSet = 91;
constexpr int FileNotFound = 53;
constexpr int FileAlreadyExists = 58;
constexpr int DiskFull = 61;
constexpr int PermissionDenied = 70;
constexpr int PathFileAccess = 75;
constexpr int PathNotFound = 76;
constexpr int InvalidPicture = 481;
constexpr int InvalidPropertyValue = 380;
constexpr int ObjectDoesntSupport = 438;
constexpr int PrinterError = 482;
// The common dialog's answer to Cancel when CancelError is set.
constexpr int CancelSelected = 32755;
} // namespace err

// A failure of a platform stand-in: the runtime's error number and the text a
// message box would show for it.
class Error : public std::runtime_error {
public:
    Error(int number, const QString& description);
    explicit Error(int number);

    int number() const { return number_; }
    QString description() const { return QString::fromUtf8(what()); }

    // The runtime's own wording for an error number.
    static QString textOf(int number);

private:
    int number_;
};

// What resumeNext and guarded swallow, one line each, off unless asked for with
// QT_LOGGING_RULES="vistarro.skipped.debug=true".
Q_DECLARE_LOGGING_CATEGORY(skippedLog)

// Where a step or handler is written in our code, filled in by the compiler at
// the call, as std::source_location does; that one needs a compiler built-in that
// the clang of the fuzz build lacks, these two built-ins both compilers have.
struct CallSite {
    static constexpr CallSite here(const char* file = __builtin_FILE(), int line = __builtin_LINE())
    {
        return CallSite{file, line};
    }
    const char* file;
    int line;
};

namespace detail {
// Writes the failure being handled, its error number and text, and where it was
// swallowed, to the category. Called from a catch block; never throws, and does
// nothing more than look at the category while it is off. (The first look makes
// the category, which may fail for want of memory: that too is swallowed.)
void logSwallowed(const char* what, const char* file, unsigned line) noexcept;

// The number of leading arguments, of those given, that a handler takes: a signal
// may pass more than its handler wants, and the handler gets the first ones.
template <typename Handler, typename Tuple, std::size_t... Leading>
constexpr bool takesLeading(std::index_sequence<Leading...>)
{
    return std::is_invocable_v<Handler&, std::tuple_element_t<Leading, Tuple>...>;
}

template <typename Handler, typename Tuple, std::size_t Count = std::tuple_size_v<Tuple>>
constexpr std::size_t leadingTaken()
{
    if constexpr (takesLeading<Handler, Tuple>(std::make_index_sequence<Count>()))
        return Count;
    else {
        static_assert(Count > 0, "the handler can't be called with the signal's arguments");
        return leadingTaken<Handler, Tuple, Count - 1>();
    }
}

template <typename Handler, typename Tuple, std::size_t... Leading>
void callLeading(Handler& handler, Tuple&& arguments, std::index_sequence<Leading...>)
{
    std::invoke(handler, std::get<Leading>(std::move(arguments))...);
}

template <typename Handler> class Guarded {
public:
    Guarded(Handler handler, CallSite where) : handler_(std::move(handler)), where_(where) {}

    template <typename... Arguments> auto operator()(Arguments&&... arguments) noexcept -> void
    {
        try {
            using Tuple = std::tuple<Arguments&&...>;
            callLeading(handler_, Tuple(std::forward<Arguments>(arguments)...),
                        std::make_index_sequence<leadingTaken<Handler, Tuple>()>());
        } catch (...) {
            logSwallowed("handler left", where_.file, where_.line);
        }
    }

private:
    Handler handler_;
    CallSite where_;
};
} // namespace detail

// "A failed statement is skipped and the next one runs": run one step and
// swallow whatever it throws. Costs nothing while the step succeeds; the place
// for the log is the caller's, filled in by the compiler.
template <typename Step> void resumeNext(Step&& step, const CallSite where = CallSite::here()) noexcept
{
    try {
        step();
    } catch (...) {
        detail::logSwallowed("step skipped", where.file, where.line);
    }
}

// A handler that the toolkit calls (a menu item, a button, a timer, a key): a
// failure in it ends there, as there is nothing of ours above it to hand the
// failure to, and the next handler runs. Connect the result in place of the
// handler; it passes on as many of the signal's arguments as the handler takes.
template <typename Handler>
[[nodiscard]] auto guarded(Handler handler, const CallSite where = CallSite::here())
{
    return detail::Guarded<Handler>(std::move(handler), where);
}

// The same for a member function of a form: guarded(this, &frmMain::MNUEDITADD_Click).
template <typename Object, typename Member>
requires std::is_member_function_pointer_v<Member>
[[nodiscard]] auto guarded(Object* object, Member member, const CallSite where = CallSite::here())
{
    return guarded(
        [object, member](auto&&... arguments)
            -> decltype(std::invoke(member, object, std::forward<decltype(arguments)>(arguments)...)) {
            return std::invoke(member, object, std::forward<decltype(arguments)>(arguments)...);
        },
        where);
}

} // namespace platform
