#include "tests/desktop/harness/desktoptest.h"

#include "tests/desktop/harness/virtualserver.h"

#include <QRegularExpression>

bool DesktopTest::parkPointer(QPoint place, QColor dotColour) const
{
    desktop->pointer.moveTo(place);
    return eventually([&] { return desktop->screen.colourAt(place) == dotColour; });
}

bool DesktopTest::startWindowManager(const QByteArray& name)
{
    const ManagerRecipe* recipe = managerRecipe(name);
    if (!recipe)
        return false;
    manager.emplace(*recipe, desktop->x, desktop->display);
    return eventually([this] { return manager->isInCharge() || !manager->isAlive(); })
        && manager->isAlive();
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
    furnish();
}

void DesktopTest::cleanup()
{
    clearAway();
    manager.reset();
    desktop.reset();
    server.reset();
}
