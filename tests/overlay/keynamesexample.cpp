#include "overlay/keynames.h"

#include <QKeySequence>

#include <cstdio>

int main()
{
    const QKeyCombination shortcut = QKeySequence("Shift+F5")[0];
    const QString name = Helpers::NQt::Utils::convertKeyCode(shortcut.key());
    std::printf("%s\n", name.isEmpty() ? "a key without a name" : qPrintable(name)); // [F5]
}
