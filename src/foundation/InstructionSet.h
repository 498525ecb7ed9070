#pragma once

// For loops that are written once and compiled for each instruction set. A function in them that is not inlined would
// be compiled for the baseline alone; and it must be the attribute on the caller that raises the instruction set, not
// an option for the whole source: inline functions of headers would be compiled by that too, and could end up in other
// callers. The attribute is never "fma": products and sums rounded as one would part from what the baseline answers.
#if defined(__GNUC__)
#define VX_INLINED [[gnu::always_inline]] inline
#else
#define VX_INLINED inline
#endif

#if defined(__GNUC__) && defined(__x86_64__)
#define VX_HAS_AVX2
#endif

namespace VX::detail {

enum class InstructionSet {
    BASELINE, ///< What the library is compiled for.
    AVX2,     ///< x86-64 with vectors of four doubles.
};

/// Whether this machine has it and the library was compiled with it.
inline bool bHasInstructionSet([[maybe_unused]] InstructionSet set) {
#ifdef VX_HAS_AVX2
    if (set == InstructionSet::AVX2)
        return __builtin_cpu_supports("avx2") != 0;
#endif
    return set == InstructionSet::BASELINE;
}

/// The best that this machine has.
inline InstructionSet bestInstructionSet() {
    return bHasInstructionSet(InstructionSet::AVX2) ? InstructionSet::AVX2 : InstructionSet::BASELINE;
}

} // namespace VX::detail
