#include "action/widget/vctabholder.h"

#include "action/widget/stylesheets.h"

namespace VcAction::Widget {

namespace {

constexpr int defaultTabWidth = 126;
// A tab's side borders, 7 pixels each, less the pixel by which its margins overlap each neighbour.
constexpr int tabBorders = 12;

}

VcTabHolder::VcTabHolder(QWidget* parent)
    : QTabWidget(parent)
{
    setTabWidth(defaultTabWidth);
}

void VcTabHolder::setTabWidth(int width)
{
    const QString sheet = StyleSheets::tabHolder(width - tabBorders);
    setStyleSheet(StyleSheets::forDensity(sheet, devicePixelRatioF()));
}

void VcTabHolder::paintEvent(QPaintEvent* /*event*/) { }

VcTab::VcTab(QWidget* parent)
    : QWidget(parent)
{
}

void VcTab::paintEvent(QPaintEvent* /*event*/) { }

}
