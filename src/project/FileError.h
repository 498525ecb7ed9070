#pragma once

#include "project/Finding.h"

#include <stdexcept>

namespace vxproject {

/// A file that cannot be read or written at all. what() is the whole message, "path:line: what" in UTF-8.
class FileError : public std::runtime_error {
public:
    FileError(QString const & path, qsizetype line, QString const & what)
        : std::runtime_error(Finding{line, what}.toString(path).toStdString()) {}
};

} // namespace vxproject
