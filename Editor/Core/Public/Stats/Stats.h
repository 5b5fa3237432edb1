#pragma once

// Statistics are the engine's; the macros stand so that instrumented code compiles.
#define DECLARE_STATS_GROUP(...)
#define DECLARE_CYCLE_STAT(...)
#define DECLARE_CYCLE_STAT_EXTERN(...)
#define DEFINE_STAT(...)
#define SCOPE_CYCLE_COUNTER(...)
#define QUICK_SCOPE_CYCLE_COUNTER(...)
#define TRACE_CPUPROFILER_EVENT_SCOPE(...)
#define TRACE_CPUPROFILER_EVENT_SCOPE_STR(...)
