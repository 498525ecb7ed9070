#include "parameter/VirtualParameter.h"
#include "parameter/kyn/ParameterSet.h"

#include <QTextStream>

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

namespace {

using Kyn::ParameterSet;
using Kyn::StreamVersion;
using Kyn::VirtualParameter;

StreamVersion const version(StreamVersion::anyViewList);

template <class T>
QString written(Kyn::StaticParameter<T> const & parameter, QString const & prefix, bool bUseName) {
    QString text;
    QTextStream stream(&text);
    EXPECT_TRUE(parameter.bStreamOut(stream, prefix, bUseName));
    stream.flush();
    return text;
}

/// Counts what a parameter sends.
class Signals {
public:
    explicit Signals(Kyn::BasicParameter & parameter) {
        QObject::connect(&parameter, &Kyn::BasicParameter::valueChanged, &receiver_, [this] { ++count_; });
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
    QString const line = written(from, QString(), true).chopped(1);
    EXPECT_TRUE(to.setFromScriptString(line)) << line.toStdString();
    EXPECT_EQ(target, source) << line.toStdString();
    EXPECT_EQ(to.value(), source);
    EXPECT_EQ(sent.count(), 1);
}

TYPED_TEST(StaticParameterOf, write_reaches_the_target_and_sends_nothing) {
    TypeParam target = TypeParam();
    VirtualParameter<TypeParam> parameter("Key", &target);
    Signals const sent(parameter);
    parameter.setValue(sample<TypeParam>());
    EXPECT_EQ(target, sample<TypeParam>());
    EXPECT_EQ(sent.count(), 0);
    target = TypeParam();
    EXPECT_EQ(parameter.value(), TypeParam());
}

TEST(StaticParameter, line_has_prefix_name_and_value) {
    unsigned int width = 7;
    VirtualParameter<unsigned int> const parameter("FrameWidth", &width);
    EXPECT_EQ(written(parameter, "clip.", true), QString("clip.FrameWidth.value=7\n"));
    EXPECT_EQ(written(parameter, "clip.", false), QString("clip.value=7\n"));
}

TEST(StaticParameter, text_stands_in_quotes_and_nothing_in_it_is_escaped) {
    QString text = QString::fromUtf8("变 \"形\"\\n");
    VirtualParameter<QString> const parameter(QString::fromUtf8("变形"), &text);
    EXPECT_EQ(written(parameter, QString(), true), QString::fromUtf8("变形.value=\"变 \"形\"\\n\"\n"));
}

TEST(StaticParameter, byte_and_bool_are_written_as_numbers) {
    unsigned char byte = 65;
    bool flag = true;
    EXPECT_EQ(written(VirtualParameter<unsigned char>("B", &byte), QString(), false), QString("value=65\n"));
    EXPECT_EQ(written(VirtualParameter<bool>("F", &flag), QString(), false), QString("value=1\n"));
}

TEST(StaticParameter, real_numbers_follow_the_format_of_the_stream) {
    float farthest = std::numeric_limits<float>::max();
    VirtualParameter<float> const parameter("ViewZoom", &farthest);
    EXPECT_EQ(written(parameter, QString(), true), QString("ViewZoom.value=3.40282e+38\n"));

    QString text;
    QTextStream stream(&text);
    stream.setRealNumberPrecision(9);
    parameter.bStreamOut(stream, QString(), true);
    stream.flush();
    float back = 0;
    VirtualParameter<float>("ViewZoom", &back).setFromScriptString(text.trimmed());
    EXPECT_EQ(back, farthest);
}

struct Line {
    char const * name;
    char const * text;
    bool taken;
    unsigned int value; ///< of a target that held 5
};

class StaticParameterLine : public testing::TestWithParam<Line> {};

TEST_P(StaticParameterLine, is_taken_and_signalled_or_changes_nothing) {
    unsigned int target = 5;
    VirtualParameter<unsigned int> parameter("X", &target);
    Signals const sent(parameter);
    EXPECT_EQ(parameter.setFromScriptString(GetParam().text), GetParam().taken);
    EXPECT_EQ(target, GetParam().value);
    EXPECT_EQ(sent.count(), GetParam().taken ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(
    , StaticParameterLine,
    testing::Values(Line{"plain", "X.value=7", true, 7}, //
                    Line{"blanks_before_the_number", "X.value=  7", true, 7},
                    Line{"key_in_any_case", "X.VALUE=7", true, 7},
                    Line{"key_that_only_begins_so", "X.Values=7", true, 7}, Line{"no_number", "X.value=abc", true, 0},
                    Line{"no_text", "X.value=", true, 0}, //
                    Line{"no_equals_sign", "X.value", true, 0}, Line{"negative_wraps", "X.value=-1", true, 0xFFFFFFFFu},
                    Line{"number_that_something_follows", "X.value=12 rest", true, 12},
                    Line{"another_name", "Y.value=7", false, 5}, Line{"name_in_another_case", "x.value=7", false, 5},
                    Line{"longer_name", "XX.value=7", false, 5}, Line{"name_alone", "X", false, 5},
                    Line{"no_name", "value=7", false, 5}, Line{"another_key", "X.before=Linear", false, 5},
                    Line{"view_before_the_key", "X.view[1].value=7", false, 5}, Line{"empty", "", false, 5}),
    [](auto const & test) { return std::string(test.param.name); });

TEST(StaticParameter, text_keeps_all_behind_the_first_equals_sign_but_the_outer_quotes) {
    QString target;
    VirtualParameter<QString> parameter("X", &target);
    for (auto const & [line, value] :
         {std::pair{"X.value=\"a=b=\"", "a=b="}, std::pair{"X.value=bare", "bare"}, std::pair{"X.value=\"\"", ""},
          std::pair{"X.value=\"\"a\"\"", "\"a\""}, std::pair{"X.value=\"open", "\"open"}}) {
        EXPECT_TRUE(parameter.setFromScriptString(line));
        EXPECT_EQ(target, QString(value)) << line;
    }
}

TEST(StaticParameter, byte_takes_the_low_eight_bits_and_bool_takes_words) {
    unsigned char byte = 0;
    VirtualParameter<unsigned char>("X", &byte).setFromScriptString("X.value=300");
    EXPECT_EQ(byte, 44);
    bool flag = false;
    VirtualParameter<bool> parameter("X", &flag);
    parameter.setFromScriptString("X.value=True");
    EXPECT_TRUE(flag);
    parameter.setFromScriptString("X.value=FALSE");
    EXPECT_FALSE(flag);
}

TEST(StaticParameter, enumeration_is_not_checked_against_its_limit) {
    auto scale = Kyn::ProxyScale::FULL;
    VirtualParameter<Kyn::ProxyScale::Enum>("X", &scale).setFromScriptString("X.value=99");
    EXPECT_EQ(static_cast<int>(scale), 99);
    auto type = GAN_TYPE_NONE;
    VirtualParameter<Gan_Type>("X", &type).setFromScriptString("X.value=4294967295");
    EXPECT_EQ(static_cast<unsigned int>(type), 0xFFFFFFFFu);
}

TEST(StaticParameter, set_routes_lines_by_name_and_writes_in_order_of_registration) {
    unsigned int width = 0;
    QString name;
    VirtualParameter<QString> nameParameter("Name", &name);
    VirtualParameter<unsigned int> widthParameter("Width", &width);
    ParameterSet set("Core", nullptr);
    set.addVirtualParameter(widthParameter);
    set.addVirtualParameter(nameParameter);
    EXPECT_TRUE(set.bStreamIn("Name.value=\"a.b\"", version));
    EXPECT_TRUE(set.bStreamIn("Width.value=1920", version));
    EXPECT_FALSE(set.bStreamIn("Width.hidden=1", version));
    EXPECT_FALSE(set.bStreamIn("Height.value=1080", version));
    QString text;
    QTextStream stream(&text);
    set.bStreamOut(stream, "Clip.", true);
    EXPECT_EQ(text, QString("Clip.Core.Width.value=1920\nClip.Core.Name.value=\"a.b\"\n"));
}

} // namespace
