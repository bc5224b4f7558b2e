#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>

// Base of every function set. A function set operates on one ZObject of a
// compatible kind; it is empty (and its calls fail) until given one.
class OZ_API ZFnBase {
public:
    ZFnBase() = default;
    virtual ~ZFnBase() = default;

    virtual ZFn::Type type() const { return ZFn::kBase; }
    // Whether the function set can work on `object`; sets that accept several kinds of object
    // (ZFnMesh takes mesh data and mesh shapes) override it.
    virtual bool hasObj(const ZObject& object) const { return object.hasFn(type()); }
    bool hasObj(ZFn::Type kind) const { return kind == type(); }
    ZObject object(ZStatus* status = nullptr) const {
        if (status)
            *status = m_object.isNull() ? ZStatus::kInvalidParameter : ZStatus::kSuccess;
        return m_object;
    }
    // Attaches the function set to `object`; fails and leaves it empty when
    // the object is of an incompatible kind.
    virtual ZStatus setObject(const ZObject& object) {
        if (!hasObj(object)) {
            m_object = ZObject();
            return ZStatus::kInvalidParameter;
        }
        m_object = object;
        return ZStatus::kSuccess;
    }

protected:
    ZObject m_object;
};
