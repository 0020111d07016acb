#include "tests/desktop/harness/monitorserver.h"

#include <QFile>

namespace {

// Frequencies that no monitor has, so that every mode is allowed.
constexpr auto Configuration = R"(
Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "AutoAddGPU" "false"
    Option "DontVTSwitch" "true"
EndSection
Section "Device"
    Identifier "card"
    Driver "dummy"
    VideoRam 256000
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 5.0-1000.0
    VertRefresh 5.0-200.0
EndSection
Section "Screen"
    Identifier "screen"
    Device "card"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Virtual 5760 3240
    EndSubSection
EndSection
Section "InputDevice"
    Identifier "keyboard"
    Driver "inputtest"
    Option "SocketPath" "@folder@/keyboard"
    Option "DeviceType" "Keyboard"
EndSection
Section "InputDevice"
    Identifier "touchpad"
    Driver "inputtest"
    Option "SocketPath" "@folder@/pad"
    Option "DeviceType" "Pointer"
EndSection
Section "InputDevice"
    Identifier "touch screen"
    Driver "inputtest"
    Option "SocketPath" "@folder@/touch"
    Option "DeviceType" "Touch"
    Option "TouchCount" "5"
EndSection
Section "InputDevice"
    Identifier "tablet stylus"
    Driver "inputtest"
    Option "SocketPath" "@folder@/pen"
    Option "DeviceType" "PointerAbsoluteProximity"
    Option "PointerHasPressure" "true"
EndSection
Section "ServerLayout"
    Identifier "layout"
    Screen "screen"
    InputDevice "keyboard" "CoreKeyboard"
    InputDevice "touchpad" "CorePointer"
    InputDevice "touch screen" "SendCoreEvents"
    InputDevice "tablet stylus" "SendCoreEvents"
EndSection
)";

QByteArray configurationFile(const QString& folder)
{
    QFile file(folder + QStringLiteral("/xorg.conf"));
    static_cast<void>(file.open(QFile::WriteOnly));
    file.write(QByteArray(Configuration).replace("@folder@", QFile::encodeName(folder)));
    return QFile::encodeName(file.fileName());
}

}

MonitorServer::MonitorServer()
    : MonitorServer(std::make_unique<QTemporaryDir>())
{
}

// The last two leave the machine's own terminals alone.
MonitorServer::MonitorServer(std::unique_ptr<QTemporaryDir> ownFolder)
    : XServer("/usr/bin/Xorg",
              {"-config", configurationFile(ownFolder->path()), "-logfile",
               QFile::encodeName(ownFolder->filePath(QStringLiteral("log"))), "-dpi", "96",
               "-novtswitch", "-sharevts"})
    , folder(std::move(ownFolder))
{
}

QByteArray MonitorServer::inputSocket(const QByteArray& device) const
{
    return QFile::encodeName(folder->path()) + '/' + device;
}
