#pragma once

#include <QTest>

/// What the offscreen platform complains of, to be expected before it happens.
namespace TestSupport {

/// When a frame is started that is to come to the top.
inline void expectRaiseWarning()
{
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
}

/// When a dialog opens.
inline void expectSizeHintsWarning()
{
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
}

/// When a combo box opens its list.
inline void expectListWarnings()
{
    expectRaiseWarning();
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support grabbing the keyboard");
}

/// When a palette's box opens its list, which is cut to a rounded border.
inline void expectRoundedListWarnings()
{
    expectListWarnings();
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support setting window masks");
}

}
