#include "bench/widgets/tool.h"
#include "tests/support/cursorstack.h"
#include "tests/support/testprogram.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>

/// What it costs to open a list of the palette, until it is painted, and to close it. Warnings are
/// let pass: the offscreen platform complains of every list, a varying number of times.
class PopupBench : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void aList_data();
    void aList();
};

void PopupBench::aList_data()
{
    QTest::addColumn<int>("number");

    QTest::newRow("sizes") << 0;
    QTest::newRow("colours") << 1;
}

void PopupBench::aList()
{
    QFETCH(int, number);
    Bench::Tool tool;
    QVERIFY(tool.show());
    QComboBox* const box = tool.box(number);
    bool wasShown = true;

    QBENCHMARK
    {
        box->showPopup();
        wasShown = wasShown && QTest::qWaitForWindowExposed(box->view()->window());
        box->hidePopup();
        QCoreApplication::processEvents();
    }

    QVERIFY(wasShown);
    QVERIFY(!box->view()->isVisible());
}

REGISTER_TEST(PopupBench, QApplication)
#include "popupbench.moc"
