#include "clip/TimeCode.h"

#include "geometry/gandalf/ImageHeaderInfo.h"
#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

#include <QRegularExpression>

#include <cmath>

namespace Tool {

namespace {

struct Options {
    std::string code;
    std::string word;
    double rate = 0.0;
    bool json = false;
};

VX_TimeCode codeOf(std::string const & text) {
    static QRegularExpression const form(QStringLiteral("\\A([0-9]{1,2}):([0-9]{1,2}):([0-9]{1,2}):([0-9]{1,2})\\z"));
    QRegularExpressionMatch const match = form.match(textOf(text));
    if (!match.hasMatch())
        throw UsageError("'" + text + "': a time code is written 01:02:03:04; there is no drop-frame counting");
    auto const number = [&](int group) { return match.capturedView(group).toUInt(); };
    return VX_TimeCode(number(1), number(2), number(3), number(4));
}

std::uint32_t wordOf(std::string const & text) {
    static QRegularExpression const form(QStringLiteral("\\A0[xX]([0-9a-fA-F]{1,8})\\z"));
    QRegularExpressionMatch const match = form.match(textOf(text));
    if (!match.hasMatch())
        throw UsageError("--word '" + text + "': a packed time code is written 0x01020304");
    return match.capturedView(1).toUInt(nullptr, 16);
}

VX_TimeCode codeOfWord(std::uint32_t word) {
    Gan_ImageHeaderInfo header = {};
    header.timeCode = word;
    return VX_TimeCode(header);
}

QString writtenOut(VX_TimeCode const & code) {
    return QString::asprintf("%02u:%02u:%02u:%02u", code.hours(), code.minutes(), code.seconds(), code.frames());
}

/// Whether the frame's number goes beyond 32 bits.
bool wraps(VX_TimeCode const & code, double rate) {
    double const seconds = (code.hours() * 60.0 + code.minutes()) * 60.0 + code.seconds();
    return std::floor(std::fabs(rate) + 0.5) * seconds + code.frames() >= 4294967295.0;
}

ExitCode printCode(Table & table, VX_TimeCode const & code, Options const & options) {
    if (!code.isValid()) {
        complain(vxproject::quoted(textOf(options.code + options.word)) +
                 QStringLiteral(" is no valid time code: hours and frames go to 99, minutes and seconds to 59"));
        return EXIT_FINDINGS;
    }
    ExitCode result = EXIT_DONE;
    if (wraps(code, options.rate)) {
        complain(QStringLiteral("the frame is beyond 4294967294 and wraps"));
        result = EXIT_FINDINGS;
    }
    table.row(
        {writtenOut(code), QString::asprintf("0x%08x", code.toUInt32()), qint64(code.toFrames(options.rate).toUInt())});
    return result;
}

ExitCode timecode(Options const & options) {
    if (options.code.empty() == options.word.empty())
        throw UsageError("timecode: one of CODE and --word is asked for");
    if (!(std::fabs(options.rate) >= 0.5 && std::isfinite(options.rate)))
        throw UsageError("--rate: frames per second, which round to at least 1");
    VX_TimeCode const code = options.word.empty() ? codeOf(options.code) : codeOfWord(wordOf(options.word));
    Table table(formOf(options.json), {QStringLiteral("code"), QStringLiteral("word"), QStringLiteral("frame")});
    ExitCode const result = printCode(table, code, options);
    table.finish();
    return result;
}

constexpr char FOOTER[] =
    "\nword is the packed form in image headers: eight decimal digits of four bits each. frame counts from "
    "00:00:00:00\n"
    "at the rate rounded to whole frames per second, so 23.976 counts as 24; its sign does not count. There is no\n"
    "drop-frame counting. Exit code 1 for a code or word that is not valid.\n"
    "\nExamples:\n"
    "  vxproject timecode 01:02:03:04 --rate 23.976\n"
    "  vxproject timecode --word 0x01020304 --rate 25";

} // namespace

void addTimecode(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand("timecode", "Print a time code, its packed form and its frame");
    command->footer(FOOTER);
    command->add_option("CODE", options->code, "HOURS:MINUTES:SECONDS:FRAMES, such as 01:02:03:04");
    command->add_option("--word", options->word, "The packed form instead, such as 0x01020304");
    command->add_option("--rate", options->rate, "Frames per second")->required();
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return timecode(*options); }; });
}

} // namespace Tool
