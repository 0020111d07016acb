#include "action/toolbar/actiontoolbar.h"

#include "action/frame/actionframe.h"
#include "action/toolbar/fadeanimation.h"
#include "action/toolbar/focusring.h"
#include "action/toolbar/palettegeometry.h"
#include "action/toolbar/shutterhandle.h"
#include "action/widget/stylesheets.h"
#include "action/widget/vctabholder.h"
#include "os/specialfolders.h"
#include "overlay/layerpixmap.h"
#include "overlay/sharpimage.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QGraphicsOpacityEffect>
#include <QKeyEvent>
#include <QPainter>
#include <QPropertyAnimation>
#include <QPushButton>

namespace VcAction::Toolbar {

namespace {

// What the widgets' own sheets leave to the desktop's style, and the palette's light background
// cannot do without: a flat group box has no frame, and a dark theme's white text and dark buttons
// would vanish. A FocusRing takes the place of the style's focus rectangles. And the sizes of the
// boxes' icons, see showIcons().
constexpr auto paletteSheet =
    "VcAction--Widget--VcGroupBox { border: 0px; }"
    "VcAction--Widget--VcCheckBox, QTabBar::tab { color: #1f1814; }"
    "QAbstractButton, QTabBar { outline: none; }"
    "QToolButton { color: #1f1814; background: transparent; border: 1px solid transparent;"
    "border-radius: 4px; }"
    "QToolButton:checked { background: #e4deda; border-color: #8d827a; }"
    "QToolButton:hover { background: #f2edea; border-color: #b23800; }"
    "VcAction--Toolbar--ShutterHandle { background: #f3efec; border-color: #8d827a; }"
    "VcAction--Widget--VcComboBox, VcAction--Widget--VcComboBox QListView { icon-size: 32px; }"
    "VcAction--Widget--VcColorComboBox { icon-size: 35px; }"
    "VcAction--Widget--VcColorComboBox QListView { icon-size: 35px; }";
constexpr auto backFrameSheet =
    "QFrame {border-image: url(:/resource/action/common/Img/toolbar.png) 18 20 18 49;"
    "border-top: 18px transparent;border-bottom: 18px transparent;"
    "border-right: 20px transparent;border-left: 49px transparent;}";
constexpr auto closeButtonSheet =
    "QPushButton:enabled{ border-image: url(:/resource/action/common/Img/close.png);}"
    "QPushButton:hover{ border-image: url(:/resource/action/common/Img/closeOn.png);}"
    "QPushButton:pressed{ border-image: url(:/resource/action/common/Img/closeOn.png);}";
constexpr QSize closeButtonSize(48, 30);
constexpr int closeButtonMargin = 5;
constexpr int animationMs = 300;

QPixmap paletteImage(const char* name, const QWidget& palette)
{
    return Helpers::NQt::sharpImage(":/resource/action/common/Img/" + QLatin1String(name),
                                    palette.devicePixelRatioF());
}

QCursor paletteCursor(const char* name, const QWidget& palette)
{
    constexpr QPoint hotSpot(4, 4);
    return Helpers::NQt::sharpCursor(paletteImage(name, palette), hotSpot);
}

/// Has the Tab key reach a control of the palette after all others.
void putLastInTabOrder(QWidget* control, const QWidget& palette)
{
    QWidget* last = control;
    for (QWidget* next = palette.nextInFocusChain(); next != &palette;
         next = next->nextInFocusChain()) {
        if (next != control && (next->focusPolicy() & Qt::TabFocus) && palette.isAncestorOf(next))
            last = next;
    }
    QWidget::setTabOrder(last, control);
}

}

ActionToolbar::ActionToolbar(QWidget* parent, QSize size)
    : QMainWindow(parent)
    , cursorNormal(paletteCursor("cCursor.png", *this))
    , cursorGrab(paletteCursor("cGrab.png", *this))
    , cursorGrabbed(paletteCursor("cGrabbed.png", *this))
    , openWidth(size.width())
    , closedWidth(handleWidth)
    , pictureFolder(
          QString::fromStdString(Vc::Utils::vcSpecialFolders(Vc::Utils::USER_PICTURE_FOLDER)))
    , opacityEffect(new QGraphicsOpacityEffect(this))
{
    setWindowFlags(Qt::SubWindow | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setAttribute(Qt::WA_TranslucentBackground);
    // What the palette leaves alone must not reach the frame below: a press there would start a
    // stroke and the wheel step the colour.
    setAttribute(Qt::WA_NoMousePropagation);
    // Its images have the handle on the left and the boxes' arrows on the right in every language.
    setLayoutDirection(Qt::LeftToRight);
    setAccessibleName(tr("Palette"));
    setStyleSheet(QLatin1String(paletteSheet));
    createBackImage(size);
    resize(size);
    createBackFrame();
    createTabHolder();
    createCloseButton();
    connect(closeButton, SIGNAL(clicked()), QCoreApplication::instance(), SLOT(quit()));
    createAnimations();
    new ListWatch(this);
    new FocusRing(this);
}

void ActionToolbar::createBackFrame()
{
    backFrame = new QFrame(this);
    backFrame->move(0, 0);
    backFrame->setStyleSheet(
        Widget::StyleSheets::forDensity(QLatin1String(backFrameSheet), devicePixelRatioF()));
    grip = new HandleGrip(this);
}

void ActionToolbar::createTabHolder()
{
    tabHolder = new VcAction::Widget::VcTabHolder(this);
    tabHolder->setFixedSize(width() - handleWidth, height());
    tabHolder->move(handleWidth, 0);
    tabHolder->setTabPosition(QTabWidget::South);
    tabHolder->setFocusPolicy(Qt::NoFocus);
}

void ActionToolbar::createCloseButton()
{
    closeButton = new QPushButton(this);
    closeButton->setFixedSize(closeButtonSize);
    closeButton->setStyleSheet(QLatin1String(closeButtonSheet));
    closeButton->setCheckable(false);
    closeButton->setAccessibleName(tr("Close"));
    closeButton->move(openWidth - closeButtonMargin - closeButton->width(), closeButtonMargin);
}

void ActionToolbar::createAnimations()
{
    opacityEffect->setOpacity(opacity);
    setGraphicsEffect(opacityEffect);
    opacityAnimation = new FadeAnimation(this);
    opacityAnimation->setDuration(animationMs);
    sizeAnimation = new QPropertyAnimation(this, "size");
    sizeAnimation->setDuration(animationMs);
}

void ActionToolbar::start()
{
    putLastInTabOrder(closeButton, *this);
    setVisible(true);
}

void ActionToolbar::enableShutter()
{
    shutterEnabled = true;
    if (shutterHandle)
        shutterHandle->show();
}

void ActionToolbar::disableShutter()
{
    shutterEnabled = false;
    if (shutterHandle)
        shutterHandle->hide();
}

void ActionToolbar::setShutterWidth(int /*width*/) { }

QWidget* ActionToolbar::addTab(const QIcon& icon, const QString& label)
{
    QWidget* page = makeTabPage();
    tabHolder->addTab(page, icon, label);
    return page;
}

QWidget* ActionToolbar::addTab(const QString& label)
{
    QWidget* page = makeTabPage();
    tabHolder->addTab(page, label);
    return page;
}

QWidget* ActionToolbar::makeTabPage()
{
    if (tabs.isEmpty()) {
        resize(width(), height() + tabStripHeight);
        tabHolder->setFixedSize(width() - handleWidth, height());
        tabHolder->move(handleWidth, 0);
        tabHolder->setFocusPolicy(Qt::TabFocus);
    }
    auto* page = new VcAction::Widget::VcTab(this);
    tabs.append(page);
    page->setFixedSize(width() - handleWidth, height() - tabStripHeight);
    page->move(handleWidth, 0);
    layOutBackground();
    return page;
}

void ActionToolbar::setTabWidth(int width)
{
    tabWidth = width;
    // A strip's height short; the next resize makes the image in full again.
    createBackImage(QSize(this->width(), height() - tabStripHeight));
    tabHolder->setTabWidth(width);
    repaint();
}

void ActionToolbar::createBackImage(QSize size)
{
    backImage = Helpers::NQt::layerPixmap(size, devicePixelRatioF(), Qt::transparent);
    // A closed palette shows no tabs, and none of the strip that they lie on.
    if (tabs.isEmpty() || size.width() <= closedWidth)
        return;
    const QPixmap image = paletteImage("tabBar.png", *this);
    const qreal ratio = image.devicePixelRatio();
    const QSize imageSize = image.deviceIndependentSize().toSize();
    QPainter painter(&backImage);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const ImageSlice& slice :
         tabStripSlices(size, imageSize, static_cast<int>(tabs.size()), tabWidth)) {
        const QRectF source(slice.source.topLeft() * ratio, QSizeF(slice.source.size()) * ratio);
        painter.drawPixmap(QRectF(slice.target), image, source);
    }
}

bool ActionToolbar::hasCBFocus() const
{
    for (const QComboBox* box : findChildren<QComboBox*>()) {
        // The list is looked for, not asked of the box, which would make one.
        const auto* list = box->findChild<QAbstractItemView*>();
        if (list && list->hasFocus())
            return true;
    }
    return false;
}

void ActionToolbar::setFadingEnabled(bool enabled)
{
    fadingEnabled = enabled;
}

void ActionToolbar::setWindowOpacity(qreal level)
{
    opacity = level;
    opacityEffect->setOpacity(level);
}

void ActionToolbar::shutterOpenClose()
{
    if (!shutterEnabled)
        return;
    sizeAnimation->stop();
    sizeAnimation->setStartValue(size());
    sizeAnimation->setEndValue(QSize(shutterOpen ? closedWidth : openWidth, height()));
    sizeAnimation->start();
    shutterOpen = !shutterOpen;
    leaveEmptyCorner();
    if (auto* frame = qobject_cast<VcAction::Frame::ActionFrame*>(parentWidget()))
        frame->switchMouseTransMode();
}

void ActionToolbar::fadeIn()
{
    if (!fadingEnabled)
        return;
    opacityAnimation->stop();
    opacityAnimation->setStartValue(windowOpacity());
    opacityAnimation->setEndValue(maxOpacity);
    opacityAnimation->start();
}

void ActionToolbar::fadeOut()
{
    fadeOutUnlessUnder(QCursor::pos());
}

void ActionToolbar::fadeOutUnlessUnder(QPoint globalPointer)
{
    if (!fadingEnabled || hasCBFocus() || rect().contains(mapFromGlobal(globalPointer))
        || !isBright())
        return;
    if (auto* frame = qobject_cast<Helpers::NQt::TransparentFrame*>(parentWidget()))
        frame->updateCursor();
    opacityAnimation->stop();
    opacityAnimation->setStartValue(windowOpacity());
    opacityAnimation->setEndValue(minOpacity);
    opacityAnimation->start();
}

bool ActionToolbar::isBright() const
{
    // One that has only begun to fade in is on its way there.
    const bool brightens = opacityAnimation->state() == QAbstractAnimation::Running
        && opacityAnimation->endValue().toDouble() > minOpacity;
    return brightens || windowOpacity() > minOpacity;
}

void ActionToolbar::mousePressEvent(QMouseEvent* event)
{
    if (!isOnHandle(event->position().toPoint(), size())) {
        event->ignore();
        return;
    }
    dragOffset = event->globalPosition().toPoint() - pos();
    dragging = true;
    QApplication::setOverrideCursor(cursorGrabbed);
}

void ActionToolbar::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint pointer = event->globalPosition().toPoint();
    if (dragging)
        move(pointer - dragOffset);
    // The event's position: the pointer itself may be ahead of a palette that follows it.
    fadeOutUnlessUnder(pointer);
}

void ActionToolbar::mouseReleaseEvent(QMouseEvent* /*event*/)
{
    if (!dragging)
        return;
    dragging = false;
    QApplication::setOverrideCursor(cursorNormal);
}

void ActionToolbar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        QCoreApplication::quit();
    else
        event->ignore();
}

void ActionToolbar::enterEvent(QEnterEvent* /*event*/)
{
    fadeIn();
    QApplication::setOverrideCursor(cursorNormal);
}

void ActionToolbar::leaveEvent(QEvent* /*event*/)
{
    fadeOut();
}

void ActionToolbar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, backImage);
}

void ActionToolbar::resizeEvent(QResizeEvent* /*event*/)
{
    layOutBackground();
}

void ActionToolbar::layOutBackground()
{
    backFrame->setFixedSize(backFrameSize(size(), static_cast<int>(tabs.size())));
    grip->setGeometry(handleArea(size()));
    createBackImage(size());
    leaveEmptyCorner();
    update();
}

void ActionToolbar::leaveEmptyCorner()
{
    if (shutterOpen || tabs.isEmpty())
        clearMask();
    else
        setMask(closedRegion(size()));
}

}
