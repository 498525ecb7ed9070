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

TEST(Hash, copy_goes_on_from_where_it_was_taken_and_alone) {
    Hash first = hashOf(std::vector<unsigned char>(1000, 7));
    Hash copied(first);
    Hash assigned = hashOf({1});
    assigned = first;
    EXPECT_EQ(copied, first);
    EXPECT_EQ(assigned, first);
    copied.update("y", 1);
    EXPECT_NE(copied, first);
    assigned.update("y", 1);
    EXPECT_EQ(copied, assigned);
    first = static_cast<Hash const &>(first);
    first.update("y", 1);
    EXPECT_EQ(copied, first);
    EXPECT_NE(hashOf({1, 2}), hashOf({2, 1}));
    Hash nothing;
    nothing.update(nullptr, 0);
    EXPECT_EQ(nothing, Hash());
}

TEST(FSPercentEscapedString, escaped_text_is_stored_as_it_stands) {
    for (QString const text : {"shot_%41.%04d", "100%", "a\"b", "%zz", ""})
        EXPECT_EQ(FSPercentEscapedString(text, FSPercentEscapedString::ALREADY_ESCAPED).text(), text);
    EXPECT_EQ(FSPercentEscapedString().text(), QString());
}

TEST(FSPercentEscapedString, what_would_break_a_line_or_its_quotes_is_escaped) {
    FSPercentEscapedString const name("a%b\"c\nd\re\tf\x7F", FSPercentEscapedString::ESCAPE);
    EXPECT_EQ(name.text(), QString("a%25b%22c%0Ad%0De%09f%7F"));
    QString const ordinary = QString::fromUtf8("/shots/s 010/plate_片段.[v1]");
    EXPECT_EQ(FSPercentEscapedString(ordinary, FSPercentEscapedString::ESCAPE).text(), ordinary);
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
    for (auto const & [text, name] :
         {std::pair("100%", "100%"), {"%4", "%4"}, {"%4g%g4", "%4g%g4"}, {"%2f%2F", "//"}, {"%2541", "%41"}}) {
        FSPercentEscapedString const escaped(text, FSPercentEscapedString::ALREADY_ESCAPED);
        EXPECT_EQ(escaped.unescaped(), QString(name));
    }
}

TEST(FSPercentEscapedString, equality_is_of_the_stored_text) {
    FSPercentEscapedString const plain("a", FSPercentEscapedString::ALREADY_ESCAPED);
    EXPECT_NE(plain, FSPercentEscapedString("%61", FSPercentEscapedString::ALREADY_ESCAPED));
    EXPECT_EQ(plain, FSPercentEscapedString("a", FSPercentEscapedString::ESCAPE));
}

} // namespace
