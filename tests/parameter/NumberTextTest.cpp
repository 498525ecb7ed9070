#include "parameter/ValueText.h"

#include <QTextStream>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace {

using namespace Kyn::detail;

/// Numbers of all kinds: any bits, ordinary sizes, few digits, ties of six digits, whole numbers, powers.
class Numbers {
public:
    explicit Numbers(unsigned int seed) : random_(seed) {}

    double next() {
        switch (random_() % 8) {
        case 0: {
            std::uint64_t const bits = random_();
            double number = 0.0;
            std::memcpy(&number, &bits, sizeof number);
            return number;
        }
        case 1:
            return digits(1000) * std::pow(10.0, power(3));
        case 2: // Six digits and a half: ties, or as near to them as a double comes.
            return (digits(1000000) * 10 + 5) * std::pow(10.0, power(12));
        case 3: // Ties that a double holds exactly, in steps of 1/2, 1/4 and on.
            return std::ldexp(digits(2000001), -static_cast<int>(random_() % 8));
        case 4:
            return digits(4294967296.0);
        case 5:
            return std::nextafter(digits(1000000) * std::pow(10.0, power(6)), random_() % 2 ? 1e300 : -1e300);
        case 6:
            return std::pow(10.0, power(320)) * (random_() % 2 ? 1 : -1);
        default:
            return std::uniform_real_distribution<double>(-2000, 2000)(random_);
        }
    }

    /// A text that may be a number: a written one, or one with something done to it.
    QString nextText() {
        static constexpr char FORMS[] = {'g', 'e', 'f'};
        double const number = next();
        char const form = FORMS[random_() % (std::fabs(number) < 1e18 ? 3 : 2)];
        QString text = QString::number(number, form, static_cast<int>(random_() % 20));
        if (random_() % 8 == 0)
            spoil(text);
        return text;
    }

private:
    double digits(double limit) { return std::floor(std::uniform_real_distribution<double>(-limit, limit)(random_)); }
    int power(int limit) { return static_cast<int>(random_() % static_cast<unsigned int>(2 * limit + 1)) - limit; }

    void spoil(QString & text) {
        static QString const CHARACTERS("+-.eE0129 \t,xabnif\"");
        int const place = static_cast<int>(random_() % static_cast<unsigned int>(text.size() + 1));
        QChar const character = CHARACTERS[static_cast<int>(random_() % static_cast<unsigned int>(CHARACTERS.size()))];
        if (random_() % 3 == 0 && place < text.size())
            text.remove(place, 1);
        else
            text.insert(place, character);
    }

    std::mt19937_64 random_;
};

QString written(double number) {
    TextBuffer text;
    text.append(number);
    return text.toString();
}

template <class T>
QString streamed(T const & value) {
    QString text;
    QTextStream stream(&text, QIODevice::ReadWrite);
    stream << value;
    stream.flush();
    return text;
}

/// Equal to the bit; all that are no numbers count as equal.
template <class T>
bool same(T a, T b) {
    return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
}

constexpr int MANY = 1000000;

std::vector<double> awkwardNumbers() {
    typedef std::numeric_limits<double> Limits;
    std::vector<double> numbers{0.0,    999999.5, 9999995,  99999.95,      0.00009999995, 0.000099999949,
                                0.0001, 123456.5, 1234565,  0.5,           1e23,          1e5,
                                1e6,    100000.5, 16777217, Limits::max(), Limits::min()};
    numbers.insert(numbers.end(), {Limits::infinity(), Limits::quiet_NaN(), Limits::denorm_min()});
    for (std::size_t i = numbers.size(); i-- > 0;)
        numbers.push_back(-numbers[i]);
    return numbers;
}

TEST(NumberText, six_digits_are_those_that_qt_writes) {
    for (double const number : awkwardNumbers())
        EXPECT_EQ(written(number), QString::number(number, 'g', 6)) << number;
    Numbers numbers(1);
    for (int i = 0; i < MANY; ++i) {
        double const number = numbers.next();
        ASSERT_EQ(written(number), QString::number(number, 'g', 6)) << std::hexfloat << number;
    }
}

TEST(NumberText, a_stream_and_arg_write_the_same_six_digits) {
    Numbers numbers(2);
    for (int i = 0; i < MANY / 10; ++i) {
        double const number = numbers.next();
        ASSERT_EQ(written(number), streamed(number)) << std::hexfloat << number;
        ASSERT_EQ(written(number), QStringLiteral("%1").arg(number, 0, 'g', -1, QLatin1Char(' '))) << number;
    }
    for (double const number : awkwardNumbers())
        EXPECT_EQ(written(number), streamed(number)) << number;
}

/// One after each bar.
QStringList const AWKWARD_TEXTS =
    QString(
        "| |-|+|.|e|-0|0|+1|1.|.5|-.5|1e|1e+|1e5|1E5|1e400|-1e400|1e-400|077|0x1f|1,5|1.5.5|--1| 7|7 |\t7\n|1e39|-1e39|"
        "nan|-nan|inf|-inf|+inf|NaN|infinity|1_0|1'000|1e0005|00.5|5e-324|2e-324|4294967296|1e22|1e-7 x|1d5|"
        "1.7976931348623159e308|0.1e-999999999999|123456789012345678901234567890123456789012345678901234567890|"
        "true|FALSE|2147483647|2147483648|-2147483648|-2147483649|4294967295|99999999999999999999|-1|007|0b1|1 2|"
        "999999999|1000000000")
        .split('|');

TEST(NumberText, reads_what_qt_reads) {
    auto const check = [](QString const & text) {
        return same(wholeToDouble(text), text.toDouble()) && same(wholeToFloat(text), text.toFloat()) &&
               same(readReal(text), readThroughStream<double>(text)) &&
               same(readValue<float>(text), readThroughStream<float>(text));
    };
    for (QString const & text : AWKWARD_TEXTS)
        EXPECT_TRUE(check(text)) << '"' << text.toStdString() << '"';
    Numbers numbers(3);
    for (int i = 0; i < MANY; ++i) {
        QString const text = numbers.nextText();
        ASSERT_TRUE(check(text)) << '"' << text.toStdString() << '"';
    }
}

TEST(NumberText, integers_read_what_a_stream_reads) {
    auto const check = [](QString const & text) {
        return readValue<int>(text) == readThroughStream<int>(text) &&
               readValue<unsigned int>(text) == readThroughStream<unsigned int>(text) &&
               readValue<Kyn::View>(text).id() == readThroughStream<int>(text) &&
               readValue<bool>(text) == readThroughStream<bool>(text);
    };
    for (QString const & text : AWKWARD_TEXTS)
        EXPECT_TRUE(check(text)) << '"' << text.toStdString() << '"';
    Numbers numbers(4);
    for (int i = 0; i < MANY / 10; ++i) {
        QString const text = numbers.nextText();
        ASSERT_TRUE(check(text)) << '"' << text.toStdString() << '"';
    }
    EXPECT_EQ(readValue<unsigned int>(QString("4294967296")), 0u);
    EXPECT_EQ(readValue<int>(QString("077")), 63);
    EXPECT_EQ(readValue<double>(QString("1e400")), 0.0);
}

TEST(NumberText, bool_is_a_digit_and_is_read_from_words_and_numbers) {
    EXPECT_EQ(streamed(true), "1");
    EXPECT_EQ(streamed(false), "0");
    for (char const * yes : {"1", "true", "TRUE", " 1", "2", "-1", "0.5"})
        EXPECT_TRUE(readValue<bool>(QString(yes))) << yes;
    for (char const * no : {"0", "false", "False", "", "no", "0.0", "-0"})
        EXPECT_FALSE(readValue<bool>(QString(no))) << no;
    QString text("true 0 5");
    QTextStream stream(&text);
    bool values[3];
    for (bool & value : values)
        Kyn::operator>>(stream, value);
    EXPECT_TRUE(values[0] && !values[1] && values[2]);
}

TEST(NumberText, byte_is_a_decimal_number_of_which_the_low_eight_bits_are_read) {
    QString text;
    QTextStream stream(&text);
    Kyn::operator<<(stream, static_cast<unsigned char>(200)) << " 300";
    stream.flush();
    EXPECT_EQ(text, "200 300");
    unsigned char bytes[2];
    for (unsigned char & byte : bytes)
        Kyn::operator>>(stream, byte);
    EXPECT_EQ(bytes[0], 200);
    EXPECT_EQ(bytes[1], 44);
}

} // namespace
