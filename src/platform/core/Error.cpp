#include "platform/core/Error.h"

#include <new>
#include <string_view>

namespace platform {

// Off by default: only debug messages are written to it.
Q_LOGGING_CATEGORY(skippedLog, "vistarro.skipped", QtInfoMsg)

Error::Error(int number, const QString& description)
    : std::runtime_error(description.toStdString()), number_(number)
{
}

Error::Error(int number) : Error(number, textOf(number)) {}

QString Error::textOf(int number)
{
    switch (number) {
    case err::InvalidCall: return QStringLiteral("Invalid procedure call or argument");
    case err::Overflow: return QStringLiteral("Overflow");
    case err::OutOfMemory: return QStringLiteral("Out of memory");
    case err::SubscriptOutOfRange: return QStringLiteral("Subscript out of range");
    case err::TypeMismatch: return QStringLiteral("Type mismatch");
    case err::ObjectNotSet: return QStringLiteral("Object variable or With block variable not set");
    case err::FileNotFound: return QStringLiteral("File not found");
    case err::FileAlreadyExists: return QStringLiteral("File already exists");
    case err::DiskFull: return QStringLiteral("Disk full");
    case err::PermissionDenied: return QStringLiteral("Permission denied");
    case err::PathFileAccess: return QStringLiteral("Path/File access error");
    case err::PathNotFound: return QStringLiteral("Path not found");
    case err::InvalidPicture: return QStringLiteral("Invalid picture");
    case err::InvalidPropertyValue: return QStringLiteral("Invalid property value");
    case err::ObjectDoesntSupport: return QStringLiteral("Object doesn't support this property or method");
    case err::PrinterError: return QStringLiteral("Printer error");
    case err::CancelSelected: return QStringLiteral("Cancel was selected.");
    default: return QStringLiteral("Application-defined or object-defined error");
    }
}

namespace detail {

namespace {

// The source file from the program's own folder on, as the build names it in full.
QString shortPlace(const char* file, unsigned line)
{
    std::string_view path(file);
    const auto inSources = path.rfind("/src/");
    if (inSources != std::string_view::npos)
        path.remove_prefix(inSources + 1);
    else if (const auto folder = path.rfind('/'); folder != std::string_view::npos)
        path.remove_prefix(folder + 1);
    return QString::fromUtf8(path.data(), qsizetype(path.size())) + QLatin1Char(':') + QString::number(line);
}

QString describeCurrentFailure()
{
    try {
        throw;
    } catch (const Error& error) {
        return QStringLiteral("error %1: %2").arg(QString::number(error.number()), error.description());
    } catch (const std::bad_alloc&) {
        return QStringLiteral("error %1: %2")
            .arg(QString::number(err::OutOfMemory), Error::textOf(err::OutOfMemory));
    } catch (const std::exception& failure) {
        return QString::fromLocal8Bit(failure.what());
    } catch (...) {
        return QStringLiteral("an unknown failure");
    }
}

} // namespace

void logSwallowed(const char* what, const char* file, unsigned line) noexcept
{
    try {
        if (!skippedLog().isDebugEnabled())
            return;
        const QString failure = describeCurrentFailure();
        if (file)
            qCDebug(skippedLog).noquote().nospace()
                << shortPlace(file, line) << ": " << what << ": " << failure;
        else
            qCDebug(skippedLog).noquote().nospace() << what << ": " << failure;
    } catch (...) {
        // Short of memory even for the message: the failure goes unrecorded.
    }
}

} // namespace detail

} // namespace platform
