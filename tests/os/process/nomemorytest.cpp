#include "os/process/processqueries.h"

#include "tests/desktop/harness/filedescriptor.h"

#include <QRegularExpression>
#include <QTest>

#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>
#include <new>

using namespace osUtils::Process;

namespace {

bool isMemoryShort = false;

/// What goes to the error stream during the deed.
QByteArray errorsOf(const std::function<void()>& deed)
{
    const FileDescriptor written(::memfd_create("errors", MFD_CLOEXEC));
    const FileDescriptor before(::dup(STDERR_FILENO));
    ::dup2(written.get(), STDERR_FILENO);
    deed();
    ::dup2(before.get(), STDERR_FILENO);
    char text[1000];
    return {text, static_cast<int>(::pread(written.get(), text, sizeof text, 0))};
}

}

// Take the place of the library's, for this program.
void* operator new(std::size_t size)
{
    void* memory = isMemoryShort ? nullptr : std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

/// Looking for a process without memory.
class NoMemoryTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void withoutMemoryForTheTableALineIsWrittenEachTime();
    void withMemoryNothingIsWritten();

private:
    int findWithoutMemory() const
    {
        std::string sought = name;
        isMemoryShort = true;
        const int found = getProcessId(std::move(sought));
        isMemoryShort = false;
        return found;
    }

    /// This process's own.
    const std::string name = "nomemory" + QByteArray::number(::getpid(), 36).toStdString();
    const QByteArray line = "could not reallocate memory\n";
};

void NoMemoryTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    ::prctl(PR_SET_NAME, name.c_str());
}

void NoMemoryTest::withoutMemoryForTheTableALineIsWrittenEachTime()
{
    // given
    int first = 0;
    int second = 0;

    // when
    const QByteArray errors = errorsOf([&] {
        first = findWithoutMemory();
        second = findWithoutMemory();
    });

    // then
    QCOMPARE(errors, line + line);
    QCOMPARE(first, -1);
    QCOMPARE(second, -1);
    QCOMPARE(getProcessId(name), ::getpid());
}

void NoMemoryTest::withMemoryNothingIsWritten()
{
    // given
    int found = 0;
    int missed = 0;

    // when
    const QByteArray errors = errorsOf([&] {
        found = getProcessId(name);
        missed = getProcessId("nobody is so");
    });

    // then
    QCOMPARE(errors, QByteArray());
    QCOMPARE(found, ::getpid());
    QCOMPARE(missed, -1);
}

QTEST_APPLESS_MAIN(NoMemoryTest)
#include "nomemorytest.moc"
