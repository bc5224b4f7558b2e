#include "core/StatusOut.h"
#include "graph/Graph.h"
#include "graph/ValueIO.h"

#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPlugArray.h>
#include <utility>

using oz::Graph;
using oz::Path;
using oz::PlugAccess;
using oz::PlugRef;
using oz::setStatus;
using oz::Slot;

namespace {

const PlugRef* usable(const ZPlug& plug, ZStatus* status) {
    const PlugRef* ref = PlugAccess::get(plug);
    const bool ok = ref && ref->valid();
    setStatus(status, ok ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return ok ? ref : nullptr;
}

ZPlug withPath(const PlugRef& ref, Path path) {
    return PlugAccess::make(PlugRef{ref.node, ref.root, std::move(path)});
}

// The evaluated value of the plug in the current context.
const Slot* evaluated(const ZPlug& plug, ZStatus* status) {
    const PlugRef* ref = usable(plug, status);
    if (!ref)
        return nullptr;
    if (!oz::isFullySpecified(ref->path)) {
        setStatus(status, ZStatus::kInvalidParameter);
        return nullptr;
    }
    oz::Evaluator& evaluator = Graph::instance().evaluator();
    const Slot* slot = evaluator.pull(*ref->node, ref->path, evaluator.currentContext());
    if (!slot)
        setStatus(status, ZStatus::kInvalidParameter);
    return slot;
}

double number(const ZPlug& plug, ZStatus* status) {
    double value = 0.0;
    if (const Slot* slot = evaluated(plug, status)) {
        const ZStatus read = oz::readNumber(*slot, *PlugAccess::get(plug)->leaf(), value);
        setStatus(status, read);
    }
    return value;
}

ZStatus setNumber(const ZPlug& plug, double value) {
    const PlugRef* ref = usable(plug, nullptr);
    if (!ref)
        return ZStatus::kInvalidParameter;
    return Graph::instance().setValue(*ref->node, ref->path,
                                      [value](Slot& slot, const oz::Attribute& attribute) {
                                          return oz::writeNumber(slot, attribute, value, true);
                                      });
}

// getValue is the matching asX that leaves the caller's variable alone when the read fails.
template <typename T> ZStatus fetch(const ZPlug& plug, T (ZPlug::*read)(ZStatus*) const, T& out) {
    ZStatus status;
    T value = (plug.*read)(&status);
    if (status)
        out = std::move(value);
    return status;
}

} // namespace

ZPlug::ZPlug(const ZObject& node, const ZObject& attribute) {
    oz::Node* n = oz::nodeOf(node);
    const oz::Attribute* a = oz::attributeOf(attribute);
    Path path;
    if (n && a && n->pathTo(a, path))
        *this = PlugAccess::make(*n, std::move(path));
}

bool ZPlug::isNull(ZStatus* status) const {
    setStatus(status, ZStatus::kSuccess);
    const PlugRef* ref = PlugAccess::get(*this);
    return !ref || !ref->valid();
}

ZObject ZPlug::node(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref ? oz::wrapNode(*ref->node) : ZObject();
}

ZObject ZPlug::attribute(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref ? oz::wrapAttribute(ref->leaf()) : ZObject();
}

ZString ZPlug::name(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref ? ref->node->name + "." + oz::pathName(ref->path, true, false) : ZString();
}

ZString ZPlug::partialName(bool includeNodeName, bool, bool, bool, bool useFullAttributePath,
                           bool useLongNames, ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    if (!ref)
        return ZString();
    ZString text = oz::pathName(ref->path, useLongNames, useFullAttributePath);
    return includeNodeName ? ref->node->name + "." + text : text;
}

ZString ZPlug::info(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref ? ref->node->name + "." + oz::pathName(ref->path, true, true) : ZString();
}

bool ZPlug::isArray(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref && oz::isArrayPath(ref->path);
}

bool ZPlug::isElement(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref && oz::isElementPath(ref->path);
}

bool ZPlug::isCompound(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref && ref->leaf()->isCompound();
}

bool ZPlug::isChild(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref && ref->path.size() > 1;
}

bool ZPlug::isDynamic(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref && ref->leaf()->dynamic;
}

bool ZPlug::isKeyable(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref && ref->leaf()->flags.keyable;
}

bool ZPlug::isReadable(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref && ref->leaf()->flags.readable;
}

bool ZPlug::isWritable(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref && ref->leaf()->flags.writable;
}

bool ZPlug::isNetworked(ZStatus* status) const {
    return isConnected(status);
}

bool ZPlug::isFullySpecified(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref && oz::isFullySpecified(ref->path);
}

unsigned int ZPlug::numChildren(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    return ref ? static_cast<unsigned int>(ref->leaf()->children.size()) : 0;
}

ZPlug ZPlug::child(unsigned int index, ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    if (!ref || index >= ref->leaf()->children.size()) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZPlug();
    }
    Path path = ref->path;
    path.push_back(oz::PathEntry{ref->leaf()->children[index].get(), index, -1});
    return withPath(*ref, std::move(path));
}

ZPlug ZPlug::child(const ZObject& attribute, ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    const oz::Attribute* a = oz::attributeOf(attribute);
    if (!ref || !a || a->parent != ref->leaf()) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZPlug();
    }
    return child(a->indexInParent, status);
}

ZPlug ZPlug::parent(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    if (!ref || ref->path.size() < 2) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZPlug();
    }
    Path path = ref->path;
    path.pop_back();
    return withPath(*ref, std::move(path));
}

ZPlug ZPlug::array(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    if (!ref || !oz::isElementPath(ref->path)) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZPlug();
    }
    Path path = ref->path;
    path.back().index = -1;
    return withPath(*ref, std::move(path));
}

unsigned int ZPlug::numElements(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    if (!ref || !oz::isArrayPath(ref->path)) {
        setStatus(status, ZStatus::kInvalidParameter);
        return 0;
    }
    const Slot* slot = ref->node->resolve(ref->node->normal, ref->path, false);
    return slot ? static_cast<unsigned int>(slot->elements.size()) : 0;
}

unsigned int ZPlug::evaluateNumElements(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    if (!ref || !oz::isArrayPath(ref->path)) {
        setStatus(status, ZStatus::kInvalidParameter);
        return 0;
    }
    const Slot* slot = evaluated(*this, status);
    return slot ? static_cast<unsigned int>(slot->elements.size()) : 0;
}

ZPlug ZPlug::elementByLogicalIndex(unsigned int logicalIndex, ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    if (!ref || !oz::isArrayPath(ref->path) || logicalIndex > 0x7fffffffu) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZPlug();
    }
    Path path = ref->path;
    path.back().index = static_cast<int>(logicalIndex);
    if (oz::isFullySpecified(path))
        ref->node->slot(path);
    return withPath(*ref, std::move(path));
}

ZPlug ZPlug::elementByPhysicalIndex(unsigned int physicalIndex, ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    const Slot* slot =
        ref && oz::isArrayPath(ref->path) ? ref->node->resolve(ref->node->normal, ref->path, false) : nullptr;
    if (!slot || physicalIndex >= slot->elements.size()) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZPlug();
    }
    auto it = slot->elements.begin();
    std::advance(it, physicalIndex);
    Path path = ref->path;
    path.back().index = static_cast<int>(it->first);
    return withPath(*ref, std::move(path));
}

unsigned int ZPlug::logicalIndex(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    if (!ref || !oz::isElementPath(ref->path)) {
        setStatus(status, ZStatus::kInvalidParameter);
        return 0;
    }
    return static_cast<unsigned int>(ref->path.back().index);
}

int ZPlug::getExistingArrayAttributeIndices(ZIntArray& indices, ZStatus* status) const {
    indices.clear();
    const PlugRef* ref = usable(*this, status);
    if (!ref || !oz::isArrayPath(ref->path)) {
        setStatus(status, ZStatus::kInvalidParameter);
        return 0;
    }
    if (const Slot* slot = ref->node->resolve(ref->node->normal, ref->path, false))
        for (const auto& element : slot->elements)
            indices.append(static_cast<int>(element.first));
    return static_cast<int>(indices.length());
}

ZStatus ZPlug::selectAncestorLogicalIndex(unsigned int index, const ZObject& attribute) {
    const PlugRef* ref = usable(*this, nullptr);
    if (!ref || index > 0x7fffffffu)
        return ZStatus::kInvalidParameter;
    const oz::Attribute* wanted = oz::attributeOf(attribute);
    Path path = ref->path;
    for (std::size_t i = path.size(); i-- > 0;) {
        const bool match = wanted ? path[i].attr == wanted : path[i].attr->flags.array && i + 1 < path.size();
        if (match) {
            if (!path[i].attr->flags.array)
                return ZStatus::kInvalidParameter;
            path[i].index = static_cast<int>(index);
            *this = withPath(*ref, std::move(path));
            return ZStatus::kSuccess;
        }
    }
    return ZStatus::kInvalidParameter;
}

bool ZPlug::isConnected(ZStatus* status) const {
    return isSource(status) || isDestination(status);
}

bool ZPlug::isSource(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    if (!ref)
        return false;
    for (const auto& c : ref->node->outgoing)
        if (c->src == ref->path)
            return true;
    return false;
}

bool ZPlug::isDestination(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    if (!ref)
        return false;
    for (const auto& c : ref->node->incoming)
        if (c->dst == ref->path)
            return true;
    return false;
}

unsigned int ZPlug::numConnectedElements(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    if (!ref || !oz::isArrayPath(ref->path))
        return 0;
    std::vector<int> seen;
    auto note = [&](const Path& p) {
        if (p.size() >= ref->path.size() && oz::covers(ref->path, p) && p[ref->path.size() - 1].index >= 0) {
            const int index = p[ref->path.size() - 1].index;
            if (std::find(seen.begin(), seen.end(), index) == seen.end())
                seen.push_back(index);
        }
    };
    for (const auto& c : ref->node->incoming)
        note(c->dst);
    for (const auto& c : ref->node->outgoing)
        note(c->src);
    return static_cast<unsigned int>(seen.size());
}

unsigned int ZPlug::numConnectedChildren(ZStatus* status) const {
    const PlugRef* ref = usable(*this, status);
    if (!ref)
        return 0;
    std::vector<unsigned int> seen;
    auto note = [&](const Path& p) {
        if (p.size() > ref->path.size() && oz::covers(ref->path, p)) {
            const unsigned int index = p[ref->path.size()].slot;
            if (std::find(seen.begin(), seen.end(), index) == seen.end())
                seen.push_back(index);
        }
    };
    for (const auto& c : ref->node->incoming)
        note(c->dst);
    for (const auto& c : ref->node->outgoing)
        note(c->src);
    return static_cast<unsigned int>(seen.size());
}

bool ZPlug::connectedTo(ZPlugArray& plugs, bool asDst, bool asSrc, ZStatus* status) const {
    plugs.clear();
    const PlugRef* ref = usable(*this, status);
    if (!ref)
        return false;
    if (asDst)
        for (const auto& c : ref->node->incoming)
            if (c->dst == ref->path)
                plugs.append(
                    PlugAccess::make(PlugRef{PlugAccess::sharedNode(*c->srcNode), c->srcRoot, c->src}));
    if (asSrc)
        for (const auto& c : ref->node->outgoing)
            if (c->src == ref->path)
                plugs.append(
                    PlugAccess::make(PlugRef{PlugAccess::sharedNode(*c->dstNode), c->dstRoot, c->dst}));
    return plugs.length() > 0;
}

ZPlug ZPlug::source(ZStatus* status) const {
    ZPlugArray plugs;
    connectedTo(plugs, true, false, status);
    return plugs.length() ? plugs[0] : ZPlug();
}

bool ZPlug::destinations(ZPlugArray& plugs, ZStatus* status) const {
    return connectedTo(plugs, false, true, status);
}

bool ZPlug::asBool(ZStatus* status) const {
    return number(*this, status) != 0.0;
}
short ZPlug::asShort(ZStatus* status) const {
    return static_cast<short>(number(*this, status));
}
int ZPlug::asInt(ZStatus* status) const {
    return static_cast<int>(number(*this, status));
}
float ZPlug::asFloat(ZStatus* status) const {
    return static_cast<float>(number(*this, status));
}
double ZPlug::asDouble(ZStatus* status) const {
    return number(*this, status);
}

ZString ZPlug::asString(ZStatus* status) const {
    ZString value;
    if (const Slot* slot = evaluated(*this, status))
        setStatus(status, oz::readString(*slot, *PlugAccess::get(*this)->leaf(), value));
    return value;
}

ZObject ZPlug::asZObject(ZStatus* status) const {
    ZObject value;
    if (const Slot* slot = evaluated(*this, status))
        setStatus(status, oz::readObject(*slot, *PlugAccess::get(*this)->leaf(), value));
    return value;
}

ZTime ZPlug::asTime(ZStatus* status) const {
    return ZTime(number(*this, status), ZTime::uiUnit());
}
ZDistance ZPlug::asDistance(ZStatus* status) const {
    return ZDistance(number(*this, status), ZDistance::kCentimeters);
}
ZAngle ZPlug::asAngle(ZStatus* status) const {
    return ZAngle(number(*this, status), ZAngle::kRadians);
}

ZStatus ZPlug::getValue(bool& value) const {
    return fetch(*this, &ZPlug::asBool, value);
}
ZStatus ZPlug::getValue(short& value) const {
    return fetch(*this, &ZPlug::asShort, value);
}
ZStatus ZPlug::getValue(int& value) const {
    return fetch(*this, &ZPlug::asInt, value);
}
ZStatus ZPlug::getValue(float& value) const {
    return fetch(*this, &ZPlug::asFloat, value);
}
ZStatus ZPlug::getValue(double& value) const {
    return fetch(*this, &ZPlug::asDouble, value);
}
ZStatus ZPlug::getValue(ZString& value) const {
    return fetch(*this, &ZPlug::asString, value);
}
ZStatus ZPlug::getValue(ZObject& value) const {
    return fetch(*this, &ZPlug::asZObject, value);
}
ZStatus ZPlug::getValue(ZTime& value) const {
    return fetch(*this, &ZPlug::asTime, value);
}
ZStatus ZPlug::getValue(ZDistance& value) const {
    return fetch(*this, &ZPlug::asDistance, value);
}
ZStatus ZPlug::getValue(ZAngle& value) const {
    return fetch(*this, &ZPlug::asAngle, value);
}

ZStatus ZPlug::setValue(bool value) {
    return setNumber(*this, value ? 1.0 : 0.0);
}
ZStatus ZPlug::setValue(short value) {
    return setNumber(*this, value);
}
ZStatus ZPlug::setValue(int value) {
    return setNumber(*this, value);
}
ZStatus ZPlug::setValue(float value) {
    return setNumber(*this, value);
}
ZStatus ZPlug::setValue(double value) {
    return setNumber(*this, value);
}
ZStatus ZPlug::setValue(const char* value) {
    return setValue(ZString(value));
}
ZStatus ZPlug::setValue(const ZTime& value) {
    return setNumber(*this, value.as(ZTime::uiUnit()));
}
ZStatus ZPlug::setValue(const ZDistance& value) {
    return setNumber(*this, value.as(ZDistance::kCentimeters));
}
ZStatus ZPlug::setValue(const ZAngle& value) {
    return setNumber(*this, value.as(ZAngle::kRadians));
}

ZStatus ZPlug::setValue(const ZString& value) {
    const PlugRef* ref = usable(*this, nullptr);
    if (!ref)
        return ZStatus::kInvalidParameter;
    return Graph::instance().setValue(*ref->node, ref->path,
                                      [&value](Slot& slot, const oz::Attribute& attribute) {
                                          return oz::writeString(slot, attribute, value);
                                      });
}

ZStatus ZPlug::setValue(const ZObject& value) {
    const PlugRef* ref = usable(*this, nullptr);
    if (!ref)
        return ZStatus::kInvalidParameter;
    return Graph::instance().setValue(*ref->node, ref->path,
                                      [&value](Slot& slot, const oz::Attribute& attribute) {
                                          return oz::writeObject(slot, attribute, value);
                                      });
}

// Friends of ZPlug rather than members, so the class's export does not cover
// them: plug-ins compare plugs with these.
OZ_API bool operator==(const ZPlug& a, const ZPlug& b) {
    const PlugRef* x = PlugAccess::get(a);
    const PlugRef* y = PlugAccess::get(b);
    if (!x || !y)
        return !x && !y;
    return x->node == y->node && x->path == y->path;
}

OZ_API bool operator==(const ZPlug& plug, const ZObject& attribute) {
    const PlugRef* ref = PlugAccess::get(plug);
    return ref && !ref->path.empty() && ref->leaf() == oz::attributeOf(attribute);
}
