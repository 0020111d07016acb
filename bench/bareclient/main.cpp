#include "bench/bareclient/frozenscreen.h"

int main()
{
    FrozenScreen().run();
}
