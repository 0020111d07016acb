#include "bench/desktop/resultsfile.h"

#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using Bench::ResultsFile;

class ResultsFileTest : public QObject {
    Q_OBJECT

private slots:
    void sectionsFollowInTheirOrder();
    void otherSectionsStay();
    void aFolderThatIsNotThereIsToldOf();

private:
    [[nodiscard]] QString path() const { return folder.filePath(QStringLiteral("results.md")); }
    [[nodiscard]] QByteArray contents() const
    {
        QFile file(path());
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
};

void ResultsFileTest::sectionsFollowInTheirOrder()
{
    // Given
    ResultsFile file(path(), {"fast", "slow"});
    file.setIntroduction("# Results\n\nOf a machine.\n");

    // When
    file.setSection("slow", "2\n");
    file.setSection("fast", "1");

    // Then
    QVERIFY(file.save());
    QCOMPARE(contents(), "# Results\n\nOf a machine.\n\n## fast\n\n1\n\n## slow\n\n2\n");
}

void ResultsFileTest::otherSectionsStay()
{
    // Given
    QFile old(path());
    QVERIFY(old.open(QFile::WriteOnly));
    old.write("# Results\n\n## slow\n\nold\n\nlines\n\n## What it means\n\nMuch.\n\nMore.\n\n## "
              "End\n\nx\n");
    old.close();

    // When
    ResultsFile file(path(), {"fast", "slow"});
    file.setSection("fast", "new");

    // Then
    QVERIFY(file.save());
    QCOMPARE(contents(),
             "# Results\n\n## fast\n\nnew\n\n## slow\n\nold\n\nlines\n\n## What it "
             "means\n\nMuch.\n\nMore."
             "\n\n## End\n\nx\n");
}

void ResultsFileTest::aFolderThatIsNotThereIsToldOf()
{
    QVERIFY(!ResultsFile(folder.filePath(QStringLiteral("not/there.md")), {}).save());
}

REGISTER_TEST(ResultsFileTest, QCoreApplication)
#include "resultsfiletest.moc"
