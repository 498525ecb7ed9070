#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>

namespace VX {

/// A table of fixed length that is either there or not; it reads as a pointer, null while it is not. Copies are deep.
template <class T, std::size_t SIZE>
class OwnedTable {
public:
    OwnedTable() = default;
    OwnedTable(OwnedTable const & other) { *this = other; }
    /// Keeps its own memory where both are there, so that pointers to the entries stay good.
    OwnedTable & operator=(OwnedTable const & other) {
        if (!other.entries_)
            clear();
        else if (this != &other)
            std::copy_n(other.entries_.get(), SIZE, allocate());
        return *this;
    }

    static constexpr std::size_t size() { return SIZE; }
    operator T const *() const { return entries_.get(); }

    /// The entries for writing; makes them, all 0, where there are none.
    T * allocate() {
        if (!entries_)
            entries_ = std::make_unique<T[]>(SIZE);
        return entries_.get();
    }
    void clear() { entries_.reset(); }

private:
    std::unique_ptr<T[]> entries_;
};

} // namespace VX
