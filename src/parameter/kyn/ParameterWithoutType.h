#pragma once

#include "parameter/Keyframe.h"
#include "parameter/kyn/BasicParameter.h"
#include "parameter/kyn/Context.h"
#include "parameter/kyn/KeyframeIndex.h"
#include "parameter/kyn/ParameterChange.h"
#include "parameter/kyn/SerialisedKeyframe.h"
#include "parameter/tov/CompositeCommand.h"
#include "parameter/tov/Memento.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <memory>
#include <typeinfo>
#include <vector>

namespace Kyn {

class ParameterSet;
class ScopedSignalPermit;

/// The type-free face of every keyframed parameter. It owns the names, the hidden flag and the links between a master
/// and its constrained parameters. Everything about values is answered by Kyn::Parameter<T>.
///
/// A parameter belongs to one thread. Listeners connect to changed(); the change is sent after the data has changed.
class ParameterWithoutType : public BasicParameter, public Tov::MementoUndoable {
    Q_OBJECT

public:
    /// Rewrites the value text of a script line before it is read, for instance to map old file names to new ones.
    typedef boost::function<QString(QString const &)> SourceFilter;

    /// `hidden` as in hide(). The second flag is kept for the layer's own use and is always false.
    explicit ParameterWithoutType(bool hidden = false, bool reserved = false);
    ~ParameterWithoutType() override;

    /// @name Script text
    /// @{
    bool bStreamOut(QTextStream & stream, QString const & prefix, bool bUseName) const override = 0;

    /// Applies one line, the set's prefix and this parameter's name already taken off: "value=3". True if it was
    /// understood; otherwise nothing has changed. Signals are blocked meanwhile, so reading sends nothing.
    virtual bool setFromScriptString(QString const & line, StreamVersion const & version);
    QString const & scriptName() const override;
    virtual bool setFromScriptString(QString const & line, StreamVersion const & version, SourceFilter filter) = 0;
    bool bReadMemberLine(QString const & line, StreamVersion const & version) override;
    /// @}

    virtual void setDisplayName(QString const & name);
    virtual void setScriptName(QString const & name);

    /// Pushes the undoable form of bUnconstrain().
    virtual Tov::CompositeCommand & bUnconstrainCommand(Tov::CompositeCommand & composite);
    /// Pushes the undoable form of cutting `constrained` from this parameter. Its redo is false, and changes nothing,
    /// where `constrained` is null or does not follow this parameter by then.
    virtual Tov::CompositeCommand & bRemoveConstrainedParameterCommand(ParameterWithoutType * constrained,
                                                                       Tov::CompositeCommand & composite);

    /// @name Curves: writing. Each acts on the parameter's own data, whatever its master.
    /// @{
    virtual void setExtrapolationBefore(Extrapolation mode) = 0;
    virtual void setExtrapolationAfter(Extrapolation mode) = 0;
    /// Sets the type of the key exactly at the context, and gives its segment the default handles of that type.
    virtual void setInterpolation(Interpolation type, Context const & context) = 0;
    /// Replaces a key's whole record, type included. An index past the end is ignored.
    virtual void setInterpolationData(InterpolationData const & data, unsigned int index, View const & view) = 0;
    /// The type of a key that has no neighbour to take it from. Sends nothing.
    virtual void setDefaultInterpolation(Interpolation type) = 0;
    /// @}

    /// @name Curves: reading. These four ask the master, except interpolation() by index.
    /// @{
    virtual Extrapolation extrapolationBefore() const = 0;
    virtual Extrapolation extrapolationAfter() const = 0;
    virtual Interpolation interpolation(KeyframeIndex const & key) const = 0;
    virtual Interpolation interpolation(Context const & context) const = 0;
    virtual InterpolationData interpolationData(KeyframeIndex const & key) const = 0;
    /// @}

    virtual Tov::CompositeCommand & setInterpolationCommand(Interpolation type, Context const & context,
                                                            Tov::CompositeCommand & composite) = 0;
    virtual Tov::CompositeCommand & setInterpolationDataCommand(InterpolationData const & data,
                                                                KeyframeIndex const & key,
                                                                Tov::CompositeCommand & composite) = 0;
    virtual Tov::CompositeCommand & setExtrapolationBeforeCommand(Extrapolation mode,
                                                                  Tov::CompositeCommand & composite) = 0;
    virtual Tov::CompositeCommand & setExtrapolationAfterCommand(Extrapolation mode,
                                                                 Tov::CompositeCommand & composite) = 0;

    /// @name Keys
    /// @{
    virtual bool isAnimatable() const = 0;
    /// 0 also for a view without data of its own where the parameter may hold views.
    virtual unsigned int numKeyframes(View const & view) const = 0;
    /// The key's time in the view, no scale. Time 0 for an index past the end.
    virtual Context keyframeContext(unsigned int index, View const & view) const = 0;
    virtual bool isKeyframe(Context const & context) const = 0;
    /// The key nearest in time; of two equally near, the later.
    virtual bool bNearestKeyframeTime(Context const & context, Time & time) const = 0;
    virtual bool bNearestKeyframeIndex(Context const & context, unsigned int & index) const = 0;
    /// The key strictly before or after the context's time. False if there is none; `found` is then left alone.
    virtual bool bPreviousKeyframe(Context const & context, Context & found) const = 0;
    virtual bool bNextKeyframe(Context const & context, Context & found) const = 0;

    virtual void addKeyframeAtFrame(Frame const & frame, std::vector<View> const & views) = 0;
    /// Makes a key of the value in force. Its index; 0xFFFFFFFF where a key stands already or none can.
    virtual unsigned int addKeyframe(Context const & context) = 0;
    /// Deletes the key exactly at the context. The value of an only key stays in force as the static value.
    virtual void deleteKeyframe(Context const & context) = 0;
    /// Empties the view's keys. Its static value is the one from before there were keys.
    virtual void deleteAllKeyframes(View const & view) = 0;
    /// Without keys, back to the default value. With keys, only deletes a key exactly at the context.
    virtual void resetToDefault(Context const & context) = 0;

    /// The key exactly at the context, as text that can be pasted; null if there is none. The default context gives
    /// an empty keyframe, which serves for reading.
    virtual boost::shared_ptr<SerialisedKeyframe> serialisedKeyframe(Context const & context) const = 0;
    /// Writes a keyframe of this parameter's own type, clamped as any write is while no script is being read.
    /// std::bad_cast for a keyframe of another type.
    virtual void addSerialisedKeyframe(SerialisedKeyframe & keyframe) = 0;
    /// @}

    /// @name Views
    /// @{
    virtual bool isSplit() const = 0;
    virtual unsigned int numViews() const = 0;
    /// Whether views may hold data of their own. A parameter that may not sends every write to view 0.
    virtual void setSplittable(bool splittable) = 0;
    virtual bool isSplittable() const = 0;
    /// The views that have data, ascending; view 0 while none has. The reference is good until the next write.
    virtual std::vector<View> const & views() const = 0;

    /// Gives `dest` a copy of all that `source` reads as in `from` (this parameter if null): value, keys, records.
    /// Nothing unless the parameter may hold views, nor from a parameter of another type.
    virtual void copyView(View const & dest, View const & source, ParameterWithoutType const * from) = 0;
    virtual void resetValue(View const & view) = 0;
    /// Gives `view` data of its own with the static value of `reference`. Only for parameters whose views can be
    /// linked, while the link reads false; false otherwise, and where the view has data already.
    virtual bool bSplitView(View const & view, View const & reference) = 0;
    /// Takes a view's data away; false unless more than one view has data and this is one of them.
    virtual bool bRemoveView(View const & view) = 0;
    /// @}

    virtual Tov::CompositeCommand & addKeyframeCommand(Frame const & frame, std::vector<View> const & views,
                                                       Tov::CompositeCommand & composite) = 0;
    virtual Tov::CompositeCommand & addKeyframeCommand(Context const & context, Tov::CompositeCommand & composite) = 0;
    virtual Tov::CompositeCommand & deleteKeyframeCommand(Frame const & frame, std::vector<View> const & views,
                                                          Tov::CompositeCommand & composite) = 0;
    virtual Tov::CompositeCommand & deleteKeyframeCommand(Context const & context,
                                                          Tov::CompositeCommand & composite) = 0;
    virtual Tov::CompositeCommand & deleteAllKeyframesCommand(View const & view, Tov::CompositeCommand & composite) = 0;

    /// The identity of the value type: two parameters hold the same type when these are equal.
    virtual std::type_info const & valueTypeInfo() const = 0;
    /// Pushes an edit that makes `constrained` follow this parameter and saves its state for undo.
    virtual Tov::CompositeCommand & addConstrainedParameterCommand(ParameterWithoutType * constrained,
                                                                   Tov::CompositeCommand & composite) = 0;
    /// Takes over values, views, keys and modes of a parameter of the same type; nothing from another type.
    /// Names, hidden flag, linked views and default interpolation stay.
    virtual void copyFrom(ParameterWithoutType const * other) = 0;
    /// Takes over all that operator= of the whole class takes, limits included; nothing from another class.
    virtual void assignFrom(ParameterWithoutType const & other) = 0;

    QString const & displayName() const { return displayName_; }

    /// The name by which the parameter is found from the root of its tree: names joined by ".".
    QString extendedName() const;

    void hide(bool hidden) { hidden_ = hidden; }
    bool isHidden() const { return hidden_; }

    /// @name Constraints. A constrained parameter reads its master's values and keeps its own data underneath.
    /// @{
    bool isConstrained() const { return links_ && links_->master; }
    ParameterWithoutType const * masterParameter() const { return links_ ? links_->master : nullptr; }
    std::vector<ParameterWithoutType *> constrainedParameters() const;

    /// False for null, for itself, another value type, one that has a master already, and what would close a circle.
    bool bAddConstrainedParameter(ParameterWithoutType * constrained);
    /// False if there was no master.
    bool bUnconstrain();

    /// The master's name as last read from a script, until ParameterTree::resolveMasters makes the link.
    QString pendingMasterName() const { return links_ ? links_->pendingMaster : QString(); }
    void setPendingMasterName(QString const & name);
    /// @}

    /// Sends a change, unless signals are blocked and no permit covers its type.
    void emitChange(ParameterChange & change);
    /// Whether a change of this type would reach anybody: spares building it.
    bool bHears(ParameterChange::ChangeType type) const { return mayBeHeard() && bPasses(type); }

    /// The set this parameter is registered with; null outside of any.
    ParameterSet * owner() const { return owner_; }

Q_SIGNALS:
    /// Sent for every change of this parameter.
    void changed(Kyn::ParameterChange const & change);

protected:
    /// Copies the names, the hidden flag and the link to the master, with which the copy registers itself. The
    /// parameters constrained to `other` stay with it: one parameter has one master. Owner and listeners are not
    /// copied.
    ParameterWithoutType(ParameterWithoutType const & other);

    /// False where surely nobody listens: no connection, and no set that passes changes on.
    bool mayBeHeard() const { return heard_ || owner_; }

    /// Names and hidden flag; the links of this parameter stay.
    void assignNames(ParameterWithoutType const & other);

    // There is no counterpart for disconnecting: Qt may hold the very lock that asking about connections takes, as when
    // a listener is destroyed. A parameter that was once listened to goes on building its changes.
    void connectNotify(QMetaMethod const & signal) override;

private:
    friend class ParameterSet;
    friend class ScopedSignalPermit;

    /// Made when first needed: few parameters are ever linked.
    struct Links {
        ParameterWithoutType * master = nullptr;
        std::vector<ParameterWithoutType *> constrained;
        QString pendingMaster;
    };

    /// Tells the typed class its new master, which is of its own type, or null.
    virtual void masterChanged(ParameterWithoutType * master) = 0;

    ParameterWithoutType & operator=(ParameterWithoutType const &) = delete;

    bool bPasses(ParameterChange::ChangeType type) const;
    Links & links();
    void leaveMaster();
    void sendNow(ParameterChange & change);

    QString scriptName_;
    QString displayName_;
    ParameterSet * owner_ = nullptr;
    ScopedSignalPermit const * permits_ = nullptr;
    std::unique_ptr<Links> links_;
    bool hidden_;
    bool heard_ = false; ///< Somebody has listened at some time.
};

} // namespace Kyn
