#include "tests/desktop/matrix/matrixtest.h"

#include <QFile>

namespace {

constexpr auto CompositorName = "picom";

QByteArrayList partsOfDesktop()
{
    return qEnvironmentVariableIsSet("KORVEL_DESKTOP") ? qgetenv("KORVEL_DESKTOP").split('+')
                                                       : QByteArrayList{"none"};
}

QByteArray lastLine(const QByteArray& text)
{
    return text.trimmed().split('\n').last();
}

}

QByteArray MatrixTest::managerName()
{
    return partsOfDesktop().first();
}

void MatrixTest::furnish()
{
    const ManagerRecipe* recipe = managerRecipe(managerName());
    QVERIFY2(recipe, "no such window manager in the table");
    if (!recipe->program.isEmpty() && !QFile::exists(QFile::decodeName(recipe->program)))
        QSKIP(recipe->program + " is not installed");
    const bool isInCharge = startWindowManager(managerName());
    if (!manager->isAlive())
        QSKIP(recipe->program + " cannot be started here: " + lastLine(manager->output()));
    QVERIFY2(isInCharge, "the window manager does not take charge");

    if (partsOfDesktop().contains(CompositorName))
        startCompositor();
    if (!QTest::currentTestFailed())
        showBackground();
}

void MatrixTest::startCompositor()
{
    if (!QFile::exists(QLatin1String(Compositor::executable)))
        QSKIP(QByteArray(Compositor::executable) + " is not installed");
    compositor.emplace(desktop->x, desktop->display);
    EVENTUALLY(compositor->isInCharge());
}

void MatrixTest::clearAway()
{
    background.reset();
    compositor.reset();
}

void MatrixTest::showBackground()
{
    const QImage pattern = Backdrop::pattern(desktop->screen.area().size());
    constexpr int tallestPanel = 60; // of the window manager's own, above the background
    // Window managers and compositors that paint the root window do so when they feel like it.
    constexpr int looksForOne = 50;
    auto isShown = [&, looks = 0]() mutable {
        // Picom never paints a window that it has missed while starting: another one, then.
        if (looks++ % looksForOne == 0)
            background.emplace(desktop->x, ClientWindow::Kind::Desktop, pattern.rect(), Qt::white);
        background->fill(pattern);
        return difference(desktop->screen.grab(), pattern).height() < tallestPanel;
    };
    EVENTUALLY(isShown());
}

bool MatrixTest::shows(const ClientWindow& window, QColor colour) const
{
    const QRect place = desktop->windows.geometry(window.id());
    return place.isValid() && desktop->screen.colourAt(place.center()) == colour;
}

bool MatrixTest::clickInto(const ClientWindow& window) const
{
    desktop->pointer.click(desktop->windows.geometry(window.id()).center());
    if (!isManaged())
        window.takeKeyboard();
    return eventually([&] { return desktop->windows.focused() == window.id(); });
}

QList<QRect> MatrixTest::varyingShadows(QRect window)
{
    constexpr int reach = 40; // device pixels
    const QByteArrayList drawers{"marco-compositing", "metacity-compositing", "mutter"};
    if (!drawers.contains(managerName()))
        return {};
    return {window.adjusted(-reach, -reach, reach, reach)};
}

QImage MatrixTest::withoutPalette(const QImage& picture) const
{
    constexpr QPoint reach(20, 20); // of the pen's dot
    const QPoint pointer = desktop->pointer.position();
    return blanked(picture, {desktop->palette.area(), {pointer - reach, pointer + reach}});
}
