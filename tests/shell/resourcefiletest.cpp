#include "shell/resourcefile.h"

#include "tests/support/testprogram.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {

QByteArray sample()
{
    QFile file(QStringLiteral(RESOURCE_FOLDER "/first.rcc"));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

}

/// Which resource files Qt is given.
class ResourceFileTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void aWholeOneIs();
    void oneThatIsCutOffAnywhereIsNot();
    void oneWithABadNumberIsReadWithinItsBounds();
    void whatIsNoResourceFileIsNot_data();
    void whatIsNoResourceFileIsNot();
};

void ResourceFileTest::aWholeOneIs()
{
    QVERIFY(isWholeResource(sample()));
    QVERIFY(isWholeResourceFile(QStringLiteral(RESOURCE_FOLDER "/first.rcc")));
    QVERIFY(isWholeResourceFile(QStringLiteral(PROGRAM_RESOURCES)));
}

void ResourceFileTest::oneThatIsCutOffAnywhereIsNot()
{
    // Given
    const QByteArray whole = sample();
    QVERIFY(!whole.isEmpty());

    for (qsizetype size = 0; size < whole.size(); ++size) {
        // When: a copy, so that a read beyond it is one beyond its memory.
        const QByteArray cut(whole.constData(), size);

        // Then
        QVERIFY2(!isWholeResource(cut), qPrintable(QString::number(size)));
    }
}

void ResourceFileTest::oneWithABadNumberIsReadWithinItsBounds()
{
    const QByteArray whole = sample();

    for (qsizetype place = 4; place < whole.size(); ++place) {
        for (const char byte : {'\x00', '\x7f', '\xff'}) {
            // Given
            QByteArray damaged = whole;
            damaged[place] = byte;

            // Then: whatever the answer, it comes, and the sanitizers have nothing to say.
            static_cast<void>(isWholeResource(damaged));
        }
    }
}

void ResourceFileTest::whatIsNoResourceFileIsNot_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("missing") << "/nowhere/at/all.rcc";
    QTest::newRow("a folder") << "/tmp";
    QTest::newRow("without an end") << "/dev/zero";
    QTest::newRow("a program") << QString::fromLocal8Bit("/proc/self/exe");
}

void ResourceFileTest::whatIsNoResourceFileIsNot()
{
    QFETCH(QString, path);

    QVERIFY(!isWholeResourceFile(path));
}

REGISTER_TEST(ResourceFileTest, TestSupport::NoApplication)
#include "resourcefiletest.moc"
