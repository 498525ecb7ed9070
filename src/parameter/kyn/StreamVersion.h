#pragma once

namespace Kyn {

/// The version of the script being read.
class StreamVersion {
public:
    /// The first version whose "views" lines and unprefixed value lines clear a parameter's earlier views.
    /// It is also the version that is written; version 1 is the script from before lists of views.
    static constexpr unsigned int anyViewList = 2;

    constexpr explicit StreamVersion(unsigned int version) : version_(version) {}

    constexpr unsigned int toUInt() const { return version_; }

    friend constexpr bool operator>=(StreamVersion version, unsigned int other) { return version.version_ >= other; }

private:
    unsigned int version_;
};

} // namespace Kyn
