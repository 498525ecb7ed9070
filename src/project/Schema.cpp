#include "project/Schema.h"

#include "camera/ParameterisedFrameWarp.h"
#include "parameter/Parameter.h"
#include "parameter/VirtualParameter.h"
#include "parameter/kyn/NumericParameterWithoutType.h"
#include "project/Item.h"
#include "project/NumberText.h"
#include "project/Project.h"

#include <QTextStream>

#include <cstdlib>
#include <cxxabi.h>
#include <set>
#include <typeindex>

namespace vxproject {

namespace {

QString nameOf(std::type_info const & type) {
    int status = 0;
    std::unique_ptr<char, decltype(&std::free)> const name(abi::__cxa_demangle(type.name(), nullptr, nullptr, &status),
                                                           &std::free);
    return QString::fromUtf8(status == 0 ? name.get() : type.name());
}

template <class T>
QString textOf(T const & value) {
    if constexpr (std::is_same_v<T, QString>)
        return value;
    else if constexpr (std::is_same_v<T, Tov::FSPercentEscapedString>)
        return value.text();
    else if constexpr (std::is_floating_point_v<T>)
        return shortestText(value);
    else {
        QString text;
        QTextStream stream(&text);
        stream << value;
        stream.flush();
        return text;
    }
}

/// The type and the default of a parameter of T; false for one that is none.
template <class T>
bool describe(Kyn::BasicParameter const & member, char const * type, SchemaRow & row) {
    auto const * const parameter = dynamic_cast<Kyn::Parameter<T> const *>(&member);
    if (!parameter)
        return false;
    row.type = QString::fromUtf8(type);
    row.defaultValue = textOf(parameter->defaultValue());
    return true;
}

template <class T>
bool describeField(Kyn::BasicParameter const & member, char const * type, SchemaRow & row) {
    auto const * const field = dynamic_cast<Kyn::StaticParameter<T> const *>(&member);
    if (!field)
        return false;
    row.type = QString::fromUtf8(type);
    row.defaultValue = textOf(field->value());
    return true;
}

void describeTyped(Kyn::ParameterWithoutType const & parameter, SchemaRow & row) {
    row.display = parameter.displayName();
    row.isAnimatable = parameter.isAnimatable();
    row.isSplittable = parameter.isSplittable();
    row.isHidden = parameter.isHidden();
    row.interpolation = Kyn::qstrInterpolationTypeString(parameter.interpolation(Kyn::Context()));
    row.extrapolation = Kyn::qstrExtrapolationTypeString(parameter.extrapolationAfter());
    auto const * const numeric = dynamic_cast<Kyn::NumericParameterWithoutType const *>(&parameter);
    if (!numeric)
        return;
    bool const isSingle = parameter.valueTypeInfo() == typeid(float);
    auto const limit = [&](double value) {
        return isSingle ? shortestText(static_cast<float>(value)) : shortestText(value);
    };
    row.minimum = limit(numeric->dMinimum());
    row.maximum = limit(numeric->dMaximum());
}

SchemaRow rowOf(QString const & set, Kyn::BasicParameter const & member) {
    SchemaRow row;
    row.set = set;
    row.name = member.scriptName();
#define VX_TRY(T) describe<T>(member, #T, row) ||
#define VX_TRY_FIELD(T) describeField<T>(member, #T, row) ||
    static_cast<void>(VX_FOR_EACH_PARAMETER_TYPE(VX_TRY) VX_FOR_EACH_STATIC_TYPE(VX_TRY_FIELD) false);
#undef VX_TRY_FIELD
#undef VX_TRY
    if (auto const * const parameter = dynamic_cast<Kyn::ParameterWithoutType const *>(&member))
        describeTyped(*parameter, row);
    return row;
}

/// The sets below a set, each class once.
class Collector {
public:
    void collect(Kyn::ParameterSet const & set) {
        set.forEachSet([this](Kyn::ParameterSet * nested, QString const &) {
            add(*nested);
            collect(*nested);
        });
    }
    void add(Kyn::ParameterSet const & set) {
        std::type_info const & type = typeid(set);
        if (!seen_.insert(std::type_index(type)).second)
            return;
        QString const name = nameOf(type);
        set.forEachMember([&](Kyn::BasicParameter * member) { rows.push_back(rowOf(name, *member)); }, false);
    }

    std::vector<SchemaRow> rows;

private:
    std::set<std::type_index> seen_;
};

} // namespace

QStringList schemaColumns() {
    QStringList columns;
    for (char const * column : {"set", "name", "display", "type", "default", "minimum", "maximum", "animatable",
                                "splittable", "hidden", "interpolation", "extrapolation"})
        columns.append(QString::fromLatin1(column));
    return columns;
}

std::vector<SchemaRow> schema() {
    Collector collector;
    Project project;
    for (ItemKind const * kind : itemKinds())
        collector.collect(project.item({kind, 0}));
    VX::ParameterisedFrameWarp const warp; // In no project file.
    collector.add(warp);
    collector.collect(warp);
    return collector.rows;
}

} // namespace vxproject
