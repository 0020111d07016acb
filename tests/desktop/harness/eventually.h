#pragma once

#include <QTest>

#include <chrono>
#include <functional>

/// How long a test waits for something that must happen, before it counts as failed: 20 seconds,
/// times the number in the environment variable KORVEL_TEST_PATIENCE, for machines under a debugger
/// or a heavy load.
[[nodiscard]] std::chrono::milliseconds patience();

/// What is done at the end of each wait in vain, for whoever looks into the reason.
void whenInVain(std::function<void()> record);
void waitedInVain();

/// Looks at the condition every few milliseconds until it holds. False when the patience has run
/// out.
template <typename Condition> [[nodiscard]] bool eventually(Condition condition)
{
    const bool holds = QTest::qWaitFor(condition, static_cast<int>(patience().count()));
    if (!holds)
        waitedInVain();
    return holds;
}

/// Fails the test function, naming the condition, unless it comes true in time.
#define EVENTUALLY(condition)                                                                      \
    QVERIFY2(eventually([&] { return static_cast<bool>(condition); }), #condition)

/// Fails the test function, showing both values, unless they become equal in time. Once equal is
/// enough: they are not looked at again.
#define EVENTUALLY_COMPARE(actual, expected)                                                       \
    do {                                                                                           \
        auto lastValue = actual;                                                                   \
        static_cast<void>(eventually([&] {                                                         \
            lastValue = actual;                                                                    \
            return lastValue == (expected);                                                        \
        }));                                                                                       \
        if (!QTest::qCompare(lastValue, expected, #actual, #expected, __FILE__, __LINE__))         \
            return;                                                                                \
    } while (false)
