#pragma once

#include <QByteArray>
#include <QString>

#include <cstdio>
#include <cstdlib>

/// What the fuzzers share.
namespace Fuzz {

/// Ends the program, which makes libFuzzer keep the input, unless the property holds.
inline void require(bool holds, char const * property, QByteArray const & shown = {}) {
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n%s\n", property, shown.constData());
    std::abort();
}

/// The same of two texts, which are shown where they differ.
inline void requireEqual(QByteArray const & found, QByteArray const & expected, char const * property) {
    require(found == expected, property, "--- expected\n" + expected + "\n--- found\n" + found);
}

} // namespace Fuzz
