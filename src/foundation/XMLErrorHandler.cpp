#include "foundation/XMLErrorHandler.h"

#include <QByteArray>
#include <QXmlParseException>

#include <ostream>

VX_XMLErrorHandler::VX_XMLErrorHandler(std::basic_ostream<char> & output) : output_(output) {}

VX_XMLErrorHandler::VX_XMLErrorHandler(VX_XMLErrorHandler const & other) = default;

VX_XMLErrorHandler::~VX_XMLErrorHandler() = default;

bool VX_XMLErrorHandler::warning(QXmlParseException const & exception) {
    report("Warning: ", exception);
    return true;
}

bool VX_XMLErrorHandler::error(QXmlParseException const & exception) {
    report("Error: ", exception);
    return false;
}

bool VX_XMLErrorHandler::fatalError(QXmlParseException const & exception) {
    report("Fatal Error: ", exception);
    return false;
}

QString VX_XMLErrorHandler::errorString() const {
    return lastError_;
}

void VX_XMLErrorHandler::report(char const * prefix, QXmlParseException const & exception) {
    lastError_ = exception.message();
    output_ << prefix << lastError_.toUtf8().toStdString() << "\n";
}
