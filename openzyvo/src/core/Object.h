#pragma once

#include <OpenZyvo/ZObject.h>
#include <memory>

class ZPxNode;

namespace oz {

// Base of everything a ZObject can refer to. Each kind answers its API type
// and the function sets it is compatible with.
class Object : public std::enable_shared_from_this<Object> {
public:
    virtual ~Object() = default;
    virtual ZFn::Type apiType() const = 0;
    virtual bool hasFn(ZFn::Type type) const { return type == ZFn::kBase || type == apiType(); }
    // The object of the node's class behind a live node; null for every other referent. Lets the
    // data function sets reach a shape's own class (a mesh target) without knowing the graph.
    virtual ZPxNode* userNode() const { return nullptr; }
};

// The runtime's only way into a ZObject's referent.
struct ObjectAccess {
    static ZObject wrap(std::shared_ptr<Object> object) { return ZObject(std::move(object)); }
    static const std::shared_ptr<Object>& get(const ZObject& handle) { return handle.m_object; }

    template <typename T> static T* as(const ZObject& handle) {
        return dynamic_cast<T*>(handle.m_object.get());
    }
    template <typename T> static std::shared_ptr<T> shared(const ZObject& handle) {
        return std::dynamic_pointer_cast<T>(handle.m_object);
    }
};

} // namespace oz
