#include "layout/ParallelTasks.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

namespace type {

void runInParallel(std::size_t count, const std::function<void(std::size_t)>& task) {
    tbb::parallel_for(
        tbb::blocked_range<std::size_t>(0, count),
        [&](const tbb::blocked_range<std::size_t>& range) {
            for (std::size_t i = range.begin(); i != range.end(); ++i)
                task(i);
        },
        tbb::auto_partitioner());
}

} // namespace type
