#pragma once

#include <QApplication>
#include <QCursor>
#include <QList>

#include <cstring>

namespace TestSupport {

/// Takes all override cursors off the application's stack.
/// @return  the cursors, the one pushed last first
inline QList<QCursor> takeOverrideCursors()
{
    QList<QCursor> cursors;
    while (const QCursor* top = QApplication::overrideCursor()) {
        cursors.append(*top);
        QApplication::restoreOverrideCursor();
    }
    return cursors;
}

/// Whether both are the same Qt object, not only alike: a cursor is one pointer to it.
inline bool areSameObject(const QCursor& first, const QCursor& second)
{
    static_assert(sizeof(QCursor) == sizeof(void*));
    return std::memcmp(&first, &second, sizeof(QCursor)) == 0;
}

/// Whether two cursors show the same image of the same hot spot.
inline bool lookAlike(const QCursor& first, const QCursor& second)
{
    return first.pixmap().toImage() == second.pixmap().toImage()
        && first.hotSpot() == second.hotSpot();
}

}
