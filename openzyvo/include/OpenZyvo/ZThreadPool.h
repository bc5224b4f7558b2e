#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>

// Opaque: the root of a set of tasks created in a parallel region.
class ZThreadRootTask;

using ZThreadRetVal = void*;
using ZThreadFunc = ZThreadRetVal (*)(void* data);
using ZThreadRootFunc = void (*)(void* data, ZThreadRootTask* root);

// The host's worker threads. A parallel region calls its function on this
// thread; that function creates tasks under the root and runs them with
// executeAndJoin(), which returns once all of them have finished.
class OZ_API ZThreadPool {
public:
    static ZStatus init();
    static ZStatus newParallelRegion(ZThreadRootFunc function, void* data);
    static ZStatus createTask(ZThreadFunc function, void* data, ZThreadRootTask* root);
    static ZStatus executeAndJoin(ZThreadRootTask* root);
    static void release();
};
