#include <OpenZyvo/ZThreadPool.h>
#include <oneapi/tbb/task_group.h>
#include <utility>
#include <vector>

// The tasks created under one parallel region, run together by executeAndJoin.
class ZThreadRootTask {
public:
    std::vector<std::pair<ZThreadFunc, void*>> pending;
};

// The workers are TBB's, alive for the whole process.
ZStatus ZThreadPool::init() {
    return ZStatus::kSuccess;
}

ZStatus ZThreadPool::newParallelRegion(ZThreadRootFunc function, void* data) {
    if (!function)
        return ZStatus::kInvalidParameter;
    ZThreadRootTask root;
    function(data, &root);
    // Tasks created after the last executeAndJoin still run before the region ends.
    return root.pending.empty() ? ZStatus::kSuccess : executeAndJoin(&root);
}

ZStatus ZThreadPool::createTask(ZThreadFunc function, void* data, ZThreadRootTask* root) {
    if (!function || !root)
        return ZStatus::kInvalidParameter;
    root->pending.emplace_back(function, data);
    return ZStatus::kSuccess;
}

ZStatus ZThreadPool::executeAndJoin(ZThreadRootTask* root) {
    if (!root)
        return ZStatus::kInvalidParameter;
    std::vector<std::pair<ZThreadFunc, void*>> tasks;
    tasks.swap(root->pending);
    tbb::task_group group;
    for (const auto& [function, data] : tasks)
        group.run([function = function, data = data] { function(data); });
    group.wait();
    return ZStatus::kSuccess;
}

void ZThreadPool::release() {}
