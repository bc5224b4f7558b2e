#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArrayDataHandle.h>
#include <OpenZyvo/ZDGContext.h>
#include <OpenZyvo/ZDataHandle.h>

class ZPlug;

namespace oz {
struct EvalFrame;
struct BlockAccess;
} // namespace oz

// The values of one node during compute(), in the context being evaluated.
// inputValue() evaluates what it reads (a connected input reads its source
// first); outputValue() hands out storage to write without evaluating. A
// plug left dirty after compute() is computed again at its next read.
class OZ_API ZDataBlock {
public:
    ZDataHandle inputValue(const ZPlug& plug, ZStatus* status = nullptr);
    ZDataHandle inputValue(const ZObject& attribute, ZStatus* status = nullptr);
    ZDataHandle outputValue(const ZPlug& plug, ZStatus* status = nullptr);
    ZDataHandle outputValue(const ZObject& attribute, ZStatus* status = nullptr);
    ZArrayDataHandle inputArrayValue(const ZPlug& plug, ZStatus* status = nullptr);
    ZArrayDataHandle inputArrayValue(const ZObject& attribute, ZStatus* status = nullptr);
    ZArrayDataHandle outputArrayValue(const ZPlug& plug, ZStatus* status = nullptr);
    ZArrayDataHandle outputArrayValue(const ZObject& attribute, ZStatus* status = nullptr);

    // Marks a plug (with its children and elements) as holding its final value.
    ZStatus setClean(const ZPlug& plug);
    ZStatus setClean(const ZObject& attribute);
    bool isClean(const ZPlug& plug, ZStatus* status = nullptr);
    bool isClean(const ZObject& attribute, ZStatus* status = nullptr);

    ZDGContext context(ZStatus* status = nullptr) const;

private:
    friend struct oz::BlockAccess;
    explicit ZDataBlock(oz::EvalFrame* frame)
        : m_frame(frame) {}
    oz::EvalFrame* m_frame = nullptr;
};
