#include "os/fontpreload.h"

#include <QFontDatabase>
#include <QTest>

/// The list of fonts, read beside the program's start.
class FontPreloadTest : public QObject {
    Q_OBJECT

private slots:
    void theToolkitFindsTheSameFonts();
};

void FontPreloadTest::theToolkitFindsTheSameFonts()
{
    // given: the toolkit asks while the list is being read
    const osUtils::System::FontPreload preload;

    // when
    const QStringList families = QFontDatabase::families();

    // then
    QVERIFY(!families.isEmpty());
    {
        const osUtils::System::FontPreload again;
    }
    QCOMPARE(QFontDatabase::families(), families);
}

QTEST_MAIN(FontPreloadTest)
#include "fontpreloadtest.moc"
