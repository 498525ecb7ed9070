#pragma once

#include <exception>
#include <string>

/// What an application built on this library throws and catches. The library itself throws none of these: its own
/// failures are results, warnings, and a few standard exceptions, as each header says.
///
///     throw VX_BadFile(__FILE__, __LINE__, "no header at offset 0", "The picture cannot be read.");
///
///     catch (VX_Exception & exception) { log << exception.Dump(); box.show(exception.what()); }
///
/// Four texts and a number, held by value. The words cross over, in every report ever logged: what the thrower gives
/// first, the name of its source file, is the "context info" of the accessors and stands behind "File:" in the report,
/// while the report's "Context:" is the debug message.
class VX_Exception : public std::exception {
public:
    /// @param strContextInfo the thrower's source file
    /// @param iLine          the line in it, printed as it is given
    /// @param strDebugMessage what went wrong, for who mends it
    /// @param strUserMessage what went wrong, for who uses the application
    VX_Exception(std::string const & strContextInfo, int iLine, std::string strDebugMessage,
                 std::string strUserMessage);
    VX_Exception(VX_Exception const & other) = default;
    VX_Exception & operator=(VX_Exception const & other) = default;
    ~VX_Exception() override;

    /// The user message, never the report. Good as long as the exception, until it is assigned to.
    char const * what() const noexcept override;

    /// The report: the banner, which tells the class, three lines, and an empty one.
    ///
    ///     ===> Bad file provided
    ///     File:reader.cpp:42:
    ///     Context: no header at offset 0
    ///     Message: The picture cannot be read.
    ///
    /// Nothing in the texts is escaped or wrapped, so that a line break in one makes the report longer. The report
    /// closes with a NUL of its own; who reads it as a C string sees it end at the first NUL of a text.
    ///
    /// All reports of all classes are made in one stream, without a lock: never on two threads at once, whatever the
    /// exceptions are. The text is overwritten by the next Dump() of any exception.
    virtual char const * Dump();

    std::string const strContextInfo() const { return strContextInfo_; }
    std::string const strUserMessage() const { return strUserMessage_; }
    std::string const strDebugMessage() const { return strDebugMessage_; }

protected:
    /// The report under another class's banner, which is the whole first line, line break included.
    char const * report(char const * banner) const;

private:
    std::string strContextInfo_;
    int iLine_;
    std::string strDebugMessage_;
    std::string strUserMessage_;
};

// The kinds of failure. They differ in their class and in the banner of their report.

/// An internal assertion did not hold.
class VX_AssertionFailed : public VX_Exception {
public:
    using VX_Exception::VX_Exception;
    char const * Dump() override;
};

/// An operation could not be completed.
class VX_OperationFailed : public VX_Exception {
public:
    using VX_Exception::VX_Exception;
    char const * Dump() override;
};

/// Memory could not be obtained.
class VX_BadAlloc : public VX_Exception {
public:
    using VX_Exception::VX_Exception;
    char const * Dump() override;
};

/// An index outside its range.
class VX_OutOfRange : public VX_Exception {
public:
    using VX_Exception::VX_Exception;
    char const * Dump() override;
};

/// An array or a container of the wrong size.
class VX_BadSize : public VX_Exception {
public:
    using VX_Exception::VX_Exception;
    char const * Dump() override;
};

/// An object in the wrong state for the call.
class VX_BadState : public VX_Exception {
public:
    using VX_Exception::VX_Exception;
    char const * Dump() override;
};

/// An unusable argument.
class VX_BadArgument : public VX_Exception {
public:
    using VX_Exception::VX_Exception;
    char const * Dump() override;
};

/// An unusable file.
class VX_BadFile : public VX_Exception {
public:
    using VX_Exception::VX_Exception;
    char const * Dump() override;
};

/// A path that is not implemented.
class VX_NotImplemented : public VX_Exception {
public:
    using VX_Exception::VX_Exception;
    char const * Dump() override;
};

/// An exception specification was broken.
class VX_UnexpectedException : public VX_Exception {
public:
    using VX_Exception::VX_Exception;
    char const * Dump() override;
};

/// The geometry layer reported an error.
class VX_GandalfError : public VX_Exception {
public:
    using VX_Exception::VX_Exception;
    char const * Dump() override;
};

/// An exception from foreign code, passed on.
class VX_ExternalException : public VX_Exception {
public:
    using VX_Exception::VX_Exception;
    char const * Dump() override;
};
