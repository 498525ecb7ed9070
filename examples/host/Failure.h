#pragma once

#include "foundation/Exception.h"

#include <string>

/// A source file without its folder.
inline std::string fileNameOf(std::string const & path) {
    return path.substr(path.find_last_of('/') + 1);
}

/// Throws one of the library's exceptions with the place where it stands. `debug` is for who mends it, `user` for who
/// uses the program; both are std::string.
#define HOST_FAIL(Kind, debug, user) throw Kind(fileNameOf(__FILE__), __LINE__, (debug), (user))
