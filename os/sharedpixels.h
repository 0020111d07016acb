#pragma once

#include "os/sharedmemory.h"

#include <QSize>

#include <cstdint>
#include <memory>

namespace osUtils::System {

/// Pixels that the window system can read where they lie, row by row, laid out as the toolkit's of 32 bits and
/// as those of the screen.
struct SharedPixels {
    /// Null if there are none.
    std::shared_ptr<const SharedMemory> memory;
    /// The number that the window system knows the memory by as long as somebody holds it.
    std::shared_ptr<const uint32_t> number;
    /// In device pixels.
    QSize size;
};

}
