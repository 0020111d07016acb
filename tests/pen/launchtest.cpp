#include "pen/penframe.h"
#include "pen/pentoolbar.h"
#include "tests/support/cursorstack.h"
#include "tests/support/eventloop.h"
#include "tests/support/images.h"
#include "tests/support/input.h"
#include "tests/support/offscreenwarnings.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>

#include <memory>

using VcAction::Frame::PenFrame;
using VcAction::Toolbar::PenToolbar;

/// Frame and palette as the program puts them together.
class LaunchTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void nothingIsSeenUntilTheStart();
    void thePaletteIsInTheScreensCorner();
    void thePaletteGoesWithItsFrame();
    void escapeEndsTheProgram();
};

void LaunchTest::nothingIsSeenUntilTheStart()
{
    // Given
    TestSupport::Images images;
    TestSupport::expectRaiseWarning();

    // When
    PenFrame frame(nullptr, 20, QColor(255, 255, 0), 0, false);
    auto* palette = new PenToolbar(&frame);
    frame.setToolbar(palette);

    // Then
    QVERIFY(!frame.isVisible());
    QVERIFY(!palette->isVisible());

    // When
    frame.start(true);

    // Then
    QVERIFY(frame.isVisible());
    QVERIFY(palette->isVisible());
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    QCOMPARE(QApplication::focusWidget(), &frame);
}

void LaunchTest::thePaletteIsInTheScreensCorner()
{
    // Given
    PenFrame frame(nullptr, 20, QColor(255, 255, 0), 0, false);
    auto* palette = new PenToolbar(&frame);

    // When
    frame.setToolbar(palette);

    // Then
    const QSize screen = QGuiApplication::primaryScreen()->size();
    QCOMPARE(palette->pos(), QPoint(screen.width() - 385, screen.height() - 165));
}

void LaunchTest::thePaletteGoesWithItsFrame()
{
    // Given
    auto frame = std::make_unique<PenFrame>(nullptr, 20, QColor(255, 255, 0), 0, false);
    const QPointer<PenToolbar> palette = new PenToolbar(frame.get());
    frame->setToolbar(palette);
    frame->start(false);

    // When
    frame.reset();

    // Then
    QVERIFY(!palette);
}

void LaunchTest::escapeEndsTheProgram()
{
    // Given
    PenFrame frame(nullptr, 20, QColor(255, 255, 0), 0, false);
    frame.setToolbar(new PenToolbar(&frame));
    frame.start(false);

    // When
    const int status =
        TestSupport::statusAfter([&frame] { TestSupport::pressKey(frame, Qt::Key_Escape); });

    // Then
    QCOMPARE(status, 0);
}

REGISTER_TEST(LaunchTest, QApplication)
#include "launchtest.moc"
