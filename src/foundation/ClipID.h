#pragma once

namespace VX {
/// Names a clip, or says that no particular clip is meant.
class ClipID {
public:
    enum Type : int {
        NO_PARTICULAR_CLIP = 0, ///< the default reference; the number means nothing
        EXPLICIT_CLIP = 1,
    };

    /// An explicit reference to number 0, which is not DEFAULT().
    ClipID() = default;
    /// Implicit, so that a number may stand wherever a clip is asked for.
    ClipID(unsigned int value) : m_value(value) {}
    ClipID(Type type, unsigned int value) : m_type(type), m_value(value) {}

    static ClipID DEFAULT() { return ClipID(NO_PARTICULAR_CLIP, 0); }

    /// The number, whatever the type.
    unsigned int value() const { return m_value; }

    /// References to no particular clip are equal whatever their numbers.
    bool operator==(ClipID const & other) const {
        if (m_type != other.m_type)
            return false;
        return m_type == NO_PARTICULAR_CLIP || m_value == other.m_value;
    }
    bool operator!=(ClipID const & other) const { return !(*this == other); }

private:
    Type m_type = EXPLICIT_CLIP;
    unsigned int m_value = 0;
};
} // namespace VX
