#pragma once

#include <OpenZyvo/ZDGContext.h>

namespace oz {

// The context current on this thread (set by ZDGContextGuard).
ZDGContext& currentContextSlot();

// Makes the normal context current for its lifetime: what does not depend on
// time is evaluated and cached in the normal context even when another one
// is current.
class NormalContextScope {
public:
    NormalContextScope()
        : m_previous(currentContextSlot()) {
        currentContextSlot() = ZDGContext();
    }
    ~NormalContextScope() { currentContextSlot() = m_previous; }
    NormalContextScope(const NormalContextScope&) = delete;
    NormalContextScope& operator=(const NormalContextScope&) = delete;

private:
    ZDGContext m_previous;
};

} // namespace oz
