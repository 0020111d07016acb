#include "os/process/processqueries.h"

#include <cstdio>

int main()
{
    using namespace osUtils::Process;
    pidInfos program;
    program.pid = getCurrentFocusProcess();
    if (program.pid == -1) // no display, or nothing on it
        program.pid = getProcessId("os-processexamp"); // the kernel keeps 15 bytes of a name
    getPidInfos(&program);
    std::printf("%d: %s, desktop entry %s\n", program.pid, program.name.c_str(),
                program.bundleId ? program.bundleId : "none");
}
