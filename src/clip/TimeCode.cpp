#include "clip/TimeCode.h"

#include "foundation/Saturation.h"
#include "geometry/gandalf/ImageHeaderInfo.h"

#include <cmath>

namespace {
constexpr std::uint32_t NO_CODE = 0xFFFFFFFFu;

/// Two decimal digits in eight bits. Tens above 9 keep their bits.
std::uint32_t packed(unsigned int number) {
    return number / 10 << 4 | number % 10;
}

/// The two digits that begin at a bit. Nothing checks that they are digits.
unsigned int unpacked(std::uint32_t word, int bit) {
    std::uint32_t const digits = word >> bit;
    return (digits >> 4 & 0xFu) * 10 + (digits & 0xFu);
}
} // namespace

VX_TimeCode::VX_TimeCode(unsigned int hours, unsigned int minutes, unsigned int seconds, unsigned int frames)
    : hours_(hours), minutes_(minutes), seconds_(seconds), frames_(frames) {}

VX_TimeCode::VX_TimeCode(Gan_ImageHeaderInfo const & header) {
    std::uint32_t const word = header.timeCode;
    if (word == NO_CODE)
        return;
    VX_TimeCode const read(unpacked(word, 24), unpacked(word, 16), unpacked(word, 8), unpacked(word, 0));
    if (read.isValid())
        *this = read;
}

void VX_TimeCode::set(unsigned int hours, unsigned int minutes, unsigned int seconds, unsigned int frames) {
    *this = VX_TimeCode(hours, minutes, seconds, frames);
}

bool VX_TimeCode::isValid() const {
    return frames_ < 100 && minutes_ < 60 && seconds_ < 60 && hours_ < 100;
}

std::uint32_t VX_TimeCode::toUInt32() const {
    if (!isValid())
        return NO_CODE;
    return packed(hours_) << 24 | packed(minutes_) << 16 | packed(seconds_) << 8 | packed(frames_);
}

Kyn::Frame VX_TimeCode::toFrames(double rate) const {
    if (!isValid())
        return Kyn::Frame::INVALID();
    unsigned int const nominalRate = VX::detail::saturated<unsigned int>(std::fabs(rate) + 0.5);
    unsigned int const wholeSeconds = (hours_ * 60 + minutes_) * 60 + seconds_;
    return Kyn::Frame(nominalRate * wholeSeconds + frames_);
}
