#include "shell/lostserver.h"

#include "tests/support/testprogram.h"

#include <QTest>

#include <csignal>
#include <functional>

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int byAction = 42;
constexpr int survived = 0;

void follow(volatile int* nowhere)
{
    *nowhere = 1;
}

/// How a process of its own ends whose server is gone, or is not, when it does something.
int statusOf(const std::function<void(int connection)>& deed, bool serverIsGone)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGSEGV, [](int) { ::_exit(byAction); });
        int ends[2] = {-1, -1};
        if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0)
            ::_exit(EXIT_FAILURE);
        endQuietlyWithServer();
        if (serverIsGone)
            ::close(ends[1]);
        deed(ends[0]);
        ::_exit(survived);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

}

/// What happens before Qt has noticed that the X server is gone.
class LostServerTest : public QObject {
    Q_OBJECT

private slots:
    void aRequestOnABrokenConnectionIsNoEnd();
    void aFaultWithoutAServerEndsOrderly();
    void anyOtherFaultIsNotHidden();
};

void LostServerTest::aRequestOnABrokenConnectionIsNoEnd()
{
    // given
    const auto request = [](int connection) {
        [[maybe_unused]] const ssize_t written = ::write(connection, "request", 7);
    };

    // then
    QCOMPARE(statusOf(request, true), survived);
}

void LostServerTest::aFaultWithoutAServerEndsOrderly()
{
    // given
    const auto fault = [](int) { follow(nullptr); };

    // then
    QCOMPARE(statusOf(fault, true), EXIT_FAILURE);
}

void LostServerTest::anyOtherFaultIsNotHidden()
{
    // given
    const auto fault = [](int) { follow(nullptr); };

    // then
    QCOMPARE(statusOf(fault, false), byAction);
}

REGISTER_TEST(LostServerTest, TestSupport::NoApplication)
#include "lostservertest.moc"
