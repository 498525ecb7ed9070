#include "parameter/tov/FSPercentEscapedString.h"
#include "parameter/tov/Hash.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace {

using Tov::FSPercentEscapedString;
using Tov::Hash;

Hash hashOf(std::vector<unsigned char> const & bytes) {
    Hash hash;
    hash.update(bytes.data(), bytes.size());
    return hash;
}

TEST(Hash, cut_of_the_updates_does_not_show) {
    std::vector<unsigned char> bytes(3000);
    std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(0));
    Hash pieces;
    for (std::size_t begin = 0, size = 0; begin < bytes.size(); begin += size) {
        size = std::min<std::size_t>(begin % 397 + 1, bytes.size() - begin);
        pieces.update(bytes.data() + begin, size);
    }
    EXPECT_EQ(pieces, hashOf(bytes));
}

TEST(Hash, order_length_and_each_bit_show) {
    std::vector<unsigned char> const bytes(300, 0);
    Hash const hash = hashOf(bytes);
    EXPECT_NE(hash, hashOf(std::vector<unsigned char>(299, 0)));
    for (std::size_t bit = 0; bit < 8 * bytes.size(); ++bit) {
        std::vector<unsigned char> changed = bytes;
        changed[bit / 8] ^= static_cast<unsigned char>(1u << bit % 8);
        ASSERT_NE(hash, hashOf(changed)) << bit;
    }
    EXPECT_NE(hashOf({1, 2}), hashOf({2, 1}));
}

TEST(Hash, fresh_hash_equals_one_that_was_fed_nothing) {
    Hash nothing;
    nothing.update(nullptr, 0);
    EXPECT_EQ(nothing, Hash());
    EXPECT_NE(hashOf({0}), Hash());
}

TEST(Hash, copy_goes_on_from_where_it_was_taken_and_alone) {
    Hash first = hashOf(std::vector<unsigned char>(1000, 7));
    Hash copied(first);
    Hash assigned;
    assigned.update("x", 1);
    assigned = first;
    EXPECT_EQ(copied, first);
    EXPECT_EQ(assigned, first);
    copied.update("y", 1);
    EXPECT_NE(copied, first);
    assigned.update("y", 1);
    EXPECT_EQ(copied, assigned);
    first.update("y", 1);
    EXPECT_EQ(copied, first);
}

TEST(Hash, assignment_to_itself_keeps_the_state) {
    Hash hash = hashOf({1, 2, 3});
    Hash const & same = hash;
    hash = same;
    EXPECT_EQ(hash, hashOf({1, 2, 3}));
}

TEST(FSPercentEscapedString, escaped_text_is_stored_as_it_stands) {
    for (QString const text : {"shot_%41.%04d", "100%", "a\"b", "%zz", ""})
        EXPECT_EQ(FSPercentEscapedString(text, FSPercentEscapedString::ALREADY_ESCAPED).text(), text);
    EXPECT_EQ(FSPercentEscapedString().text(), QString());
}

TEST(FSPercentEscapedString, what_would_break_a_line_or_its_quotes_is_escaped) {
    FSPercentEscapedString const name("a%b\"c\nd\re\tf\x7F", FSPercentEscapedString::ESCAPE);
    EXPECT_EQ(name.text(), QString("a%25b%22c%0Ad%0De%09f%7F"));
}

TEST(FSPercentEscapedString, ordinary_names_stand_for_themselves) {
    QString const name = QString::fromUtf8("/shots/s 010/plate_片段.[v1]");
    EXPECT_EQ(FSPercentEscapedString(name, FSPercentEscapedString::ESCAPE).text(), name);
}

TEST(FSPercentEscapedString, escaping_any_name_and_unescaping_gives_it_back) {
    for (int code = 0; code < 0x300; ++code) {
        QString const character{QChar(code)};
        for (QString const & name : {character, "%" + character, character + "41", "%4" + character}) {
            FSPercentEscapedString const escaped(name, FSPercentEscapedString::ESCAPE);
            EXPECT_EQ(escaped.unescaped(), name) << code;
            EXPECT_FALSE(escaped.text().contains('"') || escaped.text().contains('\n')) << code;
        }
    }
}

TEST(FSPercentEscapedString, percent_sign_without_two_digits_stands_for_itself) {
    auto const unescaped = [](QString const & text) {
        return FSPercentEscapedString(text, FSPercentEscapedString::ALREADY_ESCAPED).unescaped();
    };
    EXPECT_EQ(unescaped("100%"), QString("100%"));
    EXPECT_EQ(unescaped("%4"), QString("%4"));
    EXPECT_EQ(unescaped("%4g%g4"), QString("%4g%g4"));
    EXPECT_EQ(unescaped("%2f%2F"), QString("//"));
    EXPECT_EQ(unescaped("%2541"), QString("%41"));
}

TEST(FSPercentEscapedString, equality_is_of_the_stored_text) {
    FSPercentEscapedString const plain("a", FSPercentEscapedString::ALREADY_ESCAPED);
    FSPercentEscapedString const escaped("%61", FSPercentEscapedString::ALREADY_ESCAPED);
    EXPECT_NE(plain, escaped);
    FSPercentEscapedString copy;
    copy = plain;
    EXPECT_EQ(copy, plain);
}

} // namespace
