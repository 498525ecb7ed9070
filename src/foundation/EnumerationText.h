#pragma once

#include <QTextStream>

#include <cstdint>
#include <limits>
#include <type_traits>

/// The text form that every enumeration in a script has: a bare decimal integer, no word, no range check.
///
/// An enumeration gets its form from one row: its top value, the integer type it is read as and the one it is written
/// as. The two types differ for several enumerations, and the difference shows for values with the top bit set only:
/// written as `int`, such a value has a minus sign.
///
///     // in the header, at global scope
///     VX_ENUMERATION_LIMIT(My::Enumeration, 2)
///     // in the header, in the enumeration's own namespace
///     VX_ENUMERATION_TEXT(My::Enumeration)
///     // in a source file, in the same namespace
///     VX_ENUMERATION_TEXT_DEFINITION(My::Enumeration, Int, Unsigned)
///
/// The enumeration needs a fixed 32-bit underlying type, so that any 32 bits may be stored in it.
namespace VX::detail {
/// Read one integer. `bits` takes what the stream delivers, 0 with a failed status for text that is no number.
QTextStream & readAsInt(QTextStream & stream, std::uint32_t & bits);
QTextStream & readAsUnsigned(QTextStream & stream, std::uint32_t & bits);

/// Write one integer in the stream's number format, without a blank or a line end.
QTextStream & writeAsInt(QTextStream & stream, std::uint32_t bits);
QTextStream & writeAsUnsigned(QTextStream & stream, std::uint32_t bits);

/// What std::numeric_limits says of an enumeration whose values run from 0 to `top` without gaps.
template <class Enumeration, std::uint32_t top>
struct EnumerationLimits {
    static constexpr bool is_specialized = true;
    static constexpr bool is_bounded = true;
    static constexpr bool is_exact = true;
    static constexpr Enumeration min() noexcept { return static_cast<Enumeration>(0); }
    static constexpr Enumeration lowest() noexcept { return min(); }
    static constexpr Enumeration max() noexcept { return static_cast<Enumeration>(top); }
};
} // namespace VX::detail

#define VX_ENUMERATION_LIMIT(Enumeration, top)                                                                         \
    template <>                                                                                                        \
    class std::numeric_limits<Enumeration> : public VX::detail::EnumerationLimits<Enumeration, top> {};

#define VX_ENUMERATION_TEXT(Enumeration)                                                                               \
    QTextStream & operator>>(QTextStream & stream, Enumeration & value);                                               \
    QTextStream & operator<<(QTextStream & stream, Enumeration const & value);

#define VX_ENUMERATION_TEXT_DEFINITION(Enumeration, ReadAs, WrittenAs)                                                 \
    QTextStream & operator>>(QTextStream & stream, Enumeration & value) {                                              \
        std::uint32_t bits = 0;                                                                                        \
        VX::detail::readAs##ReadAs(stream, bits);                                                                      \
        value = static_cast<Enumeration>(static_cast<std::underlying_type_t<Enumeration>>(bits));                      \
        return stream;                                                                                                 \
    }                                                                                                                  \
    QTextStream & operator<<(QTextStream & stream, Enumeration const & value) {                                        \
        static_assert(sizeof(Enumeration) == sizeof(std::uint32_t), "an enumeration in a script has 32 bits");         \
        return VX::detail::writeAs##WrittenAs(stream, static_cast<std::uint32_t>(value));                              \
    }
