#include "project/ProjectEdits.h"

#include "clip/ClipBoundParameterSet.h"
#include "foundation/Saturation.h"
#include "parameter/Parameter.h"
#include "parameter/VirtualParameter.h"
#include "project/Clip.h"
#include "project/Finding.h"
#include "project/NumberText.h"
#include "project/ValueCheck.h"

#include <QTextStream>

#include <cmath>

namespace vxproject {

namespace {

Kyn::StreamVersion newest() {
    return Kyn::StreamVersion(Project::NEWEST_VERSION);
}

QString lineOf(Kyn::BasicParameter const & member) {
    QString text;
    QTextStream stream(&text);
    stream.setRealNumberPrecision(digitsNeeded(member));
    member.bStreamOut(stream, QString(), true);
    stream.flush();
    return text;
}

Kyn::Context contextOf(double frame, Kyn::View const & view) {
    return Kyn::Context(Kyn::Time(frame), view, Kyn::ProxyScale::FULL);
}

[[noreturn]] void refuse(QString const & path, QString const & why) {
    throw EditError(path + QStringLiteral(": ") + why);
}

// Values

template <class T>
T valueOfText(QString const & text) {
    if constexpr (std::is_same_v<T, QString>)
        return text;
    else if constexpr (std::is_same_v<T, Tov::FSPercentEscapedString>)
        return Tov::FSPercentEscapedString(text, Tov::FSPercentEscapedString::ESCAPE);
    else
        return Kyn::detail::readValue<T>(text);
}

void checkText(QString const & path, QString const & text, ValueRule rule) {
    QStringList findings;
    rule(text, findings);
    if (!findings.isEmpty())
        refuse(path, QStringLiteral("%1 is no value of it: ").arg(quoted(text)) + findings.join(QLatin1String("; ")));
}

/// False unless the member is a parameter of T.
template <class T>
bool pushTyped(Kyn::BasicParameter & member, QString const & text, When const & when, Unit unit,
               Tov::CompositeCommand & composite) {
    auto * const parameter = dynamic_cast<Kyn::Parameter<T> *>(&member);
    if (!parameter)
        return false;
    Kyn::Context const context = contextOf(when.frame.value_or(0.0), when.view);
    T const given = valueOfText<T>(text);
    T const value = unit == Unit::Display ? parameter->fromDisplay(given, context) : given;
    if (when.frame || !parameter->isAnimatable()) {
        parameter->valueCommand(value, context, composite);
        return true;
    }
    // The engine's edit would make a key. Limits hold all the same.
    Kyn::View const view = when.view;
    composite.push_back(new StateCommand({parameter}, [parameter, value, view] {
        parameter->setStaticValue(value, view);
        parameter->setStaticValue(parameter->value(contextOf(0.0, view)), view);
    }));
    return true;
}

template <class T>
bool pushField(Kyn::BasicParameter & member, QString const & text, Tov::CompositeCommand & composite) {
    auto * const field = dynamic_cast<Kyn::StaticParameter<T> *>(&member);
    if (!field)
        return false;
    T const value = valueOfText<T>(text);
    composite.push_back(new StateCommand({field}, [field, value] { field->setValue(value); }));
    return true;
}

void pushFieldValue(Kyn::BasicParameter & member, QString const & path, QString const & text, When const & when,
                    Tov::CompositeCommand & composite) {
    if (when.frame)
        refuse(path, QStringLiteral("takes no keys; leave the frame out"));
    QStringList findings;
    if (!dynamic_cast<Kyn::StaticParameter<QString> *>(&member))
        checkFieldLine(member, QStringLiteral("value=") + text, findings);
    if (!findings.isEmpty())
        refuse(path, QStringLiteral("%1 is no value of it: ").arg(quoted(text)) + findings.join(QLatin1String("; ")));
#define VX_TRY(T) pushField<T>(member, text, composite) ||
    static_cast<void>(VX_FOR_EACH_STATIC_TYPE(VX_TRY) false);
#undef VX_TRY
}

// Keys

template <class T>
bool pushMove(Kyn::ParameterWithoutType & member, Kyn::Context const & key, Kyn::Time to,
              Tov::CompositeCommand & composite) {
    auto * const parameter = dynamic_cast<Kyn::Parameter<T> *>(&member);
    if (!parameter)
        return false;
    unsigned int index = 0;
    parameter->bNearestKeyframeIndex(key, index);
    parameter->moveChangeCommand(parameter->keyframeValue(index, key.view()), key, to, composite);
    return true;
}

void checkKey(Kyn::ParameterWithoutType const & parameter, QString const & path, double frame, Kyn::View const & view,
              bool wanted) {
    if (parameter.isKeyframe(contextOf(frame, view)) == wanted)
        return;
    refuse(path, (wanted ? QStringLiteral("there is no key at frame %1") : QStringLiteral("there is a key at frame %1"))
                     .arg(shortestText(frame)));
}

/// What the engine's edits that add and delete keys take: whole frames from 0 on.
bool isWhole(double frame) {
    return frame >= 0.0 && frame == std::trunc(frame);
}

bool hasWholeKeysOnly(Kyn::ParameterWithoutType const & parameter, Kyn::View const & view) {
    for (unsigned int i = 0; i < parameter.numKeyframes(view); ++i)
        if (!isWhole(parameter.keyframeContext(i, view).time().toDouble()))
            return false;
    return true;
}

void pushAdd(Kyn::ParameterWithoutType & parameter, Kyn::Context const & at, Tov::CompositeCommand & composite) {
    if (isWhole(at.time().toDouble()))
        parameter.addKeyframeCommand(at, composite);
    else
        composite.push_back(new StateCommand({&parameter}, [&parameter, at] { parameter.addKeyframe(at); }));
}

void pushDelete(Kyn::ParameterWithoutType & parameter, Kyn::Context const & at, Tov::CompositeCommand & composite) {
    if (isWhole(at.time().toDouble()))
        parameter.deleteKeyframeCommand(at, composite);
    else
        composite.push_back(new StateCommand({&parameter}, [&parameter, at] { parameter.deleteKeyframe(at); }));
}

void pushClear(Kyn::ParameterWithoutType & parameter, Kyn::View const & view, Tov::CompositeCommand & composite) {
    if (hasWholeKeysOnly(parameter, view))
        parameter.deleteAllKeyframesCommand(view, composite);
    else
        composite.push_back(new StateCommand({&parameter}, [&parameter, view] { parameter.deleteAllKeyframes(view); }));
}

// Clips and sizes

/// Sets that are nested in such a set are its own affair.
template <class Visit>
void forEachClipBoundSet(Kyn::ParameterSet const & set, Visit const & visit) {
    set.forEachSet([&](Kyn::ParameterSet * nested, QString const &) {
        if (auto * const bound = dynamic_cast<VX::ClipBoundParameterSet *>(nested))
            visit(*bound);
        else
            forEachClipBoundSet(*nested, visit);
    });
}

StateCommand::Members membersOf(Project const & project) {
    StateCommand::Members members;
    project.forEachMember([&](Kyn::BasicParameter & member, QString const &) { members.push_back(&member); });
    return members;
}

void replaceReferences(Project & project, quint32 oldClip, quint32 newClip) {
    for (auto const & [key, item] : project.items())
        forEachClipBoundSet(*item,
                            [&](VX::ClipBoundParameterSet & set) { set.removeReferencesToClip(oldClip, newClip); });
}

unsigned int scaled(unsigned int pixels, double factor) {
    return VX::detail::saturated<unsigned int>(std::round(pixels * factor));
}

void rescaleClip(VX_BaseClipInfo & picture, double x, double y) {
    for (unsigned int * across : {&picture.frameWidth, &picture.cropLeft, &picture.cropRight})
        *across = scaled(*across, x);
    for (unsigned int * down : {&picture.frameHeight, &picture.cropTop, &picture.cropBottom})
        *down = scaled(*down, y);
    if (picture.filmType.isValid() && picture.frameWidth > 0)
        picture.setFilmType(VX::FilmType(picture.filmType));
}

void rescaleAll(Project & project, double x, double y) {
    for (auto const & [key, item] : project.items()) {
        if (auto * const clip = dynamic_cast<Clip *>(item.get()))
            rescaleClip(clip->picture, x, y);
        forEachClipBoundSet(
            *item, [&](VX::ClipBoundParameterSet & set) { set.rescale(static_cast<float>(x), static_cast<float>(y)); });
    }
}

void expectClip(Project const & project, quint32 id) {
    if (!project.findClip(id))
        throw EditError(QStringLiteral("there is no clip %1").arg(id));
}

/// Takes a clip's item out, and keeps it for its return.
class TakeClipCommand : public Tov::Command {
public:
    TakeClipCommand(Project & project, quint32 id) : project_(project), key_{&clipKind(), id} {}

    bool redo() override {
        taken_ = project_.takeItem(key_);
        return taken_ != nullptr;
    }
    void undo() override { project_.putItem(key_, std::move(taken_)); }

private:
    Project & project_;
    ItemKey key_;
    std::unique_ptr<Item> taken_;
};

} // namespace

// States

std::vector<StateCommand::State> StateCommand::states() const {
    std::vector<State> states;
    states.reserve(members_.size());
    for (Kyn::BasicParameter * member : members_) {
        auto const * const typed = dynamic_cast<Kyn::ParameterWithoutType *>(member);
        states.push_back(typed ? State{typed->exportState(), QString()} : State{nullptr, lineOf(*member).chopped(1)});
    }
    return states;
}

void StateCommand::restore(std::vector<State> const & states) {
    for (std::size_t i = 0; i < members_.size(); ++i) {
        if (states[i].memento)
            dynamic_cast<Kyn::ParameterWithoutType &>(*members_[i]).importState(states[i].memento);
        else
            members_[i]->bReadMemberLine(states[i].line, newest());
    }
}

bool StateCommand::redo() {
    if (after_.empty()) {
        before_ = states();
        change_();
        after_ = states();
    } else {
        restore(after_);
    }
    return true;
}

void StateCommand::undo() {
    restore(before_);
}

// Edits

void pushValue(Kyn::BasicParameter & member, QString const & path, QString const & text, When const & when, Unit unit,
               Tov::CompositeCommand & composite) {
    auto const * const parameter = dynamic_cast<Kyn::ParameterWithoutType *>(&member);
    if (!parameter) {
        pushFieldValue(member, path, text, when, composite);
        return;
    }
    if (when.frame && !parameter->isAnimatable())
        refuse(path, QStringLiteral("takes no keys; leave the frame out"));
    if (!when.frame && parameter->isAnimatable() && parameter->numKeyframes(when.view) > 0)
        refuse(path, QStringLiteral("has keys; a frame must be given"));
    bool const isPlainText = parameter->valueTypeInfo() == typeid(QString) ||
                             parameter->valueTypeInfo() == typeid(Tov::FSPercentEscapedString);
    if (!isPlainText)
        checkText(path, text, valueRuleOf(parameter->valueTypeInfo()));
#define VX_TRY(T) pushTyped<T>(member, text, when, unit, composite) ||
    static_cast<void>(VX_FOR_EACH_PARAMETER_TYPE(VX_TRY) false);
#undef VX_TRY
}

void pushKeyEdit(Kyn::BasicParameter & member, QString const & path, KeyEdit const & edit,
                 Tov::CompositeCommand & composite) {
    auto * const parameter = dynamic_cast<Kyn::ParameterWithoutType *>(&member);
    if (!parameter || !parameter->isAnimatable())
        refuse(path, QStringLiteral("takes no keys"));
    Kyn::Context const at = contextOf(edit.frame, edit.view);
    double place = edit.frame;
    switch (edit.kind) {
    case KeyEdit::Kind::Add:
        checkKey(*parameter, path, edit.frame, edit.view, false);
        pushAdd(*parameter, at, composite);
        break;
    case KeyEdit::Kind::Delete:
        checkKey(*parameter, path, edit.frame, edit.view, true);
        pushDelete(*parameter, at, composite);
        break;
    case KeyEdit::Kind::Move: {
        checkKey(*parameter, path, edit.frame, edit.view, true);
        checkKey(*parameter, path, edit.to, edit.view, false);
        Kyn::Time const to(edit.to);
#define VX_TRY(T) pushMove<T>(*parameter, at, to, composite) ||
        static_cast<void>(VX_FOR_EACH_PARAMETER_TYPE(VX_TRY) false);
#undef VX_TRY
        place = edit.to;
        break;
    }
    case KeyEdit::Kind::Clear:
        pushClear(*parameter, edit.view, composite);
        break;
    case KeyEdit::Kind::SetType:
        checkKey(*parameter, path, edit.frame, edit.view, true);
        break;
    }
    bool const leavesKey = edit.kind != KeyEdit::Kind::Delete && edit.kind != KeyEdit::Kind::Clear;
    if (edit.type && leavesKey)
        parameter->setInterpolationCommand(*edit.type, contextOf(place, edit.view), composite);
}

void pushRescale(Project & project, FrameSize const & from, FrameSize const & to, Tov::CompositeCommand & composite) {
    double const x = static_cast<double>(to.width) / from.width;
    double const y = static_cast<double>(to.height) / from.height;
    composite.push_back(new StateCommand(membersOf(project), [&project, x, y] { rescaleAll(project, x, y); }));
}

void pushReplaceClip(Project & project, quint32 oldClip, quint32 newClip, Tov::CompositeCommand & composite) {
    for (quint32 const id : {oldClip, newClip})
        expectClip(project, id);
    if (oldClip == 0 || newClip == 0)
        throw EditError(QStringLiteral("clip 0 is none: nothing refers to it"));
    composite.push_back(new StateCommand(
        membersOf(project), [&project, oldClip, newClip] { replaceReferences(project, oldClip, newClip); }));
}

void pushRemoveClip(Project & project, quint32 clip, Tov::CompositeCommand & composite) {
    expectClip(project, clip);
    if (clip != 0) // To the sets, 0 would mean every clip.
        composite.push_back(
            new StateCommand(membersOf(project), [&project, clip] { replaceReferences(project, clip, 0); }));
    composite.push_back(new TakeClipCommand(project, clip));
}

std::map<QString, QString> textsOfMembers(Project const & project) {
    std::map<QString, QString> texts;
    project.forEachMember([&](Kyn::BasicParameter & member, QString const & path) { texts[path] += lineOf(member); });
    return texts;
}

} // namespace vxproject
