#include "project/NumberText.h"

#include "parameter/Parameter.h"
#include "parameter/StaticParameter.h"
#include "parameter/ValueText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace vxproject {

namespace {

constexpr int FEWEST_DIGITS = 6; ///< What a stream writes without being told.
constexpr int MOST_DIGITS = 17;  ///< What tells any two doubles apart.

template <class Real>
QString shortest(Real number) {
    std::array<char, 40> text;
    std::to_chars_result const written = std::to_chars(text.data(), text.data() + text.size(), number);
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(written.ptr - text.data()));
}

template <class Real>
int digitsNeeded(Real number) {
    if (!std::isfinite(number))
        return FEWEST_DIGITS;
    int digits = FEWEST_DIGITS;
    while (digits < MOST_DIGITS &&
           Kyn::detail::readValue<Real>(QString::number(static_cast<double>(number), 'g', digits)) != number)
        ++digits;
    return digits;
}

template <class Real>
int digitsNeededByViews(Kyn::Parameter<Real> const & parameter) {
    int digits = FEWEST_DIGITS;
    for (Kyn::View const view : std::vector<Kyn::View>(parameter.views()))
        digits = std::max(digits, digitsNeeded(parameter.staticValue(view)));
    return digits;
}

} // namespace

QString shortestText(double number) {
    return shortest(number);
}

QString shortestText(float number) {
    return shortest(number);
}

int digitsNeeded(Kyn::BasicParameter const & parameter) {
    if (auto const * const real = dynamic_cast<Kyn::Parameter<double> const *>(&parameter))
        return digitsNeededByViews(*real);
    if (auto const * const single = dynamic_cast<Kyn::Parameter<float> const *>(&parameter))
        return digitsNeededByViews(*single);
    if (auto const * const field = dynamic_cast<Kyn::StaticParameter<double> const *>(&parameter))
        return digitsNeeded(field->value());
    if (auto const * const singleField = dynamic_cast<Kyn::StaticParameter<float> const *>(&parameter))
        return digitsNeeded(singleField->value());
    return FEWEST_DIGITS;
}

bool keyLineHoldsTime(double time) {
    constexpr double ALL_WHOLE_BELOW = 1e6;
    if (std::fabs(time) < ALL_WHOLE_BELOW && std::trunc(time) == time)
        return true;
    double const written = QString::number(time, 'g', FEWEST_DIGITS).toDouble();
    return static_cast<float>(written) == static_cast<float>(time);
}

} // namespace vxproject
