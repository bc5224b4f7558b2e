#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZTypes.h>
#include <memory>

namespace oz {
class Object;
struct ObjectAccess;
} // namespace oz

// An opaque handle to something the runtime owns: a node, an attribute, a data
// value, a component or a plug-in. Function sets (ZFn...) operate on it.
// Copies share the referenced object.
class OZ_API ZObject {
public:
    ZObject() = default;

    bool isNull() const { return !m_object; }
    ZFn::Type apiType() const;
    bool hasFn(ZFn::Type type) const;

    friend bool operator==(const ZObject& a, const ZObject& b) { return a.m_object == b.m_object; }

    static const ZObject kNullObj;

private:
    friend struct oz::ObjectAccess;
    explicit ZObject(std::shared_ptr<oz::Object> object)
        : m_object(std::move(object)) {}
    std::shared_ptr<oz::Object> m_object;
};
