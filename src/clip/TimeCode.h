#pragma once

#include "parameter/kyn/Frame.h"

#include <cstdint>

struct Gan_ImageHeaderInfo;

/// A time code: hours, minutes, seconds and frames. There is no drop-frame counting.
class VX_TimeCode {
public:
    /// Not valid: 0, 0, 0 and 0xFFFFFFFF frames.
    VX_TimeCode() = default;
    /// Takes the four as they stand; isValid() tells whether they make a time code.
    VX_TimeCode(unsigned int hours, unsigned int minutes, unsigned int seconds, unsigned int frames);
    /// The time code of an image file. Its digits may exceed 9 (a frames field of 0x0A counts as 10); where what they
    /// make is not valid, or the file has none, the result is the default code.
    VX_TimeCode(Gan_ImageHeaderInfo const & header);

    void set(unsigned int hours, unsigned int minutes, unsigned int seconds, unsigned int frames);

    unsigned int hours() const { return hours_; }
    unsigned int minutes() const { return minutes_; }
    unsigned int seconds() const { return seconds_; }
    unsigned int frames() const { return frames_; }

    /// Hours and frames below 100, minutes and seconds below 60. Frames are not held against any frame rate.
    bool isValid() const;

    /// Eight decimal digits of four bits each, hours on top: 01:02:03:04 is 0x01020304. 0xFFFFFFFF if not valid.
    std::uint32_t toUInt32() const;

    /// The number of the frame at a rate in frames per second, counted from 00:00:00:00. The sign of the rate does not
    /// count, and it is rounded to whole frames: 23.976 counts as 24. In unsigned 32-bit arithmetic, so that it wraps
    /// for rates above 11930; Kyn::Frame::INVALID() if not valid.
    Kyn::Frame toFrames(double rate) const;

private:
    unsigned int hours_ = 0;
    unsigned int minutes_ = 0;
    unsigned int seconds_ = 0;
    unsigned int frames_ = 0xFFFFFFFFu;
};
