#pragma once

#include <cstdlib>
#include <memory>

namespace osUtils::X11 {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// An X server's reply, which the library allocates and the caller frees; null if there is none.
template <typename Reply> using ReplyPointer = std::unique_ptr<Reply, FreeReply>;

}
