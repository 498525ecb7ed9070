#pragma once

class QTextStream;

namespace Kyn {

/// A whole frame number.
class Frame {
public:
    constexpr explicit Frame(unsigned int frame) : frame_(frame) {}

    /// The frame that is none; no query gives it but those that say so.
    static Frame INVALID() { return Frame(INVALID_FRAME_VALUE); }
    bool isValid() const { return frame_ != INVALID_FRAME_VALUE; }

    constexpr unsigned int toUInt() const { return frame_; }

    friend constexpr bool operator==(Frame a, Frame b) { return a.frame_ == b.frame_; }
    friend constexpr bool operator!=(Frame a, Frame b) { return a.frame_ != b.frame_; }

protected:
    /// A frame that is none: 0xFFFFFFFF.
    static const unsigned int INVALID_FRAME_VALUE;

private:
    static constexpr unsigned int fromUInt(unsigned int frame) { return frame; }

    unsigned int frame_;
};

/// Writes the frame as a decimal number in the stream's present format.
QTextStream & operator<<(QTextStream & stream, Frame const & frame);

} // namespace Kyn
