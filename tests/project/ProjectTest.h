#pragma once

#include "project/Layer.h"
#include "project/Project.h"

#include <gtest/gtest.h>

#include <string>

/// What the tests of project files share.
namespace ProjectTest {

inline std::unique_ptr<vxproject::Project> projectOf(QByteArray const & text) {
    return vxproject::Project::fromText(text, QStringLiteral("p.vxp"));
}

/// The lines behind the first one of the format.
inline std::unique_ptr<vxproject::Project> projectOfLines(std::string const & lines) {
    return projectOf(QByteArray("vxproject 2\n") + lines.c_str());
}

/// All findings, one a line: "LINE: what".
inline std::string findingsOf(vxproject::Project const & project) {
    std::string text;
    for (vxproject::Finding const & finding : project.findings())
        text += std::to_string(finding.line) + ": " + finding.what.toStdString() + "\n";
    return text;
}

inline Kyn::Context at(double frame, int view = 0) {
    return Kyn::Context(Kyn::Time(frame), Kyn::View(view), Kyn::ProxyScale::FULL);
}

/// Reading what was written gives the same file once more, and nothing new is wrong with it.
inline void expectFixedPoint(vxproject::Project const & project) {
    QByteArray const written = project.toText();
    auto const again = projectOf(written);
    EXPECT_EQ(again->toText().toStdString(), written.toStdString());
    EXPECT_LE(again->findings().size(), project.findings().size()) << findingsOf(*again);
}

} // namespace ProjectTest
