// A program that calls itself as it is told, and then waits to be ended, or ends at once.
//
// Usage: os-namedprocess NAME wait|end

#include <sys/prctl.h>
#include <unistd.h>

#include <string_view>

int main(int count, char** arguments)
{
    constexpr int wrongUse = 2;
    if (count != 3)
        return wrongUse;
    ::prctl(PR_SET_NAME, arguments[1]);
    if (arguments[2] == std::string_view("wait"))
        ::pause();
}
