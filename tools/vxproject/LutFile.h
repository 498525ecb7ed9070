#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

/// One-dimensional lookup tables as text files that other programs read. Input and output both run from 0 to 1: entry i
/// of n is the output at i / (n - 1).
namespace Tool {

/// By the ending of a file's name, ".spi1d" or ".cube" in any case. UsageError for another one.
enum class LutFormat { Spi1d, Cube };
LutFormat lutFormatOf(QString const & path);

/// Nine digits behind the point, which tell any two codes of 16 bits apart. `title` stands where the format has room
/// for one, and holds no quote.
QByteArray lutText(LutFormat format, std::vector<double> const & entries, QString const & title);

} // namespace Tool
