#pragma once

#include <QString>
#include <QXmlErrorHandler>

#include <iosfwd>

/// Writes what Qt's XML reader complains of to a stream, a line each, and keeps the last message.
///
///     VX_XMLErrorHandler errors(std::cerr);
///     reader.setErrorHandler(&errors);
///
/// A line is "Warning: ", "Error: " or "Fatal Error: " and the message in UTF-8; where in the document it was is
/// neither printed nor kept. Belongs to the thread of its parse.
class VX_XMLErrorHandler : public QXmlErrorHandler {
public:
    /// The stream stays the caller's and must outlive the handler and its copies.
    explicit VX_XMLErrorHandler(std::basic_ostream<char> & output);
    /// Takes over the last message, and writes to the same stream.
    VX_XMLErrorHandler(VX_XMLErrorHandler const & other);
    ~VX_XMLErrorHandler() override;

    /// True: parsing goes on.
    bool warning(QXmlParseException const & exception) override;
    /// False: parsing stops.
    bool error(QXmlParseException const & exception) override;
    /// False: parsing stops.
    bool fatalError(QXmlParseException const & exception) override;

    /// The message of the last report of any kind; empty before the first.
    QString errorString() const override;

private:
    void report(char const * prefix, QXmlParseException const & exception);

    QString lastError_;
    std::basic_ostream<char> & output_;
};
