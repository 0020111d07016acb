#include "os/process/timelimit.h"

#include <QRegularExpression>
#include <QTest>

#include <atomic>
#include <csignal>
#include <future>
#include <memory>
#include <thread>

using namespace osUtils::Process;
using namespace std::chrono_literals;

namespace {

/// Work that goes on until it is let go. Let go with this object.
class LongWork {
public:
    ~LongWork() { letGo(); }

    /// What to do; each call of it waits.
    [[nodiscard]] std::function<void()> work() const
    {
        return [released = released] { released.wait(); };
    }

    void letGo()
    {
        if (!std::exchange(isLetGo, true))
            release.set_value();
    }

private:
    std::promise<void> release;
    std::shared_future<void> released = release.get_future().share();
    bool isLetGo = false;
};

constexpr auto longTime = 1min;
constexpr auto shortTime = 10ms;

bool endsNow()
{
    return endsWithin(longTime, [] {});
}

}

/// Work that ends in time, and work that does not.
class TimeLimitTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void workIsDoneOnceOnAnotherThread();
    void workIsNotDisturbedBySignals();
    void workThatDoesNotEndIsGivenUp();
    void afterWorkThatWasGivenUpNoneIsBegun();
    void whenWorkThatWasGivenUpEndsNewWorkIsDone();
    void workThatWasGivenUpOutlivesItsCaller();
    void worksAtTheSameTimeDoNotHinderEachOther();
};

void TimeLimitTest::workIsDoneOnceOnAnotherThread()
{
    // given
    int count = 0;
    std::thread::id worker;

    // when
    const bool hasEnded = endsWithin(longTime, [&] {
        ++count;
        worker = std::this_thread::get_id();
    });

    // then
    QVERIFY(hasEnded);
    QCOMPARE(count, 1);
    QVERIFY(worker != std::this_thread::get_id());
}

void TimeLimitTest::workIsNotDisturbedBySignals()
{
    // given
    sigset_t ownBefore;
    ::pthread_sigmask(SIG_BLOCK, nullptr, &ownBefore);

    // when
    sigset_t blocked;
    const bool hasEnded =
        endsWithin(longTime, [&blocked] { ::pthread_sigmask(SIG_BLOCK, nullptr, &blocked); });

    // then
    QVERIFY(hasEnded);
    for (const int signal : {SIGPIPE, SIGTERM, SIGINT, SIGCHLD})
        QVERIFY(::sigismember(&blocked, signal));
    sigset_t ownAfter;
    ::pthread_sigmask(SIG_BLOCK, nullptr, &ownAfter);
    QCOMPARE(::sigismember(&ownAfter, SIGPIPE), ::sigismember(&ownBefore, SIGPIPE));
}

void TimeLimitTest::workThatDoesNotEndIsGivenUp()
{
    // given
    LongWork longWork;

    // when
    const bool hasEnded = endsWithin(shortTime, longWork.work());

    // then
    QVERIFY(!hasEnded);
    longWork.letGo();
    QTRY_VERIFY(endsNow());
}

void TimeLimitTest::afterWorkThatWasGivenUpNoneIsBegun()
{
    // given
    LongWork longWork;
    QVERIFY(!endsWithin(shortTime, longWork.work()));
    bool isBegun = false;

    // when
    const bool hasEnded = endsWithin(longTime, [&isBegun] { isBegun = true; });

    // then
    QVERIFY(!hasEnded);
    QVERIFY(!isBegun);
    longWork.letGo();
    QTRY_VERIFY(endsNow());
}

void TimeLimitTest::whenWorkThatWasGivenUpEndsNewWorkIsDone()
{
    // given
    LongWork longWork;
    QVERIFY(!endsWithin(shortTime, longWork.work()));

    // when
    longWork.letGo();

    // then
    QTRY_VERIFY(endsNow());
    QVERIFY(endsNow());
}

void TimeLimitTest::workThatWasGivenUpOutlivesItsCaller()
{
    // given
    const auto result = std::make_shared<std::atomic<int>>(0);
    LongWork longWork;

    // when
    const auto work = [wait = longWork.work(), result] {
        wait();
        *result = 1;
    };
    const bool hasEnded = endsWithin(shortTime, work);
    longWork.letGo();

    // then
    QVERIFY(!hasEnded);
    QTRY_COMPARE(result->load(), 1);
    QTRY_VERIFY(endsNow());
}

void TimeLimitTest::worksAtTheSameTimeDoNotHinderEachOther()
{
    // given
    LongWork longWork;
    auto other = std::async(std::launch::async,
                            [work = longWork.work()] { return endsWithin(longTime, work); });

    // when
    const bool hasEnded = endsNow();
    longWork.letGo();

    // then
    QVERIFY(hasEnded);
    QVERIFY(other.get());
}

QTEST_APPLESS_MAIN(TimeLimitTest)
#include "timelimittest.moc"
