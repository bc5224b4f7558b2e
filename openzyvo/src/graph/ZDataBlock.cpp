#include "core/StatusOut.h"
#include "graph/BlockAccess.h"
#include "graph/Graph.h"
#include "graph/HandleAccess.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZPlug.h>

using oz::EvalFrame;
using oz::Path;
using oz::setStatus;
using oz::Slot;

namespace {

// The path of a plug or attribute of the node being computed; attributes
// below an array need a plug (or the array's handle) to choose the element.
bool pathOf(const EvalFrame* frame, const ZObject& attribute, Path& path, ZStatus* status) {
    const bool ok =
        frame && frame->node->pathTo(oz::attributeOf(attribute), path) && oz::isFullySpecified(path);
    setStatus(status, ok ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return ok;
}

bool pathOf(const EvalFrame* frame, const ZPlug& plug, Path& path, ZStatus* status) {
    const oz::PlugRef* ref = oz::PlugAccess::get(plug);
    const bool ok =
        frame && ref && ref->valid() && ref->node.get() == frame->node && oz::isFullySpecified(ref->path);
    setStatus(status, ok ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    if (ok)
        path = ref->path;
    return ok;
}

Slot* input(const EvalFrame* frame, const Path& path, ZStatus* status) {
    Slot* slot = oz::Graph::instance().evaluator().pull(*frame->node, path, *frame->context);
    if (!slot)
        setStatus(status, ZStatus::kInvalidParameter);
    return slot;
}

Slot* output(const EvalFrame* frame, const Path& path, ZStatus* status) {
    Slot* slot = oz::Graph::instance().evaluator().storage(*frame->node, path, *frame->context);
    if (!slot)
        setStatus(status, ZStatus::kInvalidParameter);
    return slot;
}

template <typename Target>
ZDataHandle valueHandle(EvalFrame* frame, const Target& target, ZStatus* status, bool read) {
    Path path;
    if (!pathOf(frame, target, path, status))
        return ZDataHandle();
    Slot* slot = read ? input(frame, path, status) : output(frame, path, status);
    return slot ? oz::HandleAccess::make(slot, path.back().attr) : ZDataHandle();
}

template <typename Target>
ZArrayDataHandle arrayHandle(EvalFrame* frame, const Target& target, ZStatus* status, bool read) {
    Path path;
    if (!pathOf(frame, target, path, status))
        return ZArrayDataHandle();
    if (!oz::isArrayPath(path)) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZArrayDataHandle();
    }
    Slot* slot = read ? input(frame, path, status) : output(frame, path, status);
    return slot ? oz::ArrayHandleAccess::make(slot, path.back().attr) : ZArrayDataHandle();
}

template <typename Target> ZStatus clean(EvalFrame* frame, const Target& target) {
    Path path;
    ZStatus status;
    if (!pathOf(frame, target, path, &status))
        return status;
    Slot* slot = output(frame, path, &status);
    if (!slot)
        return status;
    oz::setDirtyTree(*slot, false);
    return ZStatus::kSuccess;
}

template <typename Target> bool isCleanPlug(EvalFrame* frame, const Target& target, ZStatus* status) {
    Path path;
    if (!pathOf(frame, target, path, status))
        return false;
    const Slot* slot = output(frame, path, status);
    return slot && !slot->dirty;
}

} // namespace

ZDataHandle ZDataBlock::inputValue(const ZPlug& plug, ZStatus* status) {
    return valueHandle(m_frame, plug, status, true);
}
ZDataHandle ZDataBlock::inputValue(const ZObject& attribute, ZStatus* status) {
    return valueHandle(m_frame, attribute, status, true);
}
ZDataHandle ZDataBlock::outputValue(const ZPlug& plug, ZStatus* status) {
    return valueHandle(m_frame, plug, status, false);
}
ZDataHandle ZDataBlock::outputValue(const ZObject& attribute, ZStatus* status) {
    return valueHandle(m_frame, attribute, status, false);
}
ZArrayDataHandle ZDataBlock::inputArrayValue(const ZPlug& plug, ZStatus* status) {
    return arrayHandle(m_frame, plug, status, true);
}
ZArrayDataHandle ZDataBlock::inputArrayValue(const ZObject& attribute, ZStatus* status) {
    return arrayHandle(m_frame, attribute, status, true);
}
ZArrayDataHandle ZDataBlock::outputArrayValue(const ZPlug& plug, ZStatus* status) {
    return arrayHandle(m_frame, plug, status, false);
}
ZArrayDataHandle ZDataBlock::outputArrayValue(const ZObject& attribute, ZStatus* status) {
    return arrayHandle(m_frame, attribute, status, false);
}

ZStatus ZDataBlock::setClean(const ZPlug& plug) {
    return clean(m_frame, plug);
}
ZStatus ZDataBlock::setClean(const ZObject& attribute) {
    return clean(m_frame, attribute);
}
bool ZDataBlock::isClean(const ZPlug& plug, ZStatus* status) {
    return isCleanPlug(m_frame, plug, status);
}
bool ZDataBlock::isClean(const ZObject& attribute, ZStatus* status) {
    return isCleanPlug(m_frame, attribute, status);
}

ZDGContext ZDataBlock::context(ZStatus* status) const {
    setStatus(status, m_frame ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return m_frame ? m_frame->context->asContext() : ZDGContext();
}
