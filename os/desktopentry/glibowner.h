#pragma once

#include <glib.h>

#include <memory>

namespace osUtils {

/// Gives back what GLib has allocated.
struct FreeFromGlib {
    void operator()(void* memory) const { g_free(memory); }
    void operator()(char** words) const { g_strfreev(words); }
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
};

/// A text of GLib's with its owner.
using GlibText = std::unique_ptr<char, FreeFromGlib>;

}
