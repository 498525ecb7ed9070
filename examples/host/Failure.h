#pragma once

#include "foundation/Exception.h"

#include <QString>

/// Throws one of the library's exceptions with the place where it stands. `debug` is for who mends it, `user` for who
/// uses the program; both are std::string.
#define HOST_FAIL(Kind, debug, user) throw Kind(__FILE__, __LINE__, (debug), (user))
