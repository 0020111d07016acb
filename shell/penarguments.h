#pragma once

#include <QColor>
#include <QStringList>

/// The pen at startup.
struct PenArguments {
    /// Width in logical pixels.
    int size = 20;
    int red = 255;
    int green = 255;
    int blue = 0;
    bool transparent = false;

    bool operator==(const PenArguments&) const = default;

    /// Opaque; an invalid QColor, which paints black, if a component is out of range.
    [[nodiscard]] QColor color() const;
};

/// Reads the positional arguments size, red, green, blue and transparent, whole numbers to base 10.
///
/// Nothing is validated: text that is not a number counts as 0, a blank argument keeps the default,
/// and anything after the fifth is ignored.
/// @param arguments  the command line with the program's name first
[[nodiscard]] PenArguments penArguments(const QStringList& arguments);
