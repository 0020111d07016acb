#pragma once

#include <QCoreApplication>
#include <QTest>

/// Test classes that share an executable. A run of it is a run of one class, by name, so that each
/// has a process of its own: tests/CMakeLists.txt makes every class a test.
namespace TestSupport {

/// In the place of an application object, for tests that need none or make their own.
struct NoApplication {
    NoApplication(int& /*argc*/, char** /*argv*/) { }
};

using TestRun = int (*)(int argc, char** argv);

/// Makes a test class known to the main function.
struct RegisteredTest {
    RegisteredTest(const char* name, TestRun run);
};

template <typename Test, typename Application> int runTest(int argc, char** argv)
{
    [[maybe_unused]] const Application application(argc, argv);
    if (QCoreApplication::instance())
        QCoreApplication::setAttribute(Qt::AA_Use96Dpi); // fonts of one size on every machine
    Test test;
    return QTest::qExec(&test, argc, argv);
}

}

/// Instead of QTEST_MAIN. The application is the class of the object that the test needs around it:
/// QApplication, QGuiApplication, QCoreApplication, NoApplication or one of the test's own.
#define REGISTER_TEST(Test, Application)                                                           \
    static const TestSupport::RegisteredTest registered##Test(                                     \
        #Test, TestSupport::runTest<Test, Application>);
