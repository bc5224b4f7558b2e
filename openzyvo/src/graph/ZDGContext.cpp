#include "core/StatusOut.h"
#include "graph/ContextState.h"
#include "graph/Graph.h"

#include <OpenZyvo/ZDGContext.h>
#include <OpenZyvo/ZDGContextGuard.h>

namespace oz {

ZDGContext& currentContextSlot() {
    thread_local ZDGContext current;
    return current;
}

} // namespace oz

const ZDGContext ZDGContext::fsNormal;

ZDGContext ZDGContext::current() {
    return oz::currentContextSlot();
}

bool ZDGContext::isCurrent() const {
    return *this == oz::currentContextSlot();
}

ZTime ZDGContext::getTime(ZStatus* status) const {
    oz::setStatus(status, ZStatus::kSuccess);
    return m_normal ? oz::Graph::instance().currentTime() : m_time;
}

ZDGContextGuard::ZDGContextGuard(const ZDGContext& context)
    : m_previous(oz::currentContextSlot()) {
    oz::currentContextSlot() = context;
}

ZDGContextGuard::~ZDGContextGuard() {
    oz::currentContextSlot() = m_previous;
}
