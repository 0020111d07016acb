#pragma once

#include <cstddef>
#include <cstdint>

namespace osUtils::System {

/// Large memory that holds one value throughout and is the program's to change. It takes neither time
/// nor memory to speak of but where it is written to.
struct UniformMemory {
    uint32_t* values; ///< null where the system has none to give
    size_t bytes; ///< what there really is, at least what was asked for
};

[[nodiscard]] UniformMemory uniformMemory(size_t bytes, uint32_t value);
/// Gives it back to the system.
void releaseMemory(const UniformMemory& memory);

}
