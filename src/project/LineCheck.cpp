#include "project/LineCheck.h"

#include "parameter/Parameter.h"
#include "parameter/ScriptLine.h"
#include "project/Finding.h"
#include "project/NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vxproject {

using Kyn::detail::LineKind;

namespace {

/// No clip has so many views. An id beyond it is read all the same.
constexpr int LARGEST_USUAL_VIEW = 65535;

void add(QStringList & findings, QString const & text) {
    findings.append(text);
}

// Other fields

void checkNumberField(char const * field, QStringView text, QStringList & findings) {
    double const read = Kyn::detail::wholeToDouble(text);
    if (!std::isfinite(read))
        add(findings, QStringLiteral("the %1, %2, is not a finite number").arg(QLatin1String(field), quoted(text)));
    else if (!looksLike(text, read))
        add(findings, QStringLiteral("the %1, %2").arg(QLatin1String(field), readsAs(text, shortestText(read))));
}

/// Every parameter takes a key's time through single precision. A thousandth of a frame is not worth a word.
void checkTime(QStringView text, float read, QStringList & findings) {
    constexpr double WORTH_A_WORD = 1e-3;
    double const whole = Kyn::detail::wholeToDouble(text);
    if (!looksLike(text, whole) || std::fabs(static_cast<double>(read) - whole) > WORTH_A_WORD)
        add(findings, QStringLiteral("the time, ") + readsAs(text, shortestText(read)));
}

void checkSecondField(QStringView text, QStringList & findings) {
    QStringView const value = Kyn::detail::valueField(text);
    QStringView const read = Kyn::detail::secondField(text);
    if (read.size() != value.size())
        add(findings, readsAs(value, quoted(read)));
}

void checkHidden(QStringView text, QStringList & findings) {
    QStringView const field = Kyn::detail::secondField(text);
    if (field != QLatin1String("0") && field != QLatin1String("1"))
        add(findings, readsAs(field, field.toInt() != 0 ? QStringLiteral("1") : QStringLiteral("0")));
}

void checkExtrapolation(QStringView text, QStringList & findings) {
    Kyn::Extrapolation mode;
    QStringView const field = Kyn::detail::secondField(text);
    if (!Kyn::bStringToExtrapolationType(field, mode))
        add(findings, quoted(field) + QStringLiteral(" is no extrapolation, so the mode stays as it was"));
}

void checkMaster(QStringView text, QStringList & findings) {
    if (Kyn::detail::secondField(text).isEmpty())
        add(findings, QStringLiteral("no master is named"));
}

/// The lines that set one thing each, and what else there is to see about them.
struct FieldRule {
    LineKind kind;
    QLatin1String word;
    void (*check)(QStringView text, QStringList & findings);
};

constexpr FieldRule FIELD_RULES[] = {
    {LineKind::Hidden, QLatin1String("hidden"), &checkHidden},
    {LineKind::Before, QLatin1String("before"), &checkExtrapolation},
    {LineKind::After, QLatin1String("after"), &checkExtrapolation},
    {LineKind::Master, QLatin1String("MasterParameterId"), &checkMaster},
};

/// "views=[0, 1]". The ids are not read by anybody: each view comes back from its own lines, and is looked at there.
void checkViewsLine(QStringView line, QStringList & findings) {
    constexpr QLatin1String OPENING("views=[");
    bool wellFormed = line.startsWith(OPENING) && line.endsWith(QLatin1Char(']'));
    if (wellFormed) {
        QList<QStringView> const ids = line.mid(OPENING.size()).chopped(1).split(QLatin1Char(','));
        wellFormed = std::all_of(ids.begin(), ids.end(), [](QStringView text) {
            bool isId = false;
            return text.trimmed().toInt(&isId) >= 0 && isId;
        });
    }
    if (!wellFormed)
        add(findings, quoted(line) + QStringLiteral(" reads as a list of views, which is written views=[0, 1]"));
}

/// Whether a key line has the form that is written, blanks aside: keyframes.append( Key( ... ) ).
bool isWellFormedKey(QStringView text, bool bezier) {
    auto const take = [&](QLatin1String piece) {
        bool const taken = text.startsWith(piece, Qt::CaseInsensitive);
        text = taken ? text.mid(piece.size()).trimmed() : text;
        return taken;
    };
    auto const chop = [&] {
        bool const closed = text.endsWith(QLatin1Char(')'));
        text = closed ? text.chopped(1).trimmed() : text;
        return closed;
    };
    QLatin1String const call = bezier ? QLatin1String("BezierKey") : QLatin1String("Key");
    return take(QLatin1String("keyframes.append")) && take(QLatin1String("(")) && take(call) &&
           take(QLatin1String("(")) && chop() && chop();
}

} // namespace

/// A line behind its view prefix.
struct LineCheck::Line {
    QStringView text;
    Kyn::View given; ///< Negative without a prefix.
    LineKind kind;

    Kyn::View view() const { return given.isValid() ? given : Kyn::View(Kyn::View::defaultViewId()); }
};

LineCheck::LineCheck(Kyn::ParameterWithoutType const & parameter)
    : parameter_(parameter),
      numeric_(dynamic_cast<Kyn::NumericParameterWithoutType const *>(&parameter)),
      valueRule_(valueRuleOf(parameter.valueTypeInfo())) {}

LineCheck::Verdict LineCheck::check(QStringView whole, Kyn::StreamVersion const & version, QStringList & findings) {
    if (whole.startsWith(QLatin1String("views"))) {
        checkViewsLine(whole, findings);
        checkClearing(version, findings);
        return Verdict::Read;
    }
    Line line{whole, Kyn::View(-1), LineKind::Unknown};
    line.given = Kyn::View::extractStringPrefix(line.text);
    line.kind = Kyn::detail::kindOfLine(line.text);
    if (line.kind == LineKind::Unknown) {
        add(findings, QStringLiteral("'%1' does not take %2").arg(parameter_.scriptName(), quoted(whole)));
        return Verdict::Keep;
    }
    if (line.kind == LineKind::Keyframe)
        return checkKey(line, findings);
    if (line.kind == LineKind::Value)
        checkValueLine(line, version, findings);
    for (FieldRule const & rule : FIELD_RULES) {
        if (rule.kind != line.kind)
            continue;
        checkWord(rule.word, line.text, QLatin1Char('='), findings);
        checkSecondField(line.text, findings);
        rule.check(line.text, findings);
    }
    return Verdict::Read;
}

LineCheck::Verdict LineCheck::checkKey(Line const & line, QStringList & findings) {
    bool const bezier = line.text.contains(QLatin1String("BezierKey"));
    int const needed = bezier ? 6 : 3;
    Kyn::detail::KeyframeDeclaration const key = Kyn::detail::splitKeyframeDeclaration(line.text, bezier);
    if (key.count < needed) {
        add(findings, QStringLiteral("a %1 has %2 fields, this one %3: %4")
                          .arg(bezier ? QLatin1String("BezierKey") : QLatin1String("Key"))
                          .arg(needed)
                          .arg(key.count)
                          .arg(quoted(line.text)));
        return Verdict::Keep;
    }
    float const time = Kyn::detail::wholeToFloat(key.fields[0]);
    if (!std::isfinite(time)) {
        add(findings, QStringLiteral("a key needs a finite time, %1 is none").arg(quoted(key.fields[0])));
        return Verdict::Keep;
    }
    if (!isWellFormedKey(line.text, bezier))
        add(findings, quoted(line.text) + QStringLiteral(" reads as a key, which is written keyframes.append( ") +
                          (bezier ? QLatin1String("BezierKey") : QLatin1String("Key")) + QStringLiteral("( ... ) )"));
    checkTime(key.fields[0], time, findings);
    checkValue(key.fields[1], findings);
    if (bezier) {
        static constexpr char const * HANDLES[] = {"first handle's time", "first handle's value",
                                                   "second handle's time", "second handle's value"};
        for (std::size_t i = 0; i < std::size(HANDLES); ++i)
            checkNumberField(HANDLES[i], key.fields[i + 2], findings);
    } else if (Kyn::Interpolation type; !Kyn::bStringToInterpolationType(key.fields[2], type)) {
        add(findings, quoted(key.fields[2]) + QStringLiteral(" is no interpolation, so it reads as 'Constant'"));
    }
    checkView(line, findings);
    if (!parameter_.isAnimatable())
        add(findings, QStringLiteral("'%1' takes no keys; this one reads as its value").arg(parameter_.scriptName()));
    // Those that cannot split keep all keys in view 0.
    Kyn::View const view = parameter_.isSplittable() ? line.view() : Kyn::View(0);
    if (hasData_ && parameter_.isAnimatable() &&
        parameter_.isKeyframe(Kyn::Context(Kyn::Time(static_cast<double>(time)), view, Kyn::ProxyScale::NONE)))
        add(findings,
            QStringLiteral("there is a key at time %1 already, which this one replaces").arg(shortestText(time)));
    hasData_ = true;
    return Verdict::Read;
}

void LineCheck::checkValueLine(Line const & line, Kyn::StreamVersion const & version, QStringList & findings) {
    checkWord(QLatin1String("value"), line.text, QLatin1Char('='), findings);
    checkValue(Kyn::detail::valueField(line.text), findings);
    checkView(line, findings);
    if (!line.given.isValid())
        checkClearing(version, findings);
    hasData_ = true;
}

void LineCheck::checkValue(QStringView text, QStringList & findings) const {
    std::optional<double> const number = valueRule_(text, findings);
    if (number && numeric_ && std::isfinite(*number))
        checkLimits(*number, findings);
}

void LineCheck::checkLimits(double value, QStringList & findings) const {
    double const minimum = numeric_->dMinimum();
    double const maximum = numeric_->dMaximum();
    if (value < minimum || value > maximum)
        add(findings, QStringLiteral("%1 is outside %2 to %3, and is held within these when it is used")
                          .arg(shortestText(value), shortestText(minimum), shortestText(maximum)));
}

void LineCheck::checkView(Line const & line, QStringList & findings) const {
    if (!line.given.isValid())
        return;
    if (line.given.id() > LARGEST_USUAL_VIEW)
        add(findings, QStringLiteral("view %1 is beyond any use").arg(line.given.id()));
    if (!parameter_.isSplittable() && line.given != Kyn::View(0))
        add(findings, QStringLiteral("'%1' is the same in every view; what is given for view %2 holds for all")
                          .arg(parameter_.scriptName())
                          .arg(line.given.id()));
}

/// From version 2 on, a list of views and a value for no view in particular start a parameter anew.
void LineCheck::checkClearing(Kyn::StreamVersion const & version, QStringList & findings) {
    if (hasData_ && version >= Kyn::StreamVersion::anyViewList)
        add(findings,
            QStringLiteral("this clears the values and keys of '%1' that stand above it").arg(parameter_.scriptName()));
    hasData_ = false;
}

} // namespace vxproject
