#pragma once

#include "os/login/loginitemurl.h"

#include <cstdint>
#include <memory>
#include <vector>

/// What a login-item function came to: 0 is success, fileNotFound that there is no such file, and a
/// positive number an error of the system, passed on as it was in errno (<cerrno> has the names).
using OSStatus = std::int32_t;

namespace LoginItemStatus {

constexpr OSStatus success = 0;
constexpr OSStatus fileNotFound = -43;

}

/// One program that is started when the user logs in.
struct LoginItem {
    LoginItemUrlRef URL;
    /// A mark that is kept for the caller; sessions start every item alike.
    bool Hidden = false;
};

/// Login items in their order, positions counting from 0.
using LoginItemArray = std::vector<LoginItem>;
/// Whoever is given an array owns it.
using LoginItemArrayRef = std::unique_ptr<const LoginItemArray>;
