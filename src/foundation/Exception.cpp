#include "foundation/Exception.h"

#include <locale>
#include <ostream>
#include <sstream>
#include <utility>

namespace {

struct ReportStream {
    std::ostringstream stream;
    std::string text; ///< What the last Dump() gave out.
};

/// In the plain locale, whatever the application's is: no thousands separators in a line number.
ReportStream & reportStream() {
    static ReportStream report = [] {
        ReportStream fresh;
        fresh.stream.imbue(std::locale::classic());
        return fresh;
    }();
    return report;
}

// Made when the library loads, or before, where another static object reports first.
[[maybe_unused]] ReportStream & madeAtLoading = reportStream();

} // namespace

VX_Exception::VX_Exception(std::string const & strContextInfo, int iLine, std::string strDebugMessage,
                           std::string strUserMessage)
    : strContextInfo_(strContextInfo),
      iLine_(iLine),
      strDebugMessage_(std::move(strDebugMessage)),
      strUserMessage_(std::move(strUserMessage)) {}

VX_Exception::~VX_Exception() = default;

char const * VX_Exception::what() const noexcept {
    return strUserMessage_.c_str();
}

char const * VX_Exception::report(char const * banner) const {
    auto & [stream, text] = reportStream();
    stream.clear();
    stream.str(std::string());
    stream << banner << "File:" << strContextInfo_ << ":" << iLine_ << ":\n"
           << "Context: " << strDebugMessage_ << "\n"
           << "Message: " << strUserMessage_ << "\n\n"
           << std::ends;
    text = stream.str();
    return text.c_str();
}

// The blanks before some line breaks belong to the banners.

char const * VX_Exception::Dump() {
    return report("===> VX_Exception\n");
}

char const * VX_AssertionFailed::Dump() {
    return report("===> Assertion Failed\n");
}

char const * VX_OperationFailed::Dump() {
    return report("===> Operation Failed\n");
}

char const * VX_BadAlloc::Dump() {
    return report("===> Memory allocation failed\n");
}

char const * VX_OutOfRange::Dump() {
    return report("===> Index out of range\n");
}

char const * VX_BadSize::Dump() {
    return report("===> Bad array(container) size \n");
}

char const * VX_BadState::Dump() {
    return report("===> Bad state \n");
}

char const * VX_BadArgument::Dump() {
    return report("===> Bad argument provided \n");
}

char const * VX_BadFile::Dump() {
    return report("===> Bad file provided \n");
}

char const * VX_NotImplemented::Dump() {
    return report("===> Not implemented (sorry)\n");
}

char const * VX_UnexpectedException::Dump() {
    return report("===> Exception specification violated. \n");
}

char const * VX_GandalfError::Dump() {
    return report("===> Gandalf library error.\n");
}

char const * VX_ExternalException::Dump() {
    return report("===> External exception thrown.\n");
}
