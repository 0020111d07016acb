#include "tests/support/testprogram.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

namespace {

/// By the class's name. Made when first asked for: other files register classes before main().
std::map<std::string, TestSupport::TestRun>& tests()
{
    static std::map<std::string, TestSupport::TestRun> all;
    return all;
}

}

TestSupport::RegisteredTest::RegisteredTest(const char* name, TestRun run)
{
    if (!tests().emplace(name, run).second) {
        std::fprintf(stderr, "There are two classes of the name %s.\n", name);
        std::abort();
    }
}

int main(int argc, char** argv)
{
    const auto test = tests().find(argc > 1 ? argv[1] : "");
    if (test == tests().end()) {
        std::fprintf(stderr, "Usage: %s CLASS [argument of QtTest...], CLASS one of\n", argv[0]);
        for (const auto& [name, run] : tests())
            std::fprintf(stderr, "  %s\n", name.c_str());
        return EXIT_FAILURE;
    }
    // The class sees the arguments that a program of its own would see.
    argv[1] = argv[0];
    return test->second(argc - 1, argv + 1);
}
