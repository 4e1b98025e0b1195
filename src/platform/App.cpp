#include "platform/App.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <csignal>

namespace platform::App {

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

} // namespace platform::App
