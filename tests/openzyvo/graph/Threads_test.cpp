#include "graph/Computation.h"

#include <OpenZyvo/ZComputation.h>
#include <OpenZyvo/ZThreadPool.h>
#include <atomic>
#include <gtest/gtest.h>

namespace {

struct Work {
    std::atomic<int> done{0};
    int tasks = 0;
};

ZThreadRetVal task(void* data) {
    ++static_cast<Work*>(data)->done;
    return nullptr;
}

void region(void* data, ZThreadRootTask* root) {
    Work* work = static_cast<Work*>(data);
    for (int i = 0; i < work->tasks; ++i)
        ZThreadPool::createTask(task, work, root);
    ZThreadPool::executeAndJoin(root);
    // Tasks created after a join still run before the region ends.
    ZThreadPool::createTask(task, work, root);
}

} // namespace

TEST(ThreadPool, RunsEveryTaskOfARegion) {
    ASSERT_TRUE(ZThreadPool::init());
    Work work;
    work.tasks = 64;
    EXPECT_TRUE(ZThreadPool::newParallelRegion(region, &work));
    EXPECT_EQ(work.done.load(), 65);
    EXPECT_FALSE(ZThreadPool::createTask(task, &work, nullptr));
    ZThreadPool::release();
}

TEST(Computation, SeesOnlyInterruptsRequestedWhileItRuns) {
    oz::requestComputationInterrupt();
    ZComputation computation;
    computation.beginComputation(false, true);
    EXPECT_FALSE(computation.isInterruptRequested());
    oz::requestComputationInterrupt();
    EXPECT_TRUE(computation.isInterruptRequested());
    computation.endComputation();
    EXPECT_FALSE(computation.isInterruptRequested());

    ZComputation stubborn;
    stubborn.beginComputation(false, false);
    oz::requestComputationInterrupt();
    EXPECT_FALSE(stubborn.isInterruptRequested()) << "not interruptible";
}
