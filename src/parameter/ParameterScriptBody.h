#pragma once

// Part of ParameterBody.h: the script text of a parameter.

#include "parameter/ScriptLine.h"
#include "parameter/ValueText.h"
#include "parameter/kyn/ScopedSignalPermit.h"

#include <QString>
#include <QTextStream>

#include <stdexcept>

namespace Kyn {

// Writing

template <class T>
bool Parameter<T>::bStreamOut(QTextStream & stream, QString const & prefix, bool bUseName) const {
    QString const & name = this->scriptName();
    QString const opening = bUseName && !name.isEmpty() ? prefix + name + QLatin1Char('.') : prefix;
    std::vector<View> const views = store_.views();
    bool const keyed = bAnimatable_ && !store_.read(views.front()).keys.isEmpty();
    if (views.size() == 1 && views.front() == View(0) && !keyed) {
        writeView(stream, opening, views.front(), false);
    } else {
        stream << opening << "views=[";
        for (View const view : views)
            stream << QString::number(view.id()) << (view == views.back() ? "" : ", ");
        stream << ']' << Qt::endl;
        for (View const view : views)
            writeView(stream, opening, view, true);
    }
    if (this->isHidden())
        stream << opening << "hidden=1" << Qt::endl;
    if (bAnimatable_) {
        stream << opening << "before=" << qstrExtrapolationTypeString(eExtrapolationBefore_) << Qt::endl;
        stream << opening << "after=" << qstrExtrapolationTypeString(eExtrapolationAfter_) << Qt::endl;
    }
    if (this->isConstrained())
        stream << opening << "MasterParameterId=" << this->masterParameter()->extendedName() << Qt::endl;
    return true;
}

namespace detail {

/// The line of one key. Numbers have six digits, times too: 1234567 is written 1.23457e+06.
template <class T>
void appendKeyLine(TextBuffer & line, View view, Time time, T const & value, InterpolationData const & data) {
    if (view != View(View::defaultViewId()))
        line.append(QStringView(view.toString()));
    bool const bezier = data.eType == INTERPOLATION_BEZIER;
    line.append("keyframes.append( ");
    if (bezier)
        line.append("BezierKey( ");
    else
        line.append("Key( ");
    line.append(time.toDouble());
    line.append(", ");
    appendValue(line, value);
    line.append(", ");
    if (bezier) {
        line.append(data.dOutTime);
        line.append(", ");
        line.append(data.dOutValue);
        line.append(", ");
        line.append(data.dInTime);
        line.append(", ");
        line.append(data.dInValue);
    } else {
        line.append(QStringView(qstrInterpolationTypeString(data.eType)));
    }
    line.append(" ) )");
}

} // namespace detail

template <class T>
void Parameter<T>::writeView(QTextStream & stream, QString const & prefix, View view, bool bMulti) const {
    ViewData<T> const & data = store_.read(view);
    if (!bAnimatable_ || data.keys.isEmpty()) {
        // The static value of a view with keys is not written.
        stream << prefix;
        if (bMulti || view != View(View::defaultViewId()))
            stream << view.toString();
        stream << "value=";
        detail::writeValue(stream, data.value);
        stream << Qt::endl;
        return;
    }
    for (int i = 0; i < data.keys.size(); ++i) {
        detail::TextBuffer line;
        detail::appendKeyLine(line, view, data.keys[i].time, data.keys[i].value, data.interpolation[i]);
        stream << prefix << line.view() << Qt::endl;
    }
}

// Reading

/// While one lives the parameter is loading and its signals are blocked; every way out restores both.
template <class T>
class Parameter<T>::ReadingScope {
public:
    explicit ReadingScope(Parameter & parameter)
        : parameter_(parameter),
          wasLoading_(parameter.bLoading_),
          wasBlocked_(parameter.blockSignals(true)),
          permit_(parameter, ParameterChange::ScriptRead) {
        parameter.bLoading_ = true;
    }
    ~ReadingScope() {
        parameter_.blockSignals(wasBlocked_);
        parameter_.bLoading_ = wasLoading_;
    }
    ReadingScope(ReadingScope const &) = delete;
    ReadingScope & operator=(ReadingScope const &) = delete;

private:
    Parameter & parameter_;
    bool wasLoading_;
    bool wasBlocked_;
    ScopedSignalPermit permit_;
};

template <class T>
bool Parameter<T>::setFromScriptString(QString const & line, StreamVersion const & version, SourceFilter filter) {
    ReadingScope const scope(*this);
    if (filter.empty() && readPlainKeyLine(line))
        return true;
    if (line.startsWith(QLatin1String("views"), Qt::CaseSensitive)) {
        // The ids are not read: each view comes back from its own lines.
        if (version >= StreamVersion::anyViewList)
            clearViews();
        return true;
    }
    QStringView text(line);
    View const given = View::extractStringPrefix(text);
    View const view = given.isValid() ? given : View(View::defaultViewId());
    switch (detail::kindOfLine(text)) {
    case detail::LineKind::Keyframe:
        return readKeyLine(text, view, filter);
    case detail::LineKind::Value: {
        QString value = detail::valueField(text).toString();
        if (!filter.empty())
            value = filter(value);
        if (!given.isValid() && version >= StreamVersion::anyViewList)
            clearViews();
        write(view).value = detail::readValue<T>(value);
        return true;
    }
    case detail::LineKind::Hidden:
        this->hide(detail::secondField(text).toInt() != 0);
        return true;
    case detail::LineKind::Before:
        bStringToExtrapolationType(detail::secondField(text), eExtrapolationBefore_);
        return true;
    case detail::LineKind::After:
        bStringToExtrapolationType(detail::secondField(text), eExtrapolationAfter_);
        return true;
    case detail::LineKind::Master:
        this->setPendingMasterName(detail::secondField(text).toString());
        return true;
    case detail::LineKind::Unknown:
        return false;
    }
    return false;
}

/// A key line of real numbers in exactly the form in which they are written, which is nearly every line of a project.
/// False, and nothing done, for any other, which the long way then reads.
template <class T>
bool Parameter<T>::readPlainKeyLine(QStringView line) {
    if constexpr (std::is_floating_point_v<T>) {
        detail::PlainKeyLine key;
        if (!detail::scanPlainKeyLine(line, key))
            return false;
        Time const time(static_cast<double>(static_cast<float>(key.time)));
        pasteRead(View(View::defaultViewId()), {time, static_cast<T>(key.value)}, key.data);
        return true;
    } else {
        Q_UNUSED(line)
        return false;
    }
}

template <class T>
bool Parameter<T>::readKeyLine(QStringView line, View view, SourceFilter const & filter) {
    TypedSerialisedKeyframe keyframe(view, filter);
    try {
        keyframe.readLine(line);
    } catch (std::exception const &) {
        return false;
    }
    pasteRead(keyframe.context_.view(), {keyframe.context_.time(), keyframe.value_}, keyframe.data_);
    return true;
}

// Keyframes as text

template <class T>
Parameter<T>::TypedSerialisedKeyframe::TypedSerialisedKeyframe(View const & view, SourceFilter const & filter)
    : context_(Time(0.0), view, ProxyScale::NONE), data_(withoutHandles(INTERPOLATION_CONSTANT)), filter_(filter) {}

template <class T>
Parameter<T>::TypedSerialisedKeyframe::TypedSerialisedKeyframe(Kyn::Context const & context, T const & value,
                                                               InterpolationData const & data)
    : context_(context), value_(value), data_(data) {}

template <class T>
void Parameter<T>::TypedSerialisedKeyframe::vShiftTime(float delta) {
    double const shifted = static_cast<double>(delta) + context_.time().toDouble();
    context_ = Kyn::Context(Time(shifted), context_.view(), ProxyScale::NONE);
}

template <class T>
QString Parameter<T>::TypedSerialisedKeyframe::toString() const {
    detail::TextBuffer line;
    detail::appendKeyLine(line, context_.view(), context_.time(), value_, data_);
    return line.toString();
}

template <class T>
void Parameter<T>::TypedSerialisedKeyframe::fromString(QString const & line) {
    readLine(line);
}

template <class T>
void Parameter<T>::TypedSerialisedKeyframe::readLine(QStringView line) {
    View view = View::extractStringPrefix(line);
    if (!view.isValid())
        view = context_.view().isValid() ? context_.view() : View(View::defaultViewId());
    if (!line.startsWith(QLatin1String("keyframes"), Qt::CaseInsensitive))
        detail::refuseKeyframe("Cannot parse keyframe string '%1'", line);
    bool const bezier = line.contains(QLatin1String("BezierKey"), Qt::CaseSensitive);
    detail::KeyframeDeclaration const found = detail::splitKeyframeDeclaration(line, bezier);
    if (found.count < 3)
        detail::refuseKeyframe("Failed to parse Key() block: '%1'", line);
    if (bezier && found.count < 6)
        detail::refuseKeyframe("Failed to parse BezierKey() block: '%1'", line);
    T const value = filter_.empty() ? detail::readValue<T>(found.fields[1])
                                    : detail::readValue<T>(QStringView(filter_(found.fields[1].toString())));
    // Times pass through single precision: 16777217 comes back as 16777216.
    float const time = detail::wholeToFloat(found.fields[0]);
    if (bezier) {
        QString const last = found.fields[5].toString().remove(QLatin1Char(')'));
        data_ = {INTERPOLATION_BEZIER, detail::wholeToDouble(found.fields[2]), detail::wholeToDouble(found.fields[3]),
                 detail::wholeToDouble(found.fields[4]), detail::wholeToDouble(last)};
    } else {
        bStringToInterpolationType(found.fields[2], data_.eType); // An unknown word leaves the type.
    }
    value_ = value;
    context_ = Kyn::Context(Time(static_cast<double>(time)), view, ProxyScale::NONE);
}

template <class T>
boost::shared_ptr<SerialisedKeyframe> Parameter<T>::serialisedKeyframe(Context const & context) const {
    if (context == Context())
        return boost::make_shared<TypedSerialisedKeyframe>(context, T(), withoutHandles(INTERPOLATION_CONSTANT));
    ViewData<T> const & data = store_.read(context.view());
    int const index = hidesView(context.view()) ? -1 : detail::keyAt(data, context.time());
    if (index < 0)
        return boost::shared_ptr<SerialisedKeyframe>();
    return boost::make_shared<TypedSerialisedKeyframe>(Context(data.keys[index].time, context.view(), ProxyScale::NONE),
                                                       data.keys[index].value, data.interpolation[index]);
}

template <class T>
void Parameter<T>::addSerialisedKeyframe(SerialisedKeyframe & keyframe) {
    TypedSerialisedKeyframe const & typed = dynamic_cast<TypedSerialisedKeyframe const &>(keyframe);
    unsigned int const index = setValue(typed.value_, typed.context_);
    setInterpolation(typed.data_.eType, typed.context_);
    setInterpolationData(typed.data_, index, typed.context_.view());
}

} // namespace Kyn
