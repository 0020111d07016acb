#include "action/widget/stylesheets.h"

#include <QRegularExpression>
#include <QtMath>

namespace VcAction::Widget::StyleSheets {

namespace {

constexpr auto groupBoxSheet =
    R"(VcAction--Widget--VcGroupBox {font: 11px "Verdana";color: rgb(255, 80, 0);})"
    R"(VcAction--Widget--VcGroupBox::title {subcontrol-origin: margin;)"
    R"(subcontrol-position: top left; /* position at the top center */})"
    R"(VcAction--Widget--VcGroupBox::indicator:unchecked {)"
    R"(image: url(:/resource/action/common/Img/checkBox.png);})"
    R"(VcAction--Widget--VcGroupBox::indicator:unchecked:hover, VcAction--Widget--VcGroupBox::indicator:unchecked:pressed {)"
    R"(image: url(:/resource/action/common/Img/checkBoxOver.png);})"
    R"(VcAction--Widget--VcGroupBox::indicator:checked {)"
    R"(image: url(:/resource/action/common/Img/checkBoxOn.png);})"
    R"(VcAction--Widget--VcGroupBox::indicator:checked:hover, VcAction--Widget--VcGroupBox::indicator:checked:pressed {)"
    R"(image: url(:/resource/action/common/Img/checkBoxOnOver.png);})";

// The last rule's selector is spelt so that it matches nothing: a disabled list keeps the default
// text colour.
constexpr auto comboBoxSheet =
    R"(VcAction--Widget--VcComboBox {)"
    R"(border-image: url(:/resource/action/common/Img/combobox.png) 4 19 5 6;)"
    R"(border-top: 4px ;border-bottom: 5px ;border-right: 19px ;border-left: 6px;)"
    R"(padding-left: 1px;padding-right: -0px;})"
    R"(VcAction--Widget--VcComboBox:hover {)"
    R"(border-image: url(:/resource/action/common/Img/combobox_over.png) 4 19 5 6;)"
    R"(border-top: 4px ;border-bottom: 5px ;border-right: 19px ;border-left: 6px;)"
    R"(padding-left: 1px;padding-right: -0px;})"
    R"(VcAction--Widget--VcComboBox:on {)"
    R"(border-image: url(:/resource/action/common/Img/combobox_over.png) 4 19 5 6;)"
    R"(border-top: 4px ;border-bottom: 5px ;border-right: 19px ;border-left: 6px;)"
    R"(padding-left: 1px;padding-right: -0px;})"
    R"(VcAction--Widget--VcComboBox:disabled {)"
    R"(border-image: url(:/resource/action/common/Img/combobox.png) 4 19 5 6;)"
    R"(border-top: 4px ;border-bottom: 5px ;border-right: 19px ;border-left: 6px;)"
    R"(padding-left: 1px;padding-right: -0px;})"
    R"(VcAction--Widget--VcComboBox::drop-down {subcontrol-origin: padding;)"
    R"(subcontrol-position: top right;width: 10px;border-style: solid;)"
    R"(border-color: darkgray;border-width: 0px;})"
    R"(VcAction--Widget--VcComboBox QAbstractItemView {padding-left: 0px;)"
    R"(show-decoration-selected: 1;border-radius: 5px;border-width: 3px;)"
    R"(border-style: solid;border-color: #FF5000;background-color: white;min-width: 7em;)"
    R"(selection-color: black;selection-background-color: #FF5000;})"
    R"(VcAction--Widget--VcComboBox QAbstractItemView:enabled { font: bold 11px "Verdana";)"
    R"(color: rgb(255, 80, 0);})"
    R"(VcAction--Widget--VcComboBox QAbstractItemViewn:disabled { )"
    R"(font: bold 11px "Verdana";color: rgb(80, 80, 80);})";

constexpr auto checkBoxSheet =
    R"(VcAction--Widget--VcCheckBox {font: 11px "Verdana";})"
    R"(VcAction--Widget--VcCheckBox::indicator:unchecked {)"
    R"(image: url(:/resource/action/common/Img/checkBox.png);})"
    R"(VcAction--Widget--VcCheckBox::indicator:unchecked:hover, VcAction--Widget--VcCheckBox::indicator:unchecked:pressed {)"
    R"(image: url(:/resource/action/common/Img/checkBoxOver.png);})"
    R"(VcAction--Widget--VcCheckBox::indicator:checked {)"
    R"(image: url(:/resource/action/common/Img/checkBoxOn.png);})"
    R"(VcAction--Widget--VcCheckBox::indicator:checked:hover, VcAction--Widget--VcCheckBox::indicator:checked:pressed {)"
    R"(image: url(:/resource/action/common/Img/checkBoxOnOver.png);})";

constexpr auto tabHolderBeforeWidth =
    R"(VcAction--Widget--VcTabHolder::tab-bar {left: 0px; )"
    R"(/* move to the right by 5px */bottom: 6px; /* move to the right by 5px */} )"
    R"(QTabBar::tab {font: bold 14px "Verdana";margin-right: -1px; )"
    R"(/* the first selected tab has nothing to overlap with on the left */margin-left: -1px; )"
    R"(/* the first selected tab has nothing to overlap with on the left */width: )";

constexpr auto tabHolderAfterWidth =
    R"(px;height: 19px;} )"
    R"(QTabBar::tab:!selected {)"
    R"(border-image: url(:/resource/action/common/Img/tab.png) 0 7 8 7;border-top: 0px ;)"
    R"(border-bottom: 8px ;border-right: 7px ;border-left: 7px;padding-left: 0px;} )"
    R"(QTabBar::tab:selected, QTabBar::tab:hover {)"
    R"(border-image: url(:/resource/action/common/Img/tabover.png) 0 7 8 7;color: white; )"
    R"(border-top: 0px ;border-bottom: 8px ;border-right: 7px ;border-left: 7px;)"
    R"(padding-left: 0px;})";

QString denser(const QRegularExpressionMatch& image, int variant)
{
    QString text = image.captured(1) + QStringLiteral("-%1x.png)").arg(variant);
    for (const int side : {2, 3, 4, 5})
        text += ' ' + QString::number(image.captured(side).toInt() * variant);
    return text;
}

}

QString groupBox()
{
    return QString::fromLatin1(groupBoxSheet);
}

QString comboBox()
{
    return QString::fromLatin1(comboBoxSheet);
}

QString checkBox()
{
    return QString::fromLatin1(checkBoxSheet);
}

QString tabHolder(int tabLabelWidth)
{
    return QString::fromLatin1(tabHolderBeforeWidth) + QString::number(tabLabelWidth)
        + QString::fromLatin1(tabHolderAfterWidth);
}

QString forDensity(const QString& sheet, qreal devicePixelRatio)
{
    constexpr int largestVariant = 3;
    const int variant = qBound(1, qCeil(devicePixelRatio), largestVariant);
    if (variant == 1)
        return sheet;

    static const QRegularExpression cutImage(
        QStringLiteral(R"((url\([^)]*)\.png\) (\d+) (\d+) (\d+) (\d+))"));
    QString result;
    qsizetype copied = 0;
    for (const QRegularExpressionMatch& image : cutImage.globalMatch(sheet)) {
        result += sheet.mid(copied, image.capturedStart() - copied);
        result += denser(image, variant);
        copied = image.capturedEnd();
    }
    return result + sheet.mid(copied);
}

}
