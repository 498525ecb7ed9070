#pragma once

#include "foundation/Enumerations.h"
#include "parameter/kyn/BasicParameter.h"
#include "parameter/kyn/ProxyScale.h"

namespace Kyn {

/// A value under a script name that has no keyframes, no views and no undo. Where it is stored is the subclass's
/// business: see VirtualParameter. It exists for the closed list of types at the end of this header.
///
/// Nothing checks a range: what a script says is set as it stands.
template <class T>
class StaticParameter : public BasicParameter {
public:
    /// The name should not be empty.
    explicit StaticParameter(QString const & scriptName) : scriptName_(scriptName) {}

    /// Writes one line: the prefix, the name and "." if asked for, "value=" and the value in the stream's number
    /// format. Text stands in double quotes and nothing in it is escaped: text that holds a line break cannot be read
    /// back. Always true.
    bool bStreamOut(QTextStream & stream, QString const & prefix, bool bUseName) const override;

    /// Takes a line that still has this name and "." in front, case sensitively, and behind them a key that begins
    /// with "value" in any case: "Values=3" is taken too. The value is all that follows the line's first "=", further
    /// ones included. Sets it and then sends valueChanged(). False for any other line, and nothing has changed.
    ///
    /// Text that is no number sets 0 and still is true; so does a line without "=". Text loses the double quotes at
    /// its ends, if both are there.
    virtual bool setFromScriptString(QString const & line);

    bool bReadMemberLine(QString const & line, StreamVersion const & version) override;

    QString const & scriptName() const override { return scriptName_; }

    /// Takes effect at once and sends nothing; only a script line does.
    virtual void setValue(T const & value) = 0;
    virtual T value() const = 0;

private:
    QString scriptName_;
};

} // namespace Kyn

/// The closed list of value types; X is called with each.
#define VX_FOR_EACH_STATIC_TYPE(X)                                                                                     \
    X(QString)                                                                                                         \
    X(unsigned int)                                                                                                    \
    X(int)                                                                                                             \
    X(float)                                                                                                           \
    X(double)                                                                                                          \
    X(bool)                                                                                                            \
    X(unsigned char)                                                                                                   \
    X(VX_BOOL)                                                                                                         \
    X(VX_COLORSPACE)                                                                                                   \
    X(VX_INTERLACE_MODE)                                                                                               \
    X(VX::FrameWarpType)                                                                                               \
    X(Kyn::ProxyScale::Enum)                                                                                           \
    X(Gan_ImageFormat)                                                                                                 \
    X(Gan_Type)

#define VX_EXTERN_STATIC_PARAMETER(T) extern template class Kyn::StaticParameter<T>;
VX_FOR_EACH_STATIC_TYPE(VX_EXTERN_STATIC_PARAMETER)
#undef VX_EXTERN_STATIC_PARAMETER
