// The tables of a colourspace, beside loops with one pow or log of the C library for each entry.

#include "Ratios.h"

#include "clip/ColourspaceParameters.h"
#include "clip/LookupTableHelperMethods.h"

#include <cmath>
#include <memory>
#include <vector>

namespace {

using VX::ColourspaceParameters;

constexpr int ENTRIES = VX::LookupTable::LINEAR_ENTRIES;

typedef std::vector<unsigned short> Table;

/// Measures one filling of a table of 65536 entries; an entry is an item.
template <class Element>
Bench::Setup filling(void (*fill)(Element *)) {
    return [fill] {
        auto const table = std::make_shared<std::vector<Element>>(ENTRIES);
        return [=] {
            fill(table->data());
            benchmark::DoNotOptimize(table->data());
            benchmark::ClobberMemory();
            return std::int64_t(ENTRIES);
        };
    };
}

// Read at run time, as a clip's settings are.
double volatile gammaOfFilm = 1.0;
double volatile gammaOfDisplay = 2.2;

double decadesOf(double code, double gamma) {
    return (code - 685.0) * 0.002 / gamma;
}

double gainFor(double top) {
    return top / (1.0 - std::pow(10.0, decadesOf(95.0, gammaOfFilm)));
}

VX::FilmLogSettings film() {
    VX::FilmLogSettings settings;
    settings.gamma = static_cast<float>(gammaOfFilm);
    return settings;
}

template <class Element>
void plainCodeToLinear(Element * table, double top, double rounding) {
    double const gamma = gammaOfFilm;
    double const gain = gainFor(top);
    for (int i = 0; i < ENTRIES; ++i)
        table[i] = static_cast<Element>(
            std::fmax(std::pow(10.0, decadesOf(i / 64.0, gamma)) * gain - (gain - top), 0.0) + rounding);
}

template <class Code>
void plainLinearToCode(Code * table, double top, double unit) {
    double const gain = gainFor(top);
    double const slope = gammaOfFilm / (std::log(10.0) * 0.002);
    double const step = top / (ENTRIES - 1);
    for (int i = 0; i < ENTRIES; ++i)
        table[i] = static_cast<Code>((std::log((i * step + (gain - top)) / gain) * slope + 685.0) * unit + 0.5);
}

void plainPower(unsigned short * table) {
    double const exponent = 1.0 / gammaOfDisplay;
    double const scale = 65535.0 / std::pow(65535.0, exponent);
    for (int i = 0; i < ENTRIES; ++i)
        table[i] = static_cast<unsigned short>(std::pow(static_cast<double>(i), exponent) * scale + 0.5);
}

/// What generateLUTs makes of film log: a table of powers and two of logarithms. Its table of 256 is left out.
Bench::Work plainGeneration() {
    auto const forward = std::make_shared<std::vector<float>>(ENTRIES);
    auto const codes8 = std::make_shared<std::vector<unsigned char>>(ENTRIES);
    auto const codes16 = std::make_shared<Table>(ENTRIES);
    return [=] {
        plainCodeToLinear(forward->data(), 1.0, 0.0);
        plainLinearToCode(codes8->data(), 1.0, 0.25);
        plainLinearToCode(codes16->data(), 1.0, 64.0);
        benchmark::ClobberMemory();
        return std::int64_t(3 * ENTRIES);
    };
}

std::shared_ptr<ColourspaceParameters> filmParameters() {
    auto parameters = std::make_shared<ColourspaceParameters>();
    parameters->colourspace = VX_COLORSPACE_FILM_LOG;
    return parameters;
}

Bench::Work generation() {
    auto const parameters = filmParameters();
    return [=] {
        parameters->generateLUTs();
        benchmark::ClobberMemory();
        return std::int64_t(3 * ENTRIES);
    };
}

double allocationsOfAccess() {
    auto const parameters = filmParameters();
    QVector<unsigned short> const & table = parameters->clip16ToLinear16LUT();
    std::int64_t const before = Bench::allocations();
    bool same = true;
    for (int i = 0; i < 1000; ++i)
        same = same && &parameters->clip16ToLinear16LUT() == &table;
    return same ? static_cast<double>(Bench::allocations() - before) : HUGE_VAL;
}

bool const registered = [] {
    using namespace VX::LookupTable;
    Bench::compare("tables/film log, code to linear", 0.15,
                   filling<unsigned short>([](unsigned short * t) { fillFilmLogForward(t, 16, film()); }),
                   filling<unsigned short>([](unsigned short * t) { plainCodeToLinear(t, 65535.0, 0.5); }));
    Bench::compare("tables/film log, linear to code", 0.35,
                   filling<unsigned short>([](unsigned short * t) { fillFilmLogInverse(t, film()); }),
                   filling<unsigned short>([](unsigned short * t) { plainLinearToCode(t, 65535.0, 64.0); }));
    Bench::compare("tables/power law", 0.35, filling<unsigned short>([](unsigned short * t) {
                       fillPower(t, 16, static_cast<float>(gammaOfDisplay));
                   }),
                   filling<unsigned short>(plainPower));
    Bench::compare("tables/generateLUTs of film log", 0.4, generation, plainGeneration);
    Bench::figure("tables/access to a built table, 1000 times", 0.0, "allocations", allocationsOfAccess);
    return true;
}();

} // namespace
