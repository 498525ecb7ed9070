#pragma once

// Part of ParameterBody.h: which views have data of their own.

namespace Kyn {

template <class T>
bool Parameter<T>::hasView(View const & view) const {
    return store_.find(view) != nullptr;
}

/// The view that a write to `asked` goes to.
template <class T>
View Parameter<T>::writtenView(View const & asked) const {
    if (!bSplittable_)
        return View(0);
    return asked.isValid() ? asked : store_.views().front();
}

/// The data that a write goes to, made if need be. Only a view that splits the parameter, or a first one that is not
/// view 0, is announced: the quiet making of view 0 in an empty store sends nothing.
template <class T>
ViewData<T> & Parameter<T>::writeAnyView(View const & view) {
    View const written = writtenView(view);
    if (ViewData<T> const * own = store_.find(written))
        return const_cast<ViewData<T> &>(*own);
    bool const first = store_.isEmpty();
    ViewData<T> & data = store_.write(written);
    if (first && written == View(0))
        return data;
    ParameterChange::viewAdded(*this, written);
    return store_.write(written); // A listener may have made or removed views, which moves data.
}

template <class T>
void Parameter<T>::clearViews() {
    for (View const removed : store_.removeAll())
        ParameterChange::viewRemoved(*this, removed);
}

template <class T>
void Parameter<T>::copyView(View const & dest, View const & source, ParameterWithoutType const * from) {
    if (!bSplittable_)
        return;
    Parameter const * const other = from ? dynamic_cast<Parameter const *>(from) : this;
    if (!other)
        return;
    ViewData<T> const data = other->store_.read(source);
    write(dest) = data;
}

template <class T>
void Parameter<T>::resetValue(View const & view) {
    ViewData<T> & data = write(view);
    if (data.value == defaultValue())
        return;
    data.value = defaultValue();
    ParameterChange::valueChanged(*this, writtenView(view));
}

template <class T>
bool Parameter<T>::bSplitView(View const & view, View const & reference) {
    Parameter<bool> * const flag = linkFlag();
    if (!bSplittable_ || !flag || store_.isEmpty())
        return false;
    if (flag->staticValue(view) || store_.find(view))
        return false;
    View const named = reference; // It may stand in the list of views, which now grows.
    write(view);
    // Looked up when the view is there: one that has become the first, or names itself, keeps the default value.
    View const source = store_.find(named) ? named : store_.views().front();
    T const value = store_.read(source).value;
    ViewData<T> & data = write(view);
    if (data.value != value) {
        data.value = value;
        ParameterChange::valueChanged(*this, writtenView(view));
    }
    return true;
}

template <class T>
bool Parameter<T>::bRemoveView(View const & view) {
    View const removed = view; // `view` may be an element of views(), which loses one here.
    if (!isSplit() || !store_.remove(removed))
        return false;
    ParameterChange::viewRemoved(*this, removed);
    return true;
}

template <class T>
void Parameter<T>::setStaticValue(T const & value, View const & view) {
    if (store_.read(view).value == value)
        return;
    write(view).value = value;
    ParameterChange::valueChanged(*this, view);
}

template <class T>
void Parameter<T>::setLinkFlag(Parameter<bool> * flag) {
    for (Parameter<bool> const * above = flag; above; above = above->linkFlag())
        if (static_cast<ParameterWithoutType const *>(above) == static_cast<ParameterWithoutType const *>(this))
            return;
    linkFlag_.reset();
    if (flag)
        linkFlag_.reset(new LinkFlag{flag, flag});
}

} // namespace Kyn
