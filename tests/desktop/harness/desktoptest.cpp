#include "tests/desktop/harness/desktoptest.h"

#include "tests/desktop/harness/virtualserver.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
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

QImage DesktopTest::settledPicture() const
{
    constexpr int enough = 15; // in a row, each some milliseconds after the last
    QImage picture;
    int same = 0;
    static_cast<void>(eventually([&] {
        const QImage now = desktop->screen.grab();
        same = now == picture ? same + 1 : 0;
        picture = now;
        return same == enough;
    }));
    return picture;
}

bool DesktopTest::isInstalled(const QByteArray& manager)
{
    const ManagerRecipe* recipe = managerRecipe(manager);
    return recipe
        && (recipe->program.isEmpty() || QFile::exists(QFile::decodeName(recipe->program)));
}

std::unique_ptr<XServer> DesktopTest::startServer()
{
    return std::make_unique<VirtualServer>();
}

void DesktopTest::leavePicture() const
{
    const QString name = QStringLiteral("%1-%2-%3.png")
                             .arg(QString::fromLatin1(metaObject()->className()),
                                  QString::fromLatin1(QTest::currentTestFunction()))
                             .arg(QCoreApplication::applicationPid());
    if (desktop->screen.grab().save(name))
        qInfo("What the screen showed then: %s", qPrintable(QDir::current().filePath(name)));
}

void DesktopTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".?")));
    server = startServer();
    QVERIFY2(!server->display().isEmpty(), "the X server did not start");
    desktop.emplace(server->display());
    desktop->backdrop.fill(Qt::white);
    desktop->pointer.moveTo(StartPoint);
    whenInVain([this] { leavePicture(); });
    furnish();
}

void DesktopTest::cleanup()
{
    whenInVain({});
    clearAway();
    manager.reset();
    desktop.reset();
    server.reset();
}
