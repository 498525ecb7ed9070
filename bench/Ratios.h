#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <string>

/// Comparisons of two ways to do one thing, measured in the same run and printed as a ratio of their medians.
namespace Bench {

/// Runs the work once and says how many items it did.
typedef std::function<std::int64_t()> Work;

/// Makes the work, with all that must stand before the clock runs.
typedef std::function<Work()> Setup;

/// `ours` over `peer` is expected to stay at or below `limit`.
void compare(std::string const & name, double limit, Setup ours, Setup peer);

/// A single figure, printed with its limit: bytes, allocations.
void figure(std::string const & name, double limit, std::string const & unit, std::function<double()> measure);

/// The number of calls of operator new so far.
std::int64_t allocations();
/// The bytes on the heap now, as malloc counts them.
std::int64_t heapBytes();

} // namespace Bench
