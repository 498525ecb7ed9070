#include "parameter/VirtualParameter.h"
#include "parameter/kyn/ParameterSet.h"
#include "parameter/support/ScriptLines.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using namespace Kyn;
using Test::linesOf;
using Test::PRESENT;

/// Counts what a parameter sends.
class Signals {
public:
    explicit Signals(BasicParameter & parameter) {
        QObject::connect(&parameter, &BasicParameter::valueChanged, &receiver_, [this] { ++count_; });
    }
    int count() const { return count_; }

private:
    QObject receiver_;
    int count_ = 0;
};

/// A value that is not T().
template <class T>
T sample() {
    if constexpr (std::is_same_v<T, QString>)
        return QString("plate = \"hero\"");
    else
        return static_cast<T>(1);
}

template <class, class... Ts>
struct TypeList {
    typedef testing::Types<Ts...> Types;
};

#define FURTHER_TYPE(T) , T
typedef TypeList<void VX_FOR_EACH_STATIC_TYPE(FURTHER_TYPE)>::Types StaticTypes;
#undef FURTHER_TYPE

template <class T>
class StaticParameterOf : public testing::Test {};
TYPED_TEST_SUITE(StaticParameterOf, StaticTypes, );

TYPED_TEST(StaticParameterOf, written_line_brings_the_value_back) {
    TypeParam source = sample<TypeParam>();
    TypeParam target = TypeParam();
    VirtualParameter<TypeParam> const from("Key", &source);
    VirtualParameter<TypeParam> to("Key", &target);
    Signals const sent(to);
    QString const line = linesOf(from, QString(), true)[0];
    EXPECT_TRUE(to.setFromScriptString(line)) << line.toStdString();
    EXPECT_EQ(target, source) << line.toStdString();
    EXPECT_EQ(to.value(), source);
    EXPECT_EQ(sent.count(), 1);
}

TEST(StaticParameter, write_reaches_the_target_and_sends_nothing) {
    int target = 3;
    VirtualParameter<int> parameter("Key", &target);
    Signals const sent(parameter);
    parameter.setValue(4);
    EXPECT_EQ(target, 4);
    EXPECT_EQ(sent.count(), 0);
    target = 5;
    EXPECT_EQ(parameter.value(), 5);
}

TEST(StaticParameter, line_has_prefix_name_and_value) {
    unsigned int width = 7;
    VirtualParameter<unsigned int> const parameter("FrameWidth", &width);
    EXPECT_EQ(linesOf(parameter, "clip.", true), QStringList("clip.FrameWidth.value=7"));
    EXPECT_EQ(linesOf(parameter, "clip.", false), QStringList("clip.value=7"));
}

TEST(StaticParameter, line_that_names_the_member_and_its_value_is_taken_and_signalled) {
    for (auto const & [line, value] : {std::pair("X.value=7", 7u),
                                       {"X.value=  7", 7},
                                       {"X.VALUE=7", 7},
                                       {"X.Values=7", 7},
                                       {"X.value=abc", 0},
                                       {"X.value=", 0},
                                       {"X.value", 0},
                                       {"X.value=-1", 0xFFFFFFFFu},
                                       {"X.value=12 rest", 12}}) {
        unsigned int target = 5;
        VirtualParameter<unsigned int> parameter("X", &target);
        Signals const sent(parameter);
        EXPECT_TRUE(parameter.setFromScriptString(line)) << line;
        EXPECT_EQ(target, value) << line;
        EXPECT_EQ(sent.count(), 1) << line;
    }
}

TEST(StaticParameter, other_line_is_refused_and_changes_nothing) {
    unsigned int target = 5;
    VirtualParameter<unsigned int> parameter("X", &target);
    Signals const sent(parameter);
    for (char const * line : {"Y.value=7", "x.value=7", "XX.value=7", "X", "value=7", "X.before=Linear",
                              "X.view[1].value=7", "Xvalue=7", ""})
        EXPECT_FALSE(parameter.setFromScriptString(line)) << line;
    EXPECT_EQ(target, 5u);
    EXPECT_EQ(sent.count(), 0);
}

TEST(StaticParameter, set_routes_lines_by_name_and_writes_in_order_of_registration) {
    unsigned int width = 0;
    QString name;
    VirtualParameter<QString> nameParameter("Name", &name);
    VirtualParameter<unsigned int> widthParameter("Width", &width);
    ParameterSet set("Core", nullptr);
    set.addVirtualParameter(widthParameter);
    set.addVirtualParameter(nameParameter);
    EXPECT_TRUE(set.bStreamIn("Name.value=\"a.b\"", PRESENT));
    EXPECT_TRUE(set.bStreamIn("Width.value=1920", PRESENT));
    EXPECT_FALSE(set.bStreamIn("Width.hidden=1", PRESENT));
    EXPECT_FALSE(set.bStreamIn("Height.value=1080", PRESENT));
    EXPECT_EQ(linesOf(set, "Clip."), QStringList({"Clip.Core.Width.value=1920", "Clip.Core.Name.value=\"a.b\""}));
}

} // namespace
