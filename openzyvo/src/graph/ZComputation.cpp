#include "graph/Computation.h"

#include <OpenZyvo/ZComputation.h>
#include <atomic>

namespace {

// Interrupts are requested against the epoch current at that moment; a
// computation sees those requested after it began.
std::atomic<unsigned long long> epoch{1};
std::atomic<unsigned long long> requestedEpoch{0};

} // namespace

namespace oz {

void requestComputationInterrupt() {
    requestedEpoch.store(epoch.load());
}

} // namespace oz

ZComputation::~ZComputation() {
    if (m_active)
        endComputation();
}

void ZComputation::beginComputation(bool, bool isInterruptable, bool) {
    m_active = true;
    m_interruptible = isInterruptable;
    m_epoch = ++epoch;
    m_progress = m_min;
}

bool ZComputation::isInterruptRequested() const {
    return m_active && m_interruptible && requestedEpoch.load() >= m_epoch;
}

void ZComputation::endComputation() {
    m_active = false;
}

ZStatus ZComputation::setProgressRange(int minValue, int maxValue) {
    if (minValue > maxValue)
        return ZStatus::kInvalidParameter;
    m_min = minValue;
    m_max = maxValue;
    return ZStatus::kSuccess;
}

ZStatus ZComputation::setProgress(int value) {
    if (!m_active)
        return ZStatus::kFailure;
    m_progress = value < m_min ? m_min : (value > m_max ? m_max : value);
    return ZStatus::kSuccess;
}

ZStatus ZComputation::setProgressStatus(const ZString&) {
    return m_active ? ZStatus::kSuccess : ZStatus::kFailure;
}
