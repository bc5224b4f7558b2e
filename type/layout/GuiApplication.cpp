#include "layout/GuiApplication.h"

#include <QCoreApplication>
#include <QGuiApplication>

namespace type {

bool ensureGuiApplication() {
    if (QCoreApplication* existing = QCoreApplication::instance())
        return qobject_cast<QGuiApplication*>(existing) != nullptr;

    // Qt keeps references to argc and argv for the application's lifetime.
    static int argc = 3;
    static char name[] = "Type";
    static char platformFlag[] = "-platform";
    static char platform[] = "offscreen";
    static char* argv[] = {name, platformFlag, platform, nullptr};
    // Never deleted: Qt objects created by the host or other plug-ins may
    // outlive this library's static destructors, and tearing the application
    // down under them would crash at exit.
    new QGuiApplication(argc, argv);
    return true;
}

} // namespace type
