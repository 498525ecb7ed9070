#include "project/Writer.h"

#include "parameter/Parameter.h"
#include "project/Finding.h"
#include "project/NumberText.h"

#include <QRegularExpression>
#include <QTextStream>

#include <algorithm>
#include <stdexcept>

namespace vxproject {

namespace {

/// A text or a name that no line of the file can hold: the message names where it stands.
[[noreturn]] void refuse(QString const & path, char const * why) {
    throw std::runtime_error(QStringLiteral("%1 cannot be saved: %2").arg(path, QLatin1String(why)).toStdString());
}

bool holdsAnyOf(QStringView text, QStringView characters) {
    return std::any_of(text.begin(), text.end(), [&](QChar c) { return characters.contains(c); });
}

constexpr QStringView LINE_BREAKS = u"\n\r";

/// A name that is to stand between the dots of a key.
void checkName(QString const & name, QString const & path) {
    if (name.isEmpty())
        refuse(path, "a member of it has no script name");
    if (holdsAnyOf(name, u".=[]") || holdsAnyOf(name, LINE_BREAKS) || name.contains(QChar::Null))
        refuse(path + QLatin1Char('.') + quoted(name), "a script name may not hold '.', '=', '[', ']' or a line break");
}

/// The name of a nested set, which may end in a number: "Null[3]".
void checkSetName(QString const & name, QString const & path) {
    static QRegularExpression const number(QStringLiteral("\\[[0-9]+\\]\\z"));
    checkName(QString(name).remove(number), path);
}

void checkText(QString const & text, QString const & path) {
    if (holdsAnyOf(text, LINE_BREAKS))
        refuse(path, "the text holds a line break");
    if (text.contains(QChar::Null))
        refuse(path, "the text holds a NUL character");
    if (!text.isValidUtf16())
        refuse(path, "the text holds half a surrogate pair");
}

/// Which kind of key a line holds is told by this word, wherever it stands.
void checkKeyText(QString const & text, QString const & path) {
    checkText(text, path);
    if (text.contains(QLatin1String("BezierKey")))
        refuse(path, "the text of a key holds the word BezierKey, by which its line would be misread");
}

QString const & plainText(QString const & text) {
    return text;
}
QString plainText(Tov::FSPercentEscapedString const & name) {
    return name.text();
}

/// Every text that the parameter would write.
template <class Text>
void checkTexts(Kyn::BasicParameter const & member, QString const & path) {
    if (auto const * const field = dynamic_cast<Kyn::StaticParameter<QString> const *>(&member))
        checkText(field->value(), path);
    auto const * const parameter = dynamic_cast<Kyn::Parameter<Text> const *>(&member);
    if (!parameter)
        return;
    for (Kyn::View const view : std::vector<Kyn::View>(parameter->views())) {
        unsigned int const keys = parameter->numKeyframes(view);
        if (keys == 0)
            checkText(plainText(parameter->staticValue(view)), path);
        for (unsigned int key = 0; key < keys; ++key)
            checkKeyText(plainText(parameter->keyframeValue(key, view)), path);
    }
}

} // namespace

void Writer::line(QString const & text) {
    text_ += text.toUtf8();
    text_ += '\n';
}

void Writer::lines(QStringList const & texts) {
    for (QString const & text : texts)
        line(text);
}

void Writer::item(Item & item, QString const & key) {
    QStringList const behind = item.settle();
    set(item, key, item.kept);
    for (QString const & text : behind)
        line(key + QLatin1Char('.') + text);
    lines(item.kept.last());
}

/// As the set writes itself, with each member's own precision and with the kept lines.
void Writer::set(Kyn::ParameterSet const & set, QString const & path, KeptLines const & kept) {
    set.forEachMember([&](Kyn::BasicParameter * one) { member(*one, path, kept); }, false);
    set.forEachSet([&](Kyn::ParameterSet * nested, QString const & name) {
        checkSetName(name, path);
        this->set(*nested, path + QLatin1Char('.') + name, kept);
    });
}

void Writer::member(Kyn::BasicParameter const & member, QString const & path, KeptLines const & kept) {
    QString const & name = member.scriptName();
    checkName(name, path);
    checkTexts<QString>(member, path + QLatin1Char('.') + name);
    checkTexts<Tov::FSPercentEscapedString>(member, path + QLatin1Char('.') + name);

    QString written;
    QTextStream stream(&written);
    stream.setRealNumberPrecision(digitsNeeded(member));
    member.bStreamOut(stream, path + QLatin1Char('.'), true);
    stream.flush();
    text_ += kept.woven(member, written, path + QLatin1Char('.') + name + QLatin1Char('.')).toUtf8();
}

QString lossOfWriting(Kyn::ParameterWithoutType const & parameter) {
    unsigned int lost = 0;
    double first = 0.0;
    for (Kyn::View const view : std::vector<Kyn::View>(parameter.views())) {
        for (unsigned int key = 0; key < parameter.numKeyframes(view); ++key) {
            double const time = parameter.keyframeContext(key, view).time().toDouble();
            if (!keyLineHoldsTime(time) && lost++ == 0)
                first = time;
        }
    }
    if (lost == 0)
        return QString();
    return QStringLiteral("%1 keys stand at times that the six digits of a key line do not hold; the first, %2, is "
                          "written %3")
        .arg(lost)
        .arg(shortestText(first), QString::number(first, 'g', 6));
}

} // namespace vxproject
