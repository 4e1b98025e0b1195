#include "platform/core/Error.h"

namespace platform {

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

} // namespace platform
