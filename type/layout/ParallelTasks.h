#pragma once

#include <cstddef>
#include <functional>

namespace type {

// Runs task(i) for every i below `count` as TBB tasks (blocked range, automatic
// partitioner) and returns when all are done. Tasks must write only state of
// their own index.
//
// This is a separate unit because Qt's keyword macros (emit) break TBB's
// headers in any file that includes Qt first.
void runInParallel(std::size_t count, const std::function<void(std::size_t)>& task);

} // namespace type
