#include "bench/desktop/annotators/annotator.h"

#include <unistd.h>

namespace Bench {

bool Annotator::isInstalled() const
{
    return ::access(executable().constData(), X_OK) == 0;
}

}
