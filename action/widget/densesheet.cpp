#include "action/widget/densesheet.h"

#include <QRegularExpression>
#include <QtMath>

namespace VcAction::Widget::StyleSheets {

namespace {

QString denser(const QRegularExpressionMatch& image, int variant)
{
    QString text = image.captured(1) + QStringLiteral("-%1x.png)").arg(variant);
    for (const int side : {2, 3, 4, 5})
        text += ' ' + QString::number(image.captured(side).toInt() * variant);
    return text;
}

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
