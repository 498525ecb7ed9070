// Reading and writing key lines, beside readers and writers made by hand for one form.

#include "Ratios.h"

#include "parameter/NumericParameter.h"

#include <QTextStream>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <memory>
#include <random>
#include <vector>

namespace {

using Kyn::Context;
using Kyn::NumericParameter;
using Kyn::ProxyScale;
using Kyn::StreamVersion;
using Kyn::Time;
using Kyn::View;

typedef NumericParameter<double> Number;

constexpr int KEYS = 10000;

std::shared_ptr<Number> makeParameter() {
    return std::make_shared<Number>(true, QStringLiteral("Translation X"), 0.0, -1e9, 1e9, Kyn::INTERPOLATION_LINEAR,
                                    Kyn::EXTRAPOLATION_CONSTANT);
}

std::shared_ptr<Number> makeTrack(int keys, Kyn::Interpolation type) {
    std::shared_ptr<Number> parameter = makeParameter();
    parameter->setDefaultInterpolation(type);
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> value(-2.0, 2.0);
    for (int frame = 0; frame < keys; ++frame)
        parameter->setValue(value(random), Context(Time(frame), View(0), ProxyScale::NONE));
    return parameter;
}

std::vector<QString> linesOf(Number const & parameter) {
    QString text;
    QTextStream stream(&text);
    parameter.bStreamOut(stream, QString(), false);
    stream.flush();
    std::vector<QString> lines;
    for (QString const & line : text.split(QLatin1Char('\n')))
        if (line.startsWith(QLatin1String("keyframes")))
            lines.push_back(line);
    return lines;
}

/// Reads "keyframes.append( Key( 1, 0.5, Linear ) )" or the six fields of a BezierKey, and nothing else.
struct HandReader {
    struct Key {
        double time, value;
        int type;
        double handles[4];
    };
    std::vector<Key> keys;

    void read(QString const & line) {
        std::array<char, 256> text;
        int const length = static_cast<int>(std::min<qsizetype>(line.size(), 256));
        for (int i = 0; i < length; ++i)
            text[static_cast<std::size_t>(i)] = static_cast<char>(line[i].unicode());
        char const * at = text.data() + 18;
        char const * const end = text.data() + length;
        bool const bezier = *at == 'B';
        while (*at != '(')
            ++at;
        ++at;
        Key key = {};
        at = number(at, end, key.time);
        at = number(at, end, key.value);
        if (bezier) {
            for (double & handle : key.handles)
                at = number(at, end, handle);
            key.type = 3;
        } else {
            key.type = at[1] == 'L' ? 2 : 1;
        }
        key.time = static_cast<double>(static_cast<float>(key.time));
        keys.push_back(key);
    }

    static char const * number(char const * at, char const * end, double & value) {
        while (*at == ' ')
            ++at;
        return std::from_chars(at, end, value).ptr + 1;
    }
};

void compareReading(char const * name, Kyn::Interpolation type) {
    Bench::compare(
        name, 2.0,
        [=] {
            auto const lines = std::make_shared<std::vector<QString>>(linesOf(*makeTrack(KEYS, type)));
            return [lines] {
                std::shared_ptr<Number> const parameter = makeParameter();
                for (QString const & line : *lines)
                    parameter->setFromScriptString(line, StreamVersion(StreamVersion::anyViewList));
                return std::int64_t(lines->size());
            };
        },
        [=] {
            auto const lines = std::make_shared<std::vector<QString>>(linesOf(*makeTrack(KEYS, type)));
            return [lines] {
                HandReader reader;
                for (QString const & line : *lines)
                    reader.read(line);
                benchmark::DoNotOptimize(reader.keys.data());
                return std::int64_t(lines->size());
            };
        });
}

void compareWriting(char const * name, Kyn::Interpolation type) {
    Bench::compare(
        name, 1.0,
        [=] {
            std::shared_ptr<Number> const parameter = makeTrack(KEYS, type);
            return [parameter] {
                QString text;
                QTextStream stream(&text);
                parameter->bStreamOut(stream, QStringLiteral("Layer[1]."), true);
                stream.flush();
                benchmark::DoNotOptimize(text.data());
                return std::int64_t(KEYS);
            };
        },
        [=] {
            std::shared_ptr<Number> const parameter = makeTrack(KEYS, type);
            return [parameter] {
                QString text;
                QTextStream stream(&text);
                for (unsigned int i = 0; i < KEYS; ++i) {
                    Kyn::KeyframeIndex const key{parameter.get(), View(0), i};
                    Kyn::InterpolationData const data = parameter->interpolationData(key);
                    stream << "Layer[1].Translation X."
                           << "keyframes.append( "
                           << (data.eType == Kyn::INTERPOLATION_BEZIER ? "BezierKey( " : "Key( ")
                           << key.toContext().time().toDouble() << ", " << parameter->keyframeValue(i, View(0)) << ", ";
                    if (data.eType == Kyn::INTERPOLATION_BEZIER)
                        stream << data.dOutTime << ", " << data.dOutValue << ", " << data.dInTime << ", "
                               << data.dInValue;
                    else
                        stream << "Linear";
                    stream << " ) )" << Qt::endl;
                }
                benchmark::DoNotOptimize(text.data());
                return std::int64_t(KEYS);
            };
        });
}

double secondsToReadShuffled() {
    std::vector<QString> lines = linesOf(*makeTrack(100000, Kyn::INTERPOLATION_LINEAR));
    std::shuffle(lines.begin(), lines.end(), std::mt19937(3));
    std::shared_ptr<Number> const parameter = makeParameter();
    auto const start = std::chrono::steady_clock::now();
    for (QString const & line : lines)
        parameter->setFromScriptString(line, StreamVersion(StreamVersion::anyViewList));
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The cost of a line among the first thousand of a long script over that among the last.
double growthOverLongScript() {
    std::vector<QString> const lines = linesOf(*makeTrack(1000000, Kyn::INTERPOLATION_LINEAR));
    std::vector<double> ratios;
    for (int round = 0; round < 7; ++round) {
        std::shared_ptr<Number> const parameter = makeParameter();
        auto const readSome = [&](std::size_t from, std::size_t to) {
            auto const start = std::chrono::steady_clock::now();
            for (std::size_t i = from; i < to; ++i)
                parameter->setFromScriptString(lines[i], StreamVersion(StreamVersion::anyViewList));
            return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        };
        double const early = readSome(0, 100000);
        readSome(100000, 900000);
        ratios.push_back(readSome(900000, 1000000) / early);
    }
    std::nth_element(ratios.begin(), ratios.begin() + 3, ratios.end());
    return ratios[3];
}

bool const registered = [] {
    compareReading("script/read Key lines", Kyn::INTERPOLATION_LINEAR);
    compareReading("script/read BezierKey lines", Kyn::INTERPOLATION_BEZIER);
    compareWriting("script/write Key lines", Kyn::INTERPOLATION_LINEAR);
    compareWriting("script/write BezierKey lines", Kyn::INTERPOLATION_BEZIER);
    Bench::figure("script/100,000 lines in random order", 10.0, "s", secondsToReadShuffled);
    Bench::figure("script/cost of a line, late over early, of 1,000,000", 1.5, "", growthOverLongScript);
    return true;
}();

} // namespace
