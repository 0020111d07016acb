#include "shell/plugins.h"

#include <QBuffer>
#include <QDir>
#include <QImageReader>
#include <QLibraryInfo>
#include <QTest>

/// What the toolkit still knows when it looks for no more plug-ins.
class PluginsTest : public QObject {
    Q_OBJECT

private slots:
    void onlyTheToolkitsOwnImageFormatsAreLeft();
    void anImageOfTheProgramsOwnFormatIsRead();
};

void PluginsTest::onlyTheToolkitsOwnImageFormatsAreLeft()
{
    // given
    QVERIFY(
        QDir(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/imageformats").exists("libqgif.so"));

    // when
    loadNoMorePlugins();

    // then
    const QByteArrayList formats = QImageReader::supportedImageFormats();
    QVERIFY(formats.contains("png"));
    QVERIFY(!formats.contains("gif"));
}

void PluginsTest::anImageOfTheProgramsOwnFormatIsRead()
{
    // given
    QImage image(2, 1, QImage::Format_ARGB32);
    image.fill(Qt::red);
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    QVERIFY(image.save(&buffer, "PNG"));

    // then
    QCOMPARE(QImage::fromData(file), image);
}

QTEST_MAIN(PluginsTest)
#include "pluginstest.moc"
