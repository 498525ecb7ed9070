#include "modules/Disturb.h"
#include "project/Clip.h"
#include "project/Layer.h"
#include "project/Lens.h"
#include "project/ProjectTest.h"
#include "project/Scene.h"
#include "project/Schema.h"
#include "project/TextFile.h"

#include <cstdlib>

// Whole projects as they are written and what every set makes of its parameters, byte for byte. After a wanted change,
// VX_WRITE_GOLDEN=1 in the environment writes them anew; the difference is then for a person to read.

namespace {

std::unique_ptr<vxproject::Project> oneOfEach() {
    auto project = std::make_unique<vxproject::Project>();
    project->clip(1);
    project->layer(1);
    project->lens(1);
    project->scene().null(1);
    return project;
}

/// A value that none of the plain fields begins with.
void changeField(Kyn::BasicParameter & field) {
    bool const isText = dynamic_cast<Kyn::StaticParameter<QString> *>(&field);
    bool const isFlag = dynamic_cast<Kyn::StaticParameter<bool> *>(&field) || field.scriptName().contains(u"Format");
    QString const value = isText ? QStringLiteral("\"a \"quoted\" = text\"") : QString::number(isFlag ? 0 : 2);
    field.bReadMemberLine(field.scriptName() + QStringLiteral(".value=") + value, Kyn::StreamVersion(2));
}

void changeAll(vxproject::Project & project) {
    project.forEachMember([](Kyn::BasicParameter & member, QString const & path) {
        if (auto * const parameter = dynamic_cast<Kyn::ParameterWithoutType *>(&member))
            Test::disturb(*parameter, 0);
        else if (!path.endsWith(QLatin1String("DiscreteFrames")))
            changeField(member);
    });
}

void expectGolden(vxproject::Project const & project, char const * name) {
    QString const path = QStringLiteral(VX_TEST_DATA "/project/golden/") + QLatin1String(name);
    if (std::getenv("VX_WRITE_GOLDEN"))
        project.save(path);
    QByteArray const golden = vxproject::readFile(path);
    EXPECT_TRUE(project.toText() == golden) << path.toStdString() << " differs from what is written";
    auto const read = ProjectTest::projectOf(golden);
    EXPECT_TRUE(read->toText() == golden) << path.toStdString() << " is not written as it was read";
}

/// Names, defaults, limits and ways between keys, one parameter a line.
QByteArray schemaText() {
    auto const word = [](bool is, char const * yes) { return QLatin1String(is ? yes : "-"); };
    QString text;
    for (vxproject::SchemaRow const & row : vxproject::schema())
        text += QStringList({row.set, row.name, row.display, row.type, row.defaultValue, row.minimum, row.maximum,
                             word(row.isAnimatable, "keyed"), word(row.isSplittable, "split"),
                             word(row.isHidden, "hidden"), row.interpolation, row.extrapolation})
                    .join(QLatin1Char(',')) +
                QLatin1Char('\n');
    return text.toUtf8();
}

TEST(GoldenSchema, every_parameter_as_a_new_set_has_it) {
    QString const path = QStringLiteral(VX_TEST_DATA "/project/golden/schema.csv");
    if (std::getenv("VX_WRITE_GOLDEN"))
        vxproject::replaceFile(path, schemaText());
    EXPECT_TRUE(schemaText() == vxproject::readFile(path)) << path.toStdString() << " differs from what the sets say";
}

TEST(GoldenProject, every_set_at_its_defaults) {
    auto const project = oneOfEach();
    expectGolden(*project, "defaults.vxp");
    EXPECT_EQ(ProjectTest::findingsOf(*ProjectTest::projectOf(project->toText())), "");
}

TEST(GoldenProject, every_parameter_changed_keyed_and_split_where_it_may_be) {
    auto const project = oneOfEach();
    changeAll(*project);
    expectGolden(*project, "changed.vxp");
}

} // namespace
