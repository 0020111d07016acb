#include "tests/desktop/harness/desktoptest.h"

#include "tests/desktop/harness/virtualserver.h"

#include <QRegularExpression>

bool DesktopTest::parkPointer(QPoint place, QColor dotColour) const
{
    desktop->pointer.moveTo(place);
    return eventually([&] { return desktop->screen.colourAt(place) == dotColour; });
}

void DesktopTest::addWindowManagers()
{
    QTest::addColumn<WindowManager::Kind>("kind");

    QTest::newRow("no window manager") << WindowManager::Kind::None;
    QTest::newRow("openbox") << WindowManager::Kind::Openbox;
    QTest::newRow("xfwm4") << WindowManager::Kind::Xfwm4;
}

bool DesktopTest::startWindowManager(WindowManager::Kind kind)
{
    manager.emplace(kind, desktop->x, desktop->display);
    return eventually([this] { return manager->isInCharge(); });
}

std::unique_ptr<XServer> DesktopTest::startServer()
{
    return std::make_unique<VirtualServer>();
}

void DesktopTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".?")));
    server = startServer();
    QVERIFY2(!server->display().isEmpty(), "the X server did not start");
    desktop.emplace(server->display());
    desktop->backdrop.fill(Qt::white);
    desktop->pointer.moveTo(StartPoint);
}

void DesktopTest::cleanup()
{
    manager.reset();
    desktop.reset();
    server.reset();
}
