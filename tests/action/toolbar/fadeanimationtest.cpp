#include "action/toolbar/fadeanimation.h"
#include "tests/action/probes.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using VcAction::Toolbar::FadeAnimation;

class FadeAnimationTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }

    void itsEndIsItsEndValueExactly_data();
    void itsEndIsItsEndValueExactly();
    void itWritesThePalettesOwnOpacity();
    void stoppedItWritesNothing();
    void itOutlivesItsPalette();
};

void FadeAnimationTest::itsEndIsItsEndValueExactly_data()
{
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");

    QTest::newRow("from bright to faded") << 1.0 << 0.3;
    QTest::newRow("from half to faded") << 0.65 << 0.3;
    QTest::newRow("from a crooked value to faded") << 0.7133333 << 0.3;
    QTest::newRow("from faded to bright") << 0.3 << 1.0;
    QTest::newRow("from a crooked value to bright") << 0.3333333 << 1.0;
}

void FadeAnimationTest::itsEndIsItsEndValueExactly()
{
    // Given
    QFETCH(double, from);
    QFETCH(double, to);
    ActionTest::FrameProbe frame;
    ActionTest::PaletteProbe palette(&frame);
    FadeAnimation fade(&palette);
    fade.setDuration(300);
    fade.setStartValue(from);
    fade.setEndValue(to);

    // When
    fade.start();
    fade.setCurrentTime(300);

    // Then
    QCOMPARE(fade.state(), QAbstractAnimation::Stopped);
    QVERIFY(palette.windowOpacity() == to);
}

void FadeAnimationTest::itWritesThePalettesOwnOpacity()
{
    // Given
    ActionTest::FrameProbe frame;
    ActionTest::PaletteProbe palette(&frame);
    FadeAnimation fade(&palette);
    fade.setDuration(300);
    fade.setStartValue(1.0);
    fade.setEndValue(0.0);

    // When
    fade.start();
    fade.pause();
    fade.setCurrentTime(75);

    // Then
    QCOMPARE(palette.windowOpacity(), 0.75);
    QCOMPARE(palette.QWidget::windowOpacity(), 1.0);
}

void FadeAnimationTest::stoppedItWritesNothing()
{
    // Given
    ActionTest::FrameProbe frame;
    ActionTest::PaletteProbe palette(&frame);
    FadeAnimation fade(&palette);
    fade.setDuration(300);

    // When
    fade.setStartValue(0.5);
    fade.setEndValue(0.3);
    fade.setCurrentTime(150);

    // Then
    QVERIFY(palette.windowOpacity() == 1.0);
}

void FadeAnimationTest::itOutlivesItsPalette()
{
    // Given
    ActionTest::FrameProbe frame;
    auto palette = std::make_unique<ActionTest::PaletteProbe>(&frame);
    FadeAnimation fade(palette.get());
    fade.setDuration(30);
    fade.setStartValue(1.0);
    fade.setEndValue(0.3);
    fade.start();

    // When
    palette.reset();

    // Then
    QTRY_COMPARE(fade.state(), QAbstractAnimation::Stopped);
}

REGISTER_TEST(FadeAnimationTest, QApplication)
#include "fadeanimationtest.moc"
