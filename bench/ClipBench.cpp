// Clips: finding a film back, and reading a discrete frame's line.

#include "Ratios.h"

#include "clip/ClipInfo.h"
#include "clip/FilmTypeFactory.h"

#include <chrono>
#include <memory>

namespace {

constexpr int CALLS = 10000;

/// Microseconds a call.
double microseconds(std::function<void()> const & call) {
    auto const start = std::chrono::steady_clock::now();
    for (int i = 0; i < CALLS; ++i)
        call();
    std::chrono::duration<double, std::micro> const taken = std::chrono::steady_clock::now() - start;
    return taken.count() / CALLS;
}

/// A line of commas, blanks and calls, none of which comes to anything, so that all of it is looked at; a character is
/// an item.
Bench::Setup reading(qsizetype length) {
    return [length] {
        QString name;
        while (name.size() < length)
            name += QLatin1String("DiscreteFrame( a, 12, b ");
        auto const line = std::make_shared<QString>(
            QStringLiteral("Frames.keyframes.append( DiscreteFrame( %1, 12, b ) )").arg(name));
        auto const clip = std::make_shared<VX_ClipInfo>();
        Kyn::StreamVersion const version(Kyn::StreamVersion::anyViewList);
        return [=] {
            benchmark::DoNotOptimize(clip->bStreamIn(*line, version));
            return std::int64_t(line->size());
        };
    };
}

bool const registered = [] {
    Bench::figure("clip/film back by size", 5.0, "us", [] {
        return microseconds(
            [] { benchmark::DoNotOptimize(VX_FilmTypeFactory::bestMatchForSize(QSize(1920, 1035), false)); });
    });
    Bench::figure("clip/film back by pixel aspect, none fits", 5.0, "us", [] {
        return microseconds(
            [] { benchmark::DoNotOptimize(VX_FilmTypeFactory::bestMatchForPAR(7.0, QSize(1920, 1035), false)); });
    });
    Bench::compare("clip/discrete frame: a character of 1 MB over one of 16 KB", 1.5, reading(1 << 20),
                   reading(1 << 14));
    return true;
}();

} // namespace
