#pragma once

#include "foundation/Enumerations.h"
#include "geometry/gandalf/CameraType.h"
#include "parameter/Keyframe.h"
#include "parameter/ViewStore.h"
#include "parameter/kyn/ParameterSet.h"
#include "parameter/kyn/ParameterWithoutType.h"
#include "parameter/tov/FSPercentEscapedString.h"

#include <QPointer>

#include <memory>

namespace Kyn {

/// A named value that may differ from view to view and, if animatable, vary over time through keyframes. It exists for
/// the closed list of types at the end of this header; only Kyn::NumericParameter computes values between keys.
///
/// Contexts: times in frames, compared exactly. A parameter that is not splittable reads its first view and writes view
/// 0 whatever view a context names. Reading a fresh parameter makes view 0, so even reads need one thread.
///
/// Links are guarded: a destroyed master leaves this parameter unconstrained, a destroyed link flag reads false.
template <class T>
class Parameter : public virtual ParameterWithoutType {
public:
    class TypedSerialisedKeyframe;
    class ParameterMemento;

    using ParameterWithoutType::interpolation;
    using ParameterWithoutType::setFromScriptString;

    /// The index of a write that went to the static value.
    static constexpr unsigned int NO_KEYFRAME = 0xFFFFFFFFu;

    /// A parameter with T() as default, both modes and the default interpolation 0. `name` is UTF-8 as the display
    /// name and Latin-1 as the script name.
    Parameter(bool bAnimatable, char const * name);
    /// The one extrapolation mode goes to both sides. The display name is the translation of `name` in the context
    /// "Parameter".
    Parameter(bool bAnimatable, QString const & name, T const & defaultValue, Interpolation defaultInterpolation,
              Extrapolation extrapolation);
    /// The same as a row of a set's table.
    Parameter(ParameterSet::Row const & row, bool bAnimatable, T const & defaultValue,
              Interpolation defaultInterpolation, Extrapolation extrapolation);

    /// Copies values, views, keys, modes, names, the hidden flag, the linked views and the link to the master.
    Parameter(Parameter const & other);
    /// Takes over everything but the master, then sends ParameterCopied. Nothing on self-assignment.
    Parameter & operator=(Parameter const & other);
    ~Parameter() override;

    /// @name Values
    /// @{

    /// The value at a context: the master's if there is one; the value of a key exactly at the time; otherwise what
    /// interpolate() or extrapolate() make of the keys around it; without keys the view's static value.
    /// bValueWithoutKeyframes() is asked only while the mode after the last key is a custom one.
    virtual T value(Context const & context) const;

    /// Writes at a context: the static value if not animatable, else the key exactly there, which is made if missing.
    /// A new key takes the type of the next key, the last one the default interpolation. Its index, or NO_KEYFRAME.
    virtual unsigned int setValue(T const & value, Context const & context);

    virtual T defaultValue() const;
    /// Concerns views made from now on. Sends nothing.
    virtual void setDefaultValue(T const & value);

    /// The stored value of a key, not limited; the last key's past the end; the static value without keys.
    virtual T keyframeValue(unsigned int index, View const & view) const;

    /// Between the stored value and the value shown to a user. The same here.
    virtual T toDisplay(T stored, Context const & context) const;
    virtual T fromDisplay(T shown, Context const & context) const;

    /// The value between two keys: here the left key's, whatever its type.
    virtual T interpolate(BoundingKeyframes const & keys, Context const & context) const;
    /// The value beyond the keys: here the end key's, whatever the mode.
    virtual T extrapolate(BoundingKeyframes const & keys, Context const & context) const;
    virtual bool bValueWithoutKeyframes() const;

    /// Whether the view has data of its own.
    virtual bool hasView(View const & view) const;
    /// The record of a new segment: here the type without handles.
    virtual InterpolationData defaultInterpolationData(Keyframe<T> const & key, Keyframe<T> const & next,
                                                       Interpolation type) const;
    /// @}

    bool bStreamOut(QTextStream & stream, QString const & prefix, bool bUseName) const override;
    bool setFromScriptString(QString const & line, StreamVersion const & version, SourceFilter filter) override;

    void setExtrapolationBefore(Extrapolation mode) override;
    void setExtrapolationAfter(Extrapolation mode) override;
    void setInterpolation(Interpolation type, Context const & context) override;
    void setInterpolationData(InterpolationData const & data, unsigned int index, View const & view) override;
    void setDefaultInterpolation(Interpolation type) override;

    Extrapolation extrapolationBefore() const override;
    Extrapolation extrapolationAfter() const override;
    /// The key's own type; CONSTANT past the end. Does not ask a master, unlike its overload.
    Interpolation interpolation(KeyframeIndex const & key) const override;
    /// The type in force: of a key exactly there, else of the last key before, else of the first.
    Interpolation interpolation(Context const & context) const override;
    InterpolationData interpolationData(KeyframeIndex const & key) const override;

    bool isAnimatable() const override { return bAnimatable_; }
    unsigned int numKeyframes(View const & view) const override;
    Context keyframeContext(unsigned int index, View const & view) const override;
    bool isKeyframe(Context const & context) const override;
    bool bNearestKeyframeTime(Context const & context, Time & time) const override;
    bool bNearestKeyframeIndex(Context const & context, unsigned int & index) const override;
    bool bPreviousKeyframe(Context const & context, Context & found) const override;
    bool bNextKeyframe(Context const & context, Context & found) const override;

    void addKeyframeAtFrame(Frame const & frame, std::vector<View> const & views) override;
    unsigned int addKeyframe(Context const & context) override;
    void deleteKeyframe(Context const & context) override;
    void deleteAllKeyframes(View const & view) override;
    void resetToDefault(Context const & context) override;
    boost::shared_ptr<SerialisedKeyframe> serialisedKeyframe(Context const & context) const override;
    void addSerialisedKeyframe(SerialisedKeyframe & keyframe) override;

    /// Moves the key exactly at `from` to the time `to` and gives it `value`. Within its neighbours' times, which it
    /// may reach, the key keeps its place and record. Beyond, it is taken out and written anew in the default view,
    /// whatever view `from` names, and the record of its old place stays behind, so that the records between the two
    /// places belong to other keys than before. The new index, or NO_KEYFRAME without such a key.
    unsigned int moveChangeKeyframe(T const & value, Context const & from, Time const & to);

    bool isSplit() const override { return store_.count() > 1; }
    unsigned int numViews() const override { return store_.count(); }
    void setSplittable(bool splittable) override { bSplittable_ = splittable; }
    bool isSplittable() const override { return bSplittable_; }
    std::vector<View> const & views() const override { return store_.views(); }
    void copyView(View const & dest, View const & source, ParameterWithoutType const * from) override;
    void resetValue(View const & view) override;
    bool bSplitView(View const & view, View const & reference) override;
    bool bRemoveView(View const & view) override;

    /// @name Undoable forms. Each pushes one edit, which the composite owns, and runs nothing.
    /// The parameter must outlive the edit.
    /// @{
    Tov::CompositeCommand & valueCommand(T const & value, Context const & context, Tov::CompositeCommand & composite);
    Tov::CompositeCommand & moveChangeCommand(T const & value, Context const & key, Time const & time,
                                              Tov::CompositeCommand & composite);
    Tov::CompositeCommand & setInterpolationCommand(Interpolation type, Context const & context,
                                                    Tov::CompositeCommand & composite) override;
    Tov::CompositeCommand & setInterpolationDataCommand(InterpolationData const & data, KeyframeIndex const & key,
                                                        Tov::CompositeCommand & composite) override;
    Tov::CompositeCommand & setExtrapolationBeforeCommand(Extrapolation mode,
                                                          Tov::CompositeCommand & composite) override;
    Tov::CompositeCommand & setExtrapolationAfterCommand(Extrapolation mode,
                                                         Tov::CompositeCommand & composite) override;
    /// Keys of these edits stand on whole frames: a context's time is cut to one.
    Tov::CompositeCommand & addKeyframeCommand(Frame const & frame, std::vector<View> const & views,
                                               Tov::CompositeCommand & composite) override;
    Tov::CompositeCommand & addKeyframeCommand(Context const & context, Tov::CompositeCommand & composite) override;
    Tov::CompositeCommand & deleteKeyframeCommand(Frame const & frame, std::vector<View> const & views,
                                                  Tov::CompositeCommand & composite) override;
    Tov::CompositeCommand & deleteKeyframeCommand(Context const & context, Tov::CompositeCommand & composite) override;
    Tov::CompositeCommand & deleteAllKeyframesCommand(View const & view, Tov::CompositeCommand & composite) override;
    Tov::CompositeCommand & addConstrainedParameterCommand(ParameterWithoutType * constrained,
                                                           Tov::CompositeCommand & composite) override;
    /// @}

    std::type_info const & valueTypeInfo() const override { return typeid(T); }
    void copyFrom(ParameterWithoutType const * other) override;
    void assignFrom(ParameterWithoutType const & other) override;

    /// std::bad_cast for a memento of another type, or a null one.
    boost::shared_ptr<Tov::MementoBase> exportState() const override;
    void importState(boost::shared_ptr<Tov::MementoBase> memento) override;

    /// While the flag reads true at a context, the keys of all views count together and no view may be split off. Not
    /// owned; null unlinks. Itself and what would close a circle are refused.
    void setLinkFlag(Parameter<bool> * flag);
    /// Null also once the flag has been destroyed.
    Parameter<bool> * linkFlag() const { return linkFlag_ && linkFlag_->alive ? linkFlag_->flag : nullptr; }

    /// The static value that the view reads, whether or not keys hide it.
    T const & staticValue(View const & view) const { return store_.read(view).value; }
    /// Stores a static value past limits, keys and edits, and sends ValueChanged for `view` if it differs from what the
    /// view reads. For owners that rewrite references and sizes.
    void setStaticValue(T const & value, View const & view);

protected:
    Extrapolation ownExtrapolationBefore() const { return eExtrapolationBefore_; }
    Extrapolation ownExtrapolationAfter() const { return eExtrapolationAfter_; }
    /// What a view reads: its own data or the first view's. May make view 0.
    ViewData<T> const & viewData(View const & view) const { return store_.read(view); }
    template <class Between, class Beyond>
    T plainValue(Context const & context, Between const & between, Beyond const & beyond) const;

private:
    /// A pointer to another set's parameter, and the guard that tells whether it still stands.
    struct LinkFlag {
        Parameter<bool> * flag;
        QPointer<ParameterWithoutType> alive;
    };
    class ReadingScope;

    void masterChanged(ParameterWithoutType * master) override;

    T valueOfViews(Context const & context) const;
    BoundingKeyframes boundingKeyframes(Context const & context, View searched) const;
    BoundingKeyframes combined(BoundingKeyframes const & a, BoundingKeyframes const & b, Context const & context) const;
    KeyframeIndex nearer(KeyframeIndex const & x, KeyframeIndex const & y, Context const & context) const;
    KeyframeIndex keyframeIndex(View view, int index) const;
    bool viewsAreLinked(Context const & context) const;

    View writtenView(View const & asked) const;
    ViewData<T> & write(View const & view) {
        bool const toViewZero = store_.holdsOnlyViewZero() && (!bSplittable_ || view.id() <= 0);
        return toViewZero ? store_.first() : writeAnyView(view);
    }
    ViewData<T> & writeAnyView(View const & view);
    unsigned int setKey(T const & value, Context const & context);
    void sendValueWritten(unsigned int index, View const & asked);
    bool hidesView(View const & view) const { return !bAnimatable_ || (bSplittable_ && !store_.find(view)); }
    void clearViews();
    unsigned int insertKey(ViewData<T> & data, int index, Keyframe<T> const & key, InterpolationData const & record);
    unsigned int appendKey(ViewData<T> & data, Keyframe<T> const & key);
    unsigned int appendKey(ViewData<T> & data, Keyframe<T> const & key, InterpolationData const & record);
    unsigned int writeKey(ViewData<T> & data, Keyframe<T> const & key);
    void pasteRead(View const & view, Keyframe<T> const & key, InterpolationData const & record);

    void writeView(QTextStream & stream, QString const & prefix, View view, bool bMulti) const;
    bool readPlainKeyLine(QStringView line);
    bool readKeyLine(QStringView line, View view, SourceFilter const & filter);

    mutable ViewStore<T> store_;
    Parameter<T> * master_ = nullptr; ///< The base's link in this type, so that reading casts nothing.
    std::unique_ptr<LinkFlag> linkFlag_;
    Extrapolation eExtrapolationBefore_ = EXTRAPOLATION_NONE;
    Extrapolation eExtrapolationAfter_ = EXTRAPOLATION_NONE;
    Interpolation eDefaultInterpolation_ = INTERPOLATION_NONE;
    bool bAnimatable_;
    bool bSplittable_ = false;
    bool bLoading_ = false;
};

/// A whole copy of a parameter.
template <class T>
class Parameter<T>::ParameterMemento : public Tov::MementoBase {
public:
    explicit ParameterMemento(Parameter const & source) : copy(source) {}

    Parameter const copy;
};

/// One keyframe of a parameter of this type as text.
template <class T>
class Parameter<T>::TypedSerialisedKeyframe : public SerialisedKeyframe {
public:
    /// For reading a line: time 0, type CONSTANT and no handles until fromString.
    TypedSerialisedKeyframe(View const & view, SourceFilter const & filter);
    TypedSerialisedKeyframe(Context const & context, T const & value, InterpolationData const & data);

    Kyn::Context context() const override { return context_; }
    void vShiftTime(float delta) override;
    QString toString() const override;
    void fromString(QString const & line) override;

    T const & value() const { return value_; }
    InterpolationData const & data() const { return data_; }

private:
    friend class Parameter<T>;

    /// Like fromString, with std::runtime_error for a line that is none.
    void readLine(QStringView line);

    Kyn::Context context_;
    T value_ = T();
    InterpolationData data_;
    SourceFilter filter_;
};

} // namespace Kyn

/// The closed list of member types; X is called with each.
#define VX_FOR_EACH_NUMERIC_TYPE(X)                                                                                    \
    X(double)                                                                                                          \
    X(float)                                                                                                           \
    X(int)                                                                                                             \
    X(unsigned int)                                                                                                    \
    X(bool)

#define VX_FOR_EACH_HELD_TYPE(X)                                                                                       \
    X(QString)                                                                                                         \
    X(Tov::FSPercentEscapedString)                                                                                     \
    X(Kyn::View)                                                                                                       \
    X(VX_STEREO_MODE)                                                                                                  \
    X(VX_CLIP_MODE)                                                                                                    \
    X(Gan_CameraType)                                                                                                  \
    X(_DISTORTION_ALGORITHM)                                                                                           \
    X(VX_BlendMode)                                                                                                    \
    X(VX_LUMINANCE_MODEL)                                                                                              \
    X(VX_FILL_ALGORITHM)                                                                                               \
    X(VX_REMOVESOURCE_MODE)                                                                                            \
    X(VX_ILLUMINATION_MODEL)                                                                                           \
    X(VX_MATTE_SUBTYPE)                                                                                                \
    X(_TrackModel)

#define VX_FOR_EACH_PARAMETER_TYPE(X) VX_FOR_EACH_NUMERIC_TYPE(X) VX_FOR_EACH_HELD_TYPE(X)

#define VX_EXTERN_PARAMETER(T)                                                                                         \
    extern template class Kyn::ViewStore<T>;                                                                           \
    extern template class Kyn::Parameter<T>;
VX_FOR_EACH_PARAMETER_TYPE(VX_EXTERN_PARAMETER)
#undef VX_EXTERN_PARAMETER
