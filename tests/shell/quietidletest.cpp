#include "shell/quietidle.h"

#include <QPixmap>
#include <QPixmapCache>
#include <QTest>
#include <QThreadPool>

/// What the toolkit no longer does by itself while nothing happens.
class QuietIdleTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { keepQuietWhenIdle(); }
    void noPixmapIsKeptThatWouldHaveToBeLookedAfter();
    void threadsThatHaveHelpedStay();
};

void QuietIdleTest::noPixmapIsKeptThatWouldHaveToBeLookedAfter()
{
    QPixmap pixmap(1, 1);
    pixmap.fill(Qt::red);

    QVERIFY(!QPixmapCache::insert(pixmap).isValid());
    QVERIFY(!QPixmapCache::insert("red", pixmap));
}

void QuietIdleTest::threadsThatHaveHelpedStay()
{
    QVERIFY(QThreadPool::globalInstance()->expiryTimeout() < 0);
}

QTEST_MAIN(QuietIdleTest)
#include "quietidletest.moc"
