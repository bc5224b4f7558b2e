#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZTime.h>

// What the graph is evaluated for: the normal context (the scene's current
// time, with its cache) or another time. Evaluation in another context never
// changes the values cached for the normal one.
class OZ_API ZDGContext {
public:
    // The normal context.
    ZDGContext() = default;
    explicit ZDGContext(const ZTime& when)
        : m_normal(false)
        , m_time(when) {}

    static const ZDGContext fsNormal;
    // The context made current on this thread by a ZDGContextGuard, else normal.
    static ZDGContext current();

    bool isNormal() const { return m_normal; }
    bool isCurrent() const;
    // The context's time; for the normal context the scene's current time.
    ZTime getTime(ZStatus* status = nullptr) const;

    friend bool operator==(const ZDGContext& a, const ZDGContext& b) {
        return a.m_normal == b.m_normal && (a.m_normal || a.m_time == b.m_time);
    }

private:
    bool m_normal = true;
    ZTime m_time;
};
