#include "platform/core/App.h"

#include "config.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <csignal>

namespace platform::App {

namespace {

// Whether chooseDisplayPlatform set QT_QPA_PLATFORM itself.
bool platformChosenHere = false;

} // namespace

QString Path()
{
    if (QCoreApplication::instance())
        return QCoreApplication::applicationDirPath();
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath().section(QLatin1Char('/'), 0, -2);
}

QString Title()
{
    return QStringLiteral("Vistarro");
}

QString CompanyName()
{
    return QStringLiteral("ZUV Software Development");
}

QString Version()
{
    return QStringLiteral(VISTARRO_VERSION);
}

void prepareProcess()
{
    std::signal(SIGXFSZ, SIG_IGN);
}

void chooseDisplayPlatform()
{
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
        qEnvironmentVariableIsEmpty("DISPLAY"))
        return;
    qputenv("QT_QPA_PLATFORM", "xcb");
    platformChosenHere = true;
}

void restoreDisplayEnvironment()
{
    if (platformChosenHere)
        qunsetenv("QT_QPA_PLATFORM");
    platformChosenHere = false;
}

} // namespace platform::App
