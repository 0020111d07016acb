#include "os/platformpreload.h"

#include <QTest>

#include <dlfcn.h>

using osUtils::System::PlatformPreload;

namespace {

bool isLoaded(const char* library)
{
    void* const handle = dlopen(library, RTLD_LAZY | RTLD_NOLOAD);
    if (handle)
        dlclose(handle);
    return handle != nullptr;
}

}

/// The toolkit's part for the window system, loaded ahead.
class PlatformPreloadTest : public QObject {
    Q_OBJECT

private slots:
    void itIsLoadedForAnXServerOnly_data();
    void itIsLoadedForAnXServerOnly();
};

void PlatformPreloadTest::itIsLoadedForAnXServerOnly_data()
{
    QTest::addColumn<QByteArray>("display");
    QTest::addColumn<QByteArray>("platform");
    QTest::addColumn<bool>("loaded");

    // What is loaded stays: the one that loads it comes last.
    QTest::newRow("no server") << QByteArray() << QByteArray() << false;
    QTest::newRow("another window system") << QByteArray(":1") << QByteArray("offscreen") << false;
    QTest::newRow("a server") << QByteArray(":1") << QByteArray("xcb") << true;
}

void PlatformPreloadTest::itIsLoadedForAnXServerOnly()
{
    // given
    QFETCH(QByteArray, display);
    QFETCH(QByteArray, platform);
    QFETCH(bool, loaded);
    if (display.isEmpty())
        qunsetenv("DISPLAY");
    else
        qputenv("DISPLAY", display);
    qputenv("QT_QPA_PLATFORM", platform);

    // when
    {
        const PlatformPreload preload;
    }

    // then
    QCOMPARE(isLoaded("libQt6XcbQpa.so.6"), loaded);
}

QTEST_APPLESS_MAIN(PlatformPreloadTest)
#include "platformpreloadtest.moc"
