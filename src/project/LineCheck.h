#pragma once

#include "parameter/kyn/NumericParameterWithoutType.h"
#include "parameter/kyn/StreamVersion.h"
#include "project/ValueCheck.h"

#include <QStringList>
#include <QStringView>

namespace vxproject {

/// Looks at the lines of one parameter before it reads them, and says where a line means something else than it looks
/// like. Parameters read leniently: "1,5" is 1, "abc" is 0, "077" is 63 in a whole number, "4294967296" is 0 in an
/// unsigned one, a word that is no interpolation leaves the type. All that stands; this class only reports it.
///
/// It changes nothing, and judges each line by itself, but for two keys at one time and for values that are cleared
/// again: give it each line right before the parameter reads it. The parameter must outlive it.
class LineCheck {
public:
    explicit LineCheck(Kyn::ParameterWithoutType const & parameter);

    enum class Verdict {
        Read, ///< The parameter is to read the line.
        Keep, ///< It would refuse it, or be harmed by it.
    };

    /// Judges a line, the parameter's name and "." taken off, and appends to `findings` what is wrong with it: one text
    /// for each thing, and at least one with the verdict Keep.
    Verdict check(QStringView line, Kyn::StreamVersion const & version, QStringList & findings);

private:
    struct Line;

    Verdict checkKey(Line const & line, QStringList & findings);
    void checkValueLine(Line const & line, Kyn::StreamVersion const & version, QStringList & findings);
    void checkValue(QStringView text, QStringList & findings) const;
    void checkLimits(double value, QStringList & findings) const;
    void checkView(Line const & line, QStringList & findings) const;
    void checkClearing(Kyn::StreamVersion const & version, QStringList & findings);

    Kyn::ParameterWithoutType const & parameter_;
    Kyn::NumericParameterWithoutType const * numeric_; ///< Null for one that is not.
    ValueRule valueRule_;
    bool hasData_ = false; ///< Whether a value or a key has been read since the views were last cleared.
};

} // namespace vxproject
