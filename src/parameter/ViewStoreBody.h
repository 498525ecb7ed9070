#pragma once

#include "parameter/ViewStore.h"

#include <algorithm>

namespace Kyn {

template <class T>
ViewStore<T>::ViewStore(ViewStore const & other)
    : first_(other.first_), default_(other.default_), firstId_(other.firstId_) {
    if (!other.more_)
        return;
    more_ = std::make_unique<More>();
    more_->ids = other.more_->ids;
    for (std::unique_ptr<ViewData<T>> const & data : other.more_->data)
        more_->data.push_back(std::make_unique<ViewData<T>>(*data));
}

template <class T>
ViewStore<T> & ViewStore<T>::operator=(ViewStore const & other) {
    ViewStore copy(other);
    first_ = std::move(copy.first_);
    default_ = std::move(copy.default_);
    firstId_ = copy.firstId_;
    more_ = std::move(copy.more_);
    return *this;
}

template <class T>
std::vector<View> const & ViewStore<T>::viewZero() {
    static std::vector<View> const views{View(0)};
    return views;
}

template <class T>
std::size_t ViewStore<T>::place(View view) const {
    auto const found = std::lower_bound(more_->ids.begin(), more_->ids.end(), view);
    return static_cast<std::size_t>(found - more_->ids.begin());
}

template <class T>
ViewData<T> const * ViewStore<T>::findFurther(View view) const {
    if (!more_)
        return nullptr;
    std::size_t const at = place(view);
    if (at == 0 || at == more_->ids.size() || more_->ids[at] != view)
        return nullptr;
    return more_->data[at - 1].get();
}

template <class T>
ViewData<T> & ViewStore<T>::readFurther(View view) {
    if (isEmpty())
        insertFirst(View(0));
    ViewData<T> const * own = find(view);
    return own ? const_cast<ViewData<T> &>(*own) : first_;
}

template <class T>
void ViewStore<T>::insertFirst(View view) {
    first_ = ViewData<T>();
    first_.value = default_;
    firstId_ = view.id();
    if (view.id() == 0)
        return;
    more_ = std::make_unique<More>();
    more_->ids.push_back(view);
}

template <class T>
ViewData<T> & ViewStore<T>::write(View view) {
    if (!view.isValid())
        return read(view);
    if (isEmpty()) {
        insertFirst(view);
        return first_;
    }
    if (ViewData<T> const * own = find(view))
        return const_cast<ViewData<T> &>(*own);
    if (!more_) {
        more_ = std::make_unique<More>();
        more_->ids.push_back(View(firstId_));
    }
    std::size_t const at = place(view);
    more_->ids.insert(more_->ids.begin() + static_cast<std::ptrdiff_t>(at), view);
    auto fresh = std::make_unique<ViewData<T>>();
    fresh->value = default_;
    if (at == 0) { // The new view becomes the first, which stands inline.
        std::swap(*fresh, first_);
        firstId_ = view.id();
    }
    std::size_t const slot = at == 0 ? 0 : at - 1;
    more_->data.insert(more_->data.begin() + static_cast<std::ptrdiff_t>(slot), std::move(fresh));
    return at == 0 ? first_ : *more_->data[slot];
}

template <class T>
bool ViewStore<T>::remove(View view) {
    if (!find(view))
        return false;
    if (!more_) {
        first_ = ViewData<T>();
        firstId_ = -1;
        return true;
    }
    std::size_t const at = place(view);
    more_->ids.erase(more_->ids.begin() + static_cast<std::ptrdiff_t>(at));
    if (at == 0 && more_->ids.empty()) {
        first_ = ViewData<T>();
        firstId_ = -1;
        more_.reset();
        return true;
    }
    std::size_t const slot = at == 0 ? 0 : at - 1;
    if (at == 0) {
        first_ = std::move(*more_->data[slot]);
        firstId_ = more_->ids.front().id();
    }
    more_->data.erase(more_->data.begin() + static_cast<std::ptrdiff_t>(slot));
    if (more_->data.empty() && firstId_ == 0)
        more_.reset();
    return true;
}

template <class T>
std::vector<View> ViewStore<T>::removeAll() {
    std::vector<View> removed;
    while (!isEmpty()) {
        removed.push_back(views().back());
        remove(removed.back());
    }
    return removed;
}

} // namespace Kyn
