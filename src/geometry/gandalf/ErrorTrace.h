#pragma once

/// One failure on the error trace.
struct Gan_ErrorTrace {
    char const * routine; ///< the function that failed
    char const * reason;  ///< why, in English
};

/// Each thread has an error trace: the failures of the geometry functions since it was last flushed, the first ones
/// first. It holds the first 16, which tell how a failure began, and counts the rest.
///
/// Routines report failure by their results; nobody need look here. Who wants the reason flushes before the call.
extern "C" {
/// Puts a failure on the calling thread's trace. Both texts must live as long as the program: literals.
void gan_err_register(char const * routine, char const * reason);

/// How many failures there have been since the last flush, those that the trace has not kept included.
unsigned int gan_err_trace_count();

/// The failure at an index from 0; null where the trace has kept none. Gone with the next flush.
Gan_ErrorTrace const * gan_err_trace_entry(unsigned int index);

/// Empties the calling thread's trace.
void gan_err_flush_trace();
}
