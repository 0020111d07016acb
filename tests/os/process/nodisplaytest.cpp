#include "os/process/processqueries.h"

#include "tests/desktop/harness/desktoptest.h"
#include "tests/os/process/windowclients.h"
#include "tests/support/testprogram.h"
#include "windowsystem/filedescriptor.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <thread>

using namespace osUtils::Process;
using namespace TestSupport;

namespace {

constexpr int nobody = -1;
// Where displays begin among the ports.
constexpr int firstPort = 6000;

/// Somebody on this machine who takes connections as an X server does, and never says a word.
class SilentServer {
public:
    SilentServer()
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const general = reinterpret_cast<sockaddr*>(&address);
        ::bind(listening.number(), general, size);
        ::listen(listening.number(), 10);
        ::getsockname(listening.number(), general, &size);
        port = ::ntohs(address.sin_port);
    }

    [[nodiscard]] QByteArray display() const
    {
        return "127.0.0.1:" + QByteArray::number(port - firstPort);
    }

    /// Takes a connection that somebody has made, and keeps or closes it.
    [[nodiscard]] osUtils::FileDescriptor accept() const
    {
        return osUtils::FileDescriptor(::accept(listening.number(), nullptr, nullptr));
    }

private:
    osUtils::FileDescriptor listening{::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)};
    int port = 0;
};

}

/// Displays that are not there, and servers that do not answer.
class NoDisplayTest : public DesktopTest {
    Q_OBJECT

private slots:
    void whereThereIsNoDisplayNobodyIsInFront_data();
    void whereThereIsNoDisplayNobodyIsInFront();
    void aServerThatHangsUpIsNoDisplay();
    void aSilentServerIsGivenUpAndNothingAskedUntilItIsGone();
    void aServerThatAnotherProgramHoldsIsGivenUpUntilItIsLetGo();
};

void NoDisplayTest::whereThereIsNoDisplayNobodyIsInFront_data()
{
    QTest::addColumn<QByteArray>("display");

    QTest::newRow("none") << QByteArray();
    QTest::newRow("no name of a display") << QByteArray("nonsense");
    QTest::newRow("only a colon") << QByteArray(":");
    QTest::newRow("not there") << QByteArray(":54321");
    QTest::newRow("not there, over the network") << QByteArray("127.0.0.1:1");
    QTest::newRow("too large a number") << QByteArray(":99999999999999999999");
    QTest::newRow("very long") << QByteArray(100000, 'x');
    QTest::newRow("no text") << QByteArray("\xff:\xfe");
}

void NoDisplayTest::whereThereIsNoDisplayNobodyIsInFront()
{
    // given
    QFETCH(QByteArray, display);
    qputenv("DISPLAY", display);
    pidInfos info{.pid = ::getpid()};

    // when
    const int process = getCurrentFocusProcess();
    getPidInfos(&info);

    // then
    QCOMPARE(process, nobody);
    QCOMPARE(info.name, get_application_basename(::getpid()));
    QCOMPARE(info.path, std::string());
    QVERIFY(!info.bundleId);
}

void NoDisplayTest::aServerThatHangsUpIsNoDisplay()
{
    // given
    const SilentServer silent;
    qputenv("DISPLAY", silent.display());

    // when
    std::thread hangUp([&silent] { static_cast<void>(silent.accept()); });
    const int process = getCurrentFocusProcess();
    hangUp.join();

    // then
    QCOMPARE(process, nobody);
}

void NoDisplayTest::aSilentServerIsGivenUpAndNothingAskedUntilItIsGone()
{
    // given
    const WindowClient client(*desktop,
                              ownProcess() << "WM_CLASS=a|b|"
                                           << "do=keys");
    EVENTUALLY(client.window() != XCB_NONE);
    setNumbers(desktop->x, desktop->x.root(), "_NET_CLIENT_LIST", {client.window()});
    const SilentServer silent;
    qputenv("DISPLAY", silent.display());
    pidInfos meanwhile{.pid = client.id()};

    // when
    const int onSilentServer = getCurrentFocusProcess();
    qputenv("DISPLAY", desktop->display);
    const int inFrontMeanwhile = getCurrentFocusProcess();
    getPidInfos(&meanwhile);
    static_cast<void>(silent.accept());

    // then
    QCOMPARE(onSilentServer, nobody);
    QCOMPARE(inFrontMeanwhile, nobody);
    QCOMPARE(meanwhile.path, std::string());
    EVENTUALLY_COMPARE(getCurrentFocusProcess(), client.id());
}

void NoDisplayTest::aServerThatAnotherProgramHoldsIsGivenUpUntilItIsLetGo()
{
    // given
    const WindowClient client(*desktop, ownProcess() << "do=keys");
    qputenv("DISPLAY", desktop->display);
    EVENTUALLY_COMPARE(getCurrentFocusProcess(), client.id());

    // when
    xcb_grab_server(desktop->x.raw());
    desktop->x.synchronise();
    const int whileHeld = getCurrentFocusProcess();
    xcb_ungrab_server(desktop->x.raw());
    desktop->x.synchronise();

    // then
    QCOMPARE(whileHeld, nobody);
    EVENTUALLY_COMPARE(getCurrentFocusProcess(), client.id());
}

REGISTER_TEST(NoDisplayTest, QCoreApplication)
#include "nodisplaytest.moc"
