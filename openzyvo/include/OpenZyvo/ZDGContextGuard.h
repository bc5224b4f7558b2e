#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZDGContext.h>

// Makes a context current on this thread for its lifetime and then restores
// the one that was current before. Plug reads inside evaluate in it.
class OZ_API ZDGContextGuard {
public:
    explicit ZDGContextGuard(const ZDGContext& context);
    ~ZDGContextGuard();
    ZDGContextGuard(const ZDGContextGuard&) = delete;
    ZDGContextGuard& operator=(const ZDGContextGuard&) = delete;

private:
    ZDGContext m_previous;
};
