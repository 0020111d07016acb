#include "shell/penarguments.h"

QColor PenArguments::color() const
{
    constexpr int opaque = 255;
    QColor pen;
    pen.setRgb(red, green, blue, opaque);
    return pen;
}

PenArguments penArguments(const QStringList& arguments)
{
    PenArguments pen;
    for (qsizetype position = 1; position < arguments.size(); ++position) {
        if (arguments[position].trimmed().isEmpty())
            continue;
        const int value = arguments[position].toInt();
        switch (position) {
        case 1:
            pen.size = value;
            break;
        case 2:
            pen.red = value;
            break;
        case 3:
            pen.green = value;
            break;
        case 4:
            pen.blue = value;
            break;
        case 5:
            pen.transparent = value != 0;
            break;
        default:
            break;
        }
    }
    return pen;
}
