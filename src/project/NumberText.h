#pragma once

#include <QString>

namespace Kyn {
class BasicParameter;
} // namespace Kyn

namespace vxproject {

/// The shortest decimal text that reads back as the same number: "0.1", "1e-05", "nan", "inf".
QString shortestText(double number);
QString shortestText(float number);

/// How many significant digits, 6 to 17, a parameter's value lines need so that each static value of it reads back
/// equal: the fewest that serve all its views. 6 for a parameter that holds no real numbers.
int digitsNeeded(Kyn::BasicParameter const & parameter);

/// Whether a key at this time is found there again after it has been written and read: a key line gives a time six
/// digits, and reading passes it through single precision, which counts as kept.
bool keyLineHoldsTime(double time);

} // namespace vxproject
