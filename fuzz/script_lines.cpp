// Lines of a script, offered to a parameter.
//
// The first line of an input says which parameter: one character chooses its type from '0' on in the order of `kinds`
// below, the next holds its three flags, '0' to '7'. All further lines are script lines, the names taken off.
//
// What must hold: a refused line changes nothing; what was read is written, read and written again as the same text;
// keys ascend; a number never leaves its limits.

#include "Property.h"

#include "parameter/NumericParameter.h"

#include <QStringList>
#include <QTextStream>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace {

using namespace Kyn;

struct Settings {
    bool isAnimatable = false;
    bool isSplittable = false;
    StreamVersion version{StreamVersion::anyViewList};
};

constexpr StreamVersion WRITTEN{StreamVersion::anyViewList};

template <class T>
struct Held {
    typedef Parameter<T> Type;

    static Type make(Settings const & settings) { return Type(settings.isAnimatable, "Held"); }

    static void checkValue(Type const & parameter, Context const & context) { parameter.value(context); }
};

template <class T>
struct Number {
    typedef NumericParameter<T> Type;

    static Type make(Settings const & settings) {
        Type parameter(settings.isAnimatable, "Number");
        parameter.setMaximum(static_cast<T>(100));
        parameter.setMinimum(static_cast<T>(0));
        return parameter;
    }

    static void checkValue(Type const & parameter, Context const & context) {
        T const value = parameter.value(context);
        Fuzz::require(value >= parameter.minimum() && value <= parameter.maximum(), "a value keeps to its limits");
    }
};

QByteArray textOf(ParameterWithoutType const & parameter) {
    QString text;
    QTextStream stream(&text);
    parameter.bStreamOut(stream, QString(), false);
    stream.flush();
    return text.toUtf8();
}

/// Offers all lines. A refused one must leave no trace.
void offer(ParameterWithoutType & parameter, QStringList const & lines, StreamVersion version) {
    QByteArray before = textOf(parameter);
    for (QString const & line : lines) {
        bool const taken = parameter.setFromScriptString(line, version);
        QByteArray const after = textOf(parameter);
        if (!taken)
            Fuzz::requireEqual(after, before, "a refused line changes nothing");
        before = after;
    }
}

/// Reads a written text into a fresh parameter and writes that.
template <class Kind>
QByteArray writtenAgain(QByteArray const & text, Settings const & settings) {
    auto parameter = Kind::make(settings);
    parameter.setSplittable(settings.isSplittable);
    for (QString const & line : QString::fromUtf8(text).split(u'\n', Qt::SkipEmptyParts))
        Fuzz::require(parameter.setFromScriptString(line, WRITTEN), "a written line is read", line.toUtf8());
    return textOf(parameter);
}

template <class Kind>
void checkCurves(typename Kind::Type const & parameter) {
    for (View const view : std::vector<View>(parameter.views())) {
        unsigned int const keys = parameter.numKeyframes(view);
        double last = -std::numeric_limits<double>::infinity();
        for (unsigned int key = 0; key < keys; ++key) {
            double const time = parameter.keyframeContext(key, view).time().toDouble();
            // A time that is no number has no place in any order.
            Fuzz::require(std::isnan(time) || std::isnan(last) || key == 0 || time > last, "keys ascend in time");
            for (double const asked : {time, time + 0.5, (last + time) / 2.0})
                Kind::checkValue(parameter, Context(Time(asked), view, ProxyScale::FULL));
            last = time;
        }
        Kind::checkValue(parameter, Context(Time(0.0), view, ProxyScale::FULL));
    }
}

template <class Kind>
void run(QStringList const & lines, Settings const & settings) {
    auto parameter = Kind::make(settings);
    parameter.setSplittable(settings.isSplittable);
    offer(parameter, lines, settings.version);
    checkCurves<Kind>(parameter);
    // The first writing rounds to six digits, by which keys may fall together; from then on nothing changes.
    QByteArray const rounded = writtenAgain<Kind>(textOf(parameter), settings);
    Fuzz::requireEqual(writtenAgain<Kind>(rounded, settings), rounded, "written, read and written is the same");
}

typedef void Run(QStringList const & lines, Settings const & settings);

constexpr Run * kinds[] = {
    run<Number<double>>, run<Number<float>>,     run<Number<int>>,          run<Number<unsigned int>>,
    run<Number<bool>>,   run<Held<double>>,      run<Held<QString>>,        run<Held<Tov::FSPercentEscapedString>>,
    run<Held<View>>,     run<Held<_TrackModel>>, run<Held<Gan_CameraType>>,
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    if (size < 3)
        return 0;
    unsigned int const kind = static_cast<unsigned int>(data[0]) - '0';
    unsigned int const flags = static_cast<unsigned int>(data[1]) - '0';
    if (kind >= std::size(kinds) || flags > 7)
        return 0;
    Settings settings;
    settings.isAnimatable = (flags & 1) != 0;
    settings.isSplittable = (flags & 2) != 0;
    settings.version = StreamVersion((flags & 4) != 0 ? StreamVersion::anyViewList - 1 : StreamVersion::anyViewList);
    QString const text = QString::fromUtf8(reinterpret_cast<char const *>(data) + 2, static_cast<qsizetype>(size) - 2);
    kinds[kind](text.split(u'\n', Qt::SkipEmptyParts), settings);
    return 0;
}
