#pragma once

// The template bodies of Kyn::Parameter, for the files that instantiate it. Nobody else includes this.

#include "parameter/Evaluation.h"
#include "parameter/Parameter.h"
#include "parameter/ParameterEdits.h"
#include "parameter/ViewStoreBody.h"

#include <QCoreApplication>

#include <boost/make_shared.hpp>

#include "parameter/ParameterKeysBody.h"
#include "parameter/ParameterScriptBody.h"
#include "parameter/ParameterValueBody.h"
#include "parameter/ParameterViewsBody.h"

namespace Kyn {

template <class T>
Parameter<T>::Parameter(bool bAnimatable, char const * name) : bAnimatable_(bAnimatable) {
    ParameterWithoutType::setScriptName(QString::fromLatin1(name));
    ParameterWithoutType::setDisplayName(QString::fromUtf8(name));
}

template <class T>
Parameter<T>::Parameter(bool bAnimatable, QString const & name, T const & defaultValue,
                        Interpolation defaultInterpolation, Extrapolation extrapolation)
    : store_(defaultValue),
      eExtrapolationBefore_(extrapolation),
      eExtrapolationAfter_(extrapolation),
      eDefaultInterpolation_(defaultInterpolation),
      bAnimatable_(bAnimatable) {
    ParameterWithoutType::setScriptName(name);
    QString const shown = QCoreApplication::translate("Parameter", name.toUtf8().constData());
    ParameterWithoutType::setDisplayName(shown == name ? name : shown); // Equal names share one string.
}

template <class T>
Parameter<T>::Parameter(ParameterSet::Row const & row, bool bAnimatable, T const & defaultValue,
                        Interpolation defaultInterpolation, Extrapolation extrapolation)
    : Parameter(bAnimatable, QString::fromUtf8(row.scriptName()), defaultValue, defaultInterpolation, extrapolation) {
    row.enter(*this);
}

template <class T>
Parameter<T>::Parameter(Parameter const & other)
    : ParameterWithoutType(other),
      store_(other.store_),
      master_(this->isConstrained() ? other.master_ : nullptr),
      linkFlag_(other.linkFlag() ? std::make_unique<LinkFlag>(*other.linkFlag_) : nullptr),
      eExtrapolationBefore_(other.eExtrapolationBefore_),
      eExtrapolationAfter_(other.eExtrapolationAfter_),
      eDefaultInterpolation_(other.eDefaultInterpolation_),
      bAnimatable_(other.bAnimatable_),
      bSplittable_(other.bSplittable_) {}

template <class T>
Parameter<T> & Parameter<T>::operator=(Parameter const & other) {
    if (this == &other)
        return *this;
    linkFlag_.reset();
    setLinkFlag(other.linkFlag()); // Not copied as it stands: `other` may be linked to this very parameter.
    this->assignNames(other);
    store_ = other.store_;
    bAnimatable_ = other.bAnimatable_;
    bSplittable_ = other.bSplittable_;
    eDefaultInterpolation_ = other.eDefaultInterpolation_;
    eExtrapolationBefore_ = other.eExtrapolationBefore_;
    eExtrapolationAfter_ = other.eExtrapolationAfter_;
    ParameterChange::parameterCopied(*this);
    return *this;
}

template <class T>
Parameter<T>::~Parameter() = default;

template <class T>
void Parameter<T>::copyFrom(ParameterWithoutType const * other) {
    auto const source = dynamic_cast<Parameter const *>(other);
    if (!source)
        return;
    store_ = source->store_;
    bAnimatable_ = source->bAnimatable_;
    bSplittable_ = source->bSplittable_;
    eExtrapolationBefore_ = source->eExtrapolationBefore_;
    eExtrapolationAfter_ = source->eExtrapolationAfter_;
    ParameterChange::parameterCopied(*this);
}

template <class T>
void Parameter<T>::assignFrom(ParameterWithoutType const & other) {
    if (auto const source = dynamic_cast<Parameter const *>(&other))
        *this = *source;
}

template <class T>
boost::shared_ptr<Tov::MementoBase> Parameter<T>::exportState() const {
    return boost::make_shared<ParameterMemento>(*this);
}

template <class T>
void Parameter<T>::importState(boost::shared_ptr<Tov::MementoBase> memento) {
    auto const saved = dynamic_cast<ParameterMemento const *>(memento.get());
    if (!saved)
        throw std::bad_cast();
    Parameter::operator=(saved->copy);
}

template <class T>
void Parameter<T>::masterChanged(ParameterWithoutType * master) {
    master_ = dynamic_cast<Parameter *>(master);
}

} // namespace Kyn
