#include "platform/failure_trace.h"

namespace {
FailureSink& Sink() {
    static FailureSink sink;
    return sink;
}
}  // namespace

void SetFailureSink(FailureSink sink) { Sink() = std::move(sink); }

void ReportFailure(const std::string& where, const std::string& what, long number) {
    if (Sink()) Sink()(where, what, number);
}
