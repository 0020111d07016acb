#include "action/widget/stylesheets.h"
#include "action/widget/vccheckbox.h"
#include "action/widget/vccombobox.h"
#include "action/widget/vctabholder.h"
#include "os/specialfolders.h"
#include "tests/action/probes.h"
#include "tests/support/cursorstack.h"
#include "tests/support/eventloop.h"
#include "tests/support/images.h"
#include "tests/support/input.h"
#include "tests/support/metamethods.h"
#include "tests/support/pixels.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QFrame>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

using ActionTest::FrameProbe;
using ActionTest::PaletteProbe;
using VcAction::Toolbar::ActionToolbar;

class ActionToolbarTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void itHasThreeSlotsAndNothingElse();
    void itIsAFramelessChildOfItsFrame();
    void itsStateBeginsAsAgreed();
    void itsBackgroundIsInNineSlices();
    void itsBackgroundFollowsItsSize();
    void itsTabHolderLiesRightOfTheHandle();
    void itsCloseButtonIsInTheTopRightCorner();
    void itsAnimationsLastAThirdOfASecondAndHaveNoParent();
    void itsCursorsPointWithTheirTip_data();
    void itsCursorsPointWithTheirTip();
    void withoutImagesItsCursorsAreTheOrdinaryOnes();
    void itKnowsTheUsersPictureFolder();
    void itPaintsItsBackImageAndNothingElse();
    void startingShowsIt();
    void itsCloseButtonEndsTheProgram();
    void escapeEndsTheProgramWhicheverControlHasTheFocus_data();
    void escapeEndsTheProgramWhicheverControlHasTheFocus();
    void otherKeysDoNothing_data();
    void otherKeysDoNothing();
};

void ActionToolbarTest::itHasThreeSlotsAndNothingElse()
{
    const QMetaObject& type = ActionToolbar::staticMetaObject;

    QCOMPARE(QString(type.className()), QString("VcAction::Toolbar::ActionToolbar"));
    QCOMPARE(type.superClass(), &QMainWindow::staticMetaObject);
    QCOMPARE(TestSupport::ownMethods(type),
             QStringList({"public slot shutterOpenClose()", "public slot fadeIn()",
                          "public slot fadeOut()"}));
    QVERIFY(TestSupport::hasMethodsOnly(type));
}

void ActionToolbarTest::itIsAFramelessChildOfItsFrame()
{
    // Given
    FrameProbe frame;

    // When
    const PaletteProbe palette(&frame, QSize(200, 80));

    // Then
    QCOMPARE(palette.parentWidget(), &frame);
    QCOMPARE(palette.windowFlags(),
             Qt::SubWindow | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    QVERIFY(palette.testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(palette.size(), QSize(200, 80));
    QVERIFY(!palette.isVisible());
}

void ActionToolbarTest::itsStateBeginsAsAgreed()
{
    FrameProbe frame;

    const PaletteProbe palette(&frame, QSize(200, 80));

    QVERIFY(palette.minOpacity == 0.3);
    QVERIFY(palette.maxOpacity == 1.0);
    QVERIFY(palette.windowOpacity() == 1.0);
    QVERIFY(!palette.shutterEnabled);
    QCOMPARE(palette.openWidth, 200);
    QCOMPARE(palette.closedWidth, 40);
    QVERIFY(palette.shutterOpen);
    QVERIFY(!palette.shutterHandle);
    QCOMPARE(palette.tabWidth, 126);
    QVERIFY(palette.tabs.isEmpty());
    QVERIFY(!palette.dragging);
    QCOMPARE(palette.dragOffset, QPoint());
    QVERIFY(palette.fadingEnabled);
}

void ActionToolbarTest::itsBackgroundIsInNineSlices()
{
    FrameProbe frame;

    const PaletteProbe palette(&frame);

    QCOMPARE(palette.backFrame->parentWidget(), &palette);
    QCOMPARE(palette.backFrame->metaObject(), &QFrame::staticMetaObject);
    QCOMPARE(palette.backFrame->pos(), QPoint(0, 0));
    const QString sheet("QFrame {border-image: url(:/resource/action/common/Img/toolbar.png) "
                        "18 20 18 49;border-top: 18px transparent;border-bottom: 18px transparent;"
                        "border-right: 20px transparent;border-left: 49px transparent;}");
    QCOMPARE(palette.backFrame->styleSheet(),
             VcAction::Widget::StyleSheets::forDensity(sheet, palette.devicePixelRatioF()));
}

void ActionToolbarTest::itsBackgroundFollowsItsSize()
{
    // Given
    FrameProbe frame;
    PaletteProbe palette(&frame, QSize(200, 80));
    palette.show();
    frame.show();

    // When
    palette.resize(150, 100);

    // Then
    QCOMPARE(palette.backFrame->size(), QSize(150, 100));
    QCOMPARE(palette.backImage.deviceIndependentSize(), QSizeF(150, 100));
    QVERIFY(TestSupport::inkBox(palette.backImage.toImage(), Qt::transparent).isEmpty());
}

void ActionToolbarTest::itsTabHolderLiesRightOfTheHandle()
{
    FrameProbe frame;

    const PaletteProbe palette(&frame, QSize(200, 80));

    QCOMPARE(palette.tabWidget(), palette.tabHolder);
    QCOMPARE(palette.tabHolder->parentWidget(), &palette);
    QCOMPARE(palette.tabHolder->geometry(), QRect(40, 0, 160, 80));
    QCOMPARE(palette.tabHolder->minimumSize(), palette.tabHolder->maximumSize());
    QCOMPARE(palette.tabHolder->tabPosition(), QTabWidget::South);
}

void ActionToolbarTest::itsCloseButtonIsInTheTopRightCorner()
{
    FrameProbe frame;

    const PaletteProbe palette(&frame, QSize(200, 80));

    QCOMPARE(palette.closeButton->parentWidget(), &palette);
    QCOMPARE(palette.closeButton->geometry(), QRect(147, 5, 48, 30));
    QCOMPARE(palette.closeButton->minimumSize(), palette.closeButton->maximumSize());
    QVERIFY(!palette.closeButton->isCheckable());
    QCOMPARE(palette.closeButton->styleSheet(),
             QString("QPushButton:enabled{ border-image: "
                     "url(:/resource/action/common/Img/close.png);}"
                     "QPushButton:hover{ border-image: "
                     "url(:/resource/action/common/Img/closeOn.png);}"
                     "QPushButton:pressed{ border-image: "
                     "url(:/resource/action/common/Img/closeOn.png);}"));
}

void ActionToolbarTest::itsAnimationsLastAThirdOfASecondAndHaveNoParent()
{
    FrameProbe frame;

    const PaletteProbe palette(&frame);

    QCOMPARE(palette.opacityAnimation->duration(), 300);
    QCOMPARE(palette.opacityAnimation->propertyName(), QByteArray("windowOpacity"));
    QCOMPARE(palette.opacityAnimation->targetObject(), &palette);
    QVERIFY(!palette.opacityAnimation->parent());
    QCOMPARE(palette.sizeAnimation->duration(), 300);
    QCOMPARE(palette.sizeAnimation->propertyName(), QByteArray("size"));
    QCOMPARE(palette.sizeAnimation->targetObject(), &palette);
    QVERIFY(!palette.sizeAnimation->parent());
}

void ActionToolbarTest::itsCursorsPointWithTheirTip_data()
{
    QTest::addColumn<QCursor PaletteProbe::*>("cursor");
    QTest::addColumn<QString>("image");

    const auto row = [](const char* name, QCursor PaletteProbe::*cursor, const char* image) {
        const QString variant = qApp->devicePixelRatio() > 1 ? "@2x.png" : ".png";
        QTest::newRow(name) << cursor << ":/resource/action/common/Img/" + (image + variant);
    };
    row("over the palette", &PaletteProbe::cursorNormal, "cCursor");
    row("for derived palettes", &PaletteProbe::cursorGrab, "cGrab");
    row("while dragging", &PaletteProbe::cursorGrabbed, "cGrabbed");
}

void ActionToolbarTest::itsCursorsPointWithTheirTip()
{
    // Given
    QFETCH(QCursor PaletteProbe::*, cursor);
    QFETCH(QString, image);
    TestSupport::Images images;
    FrameProbe frame;

    // When
    const PaletteProbe palette(&frame);

    // Then
    QVERIFY(!QPixmap(image).isNull());
    QCOMPARE((palette.*cursor).pixmap().toImage(), QPixmap(image).toImage());
    QCOMPARE((palette.*cursor).hotSpot(), QPoint(4, 4));
}

void ActionToolbarTest::withoutImagesItsCursorsAreTheOrdinaryOnes()
{
    FrameProbe frame;

    const PaletteProbe palette(&frame);

    QCOMPARE(palette.cursorNormal.shape(), Qt::ArrowCursor);
    QCOMPARE(palette.cursorGrab.shape(), Qt::ArrowCursor);
    QCOMPARE(palette.cursorGrabbed.shape(), Qt::ArrowCursor);
}

void ActionToolbarTest::itKnowsTheUsersPictureFolder()
{
    FrameProbe frame;

    const PaletteProbe palette(&frame);

    QCOMPARE(palette.pictureFolder.toStdString(),
             Vc::Utils::vcSpecialFolders(Vc::Utils::USER_PICTURE_FOLDER));
}

void ActionToolbarTest::itPaintsItsBackImageAndNothingElse()
{
    // Given
    FrameProbe frame;
    PaletteProbe palette(&frame, QSize(200, 80));
    palette.start();
    frame.show();
    for (QWidget* part : palette.findChildren<QWidget*>())
        part->hide();
    palette.backImage = QPixmap(QSize(30, 20) * palette.devicePixelRatioF());
    palette.backImage.setDevicePixelRatio(palette.devicePixelRatioF());
    palette.backImage.fill(Qt::cyan);

    // When
    QImage image(palette.size() * palette.devicePixelRatioF(), QImage::Format_ARGB32);
    image.setDevicePixelRatio(palette.devicePixelRatioF());
    image.fill(Qt::transparent);
    palette.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);

    // Then
    QCOMPARE(TestSupport::inkBox(image, Qt::transparent), QRectF(0, 0, 30, 20));
    QCOMPARE(TestSupport::colourAt(image, QPoint(29, 19)), QColor(Qt::cyan));
}

void ActionToolbarTest::startingShowsIt()
{
    // Given
    FrameProbe frame;
    frame.show();
    PaletteProbe palette(&frame);
    QVERIFY(!palette.isVisible());

    // When
    palette.start();

    // Then
    QVERIFY(palette.isVisible());
}

void ActionToolbarTest::itsCloseButtonEndsTheProgram()
{
    // Given
    FrameProbe frame;
    PaletteProbe palette(&frame);
    palette.start();
    frame.show();

    // When
    const int status = TestSupport::statusAfter(
        [&palette] { QTest::mouseClick(palette.closeButton, Qt::LeftButton); });

    // Then
    QCOMPARE(status, 0);
}

void ActionToolbarTest::escapeEndsTheProgramWhicheverControlHasTheFocus_data()
{
    QTest::addColumn<QString>("control");

    QTest::newRow("the palette itself") << "palette";
    QTest::newRow("combo box") << "combo box";
    QTest::newRow("check box") << "check box";
    QTest::newRow("close button") << "close button";
}

void ActionToolbarTest::escapeEndsTheProgramWhicheverControlHasTheFocus()
{
    // Given
    QFETCH(QString, control);
    FrameProbe frame;
    PaletteProbe palette(&frame);
    VcAction::Widget::VcComboBox comboBox(&palette);
    VcAction::Widget::VcCheckBox checkBox(&palette);
    comboBox.addItems({"first", "second"});
    const QHash<QString, QWidget*> controls{{"palette", &palette},
                                            {"combo box", &comboBox},
                                            {"check box", &checkBox},
                                            {"close button", palette.closeButton}};
    palette.start();
    frame.show();

    // When
    const int status = TestSupport::statusAfter(
        [&] { TestSupport::pressKey(*controls.value(control), Qt::Key_Escape); });

    // Then
    QCOMPARE(status, 0);
    QCOMPARE(frame.presses, 0);
}

void ActionToolbarTest::otherKeysDoNothing_data()
{
    QTest::addColumn<Qt::Key>("key");

    QTest::newRow("letter") << Qt::Key_A;
    QTest::newRow("return") << Qt::Key_Return;
    QTest::newRow("function key") << Qt::Key_F4;
}

void ActionToolbarTest::otherKeysDoNothing()
{
    // Given
    QFETCH(Qt::Key, key);
    FrameProbe frame;
    PaletteProbe palette(&frame);
    palette.start();
    frame.show();
    bool accepted = true;

    // When
    const int status =
        TestSupport::statusAfter([&] { accepted = TestSupport::pressKey(palette, key); });

    // Then
    QCOMPARE(status, TestSupport::stillRunning);
    QVERIFY(!accepted);
}

REGISTER_TEST(ActionToolbarTest, QApplication)
#include "actiontoolbartest.moc"
