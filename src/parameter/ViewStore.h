#pragma once

#include "parameter/Keyframe.h"
#include "parameter/kyn/View.h"

#include <QVector>

#include <memory>
#include <vector>

namespace Kyn {

/// The data of one view. The vectors share their contents between copies until one side is written.
template <class T>
struct ViewData {
    T value = T();                            ///< The static value, in force while there are no keys.
    QVector<Keyframe<T>> keys;                ///< Ascending in time; a move may leave two keys at one time.
    QVector<InterpolationData> interpolation; ///< One record a key, and after a move out of place some more behind.
    bool bUnordered = false;                  ///< A key's time is not a number: searches scan, since no order holds.
};

/// Which views have data of their own. Knows nothing of time.
///
/// A view without data reads the data of the first view, the one of lowest id. The store costs memory for the views
/// that have data, whatever their ids: the first stands inline, further ones in a block made when needed.
template <class T>
class ViewStore {
public:
    explicit ViewStore(T const & defaultValue = T()) : default_(defaultValue) {}
    ViewStore(ViewStore const & other);
    ViewStore & operator=(ViewStore const & other);

    T const & defaultValue() const { return default_; }
    void setDefaultValue(T const & value) { default_ = value; }

    bool isEmpty() const { return firstId_ < 0; }
    /// True while view 0 alone has data.
    bool holdsOnlyViewZero() const { return firstId_ == 0 && !more_; }

    /// The first view's data. The store is not empty.
    ViewData<T> & first() { return first_; }

    /// The views that have data, ascending; view 0 while none has. Good until the next write.
    std::vector<View> const & views() const { return more_ ? more_->ids : viewZero(); }
    unsigned int count() const { return more_ ? static_cast<unsigned int>(more_->ids.size()) : 1u; }

    /// The view's own data, or null.
    ViewData<T> const * find(View view) const {
        if (!view.isValid())
            return nullptr;
        return view.id() == firstId_ ? &first_ : findFurther(view);
    }

    /// What the view reads: its own data or the first view's. An empty store gets view 0.
    ViewData<T> & read(View view) {
        if (view.id() == firstId_ && view.isValid())
            return first_;
        return readFurther(view);
    }

    /// The view's own data, made with the default value where there is none. A view with a negative id writes the first
    /// view. References from before a view was made are no longer good.
    ViewData<T> & write(View view);

    /// False if the view has no data.
    bool remove(View view);
    /// Takes away every view, the last first, and tells which they were in that order.
    std::vector<View> removeAll();

private:
    struct More {
        std::vector<View> ids;                          ///< All views, the first included.
        std::vector<std::unique_ptr<ViewData<T>>> data; ///< Those of ids[1] and on.
    };

    static std::vector<View> const & viewZero();

    ViewData<T> const * findFurther(View view) const;
    ViewData<T> & readFurther(View view);
    std::size_t place(View view) const;
    void insertFirst(View view);

    ViewData<T> first_;
    T default_;
    int firstId_ = -1;           ///< -1 while the store is empty.
    std::unique_ptr<More> more_; ///< Null while the only view is view 0 or there is none.
};

} // namespace Kyn
