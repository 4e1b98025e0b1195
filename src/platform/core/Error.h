#pragma once

#include <QString>

#include <stdexcept>

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

// "A failed statement is skipped and the next one runs": run one step and
// swallow whatever it throws.
template <typename Step> void resumeNext(Step&& step) noexcept
{
    try {
        step();
    } catch (...) {
    }
}

} // namespace platform
