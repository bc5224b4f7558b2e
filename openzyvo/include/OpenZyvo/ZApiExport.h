#pragma once

// Marks what the runtime library exports: the API's classes and functions,
// and the host interface. The library is built with hidden symbols, so
// everything else in it stays private to the runtime, and plug-ins and hosts
// cannot come to depend on it.
#define OZ_API __attribute__((visibility("default")))
