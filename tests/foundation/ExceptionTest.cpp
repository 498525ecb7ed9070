#include "foundation/Exception.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <type_traits>

namespace {

using namespace std::string_literals;

typedef std::shared_ptr<VX_Exception> Made;

template <class Kind>
Made make(std::string const & context, int line, std::string debug, std::string user) {
    static_assert(std::is_base_of_v<std::exception, Kind> && sizeof(Kind) == sizeof(VX_Exception));
    return std::make_shared<Kind>(context, line, debug, user);
}

struct KindCase {
    char const * name;
    Made (*make)(std::string const &, int, std::string, std::string);
    char const * banner;
};

std::ostream & operator<<(std::ostream & stream, KindCase const & kind) {
    return stream << kind.name;
}

class ExceptionKinds : public testing::TestWithParam<KindCase> {};

KindCase const kinds[] = {
    {"Exception", &make<VX_Exception>, "===> VX_Exception\n"},
    {"AssertionFailed", &make<VX_AssertionFailed>, "===> Assertion Failed\n"},
    {"OperationFailed", &make<VX_OperationFailed>, "===> Operation Failed\n"},
    {"BadAlloc", &make<VX_BadAlloc>, "===> Memory allocation failed\n"},
    {"OutOfRange", &make<VX_OutOfRange>, "===> Index out of range\n"},
    {"BadSize", &make<VX_BadSize>, "===> Bad array(container) size \n"},
    {"BadState", &make<VX_BadState>, "===> Bad state \n"},
    {"BadArgument", &make<VX_BadArgument>, "===> Bad argument provided \n"},
    {"BadFile", &make<VX_BadFile>, "===> Bad file provided \n"},
    {"NotImplemented", &make<VX_NotImplemented>, "===> Not implemented (sorry)\n"},
    {"UnexpectedException", &make<VX_UnexpectedException>, "===> Exception specification violated. \n"},
    {"GandalfError", &make<VX_GandalfError>, "===> Gandalf library error.\n"},
    {"ExternalException", &make<VX_ExternalException>, "===> External exception thrown.\n"},
};

INSTANTIATE_TEST_SUITE_P(All, ExceptionKinds, testing::ValuesIn(kinds),
                         [](auto const & kind) { return std::string(kind.param.name); });

/// As many bytes of a report as are expected, the stream's own NUL among them.
std::string bytesOf(char const * report, std::string const & expected) {
    return std::string(report, expected.size());
}

TEST_P(ExceptionKinds, Report_ofEachKind_isBannerAndThreeLinesAndNul) {
    std::string const expected =
        GetParam().banner + "File:reader.cpp:42:\nContext: no header\nMessage: Cannot be read.\n\n\0"s;
    EXPECT_EQ(bytesOf(GetParam().make("reader.cpp", 42, "no header", "Cannot be read.")->Dump(), expected), expected);
}

TEST_P(ExceptionKinds, Kind_caughtAsStandardException_tellsTheUserMessage) {
    Made const exception = GetParam().make("file", 1, "debug", "user");
    EXPECT_STREQ(static_cast<std::exception const &>(*exception).what(), "user");
}

TEST(Exception, Report_ofOddTexts_printsThemAsTheyAre) {
    struct Case {
        std::string context;
        int line;
        std::string debug;
        std::string user;
        std::string report;
    } const cases[] = {
        {"", 0, "", "", "===> Bad state \nFile::0:\nContext: \nMessage: \n\n\0"s},
        {"a", -7, "", "", "===> Bad state \nFile:a:-7:\nContext: \nMessage: \n\n\0"s},
        {"a:b", 1000000, "one\ntwo", "\\n\t",
         "===> Bad state \nFile:a:b:1000000:\nContext: one\ntwo\nMessage: \\n\t\n\n\0"s},
        {"a", 1, "cut\0here"s, "b", "===> Bad state \nFile:a:1:\nContext: cut\0here\nMessage: b\n\n\0"s},
    };
    for (Case const & odd : cases) {
        VX_BadState exception(odd.context, odd.line, odd.debug, odd.user);
        EXPECT_EQ(bytesOf(exception.Dump(), odd.report), odd.report);
    }
}

TEST(Exception, Report_afterALongerOne_hasNoTraceOfIt) {
    VX_BadFile longer("a/long/name.cpp", 12345, std::string(500, 'x'), "A long story.");
    VX_OutOfRange shorter("b", 1, "c", "d");
    EXPECT_EQ(std::strlen(longer.Dump()), std::strlen("===> Bad file provided \nFile:a/long/name.cpp:12345:\n"
                                                      "Context: \nMessage: A long story.\n\n") +
                                              500);
    EXPECT_STREQ(shorter.Dump(), "===> Index out of range\nFile:b:1:\nContext: c\nMessage: d\n\n");
}

// The first argument is the context info of the accessor and the file of the report; the report's context is the debug
// message. Log readers rely on it.
TEST(Exception, Texts_byAccessor_crossOverWithThoseOfTheReport) {
    VX_Exception const exception("file.cpp", 3, "debug", "user");
    EXPECT_EQ(exception.strContextInfo(), "file.cpp");
    EXPECT_EQ(exception.strDebugMessage(), "debug");
    EXPECT_EQ(exception.strUserMessage(), "user");
    static_assert(std::is_same_v<decltype(exception.strUserMessage()), std::string const>);
}

TEST(Exception, Copy_ofADestroyedSource_hasTextsOfItsOwn) {
    auto source = std::make_unique<VX_BadArgument>("file.cpp", 9, "debug", "user");
    VX_BadArgument copy(*source);
    VX_BadArgument assigned("", 0, "", "");
    assigned = *source;
    EXPECT_NE(copy.what(), source->what());
    source.reset();
    for (VX_BadArgument * const held : {&copy, &assigned}) {
        EXPECT_STREQ(held->what(), "user");
        EXPECT_STREQ(held->Dump(), "===> Bad argument provided \nFile:file.cpp:9:\nContext: debug\nMessage: user\n\n");
    }
}

TEST(Exception, Kind_thrown_isCaughtByTheRootAndKeepsItsReport) {
    try {
        throw VX_GandalfError("camera.cpp", 5, "no inverse", "The lens makes no camera.");
    } catch (VX_Exception & exception) {
        EXPECT_EQ(std::strncmp(exception.Dump(), "===> Gandalf library error.\n", 28), 0);
    }
}

} // namespace
