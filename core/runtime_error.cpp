#include "core/runtime_error.h"

void RaiseTypeMismatch() { throw RuntimeError(errors::kTypeMismatch, "Type mismatch"); }
void RaiseOverflow() { throw RuntimeError(errors::kOverflow, "Overflow"); }
void RaiseSubscriptOutOfRange() { throw RuntimeError(errors::kSubscriptOutOfRange, "Subscript out of range"); }
void RaiseInvalidCall() { throw RuntimeError(errors::kInvalidCall, "Invalid procedure call or argument"); }
